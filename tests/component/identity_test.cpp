#include <gtest/gtest.h>

#include "tests/component/library.h"

namespace zef::test {
namespace {

class Identity : public ConnectedTest {
 protected:
  Object Child(const Object& object, std::string_view name) { return object.Get(name).value.object(); }
  Object Rows() { return Child(session, "conDBConnection").Call("Execute", "SELECT * FROM Folders").value.object(); }
};

TEST_F(Identity, OfAChildIsTheSameAtEachReading) {
  const Object task = Create("CTask");
  EXPECT_EQ(Child(task, "Recurrence"), Child(task, "Recurrence"));
}
TEST_F(Identity, OfAChildOutlivesItsOutsideReferences) {
  const Object task = Create("CTask");
  Child(task, "Recurrence").Put("OccurencesNo", 7);
  EXPECT_EQ(Child(task, "Recurrence").Get("OccurencesNo").value.number(), 7);
}
TEST_F(Identity, OfTwoChildrenDiffers) {
  const Object task = Create("CTask");
  EXPECT_FALSE(Child(task, "Recurrence").get() == Child(task, "Notification").get());
}
TEST_F(Identity, OfAnAssignedChildIsThatOfTheChild) {
  const Object task = Create("CTask");
  const Object rule = Create("CRecurrence");
  task.Put("Recurrence", rule, DISPATCH_PROPERTYPUTREF);
  EXPECT_EQ(Child(task, "Recurrence"), rule);
}
TEST_F(Identity, OfAChildBelongsToTheObjectNotToItsOwner) {
  const Object task = Create("CTask");
  const Object other = Create("CTask");
  other.Put("Recurrence", Child(task, "Recurrence"), DISPATCH_PROPERTYPUTREF);
  EXPECT_EQ(Child(task, "Recurrence"), Child(other, "Recurrence"));
}
TEST_F(Identity, OfTheSessionIsTheSameInEveryRecord) {
  EXPECT_EQ(Child(session.Call("CreateTask").value.object(), "Session"), session);
}
TEST_F(Identity, OfTheSessionReachesTheChildren) {
  EXPECT_EQ(Child(Child(session.Call("CreateTask").value.object(), "Recurrence"), "Session"), session);
}
TEST_F(Identity, OfTheConnectionIsTheSameAtEachReading) {
  EXPECT_EQ(Child(session, "conDBConnection"), Child(session, "conDBConnection"));
}
TEST_F(Identity, OfAnElementIsThatOfWhatWasAdded) {
  const Object folders = Create("CFolders");
  const Object folder = Create("CFolder");
  folders.Call("Add", folder);
  EXPECT_EQ(folders.Get("ItemByIdx", 1).value.object(), folder);
  EXPECT_EQ(folders.Get("ItemByKey", "0").value.object(), folder);
}
TEST_F(Identity, OfAnElementIsTheSameByPositionAndKey) {
  const Object folders = Loaded("CFolders", "LoadFoldersWithCriteria");
  const Object first = folders.Get("ItemByIdx", 1).value.object();
  EXPECT_EQ(folders.Get("ItemByKey", std::to_string(first.Get("ID").value.number())).value.object(), first);
}
TEST_F(Identity, OfTwoLoadsOfARowDiffers) {
  const Object folder = session.Call("GetFolder", 1).value.object();
  EXPECT_FALSE(folder.get() == session.Call("GetFolder", 1).value.object().get());
}
TEST_F(Identity, OfTheFieldsIsTheSameAtEachReading) {
  const Object rows = Rows();
  EXPECT_EQ(Child(rows, "Fields"), Child(rows, "Fields"));
}
TEST_F(Identity, OfTheFieldsIsNotThatOfTheirRecordset) {
  const Object rows = Rows();
  EXPECT_FALSE(Child(rows, "Fields").get() == rows.get());
}
TEST_F(Identity, OfAFieldIsTheSameByPositionAndName) {
  const Object fields = Child(Rows(), "Fields");
  EXPECT_EQ(fields.Get("Item", 0).value.object(), fields.Get("Item", "fld_id").value.object());
}
TEST_F(Identity, OfTwoFieldsDiffers) {
  const Object fields = Child(Rows(), "Fields");
  EXPECT_FALSE(fields.Get("Item", 0).value.object().get() == fields.Get("Item", 1).value.object().get());
}
TEST_F(Identity, OfTheErrorsIsTheSameAtEachReading) {
  const Object connection = Child(session, "conDBConnection");
  EXPECT_EQ(Child(connection, "Errors"), Child(connection, "Errors"));
}
TEST_F(Identity, OfTheErrorsIsNotThatOfTheirConnection) {
  const Object connection = Child(session, "conDBConnection");
  EXPECT_FALSE(Child(connection, "Errors").get() == connection.get());
}
TEST_F(Identity, OfAnErrorIsTheSameAtEachReading) {
  const Object connection = Child(session, "conDBConnection");
  connection.Call("Execute", "SELECT * FROM NoSuchTable");
  const Object errors = Child(connection, "Errors");
  EXPECT_EQ(errors.Get("Item", 0).value.object(), errors.Get("Item", 0).value.object());
}
TEST_F(Identity, OfASideSurvivesTheEndOfAnother) {
  const Object connection = Child(session, "conDBConnection");
  Object errors = Child(connection, "Errors");
  connection.Call("Execute", "SELECT * FROM NoSuchTable");
  const Object error = errors.Get("Item", 0).value.object();
  errors = Object();
  EXPECT_EQ(Child(connection, "Errors").Get("Item", 0).value.object(), error);
}
TEST_F(Identity, OfACloneDiffers) {
  const Object task = Create("CTask");
  EXPECT_FALSE(task.Call("Clone").value.object().get() == task.get());
}
TEST_F(Identity, OfACloneIntoAnObjectIsThatOfTheObject) {
  const Object target = Create("CTask");
  EXPECT_EQ(Create("CTask").Call("Clone", target).value.object(), target);
}
TEST_F(Identity, IsThatOfItsUnknownInterface) {
  void* unknown = nullptr;
  EXPECT_EQ(session->QueryInterface(IID_IUnknown, &unknown), S_OK);
  EXPECT_EQ(unknown, session.get());
  static_cast<IUnknown*>(unknown)->Release();
}

}  // namespace
}  // namespace zef::test
