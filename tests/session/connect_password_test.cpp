#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>

#include "tests/session/connect_fixture.h"

#ifndef ZEF_SYSTEM_SQLITE

namespace zef::test {
namespace {

TEST(PasswordInConnectionString, EmptyIsLeftOut) {
  const Database locked("9.2.4", kSecret);
  const std::string path = locked.path() + ";Jet OLEDB:Database Password=" + kSecret;
  EXPECT_TRUE(MakeRef<CSession>()->Connect2Database(path, "", "")) << "an empty password behind it would count";
}

TEST(PasswordInConnectionString, StandsLast) {
  const Database locked("9.2.4", kSecret);
  EXPECT_TRUE(MakeRef<CSession>()->Connect2Database(locked.path() + ";Jet OLEDB:Database Password=wrong", "", kSecret));
}

TEST(PasswordInConnectionString, StandsAsItWasGiven) {
  const Database locked("9.2.4", kSecret);
  EXPECT_TRUE(MakeRef<CSession>()->Connect2Database(locked.path(), "", "\"" + std::string(kSecret) + "\""));
}

TEST(ConnectPassword, TheRightOneOpens) {
  const Database database("9.2.4", kSecret);
  EXPECT_TRUE(MakeRef<CSession>()->Connect2Database(database.path(), "", kSecret));
}

TEST(ConnectPassword, AWrongOneIsRefused) {
  const Database database("9.2.4", kSecret);
  EXPECT_EQ(NumberOf(Refusal(database.path(), "guess")), kPassword);
}

TEST(ConnectPassword, AMissingOneIsRefused) {
  const Database database("9.2.4", kSecret);
  EXPECT_EQ(NumberOf(Refusal(database.path())), kPassword);
}

TEST(ConnectPassword, ASuperfluousOneIsRefused) {
  const Database database;
  EXPECT_EQ(NumberOf(Refusal(database.path(), "guess")), kPassword);
}

TEST(ConnectPassword, LetterCaseCounts) {
  const Database database("9.2.4", kSecret);
  EXPECT_EQ(NumberOf(Refusal(database.path(), "Correct Horse")), kPassword);
}

TEST(ConnectPassword, TheThreeRefusalsAreThreeSentences) {
  const Database locked("9.2.4", kSecret), open;
  const std::set<std::string> sentences{Refusal(locked.path(), "guess")->description(),
                                        Refusal(locked.path())->description(),
                                        Refusal(open.path(), "guess")->description()};
  EXPECT_EQ(sentences.size(), 3U);
}

TEST(ConnectPassword, NoRefusalTellsIt) {
  const Database locked("9.2.4", kSecret), open;
  for (const std::string& path : {locked.path(), open.path(), std::string("/nowhere/at/all")}) {
    EXPECT_FALSE(Contains(Refusal(path, "Sesame77")->description(), "Sesame77")) << path;
  }
}

TEST(ConnectPassword, NoRefusalTellsOneThatBreaksTheConnectionString) {
  const Database locked("9.2.4", kSecret);
  for (const std::string password : {"x;Sesame77", "x;Sesame77=1", "x;1=Sesame77", "'Sesame77", "'x'Sesame77"}) {
    const auto failure = Refusal(locked.path(), password);
    ASSERT_TRUE(failure) << password;
    EXPECT_FALSE(Contains(failure->description(), "Sesame77")) << failure->description();
  }
}

TEST(ConnectPassword, TheProviderEntryDoesNotTellIt) {
  const Database locked("9.2.4", kSecret);
  const auto session = MakeRef<CSession>();
  EXPECT_TRUE(Raised([&] { session->Connect2Database(locked.path(), "", "Sesame77"); }));
  ASSERT_EQ(session->conDBConnection->Errors().Count(), 1);
  EXPECT_FALSE(Contains(session->conDBConnection->Errors().Item(0).Description, "Sesame77"));
}

TEST(ConnectPassword, ProtectsWhatIsStored) {
  const Database database("9.2.4", kSecret);
  std::ifstream file(database.path(), std::ios::binary);
  const std::string content((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  EXPECT_FALSE(Contains(content, "Birthdays"));
}

}  // namespace
}  // namespace zef::test

#endif
