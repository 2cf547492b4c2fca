#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/support/database.h"

namespace zef::test {

/// A new database with one session on it.
class SessionTest : public testing::Test {
 protected:
  explicit SessionTest(std::string_view version = "9.2.4") : database(version) {}

  Connection& connection() { return *session->conDBConnection; }
  std::string Scalar(const std::string& select) { return test::Scalar(connection(), select); }

  Database database;
  Ref<CSession> session = database.OpenSession();
};

}  // namespace zef::test
