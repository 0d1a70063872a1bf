-- What statements call on a server: the same values, errors and texts as the functions of the embedded store. All of it may
-- be run again over an older version. Words in double braces are filled in by ServerFunctions.
--
-- A function that may raise is STABLE and hands the value to what raises, so that no planner runs it ahead for a row that is
-- never met. None that a statement calls for each row is STRICT: such a one is not written into the statement by the planner.

CREATE OR REPLACE FUNCTION qm_version() RETURNS integer IMMUTABLE PARALLEL SAFE RETURN {{version}};

-- Raises QMnnn for the classic error nnn, QM000 for a value that a field refuses, QM001 for a statement that does not read.
-- The value is only taken along.
CREATE OR REPLACE FUNCTION qm_fail(code text, message text, source text, value anyelement) RETURNS anyelement
    STABLE PARALLEL SAFE LANGUAGE plpgsql AS $$
BEGIN
    RAISE EXCEPTION USING ERRCODE = code, MESSAGE = message, DETAIL = source;
END $$;

-- The form in which texts that differ only in case are equal; compare it COLLATE "C".
CREATE OR REPLACE FUNCTION qm_fold_wide(t text) RETURNS text IMMUTABLE PARALLEL SAFE LANGUAGE plpgsql AS $$
BEGIN
    t := lower(t COLLATE "C");
{{fold}}    RETURN t;
END $$;
CREATE OR REPLACE FUNCTION qm_fold(t text) RETURNS text IMMUTABLE PARALLEL SAFE
    RETURN CASE WHEN octet_length(t) = char_length(t) THEN lower(t COLLATE "C") ELSE qm_fold_wide(t) END;

CREATE OR REPLACE FUNCTION qm_upper_wide(t text) RETURNS text IMMUTABLE PARALLEL SAFE LANGUAGE plpgsql AS $$
BEGIN
    t := upper(t COLLATE "C");
{{upper}}    RETURN t;
END $$;
CREATE OR REPLACE FUNCTION qm_ucase(t text) RETURNS text IMMUTABLE PARALLEL SAFE
    RETURN CASE WHEN octet_length(t) = char_length(t) THEN upper(t COLLATE "C") ELSE qm_upper_wide(t) END;

-- A number as the classic text of 15 digits: plain as long as that takes at most 15 before and 15 behind the point.
CREATE OR REPLACE FUNCTION qm_digits(n numeric) RETURNS text IMMUTABLE PARALLEL SAFE
    RETURN CASE WHEN abs(n) < 1000000000000000 AND scale(n) <= 15 THEN n::text
        ELSE replace(regexp_replace(btrim(to_char(n, '9.99999999999999EEEE')), '\.?0*e', 'E'), 'e', 'E') END;
CREATE OR REPLACE FUNCTION qm_text(x double precision) RETURNS text IMMUTABLE PARALLEL SAFE
    RETURN qm_digits(trim_scale(x::numeric));
CREATE OR REPLACE FUNCTION qm_text(x bigint) RETURNS text IMMUTABLE PARALLEL SAFE
    RETURN CASE WHEN abs(x) < 1000000000000000 THEN x::text ELSE qm_text(x::double precision) END;
CREATE OR REPLACE FUNCTION qm_text(x integer) RETURNS text IMMUTABLE PARALLEL SAFE RETURN x::text;
CREATE OR REPLACE FUNCTION qm_text(x text) RETURNS text IMMUTABLE PARALLEL SAFE RETURN x;

-- The whole reading of a text as a number, grouped ones included; Null where it is none.
CREATE OR REPLACE FUNCTION qm_read(t text) RETURNS double precision IMMUTABLE PARALLEL SAFE LANGUAGE plpgsql AS $$
DECLARE
    clean text;
    mantissa text;
BEGIN
    IF t IS NULL OR t !~ '^[ \t]*[+-]?([0-9](,?[0-9])*\.?[0-9]*|\.[0-9]+)([eEdD][+-]?[0-9]+)?[ \t]*$' THEN
        RETURN NULL;
    END IF;
    clean := translate(t, 'EdD, ' || chr(9), 'eee');
    IF strpos(clean, 'e') = 0 AND length(clean) < 300 THEN
        RETURN clean::double precision;
    END IF;
    BEGIN
        RETURN clean::double precision;
    EXCEPTION WHEN numeric_value_out_of_range THEN  -- too small is 0, too large is no number
        mantissa := split_part(clean, 'e', 1);
        RETURN CASE WHEN coalesce(nullif(split_part(clean, 'e', 2), '')::numeric, 0) <
            length(substring(mantissa FROM '^[^1-9]*')) - length(split_part(mantissa, '.', 1)) THEN 0 END;
    END;
END $$;
CREATE OR REPLACE FUNCTION qm_mismatch(x text, kind text) RETURNS double precision STABLE PARALLEL SAFE
    RETURN qm_fail('QM000', 'Data type mismatch: ''' || x || ''' is no value for ' || kind || ' field.', 'ado.Statement',
        0::double precision);

-- A value as a field of that type takes it. Whole numbers round half to even; Null stays Null but in a boolean.
CREATE OR REPLACE FUNCTION qm_real(x double precision) RETURNS double precision IMMUTABLE PARALLEL SAFE RETURN x;
CREATE OR REPLACE FUNCTION qm_real(x text) RETURNS double precision STABLE PARALLEL SAFE
    RETURN CASE WHEN x IS NOT NULL THEN coalesce(qm_read(x), qm_mismatch(x, 'a number')) END;
CREATE OR REPLACE FUNCTION qm_long(x bigint) RETURNS integer IMMUTABLE PARALLEL SAFE RETURN x::integer;
CREATE OR REPLACE FUNCTION qm_long(x double precision) RETURNS integer IMMUTABLE PARALLEL SAFE RETURN x::integer;
CREATE OR REPLACE FUNCTION qm_long(x text) RETURNS integer STABLE PARALLEL SAFE RETURN qm_real(x)::integer;
CREATE OR REPLACE FUNCTION qm_int(x bigint) RETURNS smallint IMMUTABLE PARALLEL SAFE RETURN x::smallint;
CREATE OR REPLACE FUNCTION qm_int(x double precision) RETURNS smallint IMMUTABLE PARALLEL SAFE RETURN x::smallint;
CREATE OR REPLACE FUNCTION qm_int(x text) RETURNS smallint STABLE PARALLEL SAFE RETURN qm_real(x)::smallint;
CREATE OR REPLACE FUNCTION qm_bool(x boolean) RETURNS boolean IMMUTABLE PARALLEL SAFE RETURN coalesce(x, FALSE);
CREATE OR REPLACE FUNCTION qm_bool(x bigint) RETURNS boolean IMMUTABLE PARALLEL SAFE RETURN coalesce(x <> 0, FALSE);
CREATE OR REPLACE FUNCTION qm_bool(x double precision) RETURNS boolean IMMUTABLE PARALLEL SAFE RETURN coalesce(x <> 0, FALSE);
CREATE OR REPLACE FUNCTION qm_bool(x text) RETURNS boolean STABLE PARALLEL SAFE
    RETURN CASE WHEN x IS NULL OR qm_fold(x) = 'false' THEN FALSE WHEN qm_fold(x) = 'true' THEN TRUE
        ELSE coalesce(qm_read(x), qm_mismatch(x, 'a yes/no')) <> 0 END;

-- A text field beside a number: one that is no number stands behind all numbers.
CREATE OR REPLACE FUNCTION qm_number(t text) RETURNS double precision IMMUTABLE PARALLEL SAFE
    RETURN CASE WHEN t ~ '^[ \t\n\v\f\r]*[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?[ \t\n\v\f\r]*$'
        THEN coalesce(qm_read(translate(t, E'\n\v\f\r', '')), 'Infinity') WHEN t IS NOT NULL THEN 'Infinity' END;

-- A number beside a boolean: True equals 1 and -1.
CREATE OR REPLACE FUNCTION qm_truth(x double precision) RETURNS double precision IMMUTABLE PARALLEL SAFE
    RETURN CASE WHEN x = -1 THEN 1 ELSE x END;
CREATE OR REPLACE FUNCTION qm_truth(x bigint) RETURNS bigint IMMUTABLE PARALLEL SAFE RETURN CASE WHEN x = -1 THEN 1 ELSE x END;

-- CStr raises for a Null. Numbers are read as their texts.
CREATE OR REPLACE FUNCTION qm_no_null(x text) RETURNS text STABLE PARALLEL SAFE
    RETURN CASE WHEN x IS NULL THEN qm_fail('QM094', 'Invalid use of Null', 'basic', x) ELSE x END;
CREATE OR REPLACE FUNCTION qm_cstr(x text) RETURNS text STABLE PARALLEL SAFE RETURN qm_no_null(x);
CREATE OR REPLACE FUNCTION qm_cstr(x integer) RETURNS text STABLE PARALLEL SAFE RETURN qm_no_null(x::text);
CREATE OR REPLACE FUNCTION qm_cstr(x bigint) RETURNS text STABLE PARALLEL SAFE RETURN qm_no_null(qm_text(x));
CREATE OR REPLACE FUNCTION qm_cstr(x double precision) RETURNS text STABLE PARALLEL SAFE RETURN qm_no_null(qm_text(x));
CREATE OR REPLACE FUNCTION qm_ucase(x double precision) RETURNS text IMMUTABLE PARALLEL SAFE RETURN qm_text(x);

-- Left, its count as any number or the text of one.
CREATE OR REPLACE FUNCTION qm_left(t text, n integer) RETURNS text STABLE PARALLEL SAFE
    RETURN CASE WHEN n < 0 AND t IS NOT NULL THEN qm_fail('QM005', 'Invalid procedure call or argument', 'ado.Left', t)
        ELSE left(t, n) END;
CREATE OR REPLACE FUNCTION qm_left(t text, n double precision) RETURNS text STABLE PARALLEL SAFE
    RETURN CASE WHEN t IS NOT NULL THEN qm_left(t, n::integer) END;
CREATE OR REPLACE FUNCTION qm_left(t text, n text) RETURNS text STABLE PARALLEL SAFE
    RETURN CASE WHEN t IS NOT NULL AND n IS NOT NULL
        THEN qm_left(t, coalesce(qm_read(n), qm_fail('QM013', 'Type mismatch', 'basic', qm_read(n)))) END;
CREATE OR REPLACE FUNCTION qm_left(x double precision, n double precision) RETURNS text STABLE PARALLEL SAFE
    RETURN qm_left(qm_text(x), n);

-- A pattern that is read from a field: % and _ only. Like itself is qm_fold(t) LIKE qm_fold(pattern) ESCAPE ''.
CREATE OR REPLACE FUNCTION qm_pattern(p text) RETURNS text STABLE PARALLEL SAFE
    RETURN CASE WHEN strpos(p, '[') > 0 THEN qm_fail('QM001', 'The pattern ''' || p ||
        ''' is not supported in statements: Like knows % and _ only', 'ado.Statement', p) ELSE p END;

-- Like with sets of characters, for a host's own condition: % any run, _ any one, [a-f] one of a set, [!a-f] one outside it.
CREATE OR REPLACE FUNCTION qm_plain(c text) RETURNS text IMMUTABLE PARALLEL SAFE
    RETURN CASE WHEN ascii(c) < 128 AND c !~ '[a-zA-Z0-9]' THEN chr(92) || c ELSE c END;
CREATE OR REPLACE FUNCTION qm_set(inside text, pattern text) RETURNS text STABLE PARALLEL SAFE LANGUAGE plpgsql AS $$
DECLARE
    place integer := 1;
    told text := '[';
    high text;
BEGIN
    IF length(inside) > 1 AND left(inside, 1) = '!' THEN
        told := '[^';
        place := 2;
    END IF;
    WHILE place <= length(inside) LOOP
        high := substr(inside, place, 1);
        told := told || qm_plain(high);
        IF substr(inside, place + 1, 1) = '-' AND place + 2 <= length(inside) THEN
            IF ascii(high) > ascii(substr(inside, place + 2, 1)) THEN
                RETURN qm_no_set(pattern);
            END IF;
            told := told || '-' || qm_plain(substr(inside, place + 2, 1));
            place := place + 2;
        END IF;
        place := place + 1;
    END LOOP;
    RETURN told || ']';
END $$;
CREATE OR REPLACE FUNCTION qm_no_set(pattern text) RETURNS text STABLE PARALLEL SAFE
    RETURN qm_fail('QM001', 'The pattern ''' || pattern ||
        ''' holds a set of characters that does not read: [abc], [a-f] or [!a-f]', 'ado.Statement', pattern);
CREATE OR REPLACE FUNCTION qm_like_sets(t text, pattern text) RETURNS boolean STABLE PARALLEL SAFE LANGUAGE plpgsql AS $$
DECLARE
    folded text := qm_fold(pattern);
    place integer := 1;
    behind integer;
    told text := '^';
    c text;
BEGIN
    IF t IS NULL OR pattern IS NULL THEN
        RETURN NULL;
    END IF;
    WHILE place <= length(folded) LOOP
        c := substr(folded, place, 1);
        IF c = '[' THEN
            behind := strpos(substr(folded, place + 1), ']');
            told := told || CASE WHEN behind < 2 THEN qm_no_set(pattern)
                ELSE qm_set(substr(folded, place + 1, behind - 1), pattern) END;
            place := place + behind;
        ELSE
            told := told || CASE c WHEN '%' THEN '.*' WHEN '_' THEN '.' ELSE qm_plain(c) END;
        END IF;
        place := place + 1;
    END LOOP;
    RETURN qm_fold(t) COLLATE "C" ~ (told || '$');
END $$;

-- The functions of texts that a host's own condition may have; places and counts are whole numbers already.
CREATE OR REPLACE FUNCTION qm_wrong(bad boolean, source text, t text) RETURNS text STABLE PARALLEL SAFE
    RETURN CASE WHEN bad AND t IS NOT NULL THEN qm_fail('QM005', 'Invalid procedure call or argument', source, t) ELSE t END;
CREATE OR REPLACE FUNCTION qm_len(t text) RETURNS integer IMMUTABLE PARALLEL SAFE RETURN length(t);
CREATE OR REPLACE FUNCTION qm_trim(t text) RETURNS text IMMUTABLE PARALLEL SAFE RETURN btrim(t, ' ');
CREATE OR REPLACE FUNCTION qm_join(a text, b text) RETURNS text IMMUTABLE PARALLEL SAFE
    RETURN CASE WHEN a IS NOT NULL OR b IS NOT NULL THEN coalesce(a, '') || coalesce(b, '') END;
CREATE OR REPLACE FUNCTION qm_right(t text, n integer) RETURNS text STABLE PARALLEL SAFE
    RETURN right(qm_wrong(n < 0, 'ado.Right', t), n);
CREATE OR REPLACE FUNCTION qm_mid(t text, place integer) RETURNS text STABLE PARALLEL SAFE
    RETURN substr(qm_wrong(place < 1, 'ado.Mid', t), place);
CREATE OR REPLACE FUNCTION qm_mid(t text, place integer, n integer) RETURNS text STABLE PARALLEL SAFE
    RETURN substr(qm_wrong(place < 1 AND n IS NOT NULL OR n < 0 AND place IS NOT NULL, 'ado.Mid', t), place, n);
CREATE OR REPLACE FUNCTION qm_instr(place integer, t text, sought text) RETURNS integer STABLE PARALLEL SAFE
    LANGUAGE plpgsql AS $$
DECLARE
    found integer;
BEGIN
    IF place IS NULL OR t IS NULL OR sought IS NULL THEN
        RETURN NULL;
    END IF;
    PERFORM qm_wrong(place < 1, 'ado.InStr', t);
    found := CASE WHEN place > length(t) THEN 0 ELSE strpos(qm_fold(substr(t, place)), qm_fold(sought)) END;
    RETURN CASE WHEN found = 0 THEN 0 ELSE found + place - 1 END;
END $$;
CREATE OR REPLACE FUNCTION qm_mod(a double precision, b double precision) RETURNS integer STABLE PARALLEL SAFE
    RETURN CASE WHEN a IS NULL OR b IS NULL THEN NULL
        WHEN b::integer = 0 THEN qm_fail('QM011', 'Division by zero', 'ado.Division', a::integer)
        ELSE (a::integer::bigint % b::integer::bigint)::integer END;

-- The highest text without regard to case; of those that are equal, the first.
CREATE OR REPLACE FUNCTION qm_later(a text, b text) RETURNS text IMMUTABLE STRICT PARALLEL SAFE
    RETURN CASE WHEN qm_fold(a) COLLATE "C" < qm_fold(b) COLLATE "C" THEN b ELSE a END;
CREATE OR REPLACE AGGREGATE qm_max(text) (SFUNC = qm_later, STYPE = text);
CREATE OR REPLACE FUNCTION qm_earlier(a text, b text) RETURNS text IMMUTABLE STRICT PARALLEL SAFE
    RETURN CASE WHEN qm_fold(b) COLLATE "C" < qm_fold(a) COLLATE "C" THEN b ELSE a END;
CREATE OR REPLACE AGGREGATE qm_min(text) (SFUNC = qm_earlier, STYPE = text);

-- The counters of tables: a number that was given is never given again, but by an insert that was rolled back. A row that
-- brings its number moves the counter behind it. PostgresSchema gives each such table a trigger with its counting field.
CREATE TABLE IF NOT EXISTS qm_counter (name text PRIMARY KEY, last bigint NOT NULL);

-- The last write of each host that stands: what a host asks for when the answer to its commit never came. Writes of hosts
-- that went away are forgotten after a day.
CREATE TABLE IF NOT EXISTS qm_host (host text PRIMARY KEY, last bigint NOT NULL, at timestamptz NOT NULL DEFAULT now());
