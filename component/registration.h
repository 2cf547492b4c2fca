#pragma once

#include <span>

#include "component/automation.h"
#include "component/description.h"

/// The host's registry of components. On Linux it is one file a class in the user's folder "components", named after
/// the class; on Windows the system's own, for all users if this one may write there, else for this one.
namespace zef::component {

inline constexpr char kLibraryName[] = "ZEFComponents";

/// Enters all classes under the path of this very library, each file in one step; the entries of another copy are
/// replaced. On Windows the type library too. SELFREG_E_CLASS if one cannot be written; the others are, and a
/// repetition completes them. None is if the path has a line break.
HRESULT Register(std::span<const Class* const> classes) noexcept;
/// Removes what `Register` writes, whichever copy wrote it; an entry that is missing, or that another library made
/// under the name, is no failure and stays. SELFREG_E_CLASS if one cannot be removed; the others are.
HRESULT Unregister(std::span<const Class* const> classes) noexcept;

}  // namespace zef::component
