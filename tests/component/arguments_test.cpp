#include <gtest/gtest.h>

#include <string>

#include "tests/component/library.h"

namespace zef::test {
namespace {

/// `RecordError(strProcedure, [lngCode], [strMessage])` shows what arrived in which place: the record then reads
/// "[procedure] Error: code - message".
class Arguments : public ComponentTest {
 protected:
  template <class... Given>
  Outcome RecordError(const Request& request, Given&&... given) {
    return session.Invoke(session.Number("RecordError"), request, std::forward<Given>(given)...);
  }
  std::string Recorded() { return session.Call("GetEntireErrorDesc").value.text(); }

  static constexpr DISPID kProcedure = 0;
  static constexpr DISPID kCode = 1;
  static constexpr DISPID kMessage = 2;
  const Object session = Create("CSession");
};

TEST_F(Arguments, ArriveInTheirOrder) {
  EXPECT_EQ(RecordError({}, "Here", 105, "no rights").result, S_OK);
  EXPECT_EQ(Recorded(), "[Here] Error: 105 - no rights");
}

TEST_F(Arguments, ThatAreOptionalMayBeLeftOutAtTheEnd) {
  EXPECT_EQ(RecordError({}, "Here", 105).result, S_OK);
  EXPECT_EQ(Recorded(), "[Here] Error: 105 - ");
}

TEST_F(Arguments, ThatAreOptionalMayBeMarkedAsMissing) {
  EXPECT_EQ(RecordError({}, "Here", 105, Variant::Missing()).result, S_OK);
  EXPECT_EQ(Recorded(), "[Here] Error: 105 - ");
}

TEST_F(Arguments, ThatAreOptionalMayBeMarkedAsMissingThroughAVariable) {
  Variant missing = Variant::Missing();
  EXPECT_EQ(RecordError({}, "Here", 105, Variant::Ref(missing)).result, S_OK);
  EXPECT_EQ(Recorded(), "[Here] Error: 105 - ");
}

TEST_F(Arguments, MayAllBeNamedInAnyOrder) {
  const Request named{DISPATCH_METHOD, {kMessage, kProcedure, kCode}};
  EXPECT_EQ(RecordError(named, "no rights", "Here", 105).result, S_OK);
  EXPECT_EQ(Recorded(), "[Here] Error: 105 - no rights");
}

TEST_F(Arguments, MayBeNamedBehindPositionalOnes) {
  const Request named{DISPATCH_METHOD, {kMessage, kCode}};
  EXPECT_EQ(RecordError(named, "Here", "no rights", 105).result, S_OK);
  EXPECT_EQ(Recorded(), "[Here] Error: 105 - no rights");
}

TEST_F(Arguments, ThatAreNamedMayLeaveOneInTheMiddleOut) {
  session.Call("RecordError", "Before", 1, "before");
  const Request named{DISPATCH_METHOD, {kCode}};
  EXPECT_EQ(RecordError(named, "Here", 105).result, S_OK);
  EXPECT_EQ(Recorded(), "[Here] Error: 105 - ");
}

TEST_F(Arguments, BeyondTheLastAreRefused) {
  EXPECT_EQ(RecordError({}, "Here", 105, "no rights", 4).result, DISP_E_BADPARAMCOUNT);
}

TEST_F(Arguments, ThatAreRefusedLeaveTheObjectAlone) {
  session.Call("ClearError");
  RecordError({}, "Here", 105, "no rights", 4);
  EXPECT_EQ(Recorded(), "[] Error: 0 - ");
}

TEST_F(Arguments, ThatAreNeededMustBeThere) { EXPECT_EQ(RecordError({}).result, DISP_E_BADPARAMCOUNT); }

TEST_F(Arguments, ThatAreNeededMustBeThereAmongNamedOnes) {
  EXPECT_EQ(RecordError({DISPATCH_METHOD, {kCode}}, 105).result, DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(Arguments, ThatAreNeededMayNotBeMarkedAsMissing) {
  EXPECT_EQ(RecordError({}, Variant::Missing(), 105).result, DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(Arguments, ThatAreNeededAndMarkedAsMissingAreToldByTheirReversedPlace) {
  EXPECT_EQ(RecordError({}, Variant::Missing(), 105).argument, 1u);
}

TEST_F(Arguments, MayNotBeGivenTwice) {
  EXPECT_EQ(RecordError({DISPATCH_METHOD, {kProcedure}}, "Here", "There").result, DISP_E_PARAMNOTFOUND);
}

TEST_F(Arguments, MayNotBeNamedTwice) {
  EXPECT_EQ(RecordError({DISPATCH_METHOD, {kCode, kCode}}, "Here", 1, 2).result, DISP_E_PARAMNOTFOUND);
}

TEST_F(Arguments, ThatAreGivenTwiceAreToldByTheirReversedPlace) {
  EXPECT_EQ(RecordError({DISPATCH_METHOD, {kCode, kProcedure}}, "Here", 1, "There").argument, 0u);
}

TEST_F(Arguments, UnderAnUnknownNumberAreRefused) {
  EXPECT_EQ(RecordError({DISPATCH_METHOD, {3}}, "Here", 105).result, DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(RecordError({DISPATCH_METHOD, {-1}}, "Here", 105).result, DISP_E_PARAMNOTFOUND);
}

TEST_F(Arguments, UnderTheNumberOfAssignmentsAreRefusedInACall) {
  EXPECT_EQ(RecordError({DISPATCH_METHOD, {DISPID_PROPERTYPUT}}, "Here", 105).result, DISP_E_PARAMNOTFOUND);
}

TEST_F(Arguments, OfTheWrongTypeAreToldByTheirReversedPlace) {
  const Outcome outcome = RecordError({}, "Here", "no number", "no rights");
  EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(outcome.argument, 1u);
}

TEST_F(Arguments, OfTheWrongTypeAreToldByTheirPlaceAmongNamedOnes) {
  const Outcome outcome = RecordError({DISPATCH_METHOD, {kMessage, kCode}}, "Here", "no rights", "no number");
  EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(outcome.argument, 0u);  // the last one named comes first
}

TEST_F(Arguments, ThatAreTooLargeOverflow) {
  const Outcome outcome = RecordError({}, "Here", 3e9);
  EXPECT_EQ(outcome.result, DISP_E_OVERFLOW);
  EXPECT_EQ(outcome.argument, 0u);
}

TEST_F(Arguments, OfTheWrongTypeNeedNoPlaceForTheirNumber) {
  Variant wrong = Variant("no number");
  DISPPARAMS parameters{&wrong.raw(), nullptr, 1, 0};
  EXPECT_EQ(session->Invoke(session.Number("GetFolder"), IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                            nullptr),
            DISP_E_TYPEMISMATCH);
}

TEST_F(Arguments, MayBeANullPointerWhereThereAreNone) {
  EXPECT_EQ(session.Invoke(session.Number("ClearError"), DISPATCH_METHOD, nullptr).result, S_OK);
}

TEST_F(Arguments, MayNotBeANullPointerWhereOneIsNeeded) {
  EXPECT_EQ(session.Invoke(session.Number("GetFolder"), DISPATCH_METHOD, nullptr).result, DISP_E_BADPARAMCOUNT);
}

TEST_F(Arguments, ThatAreCountedMustBeThere) {
  DISPPARAMS parameters{nullptr, nullptr, 1, 0};
  EXPECT_EQ(session.Invoke(session.Number("GetFolder"), DISPATCH_METHOD, &parameters).result, E_INVALIDARG);
}

TEST_F(Arguments, ThatAreNamedNeedTheirNumbers) {
  Variant one(1);
  DISPPARAMS parameters{&one.raw(), nullptr, 1, 1};
  EXPECT_EQ(session.Invoke(session.Number("GetFolder"), DISPATCH_METHOD, &parameters).result, E_INVALIDARG);
}

TEST_F(Arguments, CannotHaveMoreNamesThanValues) {
  Variant one(1);
  DISPID names[] = {0, 0};
  DISPPARAMS parameters{&one.raw(), names, 1, 2};
  EXPECT_EQ(session.Invoke(session.Number("GetFolder"), DISPATCH_METHOD, &parameters).result, E_INVALIDARG);
}

TEST_F(Arguments, InAbsurdNumberAreRefusedUnread) {
  Variant one(1);
  DISPPARAMS parameters{&one.raw(), nullptr, 0xFFFFFFFF, 0};
  EXPECT_EQ(session.Invoke(session.Number("GetFolder"), DISPATCH_METHOD, &parameters).result, DISP_E_BADPARAMCOUNT);
}

TEST_F(Arguments, UnderAnInterfaceIdentifierAreRefused) {
  DISPPARAMS none{};
  EXPECT_EQ(session->Invoke(session.Number("ClearError"), IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr,
                            nullptr),
            DISP_E_UNKNOWNINTERFACE);
}

TEST_F(Arguments, OfAnUnknownMemberAreRefused) {
  for (const DISPID unknown : {0, -1, -3, -4, 0x60030000, 0x60030000 + 9999, 0x68030000, 0x7FFFFFFF}) {
    EXPECT_EQ(session.Invoke(unknown, Request{}).result, DISP_E_MEMBERNOTFOUND) << unknown;
  }
}

}  // namespace
}  // namespace zef::test
