#include <gtest/gtest.h>

#include <string>

#include "tests/component/library.h"

namespace zef::test {
namespace {

class PropertyCall : public ComponentTest {
 protected:
  Outcome Call(const Object& object, std::string_view name, WORD flags) {
    return object.Invoke(object.Number(name), Request{flags});
  }
  const Object folder = Create("CFolder");
  const Object session = Create("CSession");
  const Object contact = Create("CContact");
};

TEST_F(PropertyCall, ReadsWithGet) {
  folder.Put("Name", "Choir");
  EXPECT_EQ(Call(folder, "Name", DISPATCH_PROPERTYGET).value.text(), "Choir");
}
TEST_F(PropertyCall, ReadsAsAMethod) {
  folder.Put("Name", "Choir");
  EXPECT_EQ(Call(folder, "Name", DISPATCH_METHOD).value.text(), "Choir");
}
TEST_F(PropertyCall, ReadsWithBothFlags) {
  EXPECT_EQ(Call(folder, "Name", DISPATCH_METHOD | DISPATCH_PROPERTYGET).result, S_OK);
}
TEST_F(PropertyCall, ReadsAField) { EXPECT_EQ(Call(session, "UserID", DISPATCH_PROPERTYGET).value.number(), -1); }
TEST_F(PropertyCall, ReadsAFieldAsAMethod) { EXPECT_EQ(Call(session, "UserID", DISPATCH_METHOD).value.number(), -1); }
TEST_F(PropertyCall, CallsAFunctionWithBothFlags) {
  EXPECT_EQ(Call(folder, "IsNew", DISPATCH_METHOD | DISPATCH_PROPERTYGET).result, S_OK);
}
TEST_F(PropertyCall, DoesNotReadAFunction) {
  EXPECT_EQ(Call(folder, "IsNew", DISPATCH_PROPERTYGET).result, DISP_E_MEMBERNOTFOUND);
}
TEST_F(PropertyCall, DoesNotAssignToAFunction) { EXPECT_EQ(folder.Put("IsNew", false).result, DISP_E_MEMBERNOTFOUND); }
TEST_F(PropertyCall, DoesNotAssignToWhatIsOnlyRead) {
  EXPECT_EQ(contact.Put("FullName", "Ann").result, DISP_E_MEMBERNOTFOUND);
}
TEST_F(PropertyCall, DoesNotAssignTheStateOfATransaction) {
  EXPECT_EQ(session.Put("TransactionStarted", true).result, DISP_E_MEMBERNOTFOUND);
}
TEST_F(PropertyCall, WithoutFlagsIsRefused) { EXPECT_EQ(Call(folder, "Name", 0).result, DISP_E_MEMBERNOTFOUND); }
TEST_F(PropertyCall, WithAnUnknownFlagIsRefused) { EXPECT_EQ(Call(folder, "Name", 16).result, DISP_E_MEMBERNOTFOUND); }

TEST_F(PropertyCall, AssignsAField) {
  EXPECT_EQ(session.Put("UserID", 7).result, S_OK);
  EXPECT_EQ(session.Get("UserID").value.number(), 7);
}
TEST_F(PropertyCall, OfAnAssignmentMarksTheRecordAsModified) {
  folder.Put("Name", "Choir");
  EXPECT_TRUE(folder.Call("IsModified").value.truth());
}
TEST_F(PropertyCall, OfAnAssignmentOfTheSameValueDoesNot) {
  folder.Put("Name", "");
  EXPECT_FALSE(folder.Call("IsModified").value.truth());
}
TEST_F(PropertyCall, AssignsAnObjectWithPut) {
  EXPECT_EQ(folder.Put("Session", session, DISPATCH_PROPERTYPUT).result, S_OK);
  EXPECT_EQ(folder.Get("Session").value.object(), session);
}
TEST_F(PropertyCall, AssignsAnObjectWithPutRef) {
  EXPECT_EQ(folder.Put("Session", session, DISPATCH_PROPERTYPUTREF).result, S_OK);
  EXPECT_EQ(folder.Get("Session").value.object(), session);
}
TEST_F(PropertyCall, AssignsAnObjectWithBothFlags) {
  EXPECT_EQ(folder.Put("Session", session, DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF).result, S_OK);
}
TEST_F(PropertyCall, AssignsNothing) {
  folder.Put("Session", session);
  EXPECT_EQ(folder.Put("Session", Variant::Nothing(), DISPATCH_PROPERTYPUTREF).result, S_OK);
  EXPECT_FALSE(folder.Get("Session").value.object());
}
TEST_F(PropertyCall, AssignsEmptyAsNothing) {
  folder.Put("Session", session);
  folder.Put("Session", Variant());
  EXPECT_FALSE(folder.Get("Session").value.object());
}
TEST_F(PropertyCall, AssignsAnObjectThroughAReference) {
  IDispatch* pointer = session.get();
  EXPECT_EQ(folder.Put("Session", Variant::Ref(VT_DISPATCH, &pointer)).result, S_OK);
  EXPECT_EQ(folder.Get("Session").value.object(), session);
}
TEST_F(PropertyCall, AssignsAnObjectByItsUnknownInterface) {
  session->AddRef();  // for the variant
  EXPECT_EQ(folder.Put("Session", Variant::Of(VT_UNKNOWN, static_cast<IUnknown*>(session.get()))).result, S_OK);
  EXPECT_EQ(folder.Get("Session").value.object(), session);
}
TEST_F(PropertyCall, DoesNotAssignATextByReference) {
  EXPECT_EQ(folder.Put("Name", "Choir", DISPATCH_PROPERTYPUTREF).result, DISP_E_MEMBERNOTFOUND);
}
TEST_F(PropertyCall, OfAWrongAssignmentTellsItsArgument) {
  const Outcome outcome = folder.Put("ParentID", "no number");
  EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(outcome.argument, 0u);
}
TEST_F(PropertyCall, DoesNotAssignTwoValues) {
  const Request put{DISPATCH_PROPERTYPUT, {DISPID_PROPERTYPUT}};
  EXPECT_EQ(folder.Invoke(folder.Number("Name"), put, "one", "two").result, DISP_E_BADPARAMCOUNT);
}
TEST_F(PropertyCall, DoesNotAssignNoValue) {
  EXPECT_EQ(Call(folder, "Name", DISPATCH_PROPERTYPUT).result, DISP_E_BADPARAMCOUNT);
}
TEST_F(PropertyCall, DoesNotAssignAValueWithoutItsNumber) {
  EXPECT_EQ(folder.Invoke(folder.Number("Name"), Request{DISPATCH_PROPERTYPUT}, "one").result, DISP_E_PARAMNOTFOUND);
}
TEST_F(PropertyCall, DoesNotAssignAValueUnderAnotherNumber) {
  EXPECT_EQ(folder.Invoke(folder.Number("Name"), Request{DISPATCH_PROPERTYPUT, {0}}, "one").result,
            DISP_E_PARAMNOTFOUND);
}
TEST_F(PropertyCall, WithArgumentsThatItDoesNotHaveIsRefused) {
  EXPECT_EQ(folder.Get("Name", 1).result, DISP_E_BADPARAMCOUNT);
}

TEST_F(PropertyCall, WithAnArgumentReads) {
  const Object tags = Create("CTags");
  const Object tag = Create("CTag");
  tags.Call("Add", tag);
  EXPECT_EQ(tags.Get("ItemByIdx", 1).value.object(), tag);
}
TEST_F(PropertyCall, WithANamedArgumentReads) {
  const Object tags = Create("CTags");
  tags.Call("Add", Create("CTag"));
  EXPECT_TRUE(tags.Invoke(tags.Number("ItemByKey"), Request{DISPATCH_PROPERTYGET, {0}}, "0").value.object());
}
TEST_F(PropertyCall, WithAnArgumentReadsAsAMethod) {
  const Object tags = Create("CTags");
  tags.Call("Add", Create("CTag"));
  EXPECT_TRUE(tags.Call("ItemByIdx", 1).value.object());
}
TEST_F(PropertyCall, WithoutItsArgumentIsRefused) {
  EXPECT_EQ(Create("CTags").Get("ItemByIdx").result, DISP_E_BADPARAMCOUNT);
}

TEST_F(PropertyCall, WithoutAPlaceForTheResultIsNoFailure) {
  DISPPARAMS none{};
  EXPECT_EQ(folder->Invoke(folder.Number("Name"), IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
            S_OK);
}
TEST_F(PropertyCall, WithoutAPlaceForAnObjectKeepsItsCount) {
  folder.Put("Session", session);
  DISPPARAMS none{};
  folder->Invoke(folder.Number("Session"), IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr);
  EXPECT_EQ(session.References(), 1u);
}
TEST_F(PropertyCall, OfAFunctionWithoutResultGivesEmpty) {
  EXPECT_EQ(Call(folder, "ResetFlags", DISPATCH_METHOD).value.kind(), VT_EMPTY);
}
TEST_F(PropertyCall, ThatIsRefusedGivesEmpty) {
  EXPECT_EQ(Call(folder, "IsNew", DISPATCH_PROPERTYGET).value.kind(), VT_EMPTY);
}
TEST_F(PropertyCall, GivesNothingAsANullPointer) {
  const Outcome outcome = folder.Get("Session");
  EXPECT_EQ(outcome.value.kind(), VT_DISPATCH);
  EXPECT_EQ(outcome.value.raw().pdispVal, nullptr);
}
TEST_F(PropertyCall, GivesTrueAsMinusOne) { EXPECT_EQ(folder.Call("IsNew").value.raw().boolVal, VARIANT_TRUE); }
TEST_F(PropertyCall, GivesAnEnumerationAsAnInteger) {
  folder.Put("ItemsType", 6);
  EXPECT_EQ(folder.Get("ItemsType").value.number(), 6);
}
TEST_F(PropertyCall, KeepsAnEnumerationBeyondItsMembers) {
  folder.Put("ItemsType", -2147483647);
  EXPECT_EQ(folder.Get("ItemsType").value.number(), -2147483647);
}
TEST_F(PropertyCall, GivesADateAsADate) { EXPECT_EQ(folder.Get("DateLastUpdate").value.date(), 0.0); }

}  // namespace
}  // namespace zef::test
