#pragma once

#include <span>

#include "component/automation.h"
#include "component/description.h"

/// The host's registry of components. On Linux it is one file a class in the user's folder "components", named after
/// the class; on Windows the system's own, for all users if this one may write there, else for this one.
namespace zef::component {

inline constexpr char kLibraryName[] = "ZEFComponents";

// Both take the step for each class, though one has failed, and answer the failure of the first: 800A0000 and its
// number, which is 5 for a path that no entry can name, 53 if the library's own file is gone, 61 for a full disk, 70
// for a permission that is missing, 76 if there can be no folder, and 75 for what else stands in the way. A repetition
// completes what is missing. The registry of Windows gives no such numbers: there the answer is SELFREG_E_CLASS.

/// Enters all classes under the path of this very library, each file in one step; the entries of another copy are
/// replaced. No entry can name a path with a line break or with a word that the loader replaces, such as "$ORIGIN".
HRESULT Register(std::span<const Class* const> classes) noexcept;
/// Removes what `Register` writes, whichever copy wrote it; an entry that is missing, or that another library made
/// under the name, is no failure and stays.
HRESULT Unregister(std::span<const Class* const> classes) noexcept;

}  // namespace zef::component
