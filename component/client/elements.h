#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/call.h"

namespace zef {
inline namespace automation {

/// A walk over the elements of a collection, for `for`. It keeps the collection and walks over it as it stands at each
/// step.
template <class Element>
class Elements {
 public:
  using value_type = Element;
  using difference_type = std::ptrdiff_t;

  explicit Elements(IDispatch* collection) : walk_(WalkOver(collection)) { ++*this; }

  Elements& operator++() {
    OwnedVariant next;
    const HRESULT outcome = walk_->Next(1, &next, nullptr);
    if (FAILED(outcome)) RaiseFailureOf(walk_.get(), outcome);
    at_end_ = outcome != S_OK;
    element_ = at_end_ ? Element() : Carried<Element>::Take(next);
    return *this;
  }
  void operator++(int) { ++*this; }
  const Element& operator*() const { return element_; }
  friend bool operator==(const Elements& at, std::default_sentinel_t) { return at.at_end_; }

 private:
  struct Release {
    void operator()(IEnumVARIANT* walk) const { walk->Release(); }
  };
  using Walk = std::unique_ptr<IEnumVARIANT, Release>;

  static Walk WalkOver(IDispatch* collection) {
    OwnedVariant enumerator;
    OwnedExcepinfo told;
    HRESULT outcome = InvokeMember(collection, DISPID_NEWENUM, DISPATCH_PROPERTYGET, nullptr, 0, &enumerator, told);
    void* walk = nullptr;
    if (SUCCEEDED(outcome)) {
      outcome =
          enumerator.punkVal == nullptr ? E_NOINTERFACE : enumerator.punkVal->QueryInterface(IID_IEnumVARIANT, &walk);
    }
    if (outcome == DISP_E_MEMBERNOTFOUND) throw Failure(outcome, "The object is no collection");
    if (FAILED(outcome)) Raise(outcome, told);
    return Walk(static_cast<IEnumVARIANT*>(walk));
  }

  Walk walk_;
  Element element_;
  bool at_end_ = false;
};

}  // namespace automation
}  // namespace zef
