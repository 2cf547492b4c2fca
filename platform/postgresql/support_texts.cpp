#include "platform/postgresql/support_schema.h"

namespace zef {

/// Texts compare by zef.ci; what looks into a text asks for its characters as they are. zef.fold takes the letter case
/// away, character by character, so that places in a text stay what they are.
std::string_view SupportOfTexts() {
  return R"sql(
CREATE OR REPLACE FUNCTION zef.fold(x text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN octet_length(x) = length(x) THEN lower(x COLLATE "C") COLLATE "C"
    ELSE translate(lower(translate(x COLLATE "C", @kept@, @held@) COLLATE zef.root) COLLATE "C",
                   @lowered@ || @held@, @folded@ || @kept@) END $$;

-- A pattern with sets as a regular expression.
CREATE OR REPLACE FUNCTION zef.expression_of(pattern text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
  p text COLLATE "C" := pattern;
  last_bracket int := length(p) - strpos(reverse(p), ']') + 1;
  result text COLLATE "C" := '^';
  ranges text COLLATE "C";
  members text COLLATE "C";
  c text COLLATE "C";
  other text COLLATE "C";
  outside boolean;
  i int := 1;
  j int;
BEGIN
  IF strpos(p, ']') = 0 THEN last_bracket := 0; END IF;
  WHILE i <= length(p) LOOP
    c := substr(p, i, 1);
    IF c = '%' THEN result := result || '.*';
    ELSIF c = '_' THEN result := result || '.';
    ELSIF c = '[' AND i < last_bracket THEN
      members := substr(p, i + 1, strpos(substr(p, i), ']') - 2);
      i := i + length(members) + 1;
      outside := length(members) > 1 AND left(members, 1) = '!';
      IF outside THEN members := substr(members, 2); END IF;
      ranges := '';
      j := 1;
      WHILE j <= length(members) LOOP
        c := substr(members, j, 1);
        other := c;
        IF substr(members, j + 1, 1) = '-' AND j + 2 <= length(members) THEN
          other := substr(members, j + 2, 1);
          j := j + 2;
        ELSIF substr(members, j + 1, 1) = '-' THEN
          other := '-';
          j := j + 1;
        END IF;
        IF ascii(c) <= ascii(other) THEN ranges := ranges || zef.plain(c) || '-' || zef.plain(other); END IF;
        j := j + 1;
      END LOOP;
      result := result || CASE WHEN ranges <> '' THEN '[' || CASE WHEN outside THEN '^' ELSE '' END || ranges || ']'
                               WHEN outside THEN '.' ELSE '(?!.)(?=.)' END;
    ELSE result := result || zef.plain(c);
    END IF;
    i := i + 1;
  END LOOP;
  RETURN result || '$';
END $$;

-- A character as it stands in a regular expression.
CREATE OR REPLACE FUNCTION zef.plain(c text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN c COLLATE "C" ~ '^[!-/:-@[-`{-~]$' THEN '\' || c ELSE c END $$;

CREATE OR REPLACE FUNCTION zef.like(x text, pattern text) RETURNS boolean LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN strpos(pattern COLLATE "C", '[') = 0
    THEN zef.fold(x) COLLATE "C" LIKE replace(zef.fold(pattern) COLLATE "C", '\', '\\')
    ELSE zef.fold(x) COLLATE "C" ~ zef.expression_of(zef.fold(pattern)) END $$;

CREATE OR REPLACE FUNCTION zef.count(n double precision, lowest integer) RETURNS integer LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF n::integer < lowest THEN PERFORM zef.fail('ZF005'); END IF;
  RETURN n::integer;
END $$;

CREATE OR REPLACE FUNCTION zef.instr(x text, part text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN part COLLATE "C" = '' THEN least(length(x), 1) 
    ELSE strpos(zef.fold(x) COLLATE "C", zef.fold(part) COLLATE "C") END $$;
CREATE OR REPLACE FUNCTION zef.instr_from(start double precision, x text, part text) RETURNS integer LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
  first int := zef.count(start, 1);
  found int := zef.instr(substr(x, first), part);
BEGIN
  RETURN CASE WHEN found = 0 THEN 0 ELSE found + first - 1 END;
END $$;

CREATE OR REPLACE FUNCTION zef.left(x text, n double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT left(x, zef.count(n, 0)) $$;
CREATE OR REPLACE FUNCTION zef.right(x text, n double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT right(x, zef.count(n, 0)) $$;
CREATE OR REPLACE FUNCTION zef.mid(x text, start double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT substr(x, zef.count(start, 1)) $$;
CREATE OR REPLACE FUNCTION zef.mid(x text, start double precision, n double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT substr(x, zef.count(start, 1), zef.count(n, 0)) $$;
CREATE OR REPLACE FUNCTION zef.len(x text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT length(x) $$;
CREATE OR REPLACE FUNCTION zef.len(x bytea) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT octet_length(x) $$;
CREATE OR REPLACE FUNCTION zef.trim(x text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT btrim(x, ' ') $$;
CREATE OR REPLACE FUNCTION zef.ltrim(x text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT ltrim(x, ' ') $$;
CREATE OR REPLACE FUNCTION zef.rtrim(x text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT rtrim(x, ' ') $$;
CREATE OR REPLACE FUNCTION zef.ucase(x text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT upper(x COLLATE zef.root) COLLATE zef.ci $$;
CREATE OR REPLACE FUNCTION zef.lcase(x text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT lower(x COLLATE zef.root) COLLATE zef.ci $$;

-- The text forms of other kinds of values. Their type brings the collation along.
CREATE OR REPLACE FUNCTION zef.cstr(x text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT x $$;
CREATE OR REPLACE FUNCTION zef.number_text(x bigint) RETURNS zef.text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT x::text $$;
CREATE OR REPLACE FUNCTION zef.number_text(x double precision) RETURNS zef.text LANGUAGE sql IMMUTABLE PARALLEL SAFE
  SET extra_float_digits = 1 AS $$ SELECT upper((x + 0)::text COLLATE "C") COLLATE zef.ci $$;
CREATE OR REPLACE FUNCTION zef.boolean_text(x double precision) RETURNS zef.text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN x = 0 THEN 'False' WHEN x <> 0 THEN 'True' END $$;
)sql";
}

}  // namespace zef
