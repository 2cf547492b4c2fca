#include <gtest/gtest.h>

#include <string>

#include "tests/component/library.h"

namespace zef::test {
namespace {

class Failure : public ConnectedTest {
 protected:
  /// A failure of the database: a statement about a table that is not there.
  Outcome Provider() {
    return session.Get("conDBConnection").value.object().Call("Execute", "SELECT * FROM NoSuchTable");
  }
  /// A failure of an object: a position outside of a collection.
  Outcome OfAnObject() { return Create("CTags").Get("ItemByIdx", 1); }

  static constexpr SCODE kRunTime = static_cast<SCODE>(0x800A0000);
};

TEST_F(Failure, IsAnException) { EXPECT_EQ(OfAnObject().result, DISP_E_EXCEPTION); }
TEST_F(Failure, TellsItsNumberAsACodeOfRunTimeFailures) { EXPECT_EQ(OfAnObject().scode, kRunTime + 9); }
TEST_F(Failure, TellsTheLibraryAsItsSource) { EXPECT_EQ(OfAnObject().source, "ZEFComponents"); }
TEST_F(Failure, TellsItsSentence) { EXPECT_EQ(OfAnObject().description, "Subscript out of range"); }
TEST_F(Failure, LeavesTheResultEmpty) { EXPECT_EQ(OfAnObject().value.kind(), VT_EMPTY); }
TEST_F(Failure, NamesNoArgument) { EXPECT_EQ(OfAnObject().argument, 0xFFFFu); }

TEST_F(Failure, OfTheProviderKeepsItsNumber) { EXPECT_EQ(Provider().scode, -2147217865); }
TEST_F(Failure, OfTheProviderTellsTheLibraryAsItsSource) { EXPECT_EQ(Provider().source, "ZEFComponents"); }
TEST_F(Failure, OfTheProviderTellsItsSentence) {
  EXPECT_NE(Provider().description.find("NoSuchTable"), std::string::npos);
}
TEST_F(Failure, OfTheProviderEntersItsList) {
  Provider();
  const Object errors = session.Get("conDBConnection").value.object().Get("Errors").value.object();
  EXPECT_EQ(errors.Get("Item", 0).value.object().Get("Number").value.number(), -2147217865);
}
TEST_F(Failure, OfFiveDigitsStaysInTheRangeOfRunTimeFailures) {
  EXPECT_EQ(session.Get("conDBConnection").value.object().Get("Errors").value.object().Get("Item", 3).scode,
            kRunTime + 3265);
}
TEST_F(Failure, OfConnectingIsRaised) {
  EXPECT_EQ(Create("CSession").Call("Connect2DatabaseCS", "Provider=SQLite;Data Source=/nowhere/at/all.db").scode,
            -2147467259);
}
TEST_F(Failure, OfAnUnknownProviderIsRaised) {
  EXPECT_EQ(Create("CSession").Call("Connect2DatabaseCS", "Provider=Nobody").scode, kRunTime + 3706);
}
TEST_F(Failure, OfAnUnconnectedSessionIsRaised) {
  EXPECT_EQ(Create("CSession").Call("DisconnectFromDatabase").scode, kRunTime + 91);
}
TEST_F(Failure, OfASessionThatWasNeverClearedIsRaised) {
  EXPECT_EQ(Create("CSession").Call("GetErrorCode").scode, kRunTime + 13);
}
TEST_F(Failure, OfACreationInASessionWithoutConnectionIsRaised) {
  const Object unconnected = Create("CSession");
  const Outcome outcome = unconnected.Call("CreateTask");
  EXPECT_TRUE(outcome.result == S_OK ? !outcome.value.object() : outcome.result == DISP_E_EXCEPTION);
}
TEST_F(Failure, OfARecordWithoutSessionIsRaised) { EXPECT_EQ(Create("CTask").Call("Save").scode, kRunTime + 91); }
TEST_F(Failure, OfARecordWithoutSessionDoesNotDamageIt) {
  const Object category = Create("CCategory");
  category.Put("Name", "Family");
  category.Call("Save");
  category.Put("Session", session);
  EXPECT_TRUE(category.Call("Save").value.truth());
}
TEST_F(Failure, ThatIsTrappedIsNoException) {
  const Object tags = Create("CTags");
  const Outcome outcome = session.Call("LoadContactTagsWithCriteria", tags, "no condition");
  EXPECT_EQ(outcome.result, S_OK);
  EXPECT_FALSE(outcome.value.truth());
  EXPECT_TRUE(session.Call("GetErrorFlag").value.truth());
}
TEST_F(Failure, OfNothingPassedAsARecordsetIsRaised) {
  EXPECT_EQ(Create("CTask").Call("GetValuesFromRS", Variant::Nothing()).scode, kRunTime + 91);
}
TEST_F(Failure, OfNothingPassedAsACollectionIsTrapped) {
  const Outcome outcome = session.Call("LoadRootFolders", Variant::Nothing());
  EXPECT_EQ(outcome.result, S_OK);
  EXPECT_FALSE(outcome.value.truth());
}
TEST_F(Failure, OfAddingNothingIsFalse) { EXPECT_FALSE(Create("CTags").Call("Add", Variant::Nothing()).value.truth()); }
TEST_F(Failure, OfAClosedConnectionIsRaised) {
  const Object connection = session.Get("conDBConnection").value.object();
  session.Call("DisconnectFromDatabase");
  EXPECT_EQ(connection.Call("Execute", "SELECT * FROM Folders").scode, kRunTime + 3704);
}
TEST_F(Failure, NeedsNoPlaceForItsDescription) {
  const Object tags = Create("CTags");
  Variant position(1);
  DISPPARAMS parameters{&position.raw(), nullptr, 1, 0};
  EXPECT_EQ(
      tags->Invoke(tags.Number("ItemByIdx"), IID_NULL, 0, DISPATCH_PROPERTYGET, &parameters, nullptr, nullptr, nullptr),
      DISP_E_EXCEPTION);
}
TEST_F(Failure, FillsTheWholeDescription) {
  const Object tags = Create("CTags");
  Variant position(1);
  DISPPARAMS parameters{&position.raw(), nullptr, 1, 0};
  EXCEPINFO failure;
  std::memset(&failure, 0xFF, sizeof failure);
  tags->Invoke(tags.Number("ItemByIdx"), IID_NULL, 0, DISPATCH_PROPERTYGET, &parameters, nullptr, &failure, nullptr);
  EXPECT_EQ(failure.wCode, 0);
  EXPECT_EQ(failure.bstrHelpFile, nullptr);
  EXPECT_EQ(failure.pfnDeferredFillIn, nullptr);
  SysFreeString(failure.bstrSource);
  SysFreeString(failure.bstrDescription);
}
TEST_F(Failure, NeverTellsThePassword) {
  const Outcome outcome = Create("CSession").Call("Connect2Database", database.path(), "", "open sesame");
  EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.description.find("sesame"), std::string::npos);
}
TEST_F(Failure, LeavesTheReferencesAsTheyWere) {
  const Object connection = session.Get("conDBConnection").value.object();
  connection.Call("Execute", "SELECT * FROM NoSuchTable");
  EXPECT_EQ(connection.References(), 1u);
}

}  // namespace
}  // namespace zef::test
