#include "platform/postgresql/support_schema.h"

#include <unicode/uchar.h>

#include <initializer_list>
#include <utility>

#include "platform/sql/writing.h"
#include "platform/text_decoding.h"

namespace zef {
namespace {

/// Texts are equal by the first two levels of the root order, as in `text::Compare`. zef.fail ends a statement with one
/// of this library's failures: the code is that of `PostgresqlFailure`, and a code alone has a standing sentence.
constexpr std::string_view kTypes = R"sql(
SET LOCAL check_function_bodies = off;
SELECT pg_advisory_xact_lock(hashtext('zef'));
CREATE SCHEMA IF NOT EXISTS zef;
GRANT USAGE ON SCHEMA zef TO PUBLIC;
CREATE COLLATION IF NOT EXISTS zef.ci (provider = icu, locale = 'und-u-kk-true-ks-level2', deterministic = false);
CREATE COLLATION IF NOT EXISTS zef.root (provider = icu, locale = 'und');
DO $$ BEGIN
  IF to_regtype('zef.text') IS NULL THEN
    CREATE DOMAIN zef.text AS text COLLATE zef.ci;
    CREATE DOMAIN zef.byte AS smallint CHECK (VALUE BETWEEN 0 AND 255);
    CREATE DOMAIN zef.yesno AS smallint CHECK (VALUE IN (-1, 0));
  END IF;
END $$;
CREATE OR REPLACE FUNCTION zef.fail(code text, sentence text DEFAULT '') RETURNS void LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  RAISE EXCEPTION USING ERRCODE = code, MESSAGE = sentence;
END $$;
-- A number that tells whether any table, its columns or its key have changed.
CREATE OR REPLACE FUNCTION zef.tables_version() RETURNS bigint LANGUAGE sql STABLE AS $$
  SELECT hashtextextended(coalesce(string_agg(concat_ws(' ', c.oid, c.relname, a.attnum, a.attname, a.atttypid,
    a.atttypmod, a.attnotnull, a.attcollation, p.indkey), '/' ORDER BY c.oid, a.attnum), ''), 0) & 9223372036854775807
  FROM pg_class c JOIN pg_attribute a ON a.attrelid = c.oid LEFT JOIN pg_index p ON p.indrelid = c.oid AND p.indisprimary
  WHERE c.relnamespace = to_regnamespace(quote_ident(current_schema())) AND c.relkind IN ('r', 'p', 'v', 'm', 'f') AND a.attnum > 0
    AND NOT a.attisdropped $$;
)sql";

void Replace(std::string& text, std::string_view mark, const std::string& by) {
  for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + by.size())) {
    text.replace(at, mark.size(), by);
  }
}

/// The characters that keep a letter case once they have been lowered, and what they are without it.
std::pair<std::string, std::string> Foldings() {
  std::pair<std::string, std::string> foldings;
  constexpr UChar32 kLast = 0x10FFFF;
  for (UChar32 c = 0x80; c <= kLast; ++c) {
    const UChar32 lowered = u_tolower(c);
    const bool folds = c != 0x130 && lowered == c && text::Folded(c) != c;
    if (!folds) continue;
    text::AppendCodePoint(foldings.first, c);
    text::AppendCodePoint(foldings.second, text::Folded(c));
  }
  return foldings;
}

/// The capital I with a dot has no small letter of its own and would become two characters: it is held back in the
/// shape of one that nobody uses.
std::string WithCharacters(std::string texts) {
  const auto [lowered, folded] = Foldings();
  std::string kept, held;
  text::AppendCodePoint(kept, 0x130);
  text::AppendCodePoint(held, 0xF8FE);
  Replace(texts, "@lowered@", sql::QuotedText(lowered));
  Replace(texts, "@folded@", sql::QuotedText(folded));
  Replace(texts, "@kept@", sql::QuotedText(kept));
  Replace(texts, "@held@", sql::QuotedText(held));
  return texts;
}

}  // namespace

std::string SupportStatements() {
  std::string text(kTypes);
  text += WithCharacters(std::string(SupportOfTexts()));
  for (const std::string_view part : {SupportOfNumbers(), SupportOfDates(), SupportOfStorage()}) text += part;
  return text + "COMMENT ON SCHEMA zef IS '" + std::to_string(kSupportVersion) + "';";
}

}  // namespace zef
