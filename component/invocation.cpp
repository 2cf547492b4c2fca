#include "component/invocation.h"

#include <algorithm>
#include <new>

#include "component/call.h"
#include "component/variant.h"
#include "platform/run_time_error.h"

namespace zef::component {
namespace {

using Side = void (*)(const Call&);

/// The side of a member that the flags ask for, or null. Reading a property may come as a call too; assigning by
/// reference is for objects.
Side SideFor(const Member& member, WORD flags) {
  if ((flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) != 0) {
    const bool as_call = (flags & DISPATCH_METHOD) != 0;
    return member.kind == Kind::Function && !as_call ? nullptr : member.get;
  }
  if ((flags & DISPATCH_PROPERTYPUT) != 0) return member.put;
  if ((flags & DISPATCH_PROPERTYPUTREF) != 0 && member.type.kind == VT_DISPATCH) return member.put;
  return nullptr;
}

/// An omission may come through a variable of the client, too.
bool IsLeftOut(const VARIANT& argument) {
  const VARIANT& inner = Innermost(argument);
  return inner.vt == VT_ERROR && inner.scode == DISP_E_PARAMNOTFOUND;
}

/// Where each of a member's arguments stands among those given, which come from last to first.
class Arrangement {
 public:
  Arrangement(const Member& member, const DISPPARAMS& given) : member_(member), given_(given) {}

  /// Fills the call; S_OK or what is wrong, with the place of the argument among those given in `wrong`.
  HRESULT Arrange(Call& call, UINT& wrong) {
    const UINT positional = given_.cArgs - given_.cNamedArgs;
    if (positional > member_.argument_count) return DISP_E_BADPARAMCOUNT;
    for (UINT i = 0; i < positional; ++i) Take(call, i, given_.cArgs - 1 - i);
    for (UINT i = 0; i < given_.cNamedArgs; ++i) {
      const auto place = static_cast<UINT>(given_.rgdispidNamedArgs[i]);
      if (place >= member_.argument_count || call.arguments[place] != nullptr) {
        wrong = i;
        return DISP_E_PARAMNOTFOUND;
      }
      Take(call, place, i);
    }
    return CheckPresence(call, wrong);
  }

  UINT IndexOf(std::size_t place) const { return indexes_[place]; }

 private:
  void Take(Call& call, UINT place, UINT index) {
    call.arguments[place] = &given_.rgvarg[index];
    indexes_[place] = index;
  }

  HRESULT CheckPresence(Call& call, UINT& wrong) const {
    for (std::size_t i = 0; i < member_.argument_count; ++i) {
      const bool given = call.arguments[i] != nullptr;
      if (given && !IsLeftOut(*call.arguments[i])) continue;
      if (!member_.arguments[i].optional) {
        if (!given) return given_.cNamedArgs == 0 ? DISP_E_BADPARAMCOUNT : DISP_E_PARAMNOTOPTIONAL;
        wrong = indexes_[i];
        return DISP_E_PARAMNOTOPTIONAL;
      }
      call.arguments[i] = nullptr;
    }
    return S_OK;
  }

  const Member& member_;
  const DISPPARAMS& given_;
  std::array<UINT, Member::kMostArguments> indexes_{};
};

/// The one value of an assignment, which comes under a name of its own.
HRESULT TakeAssigned(const DISPPARAMS& given, Call& call) {
  if (given.cArgs != 1) return DISP_E_BADPARAMCOUNT;
  if (given.cNamedArgs != 1 || given.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) return DISP_E_PARAMNOTFOUND;
  if (IsLeftOut(given.rgvarg[0])) return DISP_E_PARAMNOTOPTIONAL;
  call.arguments[0] = &given.rgvarg[0];
  return S_OK;
}

/// Tells the failure that is being handled.
HRESULT Describe(EXCEPINFO* failure) noexcept {
  if (failure == nullptr) return DISP_E_EXCEPTION;
  *failure = EXCEPINFO{};
  try {
    const RunTimeError raised = FailureAtHand();
    failure->bstrSource = TextOrNone(kFailureSource);
    failure->bstrDescription = TextOrNone(raised.description());
    failure->scode = FailureCode(raised.number());
    return DISP_E_EXCEPTION;
  } catch (...) {  // memory: nothing else is raised here
    return E_OUTOFMEMORY;
  }
}

bool IsSound(const DISPPARAMS& given) {
  if (given.cNamedArgs > given.cArgs) return false;
  if (given.cArgs > 0 && given.rgvarg == nullptr) return false;
  return given.cNamedArgs == 0 || given.rgdispidNamedArgs != nullptr;
}

void Tell(UINT* argument, UINT index) {
  if (argument != nullptr) *argument = index;
}

}  // namespace

RunTimeError FailureAtHand() { return CurrentFailure().value_or(RunTimeError(FailureNumber::InvalidCall)); }

BSTR TextOrNone(std::string_view text) noexcept {
  try {
    return NewText(text);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

SCODE FailureCode(std::int32_t number) {
  return number >= 1 && number <= 0xFFFF ? static_cast<SCODE>(0x800A0000u + static_cast<std::uint32_t>(number))
                                         : number;
}

HRESULT CallMember(const Member& member, Object object, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                   EXCEPINFO* failure, UINT* argument) noexcept {
  if (result != nullptr) VariantInit(result);
  constexpr DISPPARAMS kNone{};
  const DISPPARAMS& given = parameters == nullptr ? kNone : *parameters;
  if (!IsSound(given)) return E_INVALIDARG;
  const Side side = SideFor(member, flags);
  if (side == nullptr) return DISP_E_MEMBERNOTFOUND;

  Call call{object, {}, result};
  Arrangement arrangement(member, given);
  UINT wrong = 0;
  const HRESULT arranged = side == member.put ? TakeAssigned(given, call) : arrangement.Arrange(call, wrong);
  if (FAILED(arranged)) {
    Tell(argument, wrong);
    return arranged;
  }
  try {
    side(call);
    return S_OK;
  } catch (const ArgumentFailure& unfit) {
    Tell(argument, side == member.put ? 0 : arrangement.IndexOf(unfit.place));
    return unfit.result;
  } catch (const std::bad_alloc&) {
    if (result != nullptr) VariantClear(result);  // what stands there if an argument could not be given back
    return E_OUTOFMEMORY;
  } catch (...) {
    return Describe(failure);
  }
}

}  // namespace zef::component
