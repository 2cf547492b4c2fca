#include "platform/slot.h"

#include <utility>

#include "platform/run_time_error.h"

namespace zef {
namespace {

struct Converter {
  Value& value;

  void operator()(std::monostate) const {}
  void operator()(std::int32_t* number) const { *number = ToLong(value); }
  void operator()(std::string* text) const { *text = ToText(std::move(value)); }
  void operator()(Date* date) const { *date = ToDate(value); }
  void operator()(bool* flag) const { *flag = ToByte(value) == 1; }
};

struct Clearer {
  const NullRule& rule;

  bool operator()(std::monostate) const { return false; }
  bool operator()(std::int32_t* number) const { return *number = rule.number, true; }
  bool operator()(std::string* text) const { return *text = rule.text, true; }
  bool operator()(Date* date) const { return *date = Date(), true; }
  bool operator()(bool* flag) const { return *flag = false, true; }
};

}  // namespace

bool StoreNull(const Slot& slot) {
  const bool nowhere = std::holds_alternative<std::monostate>(slot.target);  // then there need not be a rule
  return !nowhere && !slot.null->refused && std::visit(Clearer{*slot.null}, slot.target);
}

void Store(Value&& value, const Slot& slot) {
  // Null that is refused raises in the conversion.
  if (!IsNull(value) || !StoreNull(slot)) std::visit(Converter{value}, slot.target);
}

}  // namespace zef
