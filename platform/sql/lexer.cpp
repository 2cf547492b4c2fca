#include "platform/sql/lexer.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <locale>
#include <optional>
#include <sstream>
#include <system_error>

#include "platform/date.h"
#include "platform/sql/characters.h"
#include "platform/sql/syntax_error.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

constexpr std::size_t kMostText = std::size_t{1} << 20;
constexpr std::size_t kMostLiterals = 30000;
/// Look-ups and statements with placeholders are short; with others a guess would only cost time.
constexpr std::size_t kMostGuessed = 128;
/// A `-` before a digit is a sign behind one of these; behind an operand it is the operator, behind a word it stays
/// with the parser.
constexpr std::string_view kBeforeSign = "=<>(,+-*/&^\\";

class ShapeReader {
 public:
  ShapeReader(std::string_view statement, Shape& shape)
      : shape_(shape), begin_(statement.data()), end_(statement.data() + statement.size()), at_(begin_), run_(begin_) {}

  void Read() {
    shape_.key.clear();
    shape_.lengths.clear();
    while (at_ != end_) ReadNext();
    AppendRun(end_);
    shape_.literals.resize(count_);
    if ((bytes_seen_ & 0x80U) != 0) CheckUtf8();
  }

 private:
  void ReadNext() {
    switch (ClassOf(*at_)) {
      case ByteClass::Blank: ++at_; return;
      case ByteClass::Letter: return SkipWord();
      case ByteClass::Symbol: previous_ = *at_++; return;
      case ByteClass::Digit: return ReadNumber(at_);
      case ByteClass::Minus: return ReadMinus();
      case ByteClass::Quote: return ReadText();
      case ByteClass::OpenName: return SkipName();
      case ByteClass::Dot: return ReadDot();
      case ByteClass::Hash: return ReadDate();
      case ByteClass::Semicolon: return ReadEnd();
      case ByteClass::Invalid:
      case ByteClass::Mark: Fail(at_, "this character has no meaning here");
    }
  }

  [[noreturn]] void Fail(const char* where, std::string_view what) const {
    RaiseSyntaxError(CountCharacters(begin_, where) + 1, what);
  }

  void Note(char c) { bytes_seen_ |= static_cast<unsigned char>(c); }

  void SkipWord() {
    for (; at_ != end_ && IsNameCharacter(*at_); ++at_) Note(*at_);
    previous_ = 'a';
  }

  void SkipName() {
    const char* const start = at_++;
    const char* const close = Find(ClosingOf(*start));
    if (close == nullptr) Fail(start, "the name that begins here is not closed");
    if (close == at_) Fail(start, "a name is empty");
    for (; at_ != close; ++at_) {
      Note(*at_);
      if (*at_ == '\0' || *at_ == kLiteralMark) Fail(at_, "this character has no meaning here");
    }
    ++at_;
    previous_ = 'a';
  }

  const char* Find(char c) const {
    return static_cast<const char*>(std::memchr(at_, c, static_cast<std::size_t>(end_ - at_)));
  }

  void ReadText() {
    const char* const start = at_++;
    auto& value = NextLiteral(start);
    auto* const kept = std::get_if<std::string>(&value);
    std::string& content = kept != nullptr ? *kept : value.emplace<std::string>();
    content.clear();
    for (;; ++at_) {
      const char* const close = Find(*start);
      if (close == nullptr) Fail(start, "the text that begins here is not closed");
      content.append(at_, close);
      at_ = close + 1;
      if (at_ == end_ || *at_ != *start) break;
      content.push_back(*start);
    }
    if (text::IsPlainAscii(content)) return AppendLiteral(start, LiteralKind::AsciiText);
    bytes_seen_ |= 0x80U;
    AppendLiteral(start, LiteralKind::Text);
    shape_.lengths.back() = CountCharacters(start, at_);
  }

  void ReadDate() {
    const char* const start = at_++;
    const char* const close = Find('#');
    if (close == nullptr) Fail(start, "the date that begins here is not closed");
    const std::optional<Date> date = ParseDate(std::string_view(at_, static_cast<std::size_t>(close - at_)));
    if (!date) Fail(start, "this is not a date");
    at_ = close + 1;
    NextLiteral(start).emplace<Date>(*date);
    AppendLiteral(start, LiteralKind::Date);
  }

  void ReadMinus() {
    const char* const start = at_++;
    const bool sign = kBeforeSign.find(previous_) != std::string_view::npos && StartsNumber(at_);
    if (sign) return ReadNumber(start);
    previous_ = '-';
  }

  void ReadDot() {
    const bool qualifies = at_ != begin_ && (IsNameCharacter(at_[-1]) || at_[-1] == ']' || at_[-1] == '`');
    if (!qualifies && StartsNumber(at_)) return ReadNumber(at_);
    previous_ = *at_++;
  }

  bool StartsNumber(const char* at) const {
    if (at != end_ && *at == '.') ++at;
    return at != end_ && IsDigit(*at);
  }

  /// Reads the number whose digits stand here; `start` is where its sign stands, if it has one.
  void ReadNumber(const char* start) {
    bool decimal = false;
    if (!SkipNumber(decimal)) Fail(start, "this is not a number");
    if (*start == '-' && PowerFollows()) ++start;
    Value& value = NextLiteral(start);
    AppendLiteral(start, ConvertNumber(start, decimal, value));
  }

  bool SkipNumber(bool& decimal) {
    SkipDigits();
    if (at_ != end_ && *at_ == '.') {
      decimal = true;
      ++at_;
      SkipDigits();
    }
    if (at_ != end_ && (*at_ == 'e' || *at_ == 'E')) {
      decimal = true;
      ++at_;
      if (at_ != end_ && (*at_ == '+' || *at_ == '-')) ++at_;
      if (!SkipDigits()) return false;
    }
    return at_ == end_ || (!IsNameCharacter(*at_) && *at_ != '.');
  }

  bool SkipDigits() {
    const char* const start = at_;
    while (at_ != end_ && IsDigit(*at_)) ++at_;
    return at_ != start;
  }

  /// In -2^2 the sign belongs to the power, not to the number.
  bool PowerFollows() const {
    const char* at = at_;
    while (at != end_ && ClassOf(*at) == ByteClass::Blank) ++at;
    return at != end_ && *at == '^';
  }

  LiteralKind ConvertNumber(const char* start, bool decimal, Value& value) const {
    const auto read_whole = [&](auto number) {
      const bool done = std::from_chars(start, at_, number).ec == std::errc{};
      if (done) value.emplace<decltype(number)>(number);
      return done;
    };
    if (!decimal && read_whole(std::int32_t{})) return LiteralKind::Integer;
    if (!read_whole(double{})) value.emplace<double>(ReadTiny(start));
    return LiteralKind::Decimal;
  }

  /// A number that is too large for a double fails, one that is too small is as good as 0.
  double ReadTiny(const char* start) const {
    std::istringstream stream(std::string(start, at_));
    stream.imbue(std::locale::classic());
    double number = 0.0;
    if (!(stream >> number)) Fail(start, "this number is out of range");
    return number;
  }

  void ReadEnd() {
    AppendRun(at_);
    const char* const end = std::find_if(at_ + 1, end_, [](char c) { return ClassOf(c) != ByteClass::Blank; });
    if (end != end_) Fail(end, "a call takes one statement, and nothing may follow its end");
    at_ = run_ = end_;
  }

  Value& NextLiteral(const char* start) {
    if (count_ == kMostLiterals) Fail(start, "the statement has too many literals");
    if (count_ == shape_.literals.size()) shape_.literals.emplace_back();
    return shape_.literals[count_++];
  }

  void AppendLiteral(const char* start, LiteralKind kind) {
    AppendRun(start);
    const char mark[] = {kLiteralMark, static_cast<char>(kind)};
    shape_.key.append(mark, sizeof mark);
    shape_.lengths.push_back(static_cast<std::size_t>(at_ - start));
    run_ = at_;
    previous_ = 'a';
  }

  /// Keeps what stands between the last literal and `last`.
  void AppendRun(const char* last) {
    const auto length = static_cast<std::size_t>(last - run_);
    if (length > kMostText - text_kept_) Fail(run_, "the statement is too long");
    text_kept_ += length;
    shape_.key.append(run_, length);
  }

  void CheckUtf8() const {
    const std::string_view all(begin_, static_cast<std::size_t>(end_ - begin_));
    if (text::IsValidUtf8(all)) return;
    const char* at = begin_;
    while (at != end_) {
      const char* const next = std::find_if(at + 1, end_, StartsCharacter);
      if (!text::IsValidUtf8(std::string_view(at, static_cast<std::size_t>(next - at)))) break;
      at = next;
    }
    const bool stray = static_cast<unsigned char>(*at) < 0x80U;
    Fail(stray ? at + 1 : at, "this is not UTF-8 text");
  }

  Shape& shape_;
  const char* const begin_;
  const char* const end_;
  const char* at_;
  const char* run_;          ///< behind the last literal
  char previous_ = '(';      ///< last significant character; a letter stands for any operand or word
  unsigned bytes_seen_ = 0;  ///< all bytes outside plain texts, put together by "or"
  std::size_t text_kept_ = 0;
  std::size_t count_ = 0;
};

}  // namespace

void ReadShape(std::string_view statement, Shape& shape) { ShapeReader(statement, shape).Read(); }

bool GuessShape(std::string_view statement, Shape& shape) {
  if (statement.size() > kMostGuessed || statement.find(kLiteralMark) != std::string_view::npos) return false;
  const auto head_size = statement.find_last_of('=') + 1;
  const char* const end = statement.data() + statement.size();
  std::int32_t number = 0;
  const auto [behind, error] = std::from_chars(statement.data() + head_size, end, number);
  const bool looks_up = head_size > 0 && error == std::errc{} && behind == end;
  shape.key.assign(statement.substr(0, looks_up ? head_size : statement.size()));
  shape.literals.resize(looks_up ? 1 : 0);
  shape.lengths.resize(shape.literals.size());
  if (!looks_up) return true;
  shape.key.append({kLiteralMark, static_cast<char>(LiteralKind::Integer)});
  shape.literals.front() = number;
  shape.lengths.front() = statement.size() - head_size;
  return true;
}

}  // namespace zef::sql
