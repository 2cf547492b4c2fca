#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include "platform/run_time_error.h"

namespace zef {

/// A counted reference to an object; a null one is Nothing.
template <class T>
using Ref = boost::intrusive_ptr<T>;

/// Base of every counted object. The count is plain: an object and all references to it belong to one thread.
template <class T>
class RefCounted : public boost::intrusive_ref_counter<T, boost::thread_unsafe_counter> {
 public:
  RefCounted() = default;
  RefCounted(const RefCounted&) : RefCounted() {}
  RefCounted& operator=(const RefCounted&) { return *this; }

  /// What shows this very object outside the library, or null. A copy is another object.
  void*& Outside() { return outside_; }

 protected:
  ~RefCounted() = default;

 private:
  void* outside_ = nullptr;
};

template <class T, class... Args>
Ref<T> MakeRef(Args&&... args) {
  return Ref<T>(new T(static_cast<Args&&>(args)...));
}

/// The object behind a reference; raises 91 for Nothing.
template <class T>
T& Deref(const Ref<T>& reference) {
  if (!reference) throw RunTimeError(FailureNumber::ObjectNotSet);
  return *reference;
}

}  // namespace zef
