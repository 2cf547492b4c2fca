#pragma once

#include <gtest/gtest.h>

#include <string>

#include "session/collections.h"
#include "session/session.h"
#include "tests/support/collection_with_one.h"
#include "tests/support/record_fixture.h"

/// What tests of all lists of identifiers and names look for.
namespace zef::test {

using LoadTags = bool (CSession::*)(const Ref<CTags>&, const std::string&);

/// Identifier and text of each tag, in their order.
inline Texts TextsOf(const Ref<CTags>& tags) {
  Texts texts;
  for (const Ref<CTag>& tag : *tags) texts.push_back(std::to_string(tag->ID) + " " + tag->Text);
  return texts;
}

/// Expects that a load whose statement cannot be opened leaves the collection and is recorded.
inline void ExpectTagsKept(CSession& session, LoadTags load, const std::string& bad_criteria, const char* procedure) {
  const Ref<CTags> tags = CollectionWithOne(&CTag::Text);
  EXPECT_FALSE((session.*load)(tags, bad_criteria));
  EXPECT_EQ(TextsOf(tags), Texts{"99 from before"});
  EXPECT_EQ(session.GetErrorProcedure(), procedure);
}

/// Expects that a load of no row empties the collection and clears an old error.
inline void ExpectTagsEmptied(CSession& session, LoadTags load, const std::string& criteria_of_no_row) {
  const Ref<CTags> tags = CollectionWithOne(&CTag::Text);
  session.RecordError("Earlier", 77, "an old error");
  EXPECT_TRUE((session.*load)(tags, criteria_of_no_row));
  EXPECT_EQ(tags->Count(), 0);
  EXPECT_FALSE(session.GetErrorFlag());
}

/// Expects that a load into Nothing is recorded.
inline void ExpectTagsIntoNothingRefused(CSession& session, LoadTags load, const char* procedure) {
  EXPECT_FALSE((session.*load)(nullptr, ""));
  EXPECT_EQ(session.GetErrorProcedure(), procedure);
  EXPECT_EQ(session.GetErrorCode(), 91);
}

}  // namespace zef::test
