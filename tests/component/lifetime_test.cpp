#include <gtest/gtest.h>

#include <algorithm>

#include "component/classes.h"
#include "component/identifiers.h"
#include "tests/component/library.h"

namespace zef::test {
namespace {

class Lifetime : public ComponentTest {
 protected:
  HRESULT CanUnloadNow() { return Library::Shared().CanUnloadNow(); }
};

TEST_F(Lifetime, OfAnObjectKeepsTheLibraryLoaded) {
  const Object tag = Create("CTag");
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
}
TEST_F(Lifetime, OfTheLastObjectLetsTheLibraryGo) {
  Create("CTag");
  EXPECT_EQ(CanUnloadNow(), S_OK);
}
TEST_F(Lifetime, EndsWithTheLastReference) {
  const Object tag = Create("CTag");
  EXPECT_EQ(tag->AddRef(), 2u);
  EXPECT_EQ(tag->Release(), 1u);
}
TEST_F(Lifetime, OfAFactoryKeepsTheLibraryLoaded) {
  IClassFactory* const factory = Library::Shared().Factory("CTag");
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
  EXPECT_EQ(factory->Release(), 0u);
}
TEST_F(Lifetime, OfALockKeepsTheLibraryLoaded) {
  IClassFactory* const factory = Library::Shared().Factory("CTag");
  EXPECT_EQ(factory->LockServer(1), S_OK);
  factory->Release();
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
  IClassFactory* const other = Library::Shared().Factory("CTask");
  EXPECT_EQ(other->LockServer(0), S_OK);
  other->Release();
}
TEST_F(Lifetime, OfLocksIsCounted) {
  IClassFactory* const factory = Library::Shared().Factory("CTag");
  factory->LockServer(1);
  factory->LockServer(1);
  factory->LockServer(0);
  factory->Release();
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
  IClassFactory* const other = Library::Shared().Factory("CTag");
  other->LockServer(0);
  other->Release();
}
TEST_F(Lifetime, IsNotShortenedByAnUnlockTooMany) {
  const Object tag = Create("CTag");
  IClassFactory* const factory = Library::Shared().Factory("CTag");
  for (int i = 0; i < 5; ++i) EXPECT_EQ(factory->LockServer(0), E_UNEXPECTED);
  factory->Release();
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
}
TEST_F(Lifetime, OfAnEnumeratorKeepsTheLibraryLoaded) {
  const Outcome walk = Create("CTags").Get("NewEnum");
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
}
TEST_F(Lifetime, OfAnElementIsThatOfTheCollectionAndTheClientTogether) {
  Object tags = Create("CTags");
  Object tag = Create("CTag");
  tag.Put("Text", "kept");
  tags.Call("Add", tag);
  tag = Object();
  tag = tags.Get("ItemByIdx", 1).value.object();
  tags = Object();
  EXPECT_EQ(tag.Get("Text").value.text(), "kept");
}
TEST_F(Lifetime, OfAChildMayOutliveItsOwner) {
  Object rule = Create("CTask").Get("Recurrence").value.object();
  rule.Put("OccurencesNo", 7);
  EXPECT_EQ(rule.Get("OccurencesNo").value.number(), 7);
}
TEST_F(Lifetime, OfASessionLastsAsLongAsItsRecords) {
  const Object task = Create("CTask");
  task.Put("Session", Create("CSession"));
  EXPECT_EQ(task.Get("Session").value.object().Get("UserID").value.number(), -1);
}
TEST_F(Lifetime, OfASessionEndsWithTheReferenceOfItsRecord) {
  const Object task = Create("CTask");
  task.Put("Session", Create("CSession"));
  task.Put("Session", Variant::Nothing());
  EXPECT_FALSE(task.Get("Session").value.object());
}
TEST_F(Lifetime, OfAResultIsTheClients) {
  const Object task = Create("CTask");
  const Object rule = task.Get("Recurrence").value.object();
  EXPECT_EQ(rule.References(), 1u);
}
TEST_F(Lifetime, OfAnArgumentIsTheClients) {
  const Object tag = Create("CTag");
  Create("CTags").Call("Add", tag);
  EXPECT_EQ(tag.References(), 1u);
}

class ConnectedLifetime : public ConnectedTest {};

TEST_F(ConnectedLifetime, OfARecordSavesAfterTheSessionWasReleased) {
  const Object folder = session.Call("CreateFolder").value.object();
  folder.Put("Name", "Choir");
  session = Object();
  EXPECT_TRUE(folder.Call("Save").value.truth());
}
TEST_F(ConnectedLifetime, OfFieldsIsThatOfTheirRecordset) {
  const Object connection = session.Get("conDBConnection").value.object();
  const Object field = connection.Call("Execute", "SELECT FLD_ID FROM Folders WHERE FLD_ID=1")
                           .value.object()
                           .Get("Fields")
                           .value.object()
                           .Get("Item", 0)
                           .value.object();
  EXPECT_EQ(field.Get("Value").value.number(), 1);
}
TEST_F(ConnectedLifetime, OfErrorsIsThatOfTheirConnection) {
  const Object errors = session.Get("conDBConnection").value.object().Get("Errors").value.object();
  session = Object();
  EXPECT_EQ(errors.Get("Count").value.number(), 0);
}
TEST_F(ConnectedLifetime, OfARecordsetKeepsWhatItNeeds) {
  const Object rows =
      session.Get("conDBConnection").value.object().Call("Execute", "SELECT * FROM Folders").value.object();
  session = Object();
  EXPECT_FALSE(rows.Get("EOF").value.truth());
}

class Factory : public ComponentTest {
 protected:
  ~Factory() override { factory->Release(); }

  HRESULT CreateInstance(IUnknown* outer, REFIID riid, void** made) {
    return factory->CreateInstance(outer, riid, made);
  }

  IClassFactory* const factory = Library::Shared().Factory("CTag");
  void* object = this;
};

TEST_F(Factory, CreatesByTheUnknownInterface) {
  EXPECT_EQ(CreateInstance(nullptr, IID_IUnknown, &object), S_OK);
  static_cast<IUnknown*>(object)->Release();
}
TEST_F(Factory, CreatesByTheDefaultInterface) {
  const auto classes = component::PublicClasses();
  const auto tag = std::ranges::find(classes, "CTag", &component::Class::name);
  EXPECT_EQ(CreateInstance(nullptr, component::InterfaceOf(**tag), &object), S_OK);
  static_cast<IUnknown*>(object)->Release();
}
TEST_F(Factory, CreatesANewObjectEachTime) {
  const Object first = Create("CTag");
  EXPECT_FALSE(first == Create("CTag"));
}
TEST_F(Factory, RefusesAnOuterObject) {
  const Object outer = Create("CTask");
  EXPECT_EQ(CreateInstance(outer.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(object, nullptr);
}
TEST_F(Factory, RefusesAnUnknownInterface) {
  EXPECT_EQ(CreateInstance(nullptr, IID_IEnumVARIANT, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
}
TEST_F(Factory, RefusesTheInterfaceOfAnotherClass) {
  EXPECT_EQ(CreateInstance(nullptr, component::InterfaceOf(*component::PublicClasses().front()), &object),
            E_NOINTERFACE);
}
TEST_F(Factory, NeedsAPlaceForTheObject) { EXPECT_EQ(CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER); }
TEST_F(Factory, AnswersToItsTwoInterfacesAlone) {
  EXPECT_EQ(factory->QueryInterface(IID_IDispatch, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
}
TEST_F(Factory, AnswersAsItself) {
  EXPECT_EQ(factory->QueryInterface(IID_IUnknown, &object), S_OK);
  EXPECT_EQ(object, factory);
  factory->Release();
}
TEST_F(Factory, NeedsAPlaceForItsInterface) { EXPECT_EQ(factory->QueryInterface(IID_IUnknown, nullptr), E_POINTER); }

TEST_F(Factory, OfAnUnknownClassIsNotThere) {
  EXPECT_EQ(Library::Shared().GetClassObject(IID_IDispatch, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);
}
TEST_F(Factory, OfAReachedClassIsNotThere) {
  const CLSID connection = component::ClassIdentifier(*component::ReachedClasses().front());
  EXPECT_EQ(Library::Shared().GetClassObject(connection, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
}
TEST_F(Factory, IsHandedOutByItsInterfacesAlone) {
  EXPECT_EQ(Library::Shared().GetClassObject(IdentifierOf("CTag"), IID_IDispatch, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
}
TEST_F(Factory, IsNotHandedOutToNowhere) {
  EXPECT_EQ(Library::Shared().GetClassObject(IdentifierOf("CTag"), IID_IClassFactory, nullptr), E_POINTER);
}

class Interfaces : public ComponentTest {
 protected:
  const Object tag = Create("CTag");
  void* object = this;
};

TEST_F(Interfaces, ThatAnObjectDoesNotHaveAreRefused) {
  EXPECT_EQ(tag->QueryInterface(IID_IClassFactory, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
}
TEST_F(Interfaces, ThatAreRefusedAddNoReference) {
  tag->QueryInterface(IID_IClassFactory, &object);
  EXPECT_EQ(tag.References(), 1u);
}
TEST_F(Interfaces, NeedAPlace) { EXPECT_EQ(tag->QueryInterface(IID_IUnknown, nullptr), E_POINTER); }
TEST_F(Interfaces, OfTheNullIdentifierAreRefused) { EXPECT_EQ(tag->QueryInterface(IID_NULL, &object), E_NOINTERFACE); }

}  // namespace
}  // namespace zef::test
