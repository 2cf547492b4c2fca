#pragma once

#include <cstdint>
#include <string_view>

#include "bench/by_hand.h"
#include "bench/by_hand_contact.h"
#include "calendar/event.h"
#include "folders/folder.h"
#include "session/collections.h"

namespace zef::bench {

/// A number that stands for a row of values; the order counts.
class Digest {
 public:
  void Add(std::uint64_t value);
  void Add(std::int32_t value) { Add(static_cast<std::uint64_t>(value)); }
  void Add(double value);
  void Add(std::string_view text);
  std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 14695981039346656037U;
};

/// All values of a record and its children; the same for the library's object and the one made by hand.
std::uint64_t DigestOf(const CFolder& folder);
std::uint64_t DigestOf(const HandFolder& folder);
std::uint64_t DigestOf(const CEvent& event);
std::uint64_t DigestOf(const HandEvent& event);
std::uint64_t DigestOf(const CContact& contact);
std::uint64_t DigestOf(const HandContact& contact);
std::uint64_t DigestOf(const CTag& tag);
std::uint64_t DigestOf(const HandTag& tag);

/// All values of the rows of a select, as texts.
std::uint64_t DigestOfRows(const HandDatabase& db, const std::string& select);

/// All records of a list of pointers, in order.
template <class Records>
std::uint64_t DigestOfAll(const Records& records) {
  Digest digest;
  for (const auto& record : records) digest.Add(DigestOf(*record));
  return digest.value();
}

}  // namespace zef::bench
