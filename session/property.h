#pragma once

#include <cassert>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "platform/value.h"

namespace zef {

/// The two flags of a record. Only this header and the record contract write them.
class RecordFlags {
 public:
  /// True until the record has a row, as far as it knows.
  bool IsNew() const { return new_; }

 protected:
  RecordFlags() = default;
  bool OwnModified() const { return modified_; }
  void MarkModified() { modified_ = true; }
  void SetFlags(bool modified, bool is_new) {
    modified_ = modified;
    new_ = is_new;
  }

 private:
  template <class T>
  friend class Property;

  bool modified_ = false;
  bool new_ = true;
};

/// The way from a part of a record to the record. The part is a member and never leaves it, so the distance between
/// them never changes; it takes half of what a reference takes, and a record has up to forty parts.
template <class Whole>
class WayTo {
 public:
  /// `whole` must be the record that this is in.
  explicit WayTo(Whole& whole) : distance_(static_cast<std::int32_t>(Address(&whole) - Address(this))) {
    assert(operator->() == &whole);
  }
  WayTo(const WayTo&) = delete;

  // The record lies around this object, out of reach of a pointer's own arithmetic.
  Whole* operator->() const { return reinterpret_cast<Whole*>(Address(this) + distance_); }

 private:
  static std::intptr_t Address(const void* object) { return reinterpret_cast<std::intptr_t>(object); }

  std::int32_t distance_;
};

/// A property of a record. Setting it compares, stores and raises the record's modified flag if the value differs;
/// reading is free. Setting validates nothing.
template <class T>
class Property {
 public:
  using Held = T;

  explicit Property(RecordFlags& record, T initial = T()) : value_(std::move(initial)), record_(record) {}
  Property(const Property&) = delete;

  Property& operator=(const Property& other) { return *this = other.value_; }
  Property& operator=(const T& value) {
    if (value_ == value) return *this;
    value_ = value;
    record_->modified_ = true;
    return *this;
  }

  const T& get() const { return value_; }
  operator const T&() const { return value_; }
  const T* operator->() const { return &value_; }
  friend bool operator==(const Property& a, const T& b) { return a.value_ == b; }

  /// Setting a text to itself with more behind it, without copying what is there.
  Property& operator+=(std::string_view more) requires std::same_as<T, std::string> {
    value_ += more;
    record_->modified_ |= !more.empty();
    return *this;
  }

  /// Stores without touching the flag: what comes from a row is no change.
  void Load(T value) { value_ = std::move(value); }
  /// The variable itself, for what comes from a row and is put there directly.
  T& Loaded() { return value_; }

 private:
  T value_;
  WayTo<RecordFlags> record_;
};

/// The text of a property's value, see `ToText` of a value and of a date.
template <class T>
std::string ToText(const Property<T>& property) {
  return ToText(property.get());
}

}  // namespace zef
