#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/value.h"

namespace zef::sql {

/// What kind of literal stands in a statement; part of the statement's shape, because the written statement depends on
/// it.
enum class LiteralKind : char { Integer = 'i', Decimal = 'f', AsciiText = 'a', Text = 'u', Date = 'd' };

/// A statement taken apart into what decides how it is run (the key) and the values it carries. Two statements that
/// differ only in their literals have the same key. `key` is the statement, up to a `;`, with each literal replaced by
/// a byte 1 and its `LiteralKind`; a `-` that can only be a sign belongs to its number. Reused for statement after
/// statement, it allocates nothing new once its buffers have grown.
struct Shape {
  std::string key;
  std::vector<Value> literals;
  std::vector<std::size_t> lengths;  ///< characters of each literal as written, to find places in the statement
};

/// Takes a statement apart in one pass. Raises -2147217900, naming the place, for an unclosed text, bracket or date, a
/// date that is none, a malformed number, malformed UTF-8, anything behind a `;` but blanks, a byte 0 or 1 outside a
/// text, and for more than 1 MiB of text outside literals or more than 30000 literals. An integer beyond 32 bits is a
/// Decimal. Empty texts are AsciiText. After a failure the shape holds nothing of use.
void ReadShape(std::string_view statement, Shape& shape);

/// Guesses the shape of a short statement without taking it apart: an integer behind a `=` at its end is its literal,
/// or else it has none. The guess is right if a statement has been read before that has this key and no literal but
/// that; false if no such key could be the statement's.
bool GuessShape(std::string_view statement, Shape& shape);

/// True if the statement begins with CREATE, ALTER or DROP: such statements are not cached.
bool IsSchemaChange(std::string_view statement);

struct Token {
  enum class Kind { End, Word, Name, Literal, Placeholder, Symbol };
  Kind kind = Kind::End;
  std::string_view text;  ///< of a Word or Symbol as written; of a Name (in brackets) what stands between them
  LiteralKind literal_kind = LiteralKind::Integer;
  std::size_t index = 0;  ///< of a literal or placeholder, from 0
  std::size_t place = 1;  ///< character of the key, from 1
};

/// The tokens of a shape's key. Views point into `key`.
std::vector<Token> ReadTokens(std::string_view key);

}  // namespace zef::sql
