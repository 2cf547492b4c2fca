#include "platform/postgresql/wire_values.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>
#include <variant>

#include "platform/date_parts.h"
#include "platform/run_time_error.h"

namespace zef {
namespace {

using sql::Type;

/// The server's numbers of the types that statements deliver.
enum Oid : unsigned {
  kBool = 16,
  kBytea = 17,
  kInt8 = 20,
  kInt2 = 21,
  kInt4 = 23,
  kTid = 27,
  kFloat4 = 700,
  kFloat8 = 701,
  kTimestamp = 1114,
  kName = 19,
  kText = 25,
  kUnknown = 705,
  kPaddedText = 1042,
  kVariableText = 1043,
};

constexpr std::int64_t kMicroseconds = 1'000'000;
constexpr std::int64_t kMicrosecondsPerDay = date_parts::kSecondsPerDay * kMicroseconds;
constexpr std::int64_t kServersDayZero = 36526;  ///< 1 January 2000

template <class Number>
Number BigEndian(Number number) {
  if constexpr (std::endian::native == std::endian::big) return number;
  auto bytes = std::bit_cast<std::array<char, sizeof(Number)>>(number);
  for (std::size_t i = 0; i < sizeof(Number) / 2; ++i) std::swap(bytes[i], bytes[sizeof(Number) - 1 - i]);
  return std::bit_cast<Number>(bytes);
}

template <class Number>
Number NumberAt(const char* bytes) {
  Number number;
  std::memcpy(&number, bytes, sizeof number);
  return BigEndian(number);
}

std::int64_t ToServersTime(Date date) {
  const auto [day, fraction] = date_parts::Split(date);
  return (day - kServersDayZero) * kMicrosecondsPerDay +
         std::llround(fraction * static_cast<double>(kMicrosecondsPerDay));
}

/// Whole seconds come as exactly the number that they have everywhere in the library.
Date FromServersTime(std::int64_t time) {
  std::int64_t day = time / kMicrosecondsPerDay;
  std::int64_t rest = time % kMicrosecondsPerDay;
  if (rest < 0) {
    rest += kMicrosecondsPerDay;
    --day;
  }
  day += kServersDayZero;
  if (day < date_parts::kFirstDay || day > date_parts::kLastDay) {
    throw RunTimeError(FailureNumber::TypesDoNotConvert, "A date lies outside of the years 100 to 9999.");
  }
  if (rest % kMicroseconds == 0) return date_parts::Join({day, static_cast<int>(rest / kMicroseconds)});
  return date_parts::Join(day, static_cast<double>(rest) / static_cast<double>(kMicrosecondsPerDay));
}

/// The form in which the server reads bytes from a text.
std::string HexText(const Bytes& bytes) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string text = "\\x";
  for (const std::byte byte : bytes) {
    const auto number = std::to_integer<unsigned>(byte);
    text += kDigits[number >> 4U];
    text += kDigits[number & 15U];
  }
  return text;
}

/// A value whose type only its place in the statement tells goes as a text.
std::string PlainText(const Value& value) {
  if (const auto* bytes = std::get_if<Bytes>(&value)) return HexText(*bytes);
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "-1" : "0";
  return ToText(value);
}

bool IsOfItsPlace(const sql::ParameterPlan& plan) {
  return plan.type == Type::Unknown && plan.source == sql::ParameterPlan::Source::Placeholder;
}

bool IsWhole(unsigned oid) { return oid == kInt4 || oid == kInt2 || oid == kInt8; }

std::int64_t WholeAt(const char* bytes, unsigned oid) {
  if (oid == kInt4) return NumberAt<std::int32_t>(bytes);
  return oid == kInt2 ? NumberAt<std::int16_t>(bytes) : NumberAt<std::int64_t>(bytes);
}

void SetWhole(std::int64_t number, Type type, Value& value) {
  if (type == Type::Boolean) {
    value.emplace<bool>(number != 0);
  } else if (type == Type::Byte && std::in_range<std::uint8_t>(number)) {
    value.emplace<std::uint8_t>(static_cast<std::uint8_t>(number));
  } else if (type != Type::Double && std::in_range<std::int32_t>(number)) {
    value.emplace<std::int32_t>(static_cast<std::int32_t>(number));
  } else {
    value.emplace<double>(static_cast<double>(number));
  }
}

void SetDouble(double number, Type type, Value& value) {
  if (type == Type::Boolean) {
    value.emplace<bool>(number != 0);
  } else {
    value.emplace<double>(number);
  }
}

std::string RowIdText(const char* bytes) {
  return "(" + std::to_string(NumberAt<std::uint32_t>(bytes)) + "," +
         std::to_string(NumberAt<std::uint16_t>(bytes + 4)) + ")";
}

double DoubleIn(std::string_view text) {
  double number = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

Bytes BytesIn(std::string_view hex) {
  Bytes bytes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
    unsigned byte = 0;
    std::from_chars(hex.data() + i, hex.data() + i + 2, byte, 16);
    bytes.push_back(static_cast<std::byte>(byte));
  }
  return bytes;
}

/// What zef.varying has written: the letter of the kind, then the value.
Value VaryingIn(std::string_view text) {
  const std::string_view rest = text.substr(1);
  switch (text.front()) {
    case 'i': {
      Value value;
      SetWhole(static_cast<std::int64_t>(DoubleIn(rest)), Type::Long, value);
      return value;
    }
    case 'n': return DoubleIn(rest);
    case 'd': return Date(DoubleIn(rest));
    case 'b': return BytesIn(rest);
    default: return std::string(rest);
  }
}

void SetText(std::string_view text, Type type, Value& value) {
  if (type == Type::Unknown && !text.empty()) {
    value = VaryingIn(text);
  } else {
    value.emplace<std::string>(text);
  }
}

/// Puts a value into a variable if it comes as the variable's type; false for all that takes a conversion.
struct Filler {
  const char* bytes;
  std::size_t size;
  unsigned oid;
  Type type;

  bool operator()(std::monostate) const { return false; }
  bool operator()(std::int32_t* number) const {
    if (!IsWhole(oid) || type == Type::Boolean) return false;
    const std::int64_t whole = WholeAt(bytes, oid);
    if (!std::in_range<std::int32_t>(whole)) return false;
    *number = static_cast<std::int32_t>(whole);
    return true;
  }
  bool operator()(std::string* text) const {
    if (!sql::IsText(type)) return false;
    text->assign(bytes, size);
    return true;
  }
  bool operator()(Date* date) const {
    if (oid != kTimestamp) return false;
    *date = FromServersTime(NumberAt<std::int64_t>(bytes));
    return true;
  }
  bool operator()(bool* flag) const {
    if (!IsWhole(oid) || type != Type::Byte) return false;
    *flag = WholeAt(bytes, oid) == 1;
    return true;
  }
};

}  // namespace

WireParameters::WireParameters(const std::vector<sql::ParameterPlan>& plans)
    : plans_(plans),
      values_(plans.size()),
      lengths_(plans.size()),
      formats_(plans.size(), 1),
      numbers_(plans.size()),
      texts_(plans.size()) {}

template <class Number>
void WireParameters::SetNumber(std::size_t i, Number number) {
  const Number ordered = BigEndian(number);
  std::memcpy(numbers_[i].data(), &ordered, sizeof ordered);
  values_[i] = numbers_[i].data();
  lengths_[i] = sizeof ordered;
}

void WireParameters::SetText(std::size_t i, std::string text) {
  texts_[i] = std::move(text);
  values_[i] = texts_[i].c_str();
  formats_[i] = 0;
}

void WireParameters::Set(std::size_t i, const Value& value) {
  struct Setter {
    WireParameters& self;
    std::size_t i;
    Type type;

    void operator()(Null) const { self.values_[i] = nullptr; }
    void operator()(std::int32_t number) const {
      if (type == Type::Short) return self.SetNumber(i, static_cast<std::int16_t>(number));
      self.SetNumber(i, number);
    }
    void operator()(std::uint8_t number) const { self.SetNumber(i, static_cast<std::int16_t>(number)); }
    void operator()(double number) const { self.SetNumber(i, number); }
    void operator()(bool truth) const { self.SetNumber(i, static_cast<std::int16_t>(truth ? -1 : 0)); }
    void operator()(Date date) const { self.SetNumber(i, ToServersTime(date)); }
    void operator()(const std::string& text) const {
      self.values_[i] = text.c_str();
      self.lengths_[i] = static_cast<int>(text.size());
    }
    void operator()(const Bytes& bytes) const {
      // A null pointer would be Null in place of bytes of length 0.
      self.values_[i] = bytes.empty() ? "" : reinterpret_cast<const char*>(bytes.data());
      self.lengths_[i] = static_cast<int>(bytes.size());
    }
  };
  const bool as_text = IsOfItsPlace(plans_[i]) && !IsNull(value);
  if (as_text) return SetText(i, PlainText(value));
  formats_[i] = 1;
  std::visit(Setter{*this, i, plans_[i].type}, value);
}

void ReadWireValue(const PGresult* row, int column, Type type, Value& value) {
  if (PQgetisnull(row, 0, column) != 0) {
    value.emplace<Null>();
    return;
  }
  const char* const bytes = PQgetvalue(row, 0, column);
  const auto size = static_cast<std::size_t>(PQgetlength(row, 0, column));
  switch (const unsigned oid = PQftype(row, column)) {
    case kInt2:
    case kInt4:
    case kInt8: return SetWhole(WholeAt(bytes, oid), type, value);
    case kFloat8: return SetDouble(NumberAt<double>(bytes), type, value);
    case kFloat4: return SetDouble(static_cast<double>(NumberAt<float>(bytes)), type, value);
    case kTimestamp: value.emplace<Date>(FromServersTime(NumberAt<std::int64_t>(bytes))); return;
    case kBool: value.emplace<bool>(*bytes != 0); return;
    case kTid: value.emplace<std::string>(RowIdText(bytes)); return;
    case kBytea: {
      const auto* const first = reinterpret_cast<const std::byte*>(bytes);
      value.emplace<Bytes>(first, first + size);
      return;
    }
    case kName:
    case kText:
    case kUnknown:
    case kPaddedText:
    case kVariableText: return SetText({bytes, size}, type, value);
    default: throw RunTimeError(FailureNumber::TypesDoNotConvert, "A value has a type that the library does not know.");
  }
}

bool FillWireValue(const PGresult* row, int column, Type type, const Slot& slot) {
  if (PQgetisnull(row, 0, column) != 0) return StoreNull(slot);
  const auto size = static_cast<std::size_t>(PQgetlength(row, 0, column));
  return std::visit(Filler{PQgetvalue(row, 0, column), size, PQftype(row, column), type}, slot.target);
}

}  // namespace zef
