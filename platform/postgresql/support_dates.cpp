#include "platform/postgresql/support_schema.h"

namespace zef {

/// Dates are timestamps. The days of one count from day zero, 30 December 1899, and fall steadily; its number as
/// clients know it runs backwards through the time of day before day zero.
std::string_view SupportOfDates() {
  return R"sql(
CREATE OR REPLACE FUNCTION zef.day_number(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT x::date - date '1899-12-30' $$;
CREATE OR REPLACE FUNCTION zef.fraction(x timestamp) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT extract(epoch FROM x::time)::double precision / 86400 $$;
CREATE OR REPLACE FUNCTION zef.days(x timestamp) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT zef.day_number(x) + zef.fraction(x) $$;
CREATE OR REPLACE FUNCTION zef.days(x double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN x < 0 THEN 2 * trunc(x) - x ELSE x END $$;
CREATE OR REPLACE FUNCTION zef.number(x timestamp) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN x < timestamp '1899-12-30' THEN zef.day_number(x) - zef.fraction(x) ELSE zef.day_number(x) + zef.fraction(x) END $$;
CREATE OR REPLACE FUNCTION zef.checked(x timestamp) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF x < timestamp '0100-01-01' OR x >= timestamp '10000-01-01' THEN PERFORM zef.fail('ZF005'); END IF;
  RETURN x;
END $$;
CREATE OR REPLACE FUNCTION zef.at(days double precision) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF NOT (days >= -657434 AND days < 2958466) THEN PERFORM zef.fail('ZF006'); END IF;
  RETURN timestamp '1899-12-30' + floor(days) * interval '1 day' + (days - floor(days)) * 86400 * interval '1 second';
END $$;
CREATE OR REPLACE FUNCTION zef.moment(x double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT zef.at(zef.days(x)) $$;
-- The moment in whole seconds.
CREATE OR REPLACE FUNCTION zef.seconds(x timestamp) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT date_trunc('second', x + interval '0.5 second') $$;

CREATE OR REPLACE FUNCTION zef.written_year(digits text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN length(digits) > 2 THEN digits::integer WHEN digits::integer < 30 THEN 2000 + digits::integer
    ELSE 1900 + digits::integer END $$;
CREATE OR REPLACE FUNCTION zef.month_named(word text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT m FROM unnest(ARRAY['january','february','march','april','may','june','july','august','september','october',
    'november','december']) WITH ORDINALITY AS names(name, m)
  WHERE (lower(word COLLATE "C") COLLATE "C") IN (name COLLATE "C", left(name, 3) COLLATE "C") $$;

-- Month first, or year first with hyphens; a month may be an English name; a time alone lies on day zero.
CREATE OR REPLACE FUNCTION zef.date_in(x text) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
  t text COLLATE "C" := btrim(x, ' ');
  clock CONSTANT text COLLATE "C" := '(?:(\d{1,2})(?::(\d{1,2})(?::(\d{1,2}))?)? *([AaPp][Mm])?)';
  d text[];
  p text[];
  hour int;
  rest text COLLATE "C" := '';
  day date := date '1899-12-30';
BEGIN
  d := regexp_match(t, '^(\d{1,2})/(\d{1,2})/(\d{1,4})(?=$| |T)(.*)$');
  IF d IS NOT NULL THEN day := make_date(zef.written_year(d[3]), d[1]::int, d[2]::int); rest := d[4];
  ELSE
    d := regexp_match(t, '^(\d{3,4})-(\d{1,2})-(\d{1,2})(?=$| |T)(.*)$');
    IF d IS NOT NULL THEN day := make_date(d[1]::int, d[2]::int, d[3]::int); rest := d[4];
    ELSE
      d := regexp_match(t, '^([A-Za-z]+) *(\d{1,2})(?:,| ) *(\d{1,4})(?=$| |T)(.*)$');
      IF d IS NOT NULL THEN day := make_date(zef.written_year(d[3]), zef.month_named(d[1]), d[2]::int); rest := d[4];
      ELSE
        d := regexp_match(t, '^(\d{1,2}) *([A-Za-z]{3,}) *(\d{1,4})(?=$| |T)(.*)$');
        IF d IS NOT NULL THEN day := make_date(zef.written_year(d[3]), zef.month_named(d[2]), d[1]::int); rest := d[4];
        ELSE rest := t;
          IF t = '' THEN RETURN NULL; END IF;
        END IF;
      END IF;
    END IF;
  END IF;
  IF day IS NULL OR day < date '0100-01-01' THEN RETURN NULL; END IF;
  IF rest = '' THEN RETURN day; END IF;
  p := regexp_match(rest, '^(?: +|T|)' || clock || '$');
  IF p IS NULL OR (p[2] IS NULL AND p[4] IS NULL) THEN RETURN NULL; END IF;
  hour := p[1]::int;
  IF p[4] IS NOT NULL THEN
    IF hour NOT BETWEEN 1 AND 12 THEN RETURN NULL; END IF;
    hour := hour % 12 + CASE WHEN lower(p[4]) = 'pm' THEN 12 ELSE 0 END;
  END IF;
  IF hour > 23 OR coalesce(p[2]::int, 0) > 59 OR coalesce(p[3]::int, 0) > 59 THEN RETURN NULL; END IF;
  RETURN day + make_time(hour, coalesce(p[2]::int, 0), coalesce(p[3]::int, 0));
EXCEPTION WHEN datetime_field_overflow OR invalid_datetime_format THEN RETURN NULL;
END $$;
CREATE OR REPLACE FUNCTION zef.moment(x text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NOT NULL THEN coalesce(zef.date_in(x), zef.moment(zef.number(x))) END $$;
CREATE OR REPLACE FUNCTION zef.cdate(x text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.moment(x) $$;
CREATE OR REPLACE FUNCTION zef.cdate(x double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.moment(x) $$;
CREATE OR REPLACE FUNCTION zef.cdate(x timestamp) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT x $$;

CREATE OR REPLACE FUNCTION zef.date_text(x timestamp) RETURNS zef.text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE
    WHEN zef.day_number(t) = 0 THEN to_char(t, 'FMHH12:MI:SS AM')
    WHEN t::time = time '00:00' THEN to_char(t, 'FMMM/FMDD/FMYYYY')
    ELSE to_char(t, 'FMMM/FMDD/FMYYYY FMHH12:MI:SS AM') END
  FROM (SELECT zef.seconds(x) AS t) AS moment $$;

CREATE OR REPLACE FUNCTION zef.year(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT extract(year FROM zef.seconds(x))::integer $$;
CREATE OR REPLACE FUNCTION zef.month(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT extract(month FROM zef.seconds(x))::integer $$;
CREATE OR REPLACE FUNCTION zef.day(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT extract(day FROM zef.seconds(x))::integer $$;
CREATE OR REPLACE FUNCTION zef.hour(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT extract(hour FROM zef.seconds(x))::integer $$;
CREATE OR REPLACE FUNCTION zef.minute(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT extract(minute FROM zef.seconds(x))::integer $$;
CREATE OR REPLACE FUNCTION zef.second(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT extract(second FROM zef.seconds(x))::integer $$;
CREATE OR REPLACE FUNCTION zef.weekday(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT extract(dow FROM zef.seconds(x))::integer + 1 $$;
CREATE OR REPLACE FUNCTION zef.weekday(x timestamp, first double precision) RETURNS integer LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF first::integer NOT BETWEEN 0 AND 7 THEN PERFORM zef.fail('ZF005'); END IF;
  RETURN (zef.weekday(x) - greatest(first::integer, 1) + 7) % 7 + 1;
END $$;

-- The number, counted through all years, of the interval that a moment lies in.
CREATE OR REPLACE FUNCTION zef.ordinal(unit text, x timestamp) RETURNS bigint LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
  t timestamp := zef.seconds(x);
  seconds bigint := zef.day_number(t)::bigint * 86400 + extract(epoch FROM t::time)::bigint;
BEGIN
  CASE lower(unit COLLATE "C") COLLATE "C"
    WHEN 'yyyy' THEN RETURN zef.year(t);
    WHEN 'q' THEN RETURN 4 * zef.year(t) + extract(quarter FROM t)::integer;
    WHEN 'm' THEN RETURN 12 * zef.year(t) + zef.month(t);
    WHEN 'y', 'd', 'w' THEN RETURN zef.day_number(t);
    WHEN 'ww' THEN RETURN floor((zef.day_number(t) - 1) / 7.0);
    WHEN 'h' THEN RETURN floor(seconds / 3600.0);
    WHEN 'n' THEN RETURN floor(seconds / 60.0);
    WHEN 's' THEN RETURN seconds;
    ELSE PERFORM zef.fail('ZF005');
  END CASE;
END $$;
CREATE OR REPLACE FUNCTION zef.date_diff(unit text, a timestamp, b timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT ((zef.ordinal(unit, b) - zef.ordinal(unit, a)) / CASE WHEN lower(unit COLLATE "C") COLLATE "C" = 'w' THEN 7 ELSE 1 END)::integer $$;
CREATE OR REPLACE FUNCTION zef.date_part(unit text, x timestamp) RETURNS integer LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
  t timestamp := zef.seconds(x);
BEGIN
  CASE lower(unit COLLATE "C") COLLATE "C"
    WHEN 'yyyy' THEN RETURN zef.year(t);
    WHEN 'q' THEN RETURN extract(quarter FROM t);
    WHEN 'm' THEN RETURN zef.month(t);
    WHEN 'y' THEN RETURN extract(doy FROM t);
    WHEN 'd' THEN RETURN zef.day(t);
    WHEN 'w' THEN RETURN zef.weekday(t);
    WHEN 'ww' THEN RETURN (extract(doy FROM t)::integer + zef.weekday(date_trunc('year', t)) - 2) / 7 + 1;
    WHEN 'h' THEN RETURN zef.hour(t);
    WHEN 'n' THEN RETURN zef.minute(t);
    WHEN 's' THEN RETURN zef.second(t);
    ELSE PERFORM zef.fail('ZF005');
  END CASE;
END $$;
CREATE OR REPLACE FUNCTION zef.date_add(unit text, n double precision, x timestamp) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
  steps double precision := round(n);
  u text COLLATE "C" := lower(unit COLLATE "C");
  month_steps CONSTANT double precision := CASE u WHEN 'yyyy' THEN 12 WHEN 'q' THEN 3 WHEN 'm' THEN 1 END;
  second_steps CONSTANT double precision := CASE u WHEN 'ww' THEN 604800 WHEN 'h' THEN 3600 WHEN 'n' THEN 60
    WHEN 's' THEN 1 ELSE CASE WHEN u IN ('y', 'd', 'w') THEN 86400 END END;
BEGIN
  IF month_steps IS NULL AND second_steps IS NULL OR NOT (abs(steps) < 1e12) THEN PERFORM zef.fail('ZF005'); END IF;
  IF abs(steps * coalesce(month_steps, 0)) > 118800 OR abs(steps * coalesce(second_steps, 0)) > 3.2e11 THEN
    PERFORM zef.fail('ZF005');
  END IF;
  IF month_steps IS NOT NULL THEN RETURN zef.checked(x + make_interval(months => (steps * month_steps)::int)); END IF;
  IF u IN ('h', 'n', 's') THEN x := zef.seconds(x); END IF;
  RETURN zef.checked(x + steps * second_steps * interval '1 second');
END $$;
CREATE OR REPLACE FUNCTION zef.date_sum(x timestamp, n double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT zef.at(zef.days(x) + n) $$;
CREATE OR REPLACE FUNCTION zef.date_distance(a timestamp, b timestamp) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.days(b) - zef.days(a) $$;
CREATE OR REPLACE FUNCTION zef.date_distance(a double precision, b timestamp) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.days(b) - zef.days(a) $$;
CREATE OR REPLACE FUNCTION zef.date_distance(a timestamp, b double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zef.days(b) - zef.days(a) $$;

CREATE OR REPLACE FUNCTION zef.date_serial(y double precision, m double precision, d double precision) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
  year int := y::smallint;
  months int;
BEGIN
  IF year BETWEEN 0 AND 99 THEN year := CASE WHEN year < 30 THEN 2000 ELSE 1900 END + year; END IF;
  months := 12 * year + m::smallint - 1;
  IF months < 12 OR months > 12 * 10100 THEN PERFORM zef.fail('ZF005'); END IF;
  RETURN zef.checked(timestamp '0001-01-01' + make_interval(months => months - 12) + (d::smallint - 1) * interval '1 day');
END $$;
CREATE OR REPLACE FUNCTION zef.time_serial(h double precision, m double precision, s double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT timestamp '1899-12-30' + (h::smallint * 3600 + m::smallint * 60 + s::smallint) * interval '1 second' $$;
CREATE OR REPLACE FUNCTION zef.date_value(x timestamp) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT date_trunc('day', zef.seconds(x)) $$;
CREATE OR REPLACE FUNCTION zef.time_value(x timestamp) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT date '1899-12-30' + zef.seconds(x)::time $$;
)sql";
}

}  // namespace zef
