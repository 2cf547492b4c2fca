#include "tests/addressbook/contact_fixture.h"
#include "tests/support/process.h"

namespace zef::test {
namespace {

// ---- the full name

class FullName : public ContactTest {
 protected:
  static std::string Of(const std::string& last, const std::string& first, const std::string& initial,
                        const std::string& suffix) {
    const auto contact = MakeRef<CContact>();
    contact->LastName = last;
    contact->FirstName = first;
    contact->MI = initial;
    contact->Suffix = suffix;
    return contact->FullName();
  }
};

TEST_F(FullName, OfAllPartsIsLastFirstInitialSuffix) { EXPECT_EQ(Of("Smith", "Ann", "B", "Jr"), "Smith, Ann B. Jr"); }

TEST_F(FullName, OfNothingIsEmpty) { EXPECT_EQ(Of("", "", "", ""), ""); }

TEST_F(FullName, OfALastNameIsThatName) { EXPECT_EQ(Of("Smith", "", "", ""), "Smith"); }

TEST_F(FullName, OfAFirstNameHasNoComma) { EXPECT_EQ(Of("", "Ann", "", ""), "Ann"); }

TEST_F(FullName, OfAnInitialAloneBeginsWithABlank) { EXPECT_EQ(Of("", "", "B", ""), " B."); }

TEST_F(FullName, OfASuffixAloneBeginsWithABlank) { EXPECT_EQ(Of("", "", "", "Jr"), " Jr"); }

TEST_F(FullName, OfALastNameAndAnInitialHasNoComma) { EXPECT_EQ(Of("Smith", "", "B", ""), "Smith B."); }

TEST_F(FullName, FollowsAChangeAtOnce) {
  const Ref<CContact> contact = Named("Ann", "Smith");
  contact->LastName = "O'Neill 🎈";
  EXPECT_EQ(contact->FullName(), "O'Neill 🎈, Ann");
}

TEST_F(FullName, DoesNotMarkTheContact) {
  const Ref<CContact> contact = Saved(Named("Ann", "Smith"));
  contact->FullName();
  EXPECT_FALSE(contact->IsModified());
}

// ---- the company block

using CompanyBlock = ContactTest;

TEST_F(CompanyBlock, IsCopiedAndNothingElse) {
  const auto target = MakeRef<CContact>();
  EXPECT_TRUE(target->CopyCompanyInformation(FullContact()));
  std::vector<std::string> taken;
  for (const TextColumn& one : kContactTexts) {
    if (const std::string& text = (*target).*one.text; !text.empty()) taken.push_back(one.column + (" " + text));
  }
  EXPECT_EQ(
      taken,
      (Texts{"CNT_WorkCountry 'CNT_WorkCountry", "CNT_WorkState 'CNT_WorkState", "CNT_WorkAddress 'CNT_WorkAddress",
             "CNT_WorkCity 'CNT_WorkCity", "CNT_WorkPostalCode 'CNT_WorkPostalCode", "CNT_WorkRegion 'CNT_WorkRegion",
             "CNT_WorkPhone 'CNT_WorkPhone", "CNT_WorkExtension 'CNT_WorkExtension", "CNT_WorkFax 'CNT_WorkFax",
             "CNT_WorkEmail 'CNT_WorkEmail", "CNT_WorkURL 'CNT_WorkURL", "CNT_WorkDepartment 'CNT_WorkOffice",
             "CNT_WorkOffice 'CNT_WorkOffice", "CNT_Profession 'CNT_Profession", "CNT_AssistantName 'CNT_AssistantName",
             "CNT_Company 'CNT_Company"}));
}

TEST_F(CompanyBlock, LeavesIdentifiersAndDates) {
  const Ref<CContact> source = FullContact();
  source->BirthDate = source->Anniversary = On("1/2/2000");
  const auto target = MakeRef<CContact>();
  EXPECT_TRUE(target->CopyCompanyInformation(source));
  EXPECT_EQ(target->ID + target->FolderID + target->CategoryID, 0);
  EXPECT_TRUE(target->BirthDate->IsZero() && target->Anniversary->IsZero() && target->LastmeetingDate->IsZero());
}

TEST_F(CompanyBlock, GivesTheSourcesOfficeToOfficeAndDepartment) {
  const auto source = MakeRef<CContact>();
  source->WorkOffice = "Room 5";
  source->WorkDepartment = "Sales";
  const auto target = MakeRef<CContact>();
  EXPECT_TRUE(target->CopyCompanyInformation(source));
  EXPECT_EQ(target->WorkOffice, "Room 5");
  EXPECT_EQ(target->WorkDepartment, "Room 5");
}

TEST_F(CompanyBlock, OfASourceWithoutOneClearsTheTargets) {
  const Ref<CContact> target = FullContact();
  EXPECT_TRUE(target->CopyCompanyInformation(MakeRef<CContact>()));
  EXPECT_EQ(target->Company.get() + target->WorkDepartment.get() + target->AssistantName.get(), "");
  EXPECT_EQ(target->JobTitle, "'CNT_JobTitle");
}

TEST_F(CompanyBlock, OfAnIdenticalContactDoesNotMarkTheTarget) {
  const Ref<CContact> stored = FullContact();
  stored->WorkDepartment = stored->WorkOffice;
  const Ref<CContact> target = Saved(stored);
  EXPECT_TRUE(target->CopyCompanyInformation(session->GetContact(stored->ID)));
  EXPECT_FALSE(target->IsModified());
}

TEST_F(CompanyBlock, ThatDiffersMarksTheTarget) {
  const Ref<CContact> target = Saved(Named("Ann", "Lee"));
  const auto source = MakeRef<CContact>();
  source->AssistantName = "Bob";
  EXPECT_TRUE(target->CopyCompanyInformation(source));
  EXPECT_EQ(Flags(*target), "old modified");
}

TEST_F(CompanyBlock, OfNothingChangesNothing) {
  const Ref<CContact> target = Saved(FullContact());
  EXPECT_TRUE(target->CopyCompanyInformation(nullptr));
  EXPECT_FALSE(target->IsModified());
}

TEST_F(CompanyBlock, OfTheContactItselfTakesTheOfficeForTheDepartment) {
  const Ref<CContact> contact = FullContact();
  EXPECT_TRUE(contact->CopyCompanyInformation(contact));
  EXPECT_EQ(contact->WorkDepartment, "'CNT_WorkOffice");
  EXPECT_EQ(contact->Company, "'CNT_Company");
}

TEST_F(CompanyBlock, IsNotSavedAndLeavesAnOldError) {
  LeaveAnOldError();
  EXPECT_TRUE(Named("Ann", "Lee")->CopyCompanyInformation(MakeRef<CContact>()));
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(session->GetErrorCode(), 77);
}

/// Copies a company block with an address of 48 MB in a process that may have 64 MB, and tells how it ended.
std::string EndOfCopying() {
  const auto session = MakeRef<CSession>();
  session->conDBConnection = MakeRef<Connection>();
  const auto source = MakeRef<CContact>();
  source->Company = "Acme";
  source->WorkAddress = std::string(std::size_t{48} << 20, 'x');
  source->WorkCity = "Rome";
  const auto target = MakeRef<CContact>();
  target->SetSession(session);
  LimitMemory(std::size_t{64} << 20);
  if (target->CopyCompanyInformation(source)) return "done";
  return session->GetEntireErrorDesc() + ", " + target->Company.get() + target->WorkCity.get();
}

TEST(CompanyBlockWithoutMemory, IsRecordedAndStaysHalfCopied) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the address sanitizer needs more memory than the limit leaves";
#endif
  Process child(EndOfCopying);
  EXPECT_EQ(child.Result(), "[CContact.CopyCompanyInformation] Error: 7 - Out of memory, Acme");
}

TEST_F(CompanyBlock, NeedsNoSession) { EXPECT_TRUE(MakeRef<CContact>()->CopyCompanyInformation(MakeRef<CContact>())); }

}  // namespace
}  // namespace zef::test
