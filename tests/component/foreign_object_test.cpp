#include <gtest/gtest.h>

#include <filesystem>

#include "tests/component/library.h"
#include "tests/support/foreign_objects.h"

namespace zef::test {
namespace {

class PassedObject : public ComponentTest {
 protected:
  static Variant Of(ForeignObject& object) {
    object.AddRef();
    return Variant::Of(VT_DISPATCH, static_cast<IDispatch*>(&object));
  }
  Object folder = Create("CFolder");
  const Object tags = Create("CTags");
};

TEST_F(PassedObject, OfAClientsOwnIsRefused) {
  ForeignObject foreign;
  EXPECT_EQ(folder.Put("Session", Of(foreign)).result, DISP_E_TYPEMISMATCH);
}
TEST_F(PassedObject, OfAClientsOwnKeepsItsCount) {
  ForeignObject foreign;
  folder.Put("Session", Of(foreign));
  EXPECT_EQ(foreign.references, 1u);
}
TEST_F(PassedObject, ThatBoastsIsRefused) {
  BoastingObject boasting;
  EXPECT_EQ(folder.Put("Session", Of(boasting)).result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(boasting.references, 1u);
}
TEST_F(PassedObject, ThatGivesNothingIsRefused) {
  EmptyHandedObject empty_handed;
  EXPECT_EQ(folder.Put("Session", Of(empty_handed)).result, DISP_E_TYPEMISMATCH);
}
TEST_F(PassedObject, ThatStandsForOneOfTheLibraryIsTakenAsThatOne) {
  const Object session = Create("CSession");
  StandInObject stand_in(session);
  EXPECT_EQ(folder.Put("Session", Of(stand_in)).result, S_OK);
  EXPECT_EQ(folder.Get("Session").value.object(), session);
}
TEST_F(PassedObject, MayGiveUpTheObjectUnderTheCall) {
  IDispatch* const victim = folder.get();
  victim->AddRef();
  const DISPID member = folder.Number("Session");
  folder = Object();  // the last reference is the one that is given up
  SpitefulObject spiteful(victim);
  Variant value = Of(spiteful);
  DISPID assigned = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&value.raw(), &assigned, 1, 1};
  EXPECT_EQ(victim->Invoke(member, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr),
            DISP_E_TYPEMISMATCH);
}
TEST_F(PassedObject, OfAnotherClassIsRefused) {
  EXPECT_EQ(folder.Put("Session", Create("CTask")).result, DISP_E_TYPEMISMATCH);
}
TEST_F(PassedObject, OfAnotherClassLeavesThePropertyAsItWas) {
  const Object session = Create("CSession");
  folder.Put("Session", session);
  folder.Put("Session", Create("CTask"));
  EXPECT_EQ(folder.Get("Session").value.object(), session);
}
TEST_F(PassedObject, OfAnotherClassAsAnArgumentTellsItsPlace) {
  const Outcome outcome = Create("CSession").Call("LoadChildFolders", Create("CTasks"), 0);
  EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(outcome.argument, 1u);
}
TEST_F(PassedObject, OfAnotherClassIsNotAdded) {
  EXPECT_EQ(tags.Call("Add", Create("CTask")).result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(tags.Get("Count").value.number(), 0);
}
TEST_F(PassedObject, OfAnotherClassByReferenceIsRefused) {
  const Object task = Create("CTask");
  IDispatch* pointer = task.get();
  EXPECT_EQ(tags.Call("Add", Variant::Ref(VT_DISPATCH, &pointer)).result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(task.References(), 1u);
}
TEST_F(PassedObject, ThatIsATextIsRefused) { EXPECT_EQ(tags.Call("Add", "a tag").result, DISP_E_TYPEMISMATCH); }
TEST_F(PassedObject, ThatIsNullIsRefused) { EXPECT_EQ(tags.Call("Add", Variant::Null()).result, DISP_E_TYPEMISMATCH); }
TEST_F(PassedObject, ThatIsAFactoryIsRefused) {
  IClassFactory* const factory = Library::Shared().Factory("CTag");
  EXPECT_EQ(tags.Call("Add", Variant::Of(VT_UNKNOWN, static_cast<IUnknown*>(factory))).result, DISP_E_TYPEMISMATCH);
}
TEST_F(PassedObject, ThatIsAnEnumeratorIsRefused) {
  EXPECT_EQ(tags.Call("Add", std::move(tags.Get("NewEnum").value)).result, DISP_E_TYPEMISMATCH);
}

/// A second copy of the library, whose objects look the same and are laid out the same, but are not its own.
class SecondCopy : public ComponentTest {
 protected:
  static std::string CopiedLibrary(const std::filesystem::path& folder) {
    const std::filesystem::path copy = folder / "libZEFComponents-copy.so";
    std::filesystem::copy_file(LibraryPath(), copy);
    return copy;
  }

  TemporaryFolder folder;
  const Library other{CopiedLibrary(folder.path())};
};

TEST_F(SecondCopy, CreatesObjects) { EXPECT_EQ(other.Create("CSession").Get("UserID").value.number(), -1); }
TEST_F(SecondCopy, DoesNotTakeTheObjectsOfTheFirst) {
  EXPECT_EQ(other.Create("CTags").Call("Add", Create("CTag")).result, DISP_E_TYPEMISMATCH);
}
TEST_F(SecondCopy, GivesObjectsThatTheFirstDoesNotTake) {
  EXPECT_EQ(Create("CTags").Call("Add", other.Create("CTag")).result, DISP_E_TYPEMISMATCH);
}
TEST_F(SecondCopy, CountsItsOwnObjects) {
  const Object tag = other.Create("CTag");
  EXPECT_EQ(Library::Shared().CanUnloadNow(), S_OK);
  EXPECT_EQ(other.CanUnloadNow(), S_FALSE);
}

}  // namespace
}  // namespace zef::test
