#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "session/fields_array.h"
#include "tests/support/database.h"
#include "tests/support/raised.h"
#include "tests/support/record_fixture.h"

namespace zef::test {

inline std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// A file of tests/textviews/expected/.
inline std::string Expected(const std::string& name) { return BytesOf("tests/textviews/expected/" + name + ".txt"); }

/// A database with folder 900, category 901 and status 902, and a folder for the files that records write.
class ViewTest : public RecordTest {
 protected:
  ViewTest() {
    Run("INSERT INTO Folders (FLD_ID,FLD_ParentID,FLD_Name) VALUES (900,0,'Müller''s')");
    Run("INSERT INTO Categories (CAT_ID,CAT_Name) VALUES (901,'Blau')");
    Run("INSERT INTO lstTaskStatus (TS_ID,TS_Name) VALUES (902,'Begonnen')");
  }

  std::string Path(const std::string& name = "export.txt") const { return (folder_.path() / name).string(); }

  template <class R>
  Ref<R> New() {
    auto record = MakeRef<R>();
    record->SetSession(session);
    return record;
  }

  /// What a record writes, byte by byte.
  template <class R>
  std::string Exported(const R& record) {
    EXPECT_TRUE(record.Save2File(Path())) << session->GetEntireErrorDesc();
    return BytesOf(Path());
  }

  /// The rows as "label|value", without those that are empty at the end.
  template <class R>
  Texts LabelRows(const R& record) {
    FieldsArray fields;
    std::int32_t count = 0;
    EXPECT_TRUE(record.GetFieldsArray(FN_SERIALIZE, fields, count)) << session->GetEntireErrorDesc();
    Texts rows;
    for (std::int32_t row = 0; row <= fields.LastRow(); ++row) rows.push_back(fields(row, 0) + "|" + fields(row, 1));
    while (!rows.empty() && rows.back() == "|") rows.pop_back();
    return rows;
  }

  /// One of them.
  template <class R>
  std::string LabelRow(const R& record, std::size_t row) {
    return LabelRows(record).at(row);
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace zef::test
