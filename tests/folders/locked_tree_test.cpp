#include <thread>

#include "tests/folders/folder_tree_fixture.h"

namespace zef::test {
namespace {

/// What operations do while another client writes for longer than they wait.
class LockedTree : public FolderTreeTest {
 protected:
  LockedTree() {
    InsertFolder(100, 0, FT_TASKS);
    InsertFolder(200, 0, FT_TASKS);
    InsertTasks(100, 1, 2);
  }
  /// Starts an operation on a session and thread of its own; `told` becomes its error record, or "done".
  std::thread Start(std::string& told, bool (*operation)(CSession&)) {
    return std::thread([this, &told, operation] {
      const Ref<CSession> client = database.OpenSession();
      const bool done = operation(*client);
      told = done ? "done" : client->GetEntireErrorDesc() + (client->TransactionStarted() ? ", open" : "");
    });
  }
};

TEST_F(LockedTree, OperationsFailWithNothingChangedAndNoTransactionOpen) {
  const std::string before = Everything();
  const Ref<Connection> other = database.Connect();
  other->BeginTrans();
  std::string deleting, copying, deleting_task;
  std::thread clients[] = {
      Start(deleting, [](CSession& client) { return client.DeleteFolder(100); }),
      Start(copying, [](CSession& client) { return client.CopyFolder(100, 200); }),
      Start(deleting_task, [](CSession& client) { return client.DeleteTask(1); }),
  };
  for (std::thread& client : clients) client.join();
  other->RollbackTrans();
  EXPECT_EQ(deleting,
            "[DeleteFolder] Error: -2147467259 - The database is locked by another program; try again later.");
  EXPECT_EQ(copying, "[RollbackTransaction] Error: -2147467259 - No transaction is started.");
  EXPECT_EQ(deleting_task, copying);
  EXPECT_EQ(Everything(), before);
}

}  // namespace
}  // namespace zef::test
