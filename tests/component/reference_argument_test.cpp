#include <gtest/gtest.h>

#include <new>
#include <string>

#include "tests/component/library.h"

namespace zef::test {
namespace {

/// Arguments that a member changes: `GetUniqueIDFromSeq` an integer, `GetDBInfo` two texts, `SeenByUser` a Boolean.
class ReferenceArgument : public ConnectedTest {
 protected:
  static constexpr std::int32_t kSequence = 12;

  Outcome Draw(Variant&& variable) { return session.Call("GetUniqueIDFromSeq", kSequence, std::move(variable)); }
  /// The identifier that the next draw gives.
  std::int32_t Next() {
    std::int32_t identifier = 0;
    Draw(Variant::Ref(VT_I4, &identifier));
    return identifier + 1;
  }
};

TEST_F(ReferenceArgument, OfTheExactTypeIsChanged) {
  const std::int32_t next = Next();
  std::int32_t identifier = 0;
  EXPECT_EQ(Draw(Variant::Ref(VT_I4, &identifier)).value.number(), 1);
  EXPECT_EQ(identifier, next);
}

TEST_F(ReferenceArgument, OfAVariantIsChanged) {
  const std::int32_t next = Next();
  Variant identifier;
  Draw(Variant::Ref(identifier));
  EXPECT_EQ(identifier.number(), next);
}

TEST_F(ReferenceArgument, OfAVariantTakesTheMembersType) {
  Variant identifier("17");
  Draw(Variant::Ref(identifier));
  EXPECT_EQ(identifier.kind(), VT_I4);
}

TEST_F(ReferenceArgument, ThroughNestedVariantsIsChanged) {
  const std::int32_t next = Next();
  Variant identifier;
  Variant inner = Variant::Ref(identifier);
  Draw(Variant::Ref(inner));
  EXPECT_EQ(identifier.number(), next);
}

TEST_F(ReferenceArgument, ThroughAVariantToTheExactTypeIsChanged) {
  const std::int32_t next = Next();
  std::int32_t identifier = 0;
  Variant inner = Variant::Ref(VT_I4, &identifier);
  Draw(Variant::Ref(inner));
  EXPECT_EQ(identifier, next);
}

TEST_F(ReferenceArgument, GivenAsAValueIsAccepted) { EXPECT_EQ(Draw(Variant(0)).value.number(), 1); }

TEST_F(ReferenceArgument, OfAnotherTypeIsRefused) {
  LONGLONG identifier = 17;
  const Outcome outcome = Draw(Variant::Ref(VT_I8, &identifier));
  EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(outcome.argument, 0u);
}

TEST_F(ReferenceArgument, OfAnotherTypeIsNotChanged) {
  LONGLONG identifier = 17;
  Draw(Variant::Ref(VT_I8, &identifier));
  EXPECT_EQ(identifier, 17);
}

TEST_F(ReferenceArgument, ThroughAVariantToAnotherTypeIsRefused) {
  SHORT identifiers[4] = {17, 18, 19, 20};
  Variant inner = Variant::Ref(VT_I2, identifiers);
  EXPECT_EQ(Draw(Variant::Ref(inner)).result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(identifiers[1], 18);
}

TEST_F(ReferenceArgument, ThatCannotBeReadIsRefused) {
  Variant identifier("no number");
  EXPECT_EQ(Draw(Variant::Ref(identifier)).result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(identifier.text(), "no number");
}

TEST_F(ReferenceArgument, ToNowhereIsRefused) {
  EXPECT_EQ(Draw(Variant::Ref(VT_I4, nullptr)).result, DISP_E_TYPEMISMATCH);
}

TEST_F(ReferenceArgument, ToNoVariantIsRefused) {
  EXPECT_EQ(Draw(Variant::Ref(VT_VARIANT, nullptr)).result, DISP_E_TYPEMISMATCH);
}

TEST_F(ReferenceArgument, ThroughAVariantToNoVariantIsRefused) {
  Variant inner = Variant::Ref(VT_VARIANT, nullptr);
  EXPECT_EQ(Draw(Variant::Ref(inner)).result, DISP_E_TYPEMISMATCH);
}

TEST_F(ReferenceArgument, OfTextIsReplaced) {
  TextVariable version("before");
  TextVariable type("before");
  EXPECT_TRUE(session.Call("GetDBInfo", version.Ref(), type.Ref()).value.truth());
  EXPECT_EQ(version.text(), "9.2.4");
}

TEST_F(ReferenceArgument, OfTextInAVariantIsReplaced) {
  Variant version("before");
  Variant type;
  session.Call("GetDBInfo", Variant::Ref(version), Variant::Ref(type));
  EXPECT_EQ(version.text(), "9.2.4");
}

TEST_F(ReferenceArgument, OfTextMayBeANullPointerBefore) {
  BSTR version = nullptr;
  BSTR type = nullptr;
  session.Call("GetDBInfo", Variant::Ref(VT_BSTR, &version), Variant::Ref(VT_BSTR, &type));
  EXPECT_EQ(SysStringLen(version), 5u);
  SysFreeString(version);
  SysFreeString(type);
}

TEST_F(ReferenceArgument, MayBeTheSameVariableTwice) {
  TextVariable both("before");
  EXPECT_EQ(session.Call("GetDBInfo", both.Ref(), both.Ref()).result, S_OK);
  EXPECT_EQ(session.Call("GetDBInfo", both.Ref(), both.Ref()).result, S_OK);
}

TEST_F(ReferenceArgument, OfTruthIsChanged) {
  const Object event = Saved("CreateEvent", "Text", "Choir");
  EXPECT_TRUE(event.Call("MarkSeenByUser", Variant::Date(45413)).value.truth());
  VARIANT_BOOL show = VARIANT_TRUE;
  EXPECT_TRUE(event.Call("SeenByUser", Variant::Date(45413), Variant::Ref(VT_BOOL, &show)).value.truth());
  EXPECT_EQ(show, VARIANT_FALSE);
}

TEST_F(ReferenceArgument, OfTruthTouchesItsTwoBytesOnly) {
  const Object event = Saved("CreateEvent", "Text", "Choir");
  VARIANT_BOOL show[3] = {77, VARIANT_FALSE, 77};
  event.Call("SeenByUser", Variant::Date(45413), Variant::Ref(VT_BOOL, &show[1]));
  EXPECT_EQ(show[0], 77);
  EXPECT_EQ(show[1], VARIANT_TRUE);
  EXPECT_EQ(show[2], 77);
}

TEST_F(ReferenceArgument, OfAnIntegerTouchesItsFourBytesOnly) {
  std::int32_t identifier[3] = {77, 0, 77};
  Draw(Variant::Ref(VT_I4, &identifier[1]));
  EXPECT_EQ(identifier[0], 77);
  EXPECT_EQ(identifier[2], 77);
}

TEST_F(ReferenceArgument, OfAMemberThatTrapsItsFailureIsStored) {
  session.Get("conDBConnection").value.object().Call("Close");
  std::int32_t identifier = 17;
  EXPECT_EQ(Draw(Variant::Ref(VT_I4, &identifier)).value.number(), 0);
}

TEST_F(ReferenceArgument, KeepsWhatAMemberWroteBeforeItRaised) {
  std::int32_t id = -7;
  std::int32_t folder = -8;
  const Outcome outcome = session.Call("GetObjectID", Variant("SELECT 3 AS ID FROM Folders"), Variant::Ref(VT_I4, &id),
                                       Variant::Ref(VT_I4, &folder));
  EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
  EXPECT_EQ(id, 3);
  EXPECT_EQ(folder, -8);
}

TEST_F(ReferenceArgument, OfAMemberThatRaisesItsFailureIsStillTheClients) {
  session.Call("DisconnectFromDatabase");
  Variant identifier(17);
  EXPECT_EQ(Draw(Variant::Ref(identifier)).result, DISP_E_EXCEPTION);
  EXPECT_EQ(identifier.kind(), VT_I4);
}

TEST_F(ReferenceArgument, OfAnObjectIsTakenByReference) {
  Object folders = Create("CFolders");
  IDispatch* pointer = folders.get();
  EXPECT_TRUE(session.Call("LoadRootFolders", Variant::Ref(VT_DISPATCH, &pointer)).value.truth());
  EXPECT_GT(folders.Get("Count").value.number(), 0);
}

TEST_F(ReferenceArgument, OfAnObjectIsTakenThroughAVariant) {
  Variant folders(Create("CFolders"));
  EXPECT_TRUE(session.Call("LoadRootFolders", Variant::Ref(folders)).value.truth());
}

TEST_F(ReferenceArgument, OfAnObjectThatIsOnlyReadKeepsItsCount) {
  const Object folders = Create("CFolders");
  IDispatch* pointer = folders.get();
  session.Call("LoadRootFolders", Variant::Ref(VT_DISPATCH, &pointer));
  EXPECT_EQ(pointer, folders.get());
  EXPECT_EQ(folders.References(), 1u);
}

/// `GetFieldsArray` gives a table and a number back.
class TableArgument : public ComponentTest {
 protected:
  Outcome Rows(Variant&& table) {
    return note.Call("GetFieldsArray", 1, std::move(table), Variant::Ref(VT_I4, &count));
  }
  const Object note = Create("CNote");
  std::int32_t count = 0;
};

TEST_F(TableArgument, OfTheExactTypeIsReplaced) {
  const SAFEARRAYBOUND bound{3, 0};
  SAFEARRAY* table = SafeArrayCreate(VT_BSTR, 1, &bound);
  static_cast<BSTR*>(table->pvData)[1] = SysAllocString(u"before");
  Rows(Variant::Ref(VT_ARRAY | VT_BSTR, &table));
  EXPECT_EQ(table->cDims, 2);
  SafeArrayDestroy(table);
}

TEST_F(TableArgument, MayBeNoArrayYet) {
  SAFEARRAY* table = nullptr;
  Rows(Variant::Ref(VT_ARRAY | VT_BSTR, &table));
  ASSERT_NE(table, nullptr);
  SafeArrayDestroy(table);
}

TEST_F(TableArgument, InAVariantIsReplaced) {
  Variant table;
  Rows(Variant::Ref(table));
  EXPECT_EQ(table.kind(), VT_ARRAY | VT_BSTR);
}

TEST_F(TableArgument, InAVariantMayHoldAnArrayOfVariantsBefore) {
  const Object tag = Create("CTag");
  {
    auto* const array = static_cast<SAFEARRAY*>(std::calloc(1, sizeof(SAFEARRAY)));
    array->cDims = 1;
    array->fFeatures = 0x0800;
    array->cbElements = sizeof(VARIANT);
    array->rgsabound[0] = {1, 0};
    array->pvData = std::calloc(1, sizeof(VARIANT));
    new (array->pvData) Variant(tag);
    Variant table = Variant::Of(VT_ARRAY | VT_VARIANT, array);
    EXPECT_EQ(Rows(Variant::Ref(table)).result, S_OK);
  }
  EXPECT_EQ(tag.References(), 1u);
}

TEST_F(TableArgument, GivenAsAValueIsAccepted) {
  EXPECT_TRUE(Rows(Variant()).value.truth());
  EXPECT_EQ(count, 10);
}

TEST_F(TableArgument, OfAnotherTypeIsRefused) {
  std::int32_t number[2] = {17, 18};
  EXPECT_EQ(Rows(Variant::Ref(VT_I4, number)).result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(number[0], 17);
}

TEST_F(TableArgument, ThroughAVariantToAnotherTypeIsRefused) {
  std::int32_t number[2] = {17, 18};
  Variant inner = Variant::Ref(VT_I4, number);
  EXPECT_EQ(Rows(Variant::Ref(inner)).result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(number[1], 18);
}

TEST_F(TableArgument, ThroughAVariantToNoVariantIsRefused) {
  Variant inner = Variant::Ref(VT_VARIANT, nullptr);
  EXPECT_EQ(Rows(Variant::Ref(inner)).result, DISP_E_TYPEMISMATCH);
}

TEST_F(TableArgument, ThatIsANumberIsRefused) {
  EXPECT_EQ(Rows(Variant(17)).result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(count, 0);
}

TEST_F(TableArgument, InAVariantWithATextIsRefused) {
  Variant text("a text that is not to be lost");
  EXPECT_EQ(Rows(Variant::Ref(text)).result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(text.text(), "a text that is not to be lost");
}

}  // namespace
}  // namespace zef::test
