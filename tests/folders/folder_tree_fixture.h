#pragma once

#include <string>

#include "folders/folder.h"
#include "tests/support/dump.h"
#include "tests/support/fault_sweep.h"
#include "tests/support/raised.h"
#include "tests/support/record_fixture.h"

namespace zef::test {

/// Tests on trees of folders: the system's have the numbers 1 to 12, those of the tests begin at 100, and whatever is
/// copied is numbered from 1000 on.
class FolderTreeTest : public RecordTest {
 protected:
  FolderTreeTest() { Run("UPDATE Sequences SET SEQ_Value=999"); }

  void InsertFolder(std::int32_t id, std::int32_t parent, std::int32_t type, const std::string& name = {}) {
    Run("INSERT INTO Folders (FLD_ID,FLD_ParentID,FLD_Type,FLD_Name) VALUES (" + std::to_string(id) + "," +
        std::to_string(parent) + "," + std::to_string(type) + ",'" + (name.empty() ? "F" + std::to_string(id) : name) +
        "')");
  }
  /// Rows with so many items that have a rule and a notification each, which all have the items' numbers.
  void InsertTasks(std::int32_t folder, std::int32_t first, std::int32_t count) {
    for (std::int32_t id = first; id < first + count; ++id) {
      const std::string n = std::to_string(id);
      Run("INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_RecurrenceID,TSK_NotificationID,TSK_Name) VALUES (" + n + "," +
          std::to_string(folder) + "," + n + "," + n + ",'T" + n + "')");
      InsertChildren(n);
    }
  }
  void InsertEvents(std::int32_t folder, std::int32_t first, std::int32_t count) {
    for (std::int32_t id = first; id < first + count; ++id) {
      const std::string n = std::to_string(id);
      Run("INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_RecurrenceID,EVE_NotificationID,EVE_Text) VALUES (" + n + "," +
          std::to_string(folder) + "," + n + "," + n + ",'E" + n + "')");
      InsertChildren(n);
    }
  }
  void InsertContact(std::int32_t folder, std::int32_t id) {
    Run("INSERT INTO Contacts (CNT_ID,CNT_FolderID,CNT_LastName,CNT_BirthDate) VALUES (" + std::to_string(id) + "," +
        std::to_string(folder) + ",'O''Neill','2/29/1996')");
  }
  void InsertAlarms(std::int32_t folder, std::int32_t first, std::int32_t count) {
    for (std::int32_t id = first; id < first + count; ++id) {
      const std::string n = std::to_string(id);
      Run("INSERT INTO Alarms (ALA_ID,ALA_FolderID,ALA_RecurrenceID,ALA_NotificationID,ALA_Text) VALUES (" + n + "," +
          std::to_string(folder) + "," + n + "," + n + ",'A" + n + "')");
      InsertChildren(n);
    }
  }
  void InsertNotes(std::int32_t folder, std::int32_t first, std::int32_t count) {
    for (std::int32_t id = first; id < first + count; ++id) {
      Run("INSERT INTO Notes (NOT_ID,NOT_FolderID,NOT_Title,NOT_Text) VALUES (" + std::to_string(id) + "," +
          std::to_string(folder) + ",'Title','It''s long')");
    }
  }
  /// Leaves a failure in the list of the connection.
  void LeaveAnOldProviderError() {
    EXPECT_EQ(NumberRaised([&] { connection().Execute("SELECT * FROM NoSuchTable"); }), -2147217865);
  }
  std::string Children(std::int32_t parent) { return "Folders WHERE FLD_ParentID=" + std::to_string(parent); }
  std::string Everything() { return Dump(*database.Connect()); }
  int Depth() { return connection().OpenedEngine().TransactionDepth(); }

 private:
  void InsertChildren(const std::string& number) {
    Run("INSERT INTO Recurrences (REC_ID,REC_Type) VALUES (" + number + ",2)");
    Run("INSERT INTO Notifications (NTF_ID,NTF_Subject) VALUES (" + number + ",'S')");
  }
};

}  // namespace zef::test
