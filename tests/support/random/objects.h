#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "component/classes.h"
#include "tests/support/automation_client.h"
#include "tests/support/random/choices.h"

namespace zef::test {

/// A new object through a library's function "DllGetClassObject".
Object CreateObject(GetClassObjectFunction* get_class_object, const component::Class& described);

/// An object with what the tables of the library say of it.
struct Known {
  Object object;
  const component::Class* described;
};

/// The objects that a client holds: one of each class that can be created, a session first, and behind them what calls
/// return.
class RandomObjects {
 public:
  RandomObjects(GetClassObjectFunction* get_class_object, Choices& choices);

  /// Connects the first session, gives it to all others, and reaches objects of the database.
  void Connect(const std::string& connection_string);
  /// Keeps an object of the library, in place of an earlier result if there are many. False if it is of no class.
  bool Take(const Object& object);
  /// Lets go of an object. One of each class is made anew, unconnected.
  void Drop();

  const Known& Any() { return known_[choices_.Below(known_.size())]; }
  /// One of a class, if there is one.
  const Object& AnyOf(std::string_view class_name);

 private:
  GetClassObjectFunction* get_class_object_;
  Choices& choices_;
  std::vector<Known> known_;
};

}  // namespace zef::test
