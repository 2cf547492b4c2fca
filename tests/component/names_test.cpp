#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/component/library.h"

namespace zef::test {
namespace {

class Names : public ComponentTest {
 protected:
  /// The numbers of a member and its arguments; the result of the call stays behind.
  std::vector<DISPID> Numbers(std::vector<std::u16string> names, REFIID riid = IID_NULL) {
    std::vector<LPOLESTR> pointers;
    for (std::u16string& name : names) pointers.push_back(name.data());
    std::vector<DISPID> numbers(names.size(), 7);
    result = session->GetIDsOfNames(riid, pointers.data(), static_cast<UINT>(names.size()), 0, numbers.data());
    return numbers;
  }

  const Object session = Create("CSession");
  HRESULT result = S_OK;
};

TEST_F(Names, OfAnUnknownMemberHasTheUnknownNumber) {
  EXPECT_EQ(Numbers({u"GetFolders"}), std::vector<DISPID>{DISPID_UNKNOWN});
  EXPECT_EQ(result, DISP_E_UNKNOWNNAME);
}

TEST_F(Names, OfAnEmptyMemberIsUnknown) {
  Numbers({u""});
  EXPECT_EQ(result, DISP_E_UNKNOWNNAME);
}

TEST_F(Names, MustMatchToTheEnd) {
  Numbers({u"GetFolde"});
  EXPECT_EQ(result, DISP_E_UNKNOWNNAME);
}

TEST_F(Names, WithLettersThatOnlyLookAlikeAreUnknown) {
  Numbers({u"\u212Aey"});  // the sign of kelvins lowers to the letter k
  EXPECT_EQ(result, DISP_E_UNKNOWNNAME);
}

TEST_F(Names, OfArgumentsIgnoreLetterCase) {
  EXPECT_EQ(Numbers({u"recorderror", u"STRMESSAGE", u"LngCode"})[1], 2);
  EXPECT_EQ(result, S_OK);
}

TEST_F(Names, OfAnUnknownArgumentLeaveTheOthersKnown) {
  const std::vector<DISPID> numbers = Numbers({u"RecordError", u"lngCode", u"strOther", u"strMessage"});
  EXPECT_EQ(numbers, (std::vector<DISPID>{0x60030000 + 11, 1, DISPID_UNKNOWN, 2}));
  EXPECT_EQ(result, DISP_E_UNKNOWNNAME);
}

TEST_F(Names, OfArgumentsBehindAnUnknownMemberAreUnknown) {
  EXPECT_EQ(Numbers({u"Other", u"lngCode"}), (std::vector<DISPID>{DISPID_UNKNOWN, DISPID_UNKNOWN}));
  EXPECT_EQ(result, DISP_E_UNKNOWNNAME);
}

TEST_F(Names, OfAnotherMembersArgumentAreUnknown) {
  EXPECT_EQ(Numbers({u"ClearError", u"lngCode"})[1], DISPID_UNKNOWN);
  EXPECT_EQ(result, DISP_E_UNKNOWNNAME);
}

TEST_F(Names, UnderAnInterfaceIdentifierAreRefused) {
  Numbers({u"ClearError"}, IID_IDispatch);
  EXPECT_EQ(result, DISP_E_UNKNOWNINTERFACE);
}

TEST_F(Names, ThatAreANullPointerAreUnknown) {
  LPOLESTR names[] = {nullptr};
  DISPID number = 7;
  EXPECT_EQ(session->GetIDsOfNames(IID_NULL, names, 1, 0, &number), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(number, DISPID_UNKNOWN);
}

TEST_F(Names, NeedAnArrayOfNames) {
  DISPID number = 7;
  EXPECT_EQ(session->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &number), E_INVALIDARG);
}

TEST_F(Names, NeedAPlaceForTheNumbers) {
  std::u16string name = u"ClearError";
  LPOLESTR names[] = {name.data()};
  EXPECT_EQ(session->GetIDsOfNames(IID_NULL, names, 1, 0, nullptr), E_INVALIDARG);
}

TEST_F(Names, MustBeAtLeastOne) {
  std::u16string name = u"ClearError";
  LPOLESTR names[] = {name.data()};
  DISPID number = 7;
  EXPECT_EQ(session->GetIDsOfNames(IID_NULL, names, 0, 0, &number), E_INVALIDARG);
}

TEST_F(Names, AreTheSameInEveryLocale) {
  std::u16string name = u"ISCONNECTED";
  LPOLESTR names[] = {name.data()};
  DISPID number = 0;
  constexpr LCID kTurkish = 0x041F;  // where the capital of i has a dot
  EXPECT_EQ(session->GetIDsOfNames(IID_NULL, names, 1, kTurkish, &number), S_OK);
  EXPECT_EQ(number, session.Number("IsConnected"));
}

TEST_F(Names, AreToldByTheTypeLibraryAlone) {
  UINT count = 7;
  EXPECT_EQ(session->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 0u);
}

TEST_F(Names, HaveNoTypeInformationInMemory) {
  auto* info = reinterpret_cast<ITypeInfo*>(this);
  EXPECT_EQ(session->GetTypeInfo(0, 0, &info), DISP_E_BADINDEX);
  EXPECT_EQ(info, nullptr);
}

TEST_F(Names, OfTypeInformationNeedAPlaceForTheCount) { EXPECT_EQ(session->GetTypeInfoCount(nullptr), E_POINTER); }

TEST_F(Names, OfTypeInformationNeedAPlaceForIt) { EXPECT_EQ(session->GetTypeInfo(0, 0, nullptr), E_POINTER); }

}  // namespace
}  // namespace zef::test
