#include "platform/postgresql/support_schema.h"

namespace zef {

std::string_view SupportOfNumbers() {
  return R"sql(
CREATE OR REPLACE FUNCTION zef.number(x text) RETURNS double precision LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF x COLLATE "C" !~ '^ *(\+?|-)([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)? *$' THEN PERFORM zef.fail('ZF013'); END IF;
  RETURN x::double precision;
EXCEPTION WHEN numeric_value_out_of_range THEN
  IF x COLLATE "C" ~ '[eE]-|^ *[+-]?0*\.' THEN RETURN 0; END IF;
  PERFORM zef.fail('ZF006');
END $$;

-- A whole number as one that indexes of whole numbers serve; for any other one a number that no column holds.
CREATE OR REPLACE FUNCTION zef.whole(x double precision) RETURNS bigint LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
  SELECT CASE WHEN abs(x) <= 2147483648 AND x = floor(x) THEN x::bigint ELSE 9223372036854775807 END $$;

CREATE OR REPLACE FUNCTION zef.divide(x double precision, y double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT x / y $$;
CREATE OR REPLACE FUNCTION zef.int_divide(x double precision, y double precision) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT x::bigint / y::bigint $$;
CREATE OR REPLACE FUNCTION zef.modulo(x double precision, y double precision) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT x::bigint % y::bigint $$;
CREATE OR REPLACE FUNCTION zef.power(x double precision, y double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT power(x, y) $$;
CREATE OR REPLACE FUNCTION zef.abs(x bigint) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT abs(x) $$;
CREATE OR REPLACE FUNCTION zef.abs(x double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT abs(x) $$;
CREATE OR REPLACE FUNCTION zef.int(x bigint) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT x $$;
CREATE OR REPLACE FUNCTION zef.int(x double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT floor(x) $$;
CREATE OR REPLACE FUNCTION zef.fix(x bigint) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT x $$;
CREATE OR REPLACE FUNCTION zef.fix(x double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT trunc(x) $$;
CREATE OR REPLACE FUNCTION zef.sgn(x double precision) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT sign(x)::integer $$;

-- Halves to even. Beyond 15 digits there is nothing to round.
CREATE OR REPLACE FUNCTION zef.round(x double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT round(x) $$;
CREATE OR REPLACE FUNCTION zef.round(x bigint) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT x $$;
CREATE OR REPLACE FUNCTION zef.round(x bigint, n double precision) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT x + 0 * zef.count(n, 0) $$;
CREATE OR REPLACE FUNCTION zef.round(x double precision, n double precision) RETURNS double precision LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
  digits int := zef.count(n, 0);
  scale double precision;
BEGIN
  IF digits > 15 THEN RETURN x; END IF;
  scale := power(10::double precision, digits);
  IF abs(x) > 1e15 / scale THEN RETURN x; END IF;
  RETURN round(x * scale) / scale;
END $$;

CREATE OR REPLACE FUNCTION zef.clng(x double precision) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT x::integer $$;
CREATE OR REPLACE FUNCTION zef.clng(x text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.number(x)::integer $$;
CREATE OR REPLACE FUNCTION zef.clng(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.number(x)::integer $$;
CREATE OR REPLACE FUNCTION zef.cint(x double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT x::smallint $$;
CREATE OR REPLACE FUNCTION zef.cint(x text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.number(x)::smallint $$;
CREATE OR REPLACE FUNCTION zef.cint(x timestamp) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.number(x)::smallint $$;
CREATE OR REPLACE FUNCTION zef.cbyte(x double precision) RETURNS smallint LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF x::smallint NOT BETWEEN 0 AND 255 THEN PERFORM zef.fail('ZF006'); END IF;
  RETURN x::smallint;
END $$;
CREATE OR REPLACE FUNCTION zef.cbyte(x text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.cbyte(zef.number(x)) $$;
CREATE OR REPLACE FUNCTION zef.cbyte(x timestamp) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.cbyte(zef.number(x)) $$;
CREATE OR REPLACE FUNCTION zef.cdbl(x double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT x $$;
CREATE OR REPLACE FUNCTION zef.cdbl(x text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.number(x) $$;
CREATE OR REPLACE FUNCTION zef.cdbl(x timestamp) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.number(x) $$;

CREATE OR REPLACE FUNCTION zef.truth(x boolean) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT (-(x::integer))::smallint $$;
CREATE OR REPLACE FUNCTION zef.cbool(x double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.truth(x <> 0) $$;
CREATE OR REPLACE FUNCTION zef.cbool(x text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE lower(x COLLATE "C") COLLATE "C" WHEN 'true' THEN -1::smallint WHEN 'false' THEN 0::smallint ELSE zef.truth(zef.number(x) <> 0) END $$;
CREATE OR REPLACE FUNCTION zef.cbool(x timestamp) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.truth(zef.number(x) <> 0) $$;
)sql";
}

}  // namespace zef
