#pragma once

#include <span>
#include <string>

#include "component/automation.h"
#include "component/description.h"

/// The host's registry of components: one file a class in the user's folder "components", named after the class.
namespace zef::component {

inline constexpr char kLibraryName[] = "ZEFComponents";

/// As in "{2B7C9E41-5A1E-4D3B-9C42-7E15B06F0001}".
std::string IdentifierText(REFGUID identifier);

/// Enters all classes under the path of this very library, each file in one step; the entries of another copy are
/// replaced. SELFREG_E_CLASS if one cannot be written; the others are, and a repetition completes them. None is if the
/// path has a line break or a word that the loader replaces, such as "$ORIGIN".
HRESULT Register(std::span<const Class* const> classes) noexcept;
/// Removes what `Register` writes, whichever copy wrote it; an entry that is missing, or that another library made
/// under the name, is no failure and stays. SELFREG_E_CLASS if one cannot be removed; the others are.
HRESULT Unregister(std::span<const Class* const> classes) noexcept;

}  // namespace zef::component
