#include "tests/component/random_calls.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <vector>

#include "component/classes.h"
#include "component/identifiers.h"

namespace zef::test {
namespace {

using component::Class;
using component::Member;

constexpr std::size_t kMostArguments = 6;  // one more than any member has

constexpr const char* kTexts[] = {"",
                                  "1",
                                  "-1",
                                  "3.5",
                                  "1e99",
                                  "True",
                                  "5/1/2024 9:00:00 AM",
                                  "O'Neill \"quoted\" [x] %_",
                                  "\xC4\x85\xF0\x9F\x98\x80",
                                  "\xFF\xC0",
                                  "FLD_ID>0",
                                  "1=1 ORDER BY",
                                  "SELECT * FROM Folders",
                                  "SELECT FLD_ID, FLD_ParentID FROM Folders",
                                  "INSERT INTO Notes (NOT_ID) VALUES (77)",
                                  "DELETE * FROM Notes",
                                  "Folders",
                                  "FLD_Name",
                                  "TSK_Name",
                                  "9.1.0",
                                  "Provider=SQLite;Data Source=nowhere.db",
                                  "file.txt",
                                  "no/such/folder/file.txt",
                                  "Admin",
                                  "ID",
                                  "Save"};

constexpr std::int32_t kNumbers[] = {0, 1, 2, 3, -1, 4, 5, 7, 12, 18, 255, -32768, 65536, 2147483647, -2147483647 - 1};
constexpr double kDates[] = {0.0, 1.0, 45413.375, -1.25, -657434.0, 2958465.99, 1e300, -1e300};
constexpr WORD kFlags[] = {DISPATCH_METHOD,
                           DISPATCH_METHOD,
                           DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                           DISPATCH_PROPERTYGET,
                           DISPATCH_PROPERTYPUT,
                           DISPATCH_PROPERTYPUT,
                           DISPATCH_PROPERTYPUTREF,
                           DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF,
                           0,
                           0xFFFF};
/// What a call may answer.
constexpr HRESULT kAnswers[] = {S_OK,
                                DISP_E_EXCEPTION,
                                DISP_E_MEMBERNOTFOUND,
                                DISP_E_BADPARAMCOUNT,
                                DISP_E_TYPEMISMATCH,
                                DISP_E_OVERFLOW,
                                DISP_E_PARAMNOTFOUND,
                                DISP_E_PARAMNOTOPTIONAL,
                                E_INVALIDARG};

/// Bytes that decide; zeros behind their end.
class Choices {
 public:
  explicit Choices(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  bool AtEnd() const { return bytes_.empty(); }
  template <class T>
  T Raw() {
    T value{};
    const std::size_t size = std::min(sizeof value, bytes_.size());
    if (size > 0) std::memcpy(&value, bytes_.data(), size);
    bytes_ = bytes_.subspan(size);
    return value;
  }
  std::size_t Below(std::size_t count) { return Raw<std::uint8_t>() % count; }
  bool OneIn(std::size_t count) { return Below(count) == 0; }
  template <class T, std::size_t Count>
  const T& Of(const T (&list)[Count]) {
    return list[Below(Count)];
  }

 private:
  std::span<const std::uint8_t> bytes_;
};

Variant Array(Choices& choices) {
  const bool of_texts = choices.OneIn(2);
  const SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(choices.Below(5)), 0},
                                   {static_cast<ULONG>(choices.Below(3)), 1}};
  const VARTYPE kind = of_texts ? VT_BSTR : VT_UI1;
  SAFEARRAY* const array = SafeArrayCreate(kind, choices.OneIn(2) ? 1 : 2, bounds);
  if (of_texts && SafeArrayElements(array) > 0) static_cast<BSTR*>(array->pvData)[0] = SysAllocString(u"text");
  return Variant::Of(static_cast<VARTYPE>(VT_ARRAY | kind), array);
}

/// An object with what the tables of the library say of it.
struct Known {
  Object object;
  const Class* described;
};

/// The class of an object of the library.
const Class* ClassOf(const Object& object) {
  for (const auto& list : {component::PublicClasses(), component::ReachedClasses()}) {
    for (const Class* described : list) {
      void* same = nullptr;
      if (object->QueryInterface(component::InterfaceOf(*described), &same) != S_OK) continue;
      static_cast<IUnknown*>(same)->Release();
      return described;
    }
  }
  return nullptr;
}

class Driver {
 public:
  Driver(const std::function<Object(std::string_view)>& create, const std::string& connection_string,
         std::span<const std::uint8_t> bytes)
      : choices_(bytes) {
    for (const Class* described : component::PublicClasses()) known_.push_back({create(described->name), described});
    if (!connection_string.empty()) Connect(known_.front().object, connection_string);
    first_result_ = known_.size();
  }

  std::string Run() {
    while (!choices_.AtEnd() && broken_.empty()) Step();
    return broken_;
  }

 private:
  void Connect(const Object& session, const std::string& connection_string) {
    session.Call("Connect2DatabaseCS", connection_string);
    for (const Known& known : known_) known.object.Put("Session", session);
    Take(session.Get("conDBConnection").value);
    Take(known_.back().object.Call("Execute", "SELECT * FROM Folders").value);
    Take(known_.back().object.Get("Fields").value);
  }

  void Step() {
    if (choices_.OneIn(32)) {
      AskForNames();
    } else {
      Call();
    }
    kept_.clear();
  }

  const Known& Any() { return known_[choices_.Below(known_.size())]; }
  Object AnyOf(std::string_view class_name) {
    const std::size_t start = choices_.Below(known_.size());
    for (std::size_t i = 0; i < known_.size(); ++i) {
      const Known& known = known_[(start + i) % known_.size()];
      if (known.described->name == class_name) return known.object;
    }
    return known_[start].object;
  }

  /// Keeps an object for later calls, in place of an earlier one if there are many.
  void Take(const Variant& value) {
    constexpr std::size_t kMost = 64;
    if (value.kind() != VT_DISPATCH || value.raw().pdispVal == nullptr) return;
    const Object object = value.object();
    const Class* const described = ClassOf(object);
    if (described == nullptr) {
      broken_ = "an object of no class";
    } else if (known_.size() < kMost) {
      known_.push_back({object, described});
    } else {
      known_[first_result_ + choices_.Below(kMost - first_result_)] = {object, described};
    }
  }

  Variant Value() {
    switch (choices_.Below(18)) {
      case 0:
      case 1:
      case 2: return Variant(choices_.Of(kTexts));
      case 3:
      case 4:
      case 5: return Variant(choices_.Of(kNumbers));
      case 6: return Variant(choices_.OneIn(2));
      case 7: return Variant::Date(choices_.Of(kDates));
      case 8: return Variant(choices_.Raw<double>());
      case 9: return Variant::Of(choices_.OneIn(2) ? VT_I8 : VT_CY, choices_.Raw<LONGLONG>());
      case 10:
        return Variant::Decimal(choices_.Raw<std::uint32_t>(), choices_.Raw<std::uint64_t>(),
                                choices_.Raw<unsigned char>(), choices_.OneIn(2));
      case 11: return Variant::Null();
      case 12: return Variant();
      case 13: return Variant::Missing();
      case 14: return choices_.OneIn(4) ? Variant::Nothing() : Variant(Any().object);
      case 15: return Variant(Any().object);
      case 16: return Array(choices_);
      default: return Variant::Of(static_cast<VARTYPE>(choices_.Raw<std::uint16_t>()), LONGLONG{0});
    }
  }

  /// A value as a member asks for it.
  Variant Fitting(const component::Type& type) {
    switch (type.kind) {
      case VT_I4: return Variant(choices_.Of(kNumbers));
      case VT_BOOL: return Variant(choices_.OneIn(2));
      case VT_DATE: return Variant::Date(choices_.Of(kDates));
      case VT_BSTR: return Variant(choices_.Of(kTexts));
      case VT_DISPATCH: return Variant(AnyOf(type.name));
      default: return Value();
    }
  }
  Variant Argument(const component::Type* type) {
    Variant value = type != nullptr && !choices_.OneIn(8) ? Fitting(*type) : Value();
    return choices_.OneIn(3) ? Reference(std::move(value)) : std::move(value);
  }

  /// A reference to something that lives until the call is over.
  Variant Reference(Variant&& to) {
    Variant& value = Keep(std::move(to));
    if (choices_.OneIn(3)) return Variant::Ref(value);
    if (choices_.OneIn(4)) return Variant::Ref(Keep(Variant::Ref(value)));
    const bool whole = value.kind() == VT_DECIMAL;
    const auto kind = static_cast<VARTYPE>(value.kind() & ~VT_BYREF);
    return Variant::Ref(kind, whole ? static_cast<void*>(&value.raw()) : &value.raw().llVal);
  }
  Variant& Keep(Variant&& value) { return kept_.emplace_back(std::move(value)); }

  void Call() {
    const Known known = Any();
    const std::size_t place = choices_.Below(known.described->members.size());
    const Member& member = known.described->members[place];
    const DISPID number = choices_.OneIn(32) ? choices_.Raw<DISPID>() : component::MemberNumber(member, place);
    const bool puts = member.put != nullptr && choices_.OneIn(2);
    const WORD flags = choices_.OneIn(16) ? choices_.Of(kFlags) : puts ? DISPATCH_PROPERTYPUT : DISPATCH_METHOD;
    const std::size_t count = choices_.OneIn(16) ? choices_.Below(kMostArguments + 1)
                              : puts             ? 1
                                                 : member.argument_count;
    std::array<VARIANT, kMostArguments> given{};
    for (std::size_t i = 0; i < count; ++i) {
      const bool described = !puts && i < member.argument_count;
      const component::Type* const type = puts ? &member.type : described ? &member.arguments[i].type : nullptr;
      given[count - 1 - i] = Keep(Argument(type)).raw();
    }
    std::array<DISPID, kMostArguments> named{};
    for (DISPID& name : named) name = puts ? DISPID_PROPERTYPUT : static_cast<DISPID>(choices_.Below(6)) - 1;
    std::size_t names = puts ? 1 : choices_.OneIn(8) ? choices_.Below(count + 1) : 0;
    if (choices_.OneIn(64)) ++names;
    DISPPARAMS parameters{choices_.OneIn(64) ? nullptr : given.data(), choices_.OneIn(64) ? nullptr : named.data(),
                          static_cast<UINT>(count), static_cast<UINT>(names)};
    Judge(known.object, number, known.object.Invoke(number, flags, choices_.OneIn(64) ? nullptr : &parameters));
  }

  void Judge(const Object& object, DISPID member, const Outcome& outcome) {
    char where[64];
    std::snprintf(where, sizeof where, " (member %08x, result %08x)", static_cast<unsigned>(member),
                  static_cast<unsigned>(outcome.result));
    const auto broken = [&](const char* rule) { broken_ = std::string(rule) + where; };
    if (std::ranges::find(kAnswers, outcome.result) == std::end(kAnswers)) return broken("an unknown answer");
    if (outcome.result != S_OK && outcome.value.kind() != VT_EMPTY) return broken("a failure with a result");
    const bool raised = outcome.result == DISP_E_EXCEPTION;
    if (raised != (outcome.source == "ZEFComponents")) return broken("a failure without its source");
    if (raised && (outcome.scode >= 0 || outcome.description.empty())) return broken("a failure without reason");
    if (object.References() == 0) return broken("an object without references");
    if (outcome.value.kind() == VT_UNKNOWN) WalkOver(outcome.value);
    Take(outcome.value);
  }

  void WalkOver(const Variant& enumerator) {
    void* found = nullptr;
    if (FAILED(enumerator.raw().punkVal->QueryInterface(IID_IEnumVARIANT, &found))) return;
    auto* const walk = static_cast<IEnumVARIANT*>(found);
    walk->Skip(static_cast<ULONG>(choices_.Below(3)));
    std::array<VARIANT, 4> elements{};
    ULONG fetched = 0;
    walk->Next(static_cast<ULONG>(choices_.Below(5)), elements.data(), &fetched);
    for (VARIANT& element : elements) {
      Take(Keep(Variant::Of(element.vt, element.llVal)));
    }
    walk->Release();
  }

  void AskForNames() {
    std::array<std::u16string, 3> names;
    std::array<LPOLESTR, 3> pointers{};
    for (std::size_t i = 0; i < names.size(); ++i) {
      const std::string_view text = choices_.Of(kTexts);
      names[i].assign(text.begin(), text.end());
      pointers[i] = choices_.OneIn(16) ? nullptr : names[i].data();
    }
    std::array<DISPID, 3> numbers{};
    const HRESULT result =
        Any().object->GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(choices_.Below(4)), 0, numbers.data());
    const bool known = result == S_OK || result == DISP_E_UNKNOWNNAME || result == E_INVALIDARG;
    if (!known) broken_ = "an unknown answer about names";
  }

  Choices choices_;
  std::vector<Known> known_;
  std::size_t first_result_ = 0;  ///< objects from here on may be replaced
  std::deque<Variant> kept_;      ///< what arguments point at; their places do not move
  std::string broken_;
};

}  // namespace

std::string DriveRandomCalls(const std::function<Object(std::string_view)>& create,
                             const std::string& connection_string, std::span<const std::uint8_t> choices) {
  return Driver(create, connection_string, choices).Run();
}

}  // namespace zef::test
