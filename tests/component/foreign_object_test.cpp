#include <gtest/gtest.h>

#include <filesystem>

#include "tests/component/library.h"
#include "tests/support/foreign_objects.h"

namespace zef::test {
namespace {

/// One that gives up the client's last reference to an object in the middle of a call on it, and stands for another.
class SpitefulStandIn final : public ForeignObject {
 public:
  SpitefulStandIn(IDispatch* victim, const Object& inner) : victim_(victim), inner_(inner) {}
  HRESULT QueryInterface(REFIID riid, void** object) override {
    victim_->Release();
    return inner_->QueryInterface(riid, object);
  }

 private:
  IDispatch* victim_;
  Object inner_;
};

/// One that lets an object of the library answer, but then hands out itself.
class BoastingStandIn final : public ForeignObject {
 public:
  explicit BoastingStandIn(const Object& inner) : inner_(inner) {}
  HRESULT QueryInterface(REFIID riid, void** object) override {
    if (inner_->QueryInterface(riid, object) == S_OK) inner_->Release();
    *object = this;
    AddRef();
    return S_OK;
  }

 private:
  Object inner_;
};

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
TEST_F(PassedObject, ThatBoastsWithAnAnswerOfTheLibraryIsRefused) {
  const Object session = Create("CSession");
  BoastingStandIn boasting(session);
  EXPECT_EQ(folder.Put("Session", Of(boasting)).result, DISP_E_TYPEMISMATCH);
}

/// The object under the call lives as long as the call, though its last reference is given up.
class GivenUpObject : public PassedObject {
 protected:
  GivenUpObject() { victim->AddRef(); }
  HRESULT PutSession(ForeignObject& spiteful) {
    const DISPID member = folder.Number("Session");
    folder = Object();  // what is left is the reference that is given up
    Variant value = Of(spiteful);
    DISPID assigned = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&value.raw(), &assigned, 1, 1};
    return victim->Invoke(member, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr);
  }
  IDispatch* const victim = folder.get();
};

TEST_F(GivenUpObject, CanRefuseWhatGaveItUp) {
  SpitefulObject spiteful(victim);
  EXPECT_EQ(PutSession(spiteful), DISP_E_TYPEMISMATCH);
}
TEST_F(GivenUpObject, CanTakeWhatGaveItUp) {
  const Object session = Create("CSession");
  SpitefulStandIn spiteful(victim, session);
  EXPECT_EQ(PutSession(spiteful), S_OK);
  EXPECT_EQ(session.References(), 2u);  // this one and the one that stands in have theirs; the folder is gone
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
