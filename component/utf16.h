#pragma once

#include "component/automation.h"

/// Texts of automation are UTF-16 in a character type of the system's own, which has 16 bits everywhere.
namespace zef::component {

static_assert(sizeof(OLECHAR) == sizeof(char16_t));

inline const char16_t* Utf16(const OLECHAR* text) { return reinterpret_cast<const char16_t*>(text); }
inline const OLECHAR* FromUtf16(const char16_t* text) { return reinterpret_cast<const OLECHAR*>(text); }
inline OLECHAR* FromUtf16(char16_t* text) { return reinterpret_cast<OLECHAR*>(text); }

}  // namespace zef::component
