#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/run_time_error.h"
#include "platform/text.h"

namespace zef {

/// An ordered list with a unique text key for each item; positions count from 1, keys are compared without regard to
/// ASCII letter case. Access by position or key costs the same however long the list is; removing costs its length.
template <class T>
class KeyedList {
  struct Entry {
    std::string key;
    T item;
  };

 public:
  /// Goes over the items in order, by position, so that a list may change on the way. Gives copies, since an item may
  /// be removed while it is looked at.
  class Iterator {
   public:
    explicit Iterator(const KeyedList& list) : list_(&list) {}
    T operator*() const { return list_->entries_[index_].item; }
    Iterator& operator++() { return ++index_, *this; }
    bool operator==(std::default_sentinel_t) const { return index_ >= list_->entries_.size(); }

   private:
    const KeyedList* list_;
    std::size_t index_ = 0;
  };

  std::int32_t Count() const { return static_cast<std::int32_t>(entries_.size()); }
  Iterator begin() const { return Iterator(*this); }
  std::default_sentinel_t end() const { return std::default_sentinel; }

  /// Appends an item; raises 457 if the key exists.
  void Add(std::string key, T item);
  /// Appends an item; false, and nothing changes, if the key exists.
  bool TryAdd(std::string key, T item);
  /// The item at a position from 1; raises 9 outside the list. The reference is good until the list changes.
  const T& Item(std::int32_t position) const { return entries_[Checked(position)].item; }
  /// The item of a key; raises 5 for an unknown one.
  const T& Item(std::string_view key) const { return entries_[Checked(key)].item; }
  bool Contains(std::string_view key) const { return SlotOf(key) != nullptr; }
  /// The items behind move up. Both raise what `Item` does.
  void Remove(std::int32_t position) { RemoveAt(Checked(position)); }
  void Remove(std::string_view key) { RemoveAt(Checked(key)); }
  void Clear();

 private:
  // The keys' index is a table of positions from 1, searched from the key's hash on up to the first free slot, and at
  // most half full.
  using Slot = std::uint32_t;
  static constexpr Slot kFree = 0;
  static constexpr Slot kVacated = std::numeric_limits<Slot>::max();

  static std::size_t Hash(std::string_view key);
  std::size_t Checked(std::int32_t position) const;
  std::size_t Checked(std::string_view key) const;
  const Slot* SlotOf(std::string_view key) const;
  void RemoveAt(std::size_t index);
  void Occupy(std::string_view key, Slot position);
  void Grow();

  std::vector<Entry> entries_;
  std::vector<Slot> slots_;     ///< its size is 0 or a power of two
  std::size_t used_slots_ = 0;  ///< slots that are not free
};

template <class T>
void KeyedList<T>::Add(std::string key, T item) {
  if (!TryAdd(std::move(key), std::move(item))) throw RunTimeError(FailureNumber::KeyExists);
}

template <class T>
bool KeyedList<T>::TryAdd(std::string key, T item) {
  if (Contains(key)) return false;
  if (2 * (used_slots_ + 1) > slots_.size()) Grow();
  entries_.push_back({std::move(key), std::move(item)});
  Occupy(entries_.back().key, static_cast<Slot>(entries_.size()));
  return true;
}

template <class T>
void KeyedList<T>::Clear() {
  entries_.clear();
  slots_.clear();
  used_slots_ = 0;
}

/// Most keys are decimal numbers that come in a row: a number is its own hash, so that their slots stand in a row, too,
/// and stay in the processor's cache. For other keys it is the FNV-1a of the lowered key. Upper bits are mixed in
/// because only low ones choose the slot.
template <class T>
std::size_t KeyedList<T>::Hash(std::string_view key) {
  std::uint32_t number = 0;
  const char* const end = key.data() + key.size();
  const auto [behind, error] = std::from_chars(key.data(), end, number);
  if (error == std::errc{} && behind == end) return number ^ (number >> 20);
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : key) {
    const bool upper = c >= 'A' && c <= 'Z';
    hash = (hash ^ static_cast<unsigned char>(upper ? c + ('a' - 'A') : c)) * 1099511628211U;
  }
  return static_cast<std::size_t>(hash ^ (hash >> 32));
}

template <class T>
std::size_t KeyedList<T>::Checked(std::int32_t position) const {
  if (position < 1 || position > Count()) throw RunTimeError(FailureNumber::SubscriptOutOfRange);
  return static_cast<std::size_t>(position) - 1;
}

template <class T>
std::size_t KeyedList<T>::Checked(std::string_view key) const {
  const Slot* const slot = SlotOf(key);
  if (slot == nullptr) throw RunTimeError(FailureNumber::InvalidCall);
  return *slot - 1;
}

template <class T>
auto KeyedList<T>::SlotOf(std::string_view key) const -> const Slot* {
  if (slots_.empty()) return nullptr;
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t at = Hash(key) & mask; slots_[at] != kFree; at = (at + 1) & mask) {
    if (slots_[at] != kVacated && text::EqualNames(entries_[slots_[at] - 1].key, key)) return &slots_[at];
  }
  return nullptr;
}

template <class T>
void KeyedList<T>::RemoveAt(std::size_t index) {
  const auto removed = static_cast<Slot>(index + 1);
  for (Slot& slot : slots_) {
    if (slot == removed) {
      slot = kVacated;
    } else if (slot > removed && slot != kVacated) {
      --slot;
    }
  }
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
}

template <class T>
void KeyedList<T>::Occupy(std::string_view key, Slot position) {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = Hash(key) & mask;
  while (slots_[at] != kFree) at = (at + 1) & mask;
  slots_[at] = position;
  ++used_slots_;
}

template <class T>
void KeyedList<T>::Grow() {
  std::size_t size = 16;
  while (size < 4 * (entries_.size() + 1)) size *= 2;
  slots_.assign(size, kFree);
  used_slots_ = 0;
  for (const Entry& entry : entries_) Occupy(entry.key, static_cast<Slot>(used_slots_ + 1));
}

}  // namespace zef
