#include "platform/postgresql/support_schema.h"

namespace zef {

/// What a calculated value goes through on its way into a column, whose name comes last.
std::string_view SupportOfStorage() {
  return R"sql(
CREATE OR REPLACE FUNCTION zef.whole(x double precision, lowest bigint, highest bigint, place text) RETURNS bigint LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF NOT (round(x) BETWEEN lowest AND highest) THEN
    PERFORM zef.fail('ZF017', 'A number lies outside of what the column ''' || place || ''' can hold.');
  END IF;
  RETURN x::bigint;
END $$;

CREATE OR REPLACE FUNCTION zef.to_boolean(x double precision, place text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.truth(x <> 0) $$;
CREATE OR REPLACE FUNCTION zef.to_byte(x double precision, place text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT zef.whole(x, 0, 255, place)::smallint $$;
CREATE OR REPLACE FUNCTION zef.to_short(x double precision, place text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT zef.whole(x, -32768, 32767, place)::smallint $$;
CREATE OR REPLACE FUNCTION zef.to_long(x double precision, place text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT zef.whole(x, -2147483648, 2147483647, place)::integer $$;
CREATE OR REPLACE FUNCTION zef.to_double(x double precision, place text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT x $$;
CREATE OR REPLACE FUNCTION zef.to_date(x timestamp, place text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT x $$;
CREATE OR REPLACE FUNCTION zef.to_text(x text, most integer, place text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF most > 0 AND length(x) > most THEN
    PERFORM zef.fail('ZF017', 'A text is too long for the column ''' || place || ''', which takes ' || most ||
                     CASE most WHEN 1 THEN ' character.' ELSE ' characters.' END);
  END IF;
  RETURN x;
END $$;
CREATE OR REPLACE FUNCTION zef.required(x anyelement, place text) RETURNS anyelement LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF x IS NULL THEN PERFORM zef.fail('ZF023', 'The column ''' || place || ''' needs a value.'); END IF;
  RETURN x;
END $$;

-- Bytes behind a 0 if they are few, else the place of their row behind a 1.
CREATE OR REPLACE FUNCTION zef.later(x bytea, place tid) RETURNS bytea LANGUAGE sql STABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN octet_length(x) > 8192 THEN '\x01'::bytea || convert_to(place::text, 'UTF8') ELSE '\x00'::bytea || x END $$;

-- A value whose kind only its row tells: the letter of the kind, then the value.
CREATE OR REPLACE FUNCTION zef.varying(x bigint) RETURNS zef.text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT 'i' || x::text $$;
CREATE OR REPLACE FUNCTION zef.varying(x double precision) RETURNS zef.text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT 'n' || zef.number_text(x) $$;
CREATE OR REPLACE FUNCTION zef.varying(x timestamp) RETURNS zef.text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT 'd' || zef.number(x)::text $$;
CREATE OR REPLACE FUNCTION zef.varying(x text) RETURNS zef.text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT 't' || x $$;
CREATE OR REPLACE FUNCTION zef.varying(x bytea) RETURNS zef.text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT 'b' || encode(x, 'hex') $$;
)sql";
}

}  // namespace zef
