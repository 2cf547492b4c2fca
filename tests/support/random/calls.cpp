#include "tests/support/random/calls.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "component/classes.h"
#include "component/identifiers.h"
#include "component/utf16.h"
#include "tests/support/random/choices.h"
#include "tests/support/random/objects.h"
#include "tests/support/random/values.h"

namespace zef::test {
namespace {

using component::Class;
using component::Member;

constexpr std::size_t kMostArguments = 6;  // one more than any member has

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

// What each kind of question may be answered.
constexpr HRESULT kOfCalls[] = {S_OK,
                                DISP_E_EXCEPTION,
                                DISP_E_MEMBERNOTFOUND,
                                DISP_E_BADPARAMCOUNT,
                                DISP_E_TYPEMISMATCH,
                                DISP_E_OVERFLOW,
                                DISP_E_PARAMNOTFOUND,
                                DISP_E_PARAMNOTOPTIONAL,
                                E_INVALIDARG};
constexpr HRESULT kOfNames[] = {S_OK, DISP_E_UNKNOWNNAME, E_INVALIDARG};
constexpr HRESULT kOfInterfaces[] = {S_OK, E_NOINTERFACE, E_POINTER};
constexpr HRESULT kOfFactories[] = {S_OK, E_NOINTERFACE, E_POINTER, CLASS_E_NOAGGREGATION, CLASS_E_CLASSNOTAVAILABLE};
constexpr HRESULT kOfTypeInformation[] = {S_OK, E_POINTER, DISP_E_BADINDEX};

class Driver {
 public:
  Driver(GetClassObjectFunction* get_class_object, const std::string& connection_string,
         std::span<const std::uint8_t> bytes)
      : get_class_object_(get_class_object), choices_(bytes), objects_(get_class_object, choices_) {
    if (!connection_string.empty()) objects_.Connect(connection_string);
  }

  std::string Run() {
    while (!choices_.AtEnd() && broken_.empty()) Step();
    if (broken_.empty() && !values_.NothingIsHeld())
      broken_ = "an object of a client's own is held or was let go twice";
    return broken_;
  }

 private:
  void Step() {
    switch (choices_.Below(64)) {
      case 0:
      case 1: AskForNames(); break;
      case 2: AskForInterface(*objects_.Any().object.get()); break;
      case 3: UseFactory(); break;
      case 4:
      case 5: objects_.Drop(); break;
      case 6: AskForTypeInformation(); break;
      default: Call();
    }
    values_.Forget();
  }

  // ---- members

  void Call() {
    const Known known = objects_.Any();
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
      given[count - 1 - i] = values_.Argument(type);
    }
    std::array<DISPID, kMostArguments + 1> named{};
    for (DISPID& name : named) name = puts ? DISPID_PROPERTYPUT : static_cast<DISPID>(choices_.Below(6)) - 1;
    std::size_t names = puts ? 1 : choices_.OneIn(8) ? choices_.Below(count + 1) : 0;
    if (choices_.OneIn(64)) ++names;
    DISPPARAMS parameters{choices_.OneIn(64) ? nullptr : given.data(), choices_.OneIn(64) ? nullptr : named.data(),
                          static_cast<UINT>(count), static_cast<UINT>(names)};
    DISPPARAMS* const passed = choices_.OneIn(64) ? nullptr : &parameters;
    if (choices_.OneIn(32)) return CallWithoutOutcome(known.object, number, flags, passed);
    Judge(known.object, number, known.object.Invoke(number, flags, passed));
  }

  /// By a client that wants to know nothing, or asks for an interface that members do not have.
  void CallWithoutOutcome(const Object& object, DISPID number, WORD flags, DISPPARAMS* parameters) {
    const bool foreign = choices_.OneIn(4);
    const HRESULT result =
        object->Invoke(number, foreign ? IID_IDispatch : IID_NULL, 0, flags, parameters, nullptr, nullptr, nullptr);
    if (foreign != (result == DISP_E_UNKNOWNINTERFACE)) broken_ = "a call by a wrong interface";
    if (!foreign) Expect(kOfCalls, result, "a call without outcome");
  }

  void Judge(const Object& object, DISPID member, const Outcome& outcome) {
    char where[64];
    std::snprintf(where, sizeof where, " (member %08x, result %08x)", static_cast<unsigned>(member),
                  static_cast<unsigned>(outcome.result));
    const auto broken = [&](const char* rule) { broken_ = std::string(rule) + where; };
    if (std::ranges::find(kOfCalls, outcome.result) == std::end(kOfCalls)) return broken("an unknown answer");
    if (outcome.result != S_OK && outcome.value.kind() != VT_EMPTY) return broken("a failure with a result");
    const bool raised = outcome.result == DISP_E_EXCEPTION;
    if (raised != (outcome.source == "ZEFComponents")) return broken("a failure without its source");
    if (raised && (outcome.scode >= 0 || outcome.description.empty())) return broken("a failure without reason");
    if (object.References() == 0) return broken("an object without references");
    if (outcome.value.kind() == VT_UNKNOWN) WalkOver(outcome.value);
    Take(outcome.value);
  }

  void Take(const Variant& value) {
    if (value.kind() != VT_DISPATCH || value.raw().pdispVal == nullptr) return;
    if (!objects_.Take(value.object())) broken_ = "an object of no class";
  }

  // ---- enumerators

  void WalkOver(const Variant& enumerator) {
    void* found = nullptr;
    if (FAILED(enumerator.raw().punkVal->QueryInterface(IID_IEnumVARIANT, &found))) return;
    auto* const walk = static_cast<IEnumVARIANT*>(found);
    for (std::size_t steps = choices_.Below(6); steps > 0; --steps) StepOfWalk(*walk);
    walk->Release();
  }

  void StepOfWalk(IEnumVARIANT& walk) {
    switch (choices_.Below(8)) {
      case 0: walk.Skip(static_cast<ULONG>(choices_.Below(3))); break;
      case 1: walk.Reset(); break;
      case 2: objects_.Drop(); break;
      case 3: AskForInterface(walk); break;
      case 4: FollowCopy(walk); break;
      default: Fetch(walk);
    }
  }

  void Fetch(IEnumVARIANT& walk) {
    std::array<VARIANT, 4> elements{};
    ULONG fetched = 0;
    VARIANT* const place = choices_.OneIn(16) ? nullptr : elements.data();
    ULONG* const told = choices_.OneIn(16) ? nullptr : &fetched;
    walk.Next(static_cast<ULONG>(choices_.Below(elements.size() + 1)), place, told);
    for (const VARIANT& element : elements) Take(Variant::Of(element.vt, element.llVal));
  }

  void FollowCopy(IEnumVARIANT& walk) {
    if (walk.Clone(nullptr) != E_POINTER) broken_ = "a copy of a walk to nowhere";
    IEnumVARIANT* copy = nullptr;
    if (walk.Clone(&copy) != S_OK) return;
    Fetch(*copy);
    copy->Release();
  }

  // ---- the other questions

  void AskForNames() {
    std::array<std::u16string, 3> names;
    std::array<LPOLESTR, 3> pointers{};
    for (std::size_t i = 0; i < names.size(); ++i) {
      const std::string_view text = values_.Name();
      names[i].assign(text.begin(), text.end());
      pointers[i] = choices_.OneIn(16) ? nullptr : component::FromUtf16(names[i].data());
    }
    std::array<DISPID, 3> numbers{};
    LPOLESTR* const asked = choices_.OneIn(16) ? nullptr : pointers.data();
    DISPID* const told = choices_.OneIn(16) ? nullptr : numbers.data();
    const auto count = static_cast<UINT>(choices_.Below(names.size() + 1));
    const HRESULT result = objects_.Any().object->GetIDsOfNames(IID_NULL, asked, count, 0, told);
    Expect(kOfNames, result, "an unknown answer about names");
  }

  IID Interface() {
    switch (choices_.Below(8)) {
      case 0: return IID_IUnknown;
      case 1: return IID_IDispatch;
      case 2: return IID_IEnumVARIANT;
      case 3: return IID_IClassFactory;
      case 4: return choices_.Raw<IID>();
      default: return component::InterfaceOf(*objects_.Any().described);
    }
  }

  void AskForInterface(IUnknown& object) {
    void* found = &object;
    const bool nowhere = choices_.OneIn(8);
    const HRESULT result = object.QueryInterface(Interface(), nowhere ? nullptr : &found);
    Expect(kOfInterfaces, result, "an unknown answer about an interface");
    if (!nowhere) ReleaseMade(result, found);
  }

  /// What was asked for comes with a reference, and only if the answer says so.
  void ReleaseMade(HRESULT result, void* made) {
    if ((result == S_OK) != (made != nullptr)) broken_ = "an object and its answer differ";
    if (result == S_OK) static_cast<IUnknown*>(made)->Release();
  }

  void UseFactory() {
    const auto classes = component::PublicClasses();
    CLSID identifier = component::ClassIdentifier(*classes[choices_.Below(classes.size())]);
    if (choices_.OneIn(8)) identifier = choices_.Raw<CLSID>();
    void* found = nullptr;
    const HRESULT result = get_class_object_(identifier, IID_IClassFactory, &found);
    Expect(kOfFactories, result, "an unknown answer about a factory");
    if (result != S_OK) return;
    auto* const factory = static_cast<IClassFactory*>(found);
    AskForInterface(*factory);
    CreateBy(*factory);
    LockBy(*factory);
    factory->Release();
  }

  void CreateBy(IClassFactory& factory) {
    void* made = &factory;
    IUnknown* const outer = choices_.OneIn(8) ? objects_.Any().object.get() : nullptr;
    const bool nowhere = choices_.OneIn(8);
    const HRESULT result = factory.CreateInstance(outer, Interface(), nowhere ? nullptr : &made);
    Expect(kOfFactories, result, "an unknown answer of a factory");
    if (!nowhere) ReleaseMade(result, made);
  }

  void LockBy(IClassFactory& factory) {
    const bool locks = choices_.OneIn(2);
    if (locks) factory.LockServer(1);
    if (factory.LockServer(0) != (locks ? S_OK : E_UNEXPECTED)) broken_ = "a wrong answer about a lock";
  }

  void AskForTypeInformation() {
    UINT count = 0;
    ITypeInfo* information = nullptr;
    const Object& object = objects_.Any().object;
    const bool nowhere = choices_.OneIn(4);
    Expect(kOfTypeInformation, object->GetTypeInfoCount(nowhere ? nullptr : &count), "a count of types");
    const HRESULT result = object->GetTypeInfo(choices_.Raw<UINT>(), 0, nowhere ? nullptr : &information);
    Expect(kOfTypeInformation, result, "an unknown answer about a type");
  }

  void Expect(std::span<const HRESULT> answers, HRESULT result, const char* rule) {
    if (std::ranges::find(answers, result) == answers.end()) broken_ = rule;
  }

  GetClassObjectFunction* get_class_object_;
  Choices choices_;
  RandomObjects objects_;
  RandomValues values_{choices_, objects_};
  std::string broken_;
};

}  // namespace

std::string DriveRandomCalls(GetClassObjectFunction* get_class_object, const std::string& connection_string,
                             std::span<const std::uint8_t> bytes) {
  return Driver(get_class_object, connection_string, bytes).Run();
}

}  // namespace zef::test
