#include "component/windows/early_binding.h"

#include <array>
#include <cstring>

#include "component/invocation.h"

namespace zef::component {
namespace {

constexpr std::size_t kInRegisters = 3;

std::size_t SizeOf(VARTYPE kind) {
  switch (kind) {
    case VT_BOOL: return sizeof(VARIANT_BOOL);
    case VT_I4: return sizeof(LONG);
    default: return sizeof(LONGLONG);
  }
}

/// An argument that may be left out and is a null pointer.
bool IsLeftOut(const Argument& argument, const VARIANT& value) {
  return argument.optional && (value.vt & VT_BYREF) != 0 && value.byref == nullptr;
}

void LeaveOut(VARIANT& value) {
  value.vt = VT_ERROR;
  value.scode = DISP_E_PARAMNOTFOUND;
}

/// Hands over the result of a member, which is the receiver's.
void GiveResult(VARIANT& result, VARTYPE kind, void* place) {
  if (kind == VT_VARIANT) {
    std::memcpy(place, &result, sizeof result);
  } else {
    std::memcpy(place, &result.llVal, SizeOf(kind));
  }
}

/// Makes a failure the last one of the thread. The texts are freed.
HRESULT TellFailure(EXCEPINFO& failure, REFIID interface_id) {
  ICreateErrorInfo* made = nullptr;
  IErrorInfo* told = nullptr;
  if (SUCCEEDED(CreateErrorInfo(&made))) {
    made->SetGUID(interface_id);
    made->SetSource(failure.bstrSource);
    made->SetDescription(failure.bstrDescription);
    if (SUCCEEDED(made->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&told)))) {
      SetErrorInfo(0, told);
      told->Release();
    }
    made->Release();
  }
  for (BSTR text : {failure.bstrSource, failure.bstrDescription, failure.bstrHelpFile}) SysFreeString(text);
  return FAILED(failure.scode) ? failure.scode : DISP_E_EXCEPTION;
}

WORD FlagsOf(const EarlyEntry& entry) {
  if (!entry.puts) return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  const bool is_object = entry.member->type.kind == VT_DISPATCH;
  return is_object ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
}

VARTYPE ResultKind(const Member& member) {
  return member.kind == Kind::Enumerator ? static_cast<VARTYPE>(VT_UNKNOWN) : member.type.kind;
}

}  // namespace

EarlyEntry EarlyEntryOf(const Class& described, std::size_t place) {
  for (const Member& member : described.members) {
    const std::size_t sides = member.put == nullptr ? 1 : 2;
    if (place < sides) return {&member, place == 1};
    place -= sides;
  }
  return {};
}

VARIANT EarlyCall::ArgumentAt(std::size_t place, const Type& type) const {
  VARIANT value{};
  if (type.kind == VT_VARIANT && !type.by_reference) {  // too large for a place: it comes by its address
    std::memcpy(&value, PointerAt(place), sizeof value);
    return value;
  }
  value.vt = static_cast<VARTYPE>(type.by_reference ? VT_BYREF | type.kind : type.kind);
  if (type.kind == VT_DATE && !type.by_reference && place <= kInRegisters) {
    value.dblVal = doubles_[place - 1];
  } else {
    std::memcpy(&value.llVal, &places_[place], type.by_reference ? sizeof(void*) : SizeOf(type.kind));
  }
  return value;
}

HRESULT EarlyCall::Run(const EarlyEntry& entry, Object object, REFIID interface_id) const noexcept {
  const Member& member = *entry.member;
  const std::size_t count = entry.puts ? 1 : member.argument_count;
  const VARTYPE kind = entry.puts ? static_cast<VARTYPE>(VT_EMPTY) : ResultKind(member);
  void* const wanted = kind == VT_EMPTY ? nullptr : PointerAt(count + 1);
  if (kind != VT_EMPTY && wanted == nullptr) return E_POINTER;

  std::array<VARIANT, Member::kMostArguments> arguments{};
  for (std::size_t i = 0; i < count; ++i) {
    VARIANT& value = arguments[count - 1 - i];
    value = ArgumentAt(i + 1, entry.puts ? member.type : member.arguments[i].type);
    if (entry.puts) continue;
    if (IsLeftOut(member.arguments[i], value)) LeaveOut(value);
    if ((value.vt & VT_BYREF) != 0 && value.byref == nullptr) return E_POINTER;
  }
  DISPID assigned = DISPID_PROPERTYPUT;
  DISPPARAMS given{arguments.data(), entry.puts ? &assigned : nullptr, static_cast<UINT>(count), entry.puts ? 1u : 0u};
  VARIANT result{};
  EXCEPINFO failure{};
  const HRESULT outcome =
      CallMember(member, object, FlagsOf(entry), &given, wanted == nullptr ? nullptr : &result, &failure, nullptr);
  if (outcome == DISP_E_EXCEPTION) return TellFailure(failure, interface_id);
  if (SUCCEEDED(outcome) && wanted != nullptr) GiveResult(result, kind, wanted);
  return outcome;
}

}  // namespace zef::component
