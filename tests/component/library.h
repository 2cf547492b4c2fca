#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "component/automation.h"
#include "tests/support/automation_client.h"
#include "tests/support/database.h"

namespace zef::test {

/// The class identifier of a public class.
CLSID IdentifierOf(std::string_view class_name);
/// Where the built library stands.
std::string LibraryPath();

/// A loaded library of components.
class Library {
 public:
  explicit Library(const std::string& path);
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// The one that most tests share.
  static const Library& Shared();

  /// Its function "DllGetClassObject".
  GetClassObjectFunction* ClassObjects() const;
  HRESULT GetClassObject(REFCLSID identifier, REFIID riid, void** object) const;
  HRESULT CanUnloadNow() const;
  HRESULT RegisterServer() const;
  HRESULT UnregisterServer() const;

  /// The factory of a class, with a reference.
  IClassFactory* Factory(std::string_view class_name) const;
  /// A new object.
  Object Create(std::string_view class_name) const;

 private:
  template <class Function>
  Function* Find(const char* name) const;

  void* handle_;
};

/// Tests at the boundary of the library. Each fails if it leaves something behind that keeps the library loaded.
class ComponentTest : public testing::Test {
 protected:
  ~ComponentTest() override { EXPECT_EQ(Library::Shared().CanUnloadNow(), S_OK) << "an object is still referred to"; }

  static Object Create(std::string_view class_name) { return Library::Shared().Create(class_name); }
};

/// Tests with a session on a new database.
class ConnectedTest : public ComponentTest {
 protected:
  ConnectedTest() { EXPECT_TRUE(session.Call("Connect2DatabaseCS", database.ConnectionString()).value.truth()); }

  /// A new record of the session with its text set, saved.
  Object Saved(std::string_view create, std::string_view property, std::string_view text) const;
  /// A new collection, filled.
  Object Loaded(std::string_view class_name, std::string_view load) const;

  Database database;
  Object session = Create("CSession");
};

}  // namespace zef::test
