#include <gmock/gmock.h>

#include <array>
#include <string>
#include <vector>

#include "tests/component/library.h"

namespace zef::test {
namespace {

using testing::ElementsAre;

/// A counted walk over a collection.
class Walk {
 public:
  explicit Walk(const Object& collection) {
    const Outcome outcome = collection.Get("NewEnum");
    EXPECT_EQ(outcome.value.kind(), VT_UNKNOWN);
    void* walk = nullptr;
    EXPECT_EQ(outcome.value.raw().punkVal->QueryInterface(IID_IEnumVARIANT, &walk), S_OK);
    walk_ = static_cast<IEnumVARIANT*>(walk);
  }
  explicit Walk(IEnumVARIANT* owned) : walk_(owned) {}
  ~Walk() { walk_->Release(); }
  Walk(const Walk&) = delete;
  Walk& operator=(const Walk&) = delete;

  IEnumVARIANT* operator->() const { return walk_; }

  /// The texts of the next elements, at most so many; the result of the call stays behind.
  template <std::size_t Count>
  std::vector<std::string> Next() {
    std::array<Variant, Count> elements;
    std::array<VARIANT, Count> raw;
    result = walk_->Next(Count, raw.data(), &fetched);
    std::vector<std::string> texts;
    for (ULONG i = 0; i < fetched; ++i) {
      elements[i].raw() = raw[i];
      texts.push_back(elements[i].object().Get("Text").value.text());
    }
    return texts;
  }

  HRESULT result = S_OK;
  ULONG fetched = 77;

 private:
  IEnumVARIANT* walk_;
};

class Enumerator : public ComponentTest {
 protected:
  Enumerator() {
    for (const char* text : {"one", "two", "three"}) Add(text);
  }

  void Add(const char* text) {
    const Object tag = Create("CTag");
    tag.Put("ID", ++identifier);
    tag.Put("Text", text);
    EXPECT_TRUE(tags.Call("Add", tag).value.truth());
  }

  Object tags = Create("CTags");
  std::int32_t identifier = 0;
};

TEST_F(Enumerator, WalksInTheOrderOfInsertion) {
  Walk walk(tags);
  EXPECT_THAT(walk.Next<3>(), ElementsAre("one", "two", "three"));
  EXPECT_EQ(walk.result, S_OK);
}
TEST_F(Enumerator, GivesWhatIsLeft) {
  Walk walk(tags);
  EXPECT_THAT(walk.Next<5>(), ElementsAre("one", "two", "three"));
  EXPECT_EQ(walk.result, S_FALSE);
}
TEST_F(Enumerator, GoesOnWhereItStopped) {
  Walk walk(tags);
  walk.Next<2>();
  EXPECT_THAT(walk.Next<1>(), ElementsAre("three"));
}
TEST_F(Enumerator, GivesNothingBehindTheLast) {
  Walk walk(tags);
  walk.Next<3>();
  EXPECT_THAT(walk.Next<1>(), ElementsAre());
  EXPECT_EQ(walk.result, S_FALSE);
}
TEST_F(Enumerator, LeavesEmptyWhatItDoesNotGive) {
  Walk walk(tags);
  walk.Next<3>();
  VARIANT element;
  std::memset(&element, 0xFF, sizeof element);
  EXPECT_EQ(walk->Next(1, &element, nullptr), S_FALSE);
  EXPECT_EQ(element.vt, VT_EMPTY);
}
TEST_F(Enumerator, OfNothingIsAtItsEnd) {
  Walk walk(Create("CTags"));
  EXPECT_THAT(walk.Next<1>(), ElementsAre());
  EXPECT_EQ(walk.result, S_FALSE);
}
TEST_F(Enumerator, GivesOneWithoutACount) {
  Walk walk(tags);
  Variant element;
  EXPECT_EQ(walk->Next(1, &element.raw(), nullptr), S_OK);
  EXPECT_EQ(element.object().Get("Text").value.text(), "one");
}
TEST_F(Enumerator, NeedsACountForSeveral) {
  Walk walk(tags);
  std::array<VARIANT, 2> elements{};
  EXPECT_EQ(walk->Next(2, elements.data(), nullptr), E_POINTER);
}
TEST_F(Enumerator, NeedsAPlaceForTheElements) {
  Walk walk(tags);
  ULONG fetched = 77;
  EXPECT_EQ(walk->Next(1, nullptr, &fetched), E_POINTER);
  EXPECT_EQ(fetched, 0u);
}
TEST_F(Enumerator, GivesNoneWhereNoneIsWanted) {
  Walk walk(tags);
  ULONG fetched = 77;
  EXPECT_EQ(walk->Next(0, nullptr, &fetched), S_OK);
  EXPECT_EQ(fetched, 0u);
}
TEST_F(Enumerator, GivesObjects) {
  Walk walk(tags);
  Variant element;
  walk->Next(1, &element.raw(), nullptr);
  EXPECT_EQ(element.kind(), VT_DISPATCH);
}
TEST_F(Enumerator, GivesEachElementWithItsIdentity) {
  Walk walk(tags);
  Variant element;
  walk->Next(1, &element.raw(), nullptr);
  EXPECT_EQ(element.object(), tags.Get("ItemByIdx", 1).value.object());
}
TEST_F(Enumerator, SkipsElements) {
  Walk walk(tags);
  EXPECT_EQ(walk->Skip(2), S_OK);
  EXPECT_THAT(walk.Next<1>(), ElementsAre("three"));
}
TEST_F(Enumerator, SkipsToTheEnd) {
  Walk walk(tags);
  EXPECT_EQ(walk->Skip(3), S_OK);
  EXPECT_THAT(walk.Next<1>(), ElementsAre());
}
TEST_F(Enumerator, SkipsNoMoreThanThereAre) {
  Walk walk(tags);
  EXPECT_EQ(walk->Skip(0xFFFFFFFF), S_FALSE);
}
TEST_F(Enumerator, SkipsNone) {
  Walk walk(tags);
  EXPECT_EQ(walk->Skip(0), S_OK);
  EXPECT_THAT(walk.Next<1>(), ElementsAre("one"));
}
TEST_F(Enumerator, BeginsAnew) {
  Walk walk(tags);
  walk.Next<3>();
  EXPECT_EQ(walk->Reset(), S_OK);
  EXPECT_THAT(walk.Next<1>(), ElementsAre("one"));
}
TEST_F(Enumerator, IsCopiedWithItsPlace) {
  Walk walk(tags);
  walk.Next<1>();
  IEnumVARIANT* made = nullptr;
  EXPECT_EQ(walk->Clone(&made), S_OK);
  Walk copy(made);
  EXPECT_THAT(copy.Next<1>(), ElementsAre("two"));
}
TEST_F(Enumerator, DoesNotMoveWithItsCopy) {
  Walk walk(tags);
  IEnumVARIANT* made = nullptr;
  walk->Clone(&made);
  Walk copy(made);
  copy.Next<3>();
  EXPECT_THAT(walk.Next<1>(), ElementsAre("one"));
}
TEST_F(Enumerator, NeedsAPlaceForItsCopy) { EXPECT_EQ(Walk(tags)->Clone(nullptr), E_POINTER); }
TEST_F(Enumerator, OutlivesTheClientsReference) {
  Walk walk(tags);
  tags = Object();
  EXPECT_THAT(walk.Next<3>(), ElementsAre("one", "two", "three"));
}
TEST_F(Enumerator, GivesWhatIsAddedOnTheWay) {
  Walk walk(tags);
  walk.Next<3>();
  Add("four");
  EXPECT_THAT(walk.Next<1>(), ElementsAre("four"));
}
TEST_F(Enumerator, GoesOnByPositionWhenElementsAreRemoved) {
  Walk walk(tags);
  walk.Next<1>();
  tags.Call("Remove", 1);
  EXPECT_THAT(walk.Next<2>(), ElementsAre("three"));
}
TEST_F(Enumerator, IsAtItsEndWhenTheCollectionIsCleared) {
  Walk walk(tags);
  walk.Next<2>();
  tags.Call("Clear");
  EXPECT_THAT(walk.Next<1>(), ElementsAre());
  EXPECT_EQ(walk.result, S_FALSE);
}
TEST_F(Enumerator, IsAnsweredToAMethodToo) {
  EXPECT_EQ(tags.Invoke(DISPID_NEWENUM, Request{DISPATCH_METHOD | DISPATCH_PROPERTYGET}).value.kind(), VT_UNKNOWN);
}
TEST_F(Enumerator, IsNotAssigned) { EXPECT_EQ(tags.Put("NewEnum", 1).result, DISP_E_MEMBERNOTFOUND); }
TEST_F(Enumerator, TakesNoArguments) {
  EXPECT_EQ(tags.Invoke(DISPID_NEWENUM, Request{DISPATCH_PROPERTYGET}, 1).result, DISP_E_BADPARAMCOUNT);
}
TEST_F(Enumerator, IsNotOfferedByRecords) {
  EXPECT_EQ(Create("CTag").Invoke(DISPID_NEWENUM, Request{DISPATCH_PROPERTYGET}).result, DISP_E_MEMBERNOTFOUND);
}
TEST_F(Enumerator, AnswersToItsInterfacesAlone) {
  Walk walk(tags);
  void* object = this;
  EXPECT_EQ(walk->QueryInterface(IID_IDispatch, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
}
TEST_F(Enumerator, NeedsAPlaceForItsInterface) {
  EXPECT_EQ(Walk(tags)->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

class DatabaseEnumerator : public ConnectedTest {
 protected:
  const Object connection = session.Get("conDBConnection").value.object();
};

TEST_F(DatabaseEnumerator, WalksOverTheFieldsOfARow) {
  const Object rows = connection.Call("Execute", "SELECT FLD_ID, FLD_Name FROM Folders").value.object();
  Walk walk(rows.Get("Fields").value.object());
  std::array<Variant, 3> fields;
  EXPECT_EQ(walk->Next(1, &fields[0].raw(), nullptr), S_OK);
  EXPECT_EQ(walk->Next(1, &fields[1].raw(), nullptr), S_OK);
  EXPECT_EQ(walk->Next(1, &fields[2].raw(), nullptr), S_FALSE);
  EXPECT_EQ(fields[1].object().Get("Name").value.text(), "FLD_Name");
}
TEST_F(DatabaseEnumerator, WalksOverTheErrors) {
  connection.Call("Execute", "SELECT * FROM NoSuchTable");
  Walk walk(connection.Get("Errors").value.object());
  Variant error;
  EXPECT_EQ(walk->Next(1, &error.raw(), nullptr), S_OK);
  EXPECT_EQ(error.object().Get("Number").value.number(), -2147217865);
}
TEST_F(DatabaseEnumerator, FailsWhenItsRecordsetIsClosed) {
  const Object rows = connection.Call("Execute", "SELECT FLD_ID FROM Folders").value.object();
  Walk walk(rows.Get("Fields").value.object());
  rows.Call("Close");
  Variant field;
  EXPECT_EQ(walk->Next(1, &field.raw(), nullptr), static_cast<HRESULT>(0x800A0000) + 3704);
  EXPECT_EQ(field.kind(), VT_EMPTY);
}
/// What a walk tells about its last call.
class Told {
 public:
  explicit Told(const Walk& walk) {
    void* side = nullptr;
    EXPECT_EQ(walk->QueryInterface(IID_IErrorInfo, &side), S_OK);
    info_ = static_cast<IErrorInfo*>(side);
  }
  ~Told() { info_->Release(); }
  Told(const Told&) = delete;
  Told& operator=(const Told&) = delete;

  IErrorInfo* operator->() const { return info_; }
  Variant Source() const { return Text(&IErrorInfo::GetSource); }
  Variant Description() const { return Text(&IErrorInfo::GetDescription); }

 private:
  Variant Text(HRESULT (IErrorInfo::*get)(BSTR*)) const {
    BSTR text = nullptr;
    EXPECT_EQ((info_->*get)(&text), S_OK);
    return Variant::Of(VT_BSTR, text);
  }

  IErrorInfo* info_;
};

class FailedWalk : public DatabaseEnumerator {
 protected:
  FailedWalk() {
    rows.Call("Close");
    EXPECT_EQ(walk->Next(1, &field.raw(), nullptr), static_cast<HRESULT>(0x800A0000) + 3704);
  }

  const Object rows = connection.Call("Execute", "SELECT FLD_ID FROM Folders").value.object();
  const Object fields = rows.Get("Fields").value.object();
  Walk walk{fields};
  Variant field;
};

TEST_F(FailedWalk, TellsWhatACallTells) {
  const Outcome call = fields.Get("Count");
  EXPECT_EQ(call.scode, static_cast<HRESULT>(0x800A0000) + 3704);
  EXPECT_EQ(Told(walk).Description().text(), call.description);
  EXPECT_EQ(Told(walk).Source().text(), call.source);
}
TEST_F(FailedWalk, TellsItToWhoeverSkipsToo) {
  walk->Reset();
  EXPECT_EQ(walk->Skip(1), static_cast<HRESULT>(0x800A0000) + 3704);
  EXPECT_EQ(Told(walk).Source().text(), "ZEFComponents");
}
TEST_F(FailedWalk, TellsOfItsInterfaceAndOfNoHelp) {
  GUID guid{};
  EXPECT_EQ(Told(walk)->GetGUID(&guid), S_OK);
  EXPECT_EQ(guid, IID_IEnumVARIANT);
  BSTR file = nullptr;
  EXPECT_EQ(Told(walk)->GetHelpFile(&file), S_OK);
  EXPECT_EQ(file, nullptr);
  DWORD context = 77;
  EXPECT_EQ(Told(walk)->GetHelpContext(&context), S_OK);
  EXPECT_EQ(context, 0u);
}
TEST_F(FailedWalk, NeedsPlacesForWhatItTells) {
  const Told told(walk);
  EXPECT_EQ(told->GetGUID(nullptr), E_POINTER);
  EXPECT_EQ(told->GetSource(nullptr), E_POINTER);
  EXPECT_EQ(told->GetDescription(nullptr), E_POINTER);
  EXPECT_EQ(told->GetHelpFile(nullptr), E_POINTER);
  EXPECT_EQ(told->GetHelpContext(nullptr), E_POINTER);
}
TEST_F(FailedWalk, ForgetsItAtTheNextCall) {
  EXPECT_EQ(walk->Next(0, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(Told(walk).Source().raw().bstrVal, nullptr);
  EXPECT_EQ(Told(walk).Description().raw().bstrVal, nullptr);
}
TEST_F(FailedWalk, IsTheSameObjectFromBothSides) {
  void* unknown = nullptr;
  EXPECT_EQ(Told(walk)->QueryInterface(IID_IUnknown, &unknown), S_OK);
  Walk same(static_cast<IEnumVARIANT*>(unknown));
  void* other = nullptr;
  EXPECT_EQ(walk->QueryInterface(IID_IUnknown, &other), S_OK);
  EXPECT_EQ(other, unknown);
  static_cast<IUnknown*>(other)->Release();
}
TEST_F(DatabaseEnumerator, TellsOfNoFailureWhereThereWasNone) {
  Walk walk(connection.Get("Errors").value.object());
  EXPECT_EQ(Told(walk).Source().raw().bstrVal, nullptr);
}
TEST_F(DatabaseEnumerator, WalksOverLoadedRecords) {
  const Object folders = Loaded("CFolders", "LoadFoldersWithCriteria");
  Walk walk(folders);
  EXPECT_EQ(walk->Skip(static_cast<ULONG>(folders.Get("Count").value.number())), S_OK);
  EXPECT_EQ(walk->Skip(1), S_FALSE);
}

}  // namespace
}  // namespace zef::test
