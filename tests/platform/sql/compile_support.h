#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/run_time_error.h"
#include "platform/sql/compile.h"
#include "platform/sql/parser.h"
#include "platform/sqlite/sqlite_dialect.h"
#include "platform/text.h"

namespace zef::sql {

/// A few tables with columns of every type.
class SmallCatalog : public Catalog {
 public:
  const TableInfo* FindTable(std::string_view name) override {
    for (const TableInfo& table : tables()) {
      if (text::EqualNames(table.name, name)) return &table;
    }
    return nullptr;
  }

  static const std::vector<TableInfo>& tables() {
    static const std::vector<TableInfo> tables = {
        {"Folders",
         {{"FLD_ID", Type::Long, 0, true, true, true},
          {"FLD_ParentID", Type::Long, 0, false, false, true},
          {"FLD_Name", Type::Text, 20, false, false, true, true},
          {"FLD_Note", Type::Memo},
          {"FLD_Type", Type::Byte},
          {"FLD_Open", Type::Boolean}},
         "rowid"},
        {"Events",
         {{"EVE_ID", Type::Long, 0, true, true, true},
          {"EVE_FolderID", Type::Long},
          {"EVE_Text", Type::Text, 10},
          {"EVE_Start", Type::Date, 0, false, false, true},
          {"EVE_Cost", Type::Double},
          {"EVE_Rank", Type::Short},
          {"EVE_Data", Type::Binary}},
         "rowid"},
        {"Seen", {{"SEE_User", Type::Long, 0, true}, {"SEE_Date", Type::Date}}, "rowid"},
    };
    return tables;
  }
};

struct CompiledText {
  Shape shape;
  CompiledStatement statement;
};

inline CompiledText CompileText(std::string_view text, CompileOptions options = {}) {
  static SmallCatalog catalog;
  static const SqliteDialect dialect;
  CompiledText compiled;
  ReadShape(text, compiled.shape);
  compiled.statement = Compile(Parse(compiled.shape), compiled.shape, catalog, dialect, options);
  return compiled;
}

/// The engine's text of a statement.
inline std::string Written(std::string_view text, CompileOptions options = {}) {
  return CompileText(text, options).statement.text;
}

/// The condition behind the first WHERE in the engine's text.
inline std::string Where(const std::string& condition, std::string_view table = "Folders") {
  const std::string text = Written("SELECT Null FROM " + std::string(table) + " WHERE " + condition);
  return text.substr(text.find(" WHERE ") + 7);
}

/// The engine's text of an expression over the table.
inline std::string Expression(const std::string& expression, std::string_view table = "Folders") {
  const std::string text = Written("SELECT " + expression + " FROM " + std::string(table));
  return text.substr(7, text.rfind(" FROM ") - 7);
}

inline Type TypeOf(const std::string& expression, std::string_view table = "Folders") {
  return CompileText("SELECT " + expression + " FROM " + std::string(table)).statement.columns.at(0).type;
}

/// The failure of an action; number 0 if there is none.
struct Failure {
  std::int32_t number = 0;
  std::string sentence;
};

inline Failure FailureOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RunTimeError& failure) {
    return {failure.number(), failure.description()};
  }
  return {};
}

inline Failure RefusalOf(std::string_view text) {
  return FailureOf([&] { CompileText(text); });
}

}  // namespace zef::sql
