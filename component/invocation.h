#pragma once

#include <cstdint>
#include <string_view>

#include "component/automation.h"
#include "component/description.h"
#include "platform/run_time_error.h"

namespace zef::component {

/// Who is told to have raised a failure.
inline constexpr char kFailureSource[] = "ZEFComponents";

/// The failure that is being handled, in the terms of the library.
RunTimeError FailureAtHand();
/// Null if there is no memory: a failure is told without its text rather than not at all.
BSTR TextOrNone(std::string_view text) noexcept;
/// The code of a raised failure: numbers of 16 bits in the range of run-time failures, the provider's as they are.
SCODE FailureCode(std::int32_t number);

/// Calls a member as `IDispatch::Invoke` is asked to: finds out which of its sides is meant, brings positional and
/// named arguments into the member's order, and turns every failure into a result and a description. Raises nothing.
HRESULT CallMember(const Member& member, Object object, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                   EXCEPINFO* failure, UINT* argument) noexcept;

}  // namespace zef::component
