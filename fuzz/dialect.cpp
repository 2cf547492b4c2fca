/// The SQL dialect: any text and drawn statements. What the writer makes of a statement that it takes must be one of
/// the engine's language, and running it gives rows or a failure. An input that begins with a byte 0 is a text.

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "fuzz/support/input.h"
#include "fuzz/support/statements.h"
#include "platform/connection.h"
#include "platform/engine.h"
#include "platform/recordset.h"
#include "tests/support/database.h"
#include "tests/support/planner.h"

namespace zef::fuzz {
namespace {

constexpr const char* kRows[] = {
    "CREATE TABLE Folders (FLD_ID Long NOT NULL CONSTRAINT PK_Folders PRIMARY KEY, FLD_ParentID Long, FLD_Name "
    "Text(20), "
    "FLD_Note Memo, FLD_Type Byte, FLD_Open YesNo)",
    "CREATE TABLE Events (EVE_ID Long NOT NULL CONSTRAINT PK_Events PRIMARY KEY, EVE_FolderID Long, EVE_Text Text(10), "
    "EVE_Start DateTime, EVE_Cost Double, EVE_Rank Short, EVE_Data LongBinary)",
    "CREATE TABLE Seen (SEE_User Long NOT NULL, SEE_Date DateTime)",
    "CREATE INDEX IX_Parent ON Folders (FLD_ParentID)",
    "CREATE INDEX IX_Name ON Folders (FLD_Name)",
    "CREATE INDEX IX_Start ON Events (EVE_Start)",
    "INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Name, FLD_Type, FLD_Open) VALUES (1, 0, 'Äpfel', 4, True)",
    "INSERT INTO Folders (FLD_ID, FLD_Note) VALUES (2, 'it''s')",
    "INSERT INTO Events (EVE_ID, EVE_FolderID, EVE_Text, EVE_Start, EVE_Cost) VALUES (1, 1, '5', #5/1/2024 9:00#, 2.5)",
    "INSERT INTO Events (EVE_ID, EVE_Start, EVE_Rank) VALUES (2, #1/1/1800 6:00#, -3)",
    "INSERT INTO Seen (SEE_User, SEE_Date) VALUES (1, #12/30/1899#)",
};

/// Tables with columns of every type and a few rows, seen through the library and from outside.
class World {
 public:
  World() {
    const std::string path = (folder_.path() / "world.db").string();
    CreateDatabaseFile(path, "");
    connection_->Open("Provider=SQLite;Data Source=" + path);
    for (const char* statement : kRows) connection_->Execute(statement);
    outside_ = OpenDatabaseFile(path, "");
    RegisterFunctions(outside_.get(), [](const RunTimeError&) {});
    catalog_ = std::make_unique<test::FileCatalog>(outside_.get());
  }

  /// Raises if the dialect does not take the statement.
  void RequireEngineTakes(std::string_view text) const {
    sql::Shape shape;
    sql::ReadShape(text, shape);
    const std::string written = sql::Compile(sql::Parse(shape), shape, *catalog_, SqliteDialect(), {}).text;
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v2(outside_.get(), written.c_str(), -1, &statement, nullptr);
    sqlite3_finalize(statement);
    if (code != SQLITE_OK) Refused(std::string(text), written);
  }

  void Run(const std::string& text) const {
    constexpr int kMostRows = 100;
    connection_->BeginTrans();
    try {
      const Ref<Recordset> rows = connection_->Execute(text);
      for (int row = 0; rows->IsOpen() && !rows->EndOfFile() && row < kMostRows; ++row) rows->MoveNext();
    } catch (const RunTimeError&) {
    }
    connection_->RollbackTrans();
  }

 private:
  /// The engine has rules of its own for what may stand where, and its limits; a text that it cannot read is ours.
  void Refused(const std::string& text, const std::string& written) const {
    const std::string sentence = sqlite3_errmsg(outside_.get());
    for (const char* own : {"syntax error", "no such", "unrecognized token", "incomplete input", "wrong number of"}) {
      if (sentence.find(own) != std::string::npos) Report(sentence + " in " + written + " from " + text);
    }
  }

  test::TemporaryFolder folder_;
  Ref<Connection> connection_ = MakeRef<Connection>();
  DatabaseHandle outside_;
  std::unique_ptr<test::FileCatalog> catalog_;
};

}  // namespace
}  // namespace zef::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const zef::fuzz::World world;
  const std::span bytes(data, size);
  zef::test::Choices choices(bytes);
  const bool is_text = size > 0 && data[0] == 0;
  const std::string text =
      is_text ? std::string(reinterpret_cast<const char*>(data) + 1, size - 1) : zef::fuzz::DrawnStatement(choices);
  if (zef::sql::IsSchemaChange(text)) return 0;
  try {
    world.RequireEngineTakes(text);
  } catch (const zef::RunTimeError&) {  // a refusal is an answer
    return 0;
  }
  world.Run(text);
  return 0;
}
