#pragma once

#include <cstddef>
#include <cstdint>

#include "component/description.h"

namespace zef::component {

/// The most entries that an interface has behind those of IDispatch.
inline constexpr std::size_t kMostEarlyEntries = 256;

/// An entry of a default interface: a side of a member.
struct EarlyEntry {
  const Member* member = nullptr;
  bool puts = false;
};
/// The entry at a place behind those of IDispatch, in the order of the type library; without a member behind the last.
EarlyEntry EarlyEntryOf(const Class& described, std::size_t place);

/// One call by place, with its arguments as they came: the object, then one place of eight bytes for each. Doubles
/// among the first three stand apart.
class EarlyCall {
 public:
  EarlyCall(const std::uint64_t* places, const double* doubles) : places_(places), doubles_(doubles) {}

  /// Calls the side of the member; its failure is told by the code, and in full by the error object of the thread.
  HRESULT Run(const EarlyEntry& entry, Object object, REFIID interface_id) const noexcept;

 private:
  VARIANT ArgumentAt(std::size_t place, const Type& type) const;
  void* PointerAt(std::size_t place) const { return reinterpret_cast<void*>(places_[place]); }

  const std::uint64_t* places_;
  const double* doubles_;
};

}  // namespace zef::component
