/* The corvinel extension: SQL functions that render values with the
   module's formats.  The registry is read directly (the module's entry
   would call setlocale and change the server's locale), the locale is
   chosen per call by its record number (never through the environment),
   and results come back as 16-bit units converted to the database
   encoding, so a cluster in the C locale still shows every character its
   encoding has ("?" for one it lacks).

   Every overload is a C function.  A date, timestamp or time reaches the
   module through its calendar date (zmdy) and its time of day, so the
   shown date is the one PostgreSQL holds even where the two calendars
   count days differently, and the value is brought to what the format
   reads: a date format takes days, a datetime format seconds, a time
   format the seconds of the day.  The zone formats write the offset of the
   session's TimeZone, handed to the module for the call. */
#include "postgres.h"

#include "access/xact.h"
#include "catalog/namespace.h"
#include "datatype/timestamp.h"
#include "fmgr.h"
#include "funcapi.h"
#include "mb/pg_wchar.h"
#include "pgtime.h"
#include "utils/builtins.h"
#include "utils/date.h"
#include "utils/datetime.h"
#include "utils/lsyscache.h"
#include "utils/timestamp.h"

#include <ctype.h>
#include <langinfo.h>
#include <stdint.h>
#include <string.h>

#include "corvinel/calendar.h"
#include "corvinel/fmtinfo.h"
#include "corvinel/formats.h"
#include "corvinel/missing.h"
#include "corvinel/names.h"
#include "corvinel/zone_offset.h"

PG_MODULE_MAGIC;

#define UNITS_CAPACITY 402 /* room for every step of output expansion */
#define FORMAT_TEXT_CACHED 64
#define LOCALE_TEXT_CACHED 16
/* Calendar years the module's date formats show; other dates give the
   format's out-of-range field. */
#define FIRST_YEAR 1582
#define LAST_YEAR 20000
/* Values outside every date, datetime and time range of the module. */
#define BELOW_RANGE (-1e15)
#define ABOVE_RANGE 1e15

/* What a format reads its value as, told by its name in the registry. */
typedef enum { KIND_NUMBER, KIND_DATE, KIND_DATETIME, KIND_TIME } ValueKind;
static const char *const kind_words[] = {"number", "date", "datetime", "time"};

/* What the SQL value is. */
typedef enum { INPUT_NUMBER, INPUT_DATE, INPUT_TIMESTAMP, INPUT_TIMESTAMPTZ, INPUT_TIME } InputType;
static const char *const input_words[] = {"number", "date", "timestamp", "timestamp with time zone",
                                          "time"};

static ValueKind kind_of(const struct fmtdesc *d) {
  if (strncmp(d->name, "NLDATE", 6) == 0) return KIND_DATE;
  if (strncmp(d->name, "NLDATM", 6) == 0) return KIND_DATETIME;
  if (strncmp(d->name, "NLTIM", 5) == 0) return KIND_TIME;
  return KIND_NUMBER;
}

/* The formats that end with the numeric zone offset. */
static bool writes_zone(const struct fmtdesc *d) {
  static const char *const zone_formats[] = {"NLDATMZ ", "NLDATMTZ ", "NLDATMWZ "};
  for (size_t i = 0; i < lengthof(zone_formats); ++i) {
    if (strncmp(d->name, zone_formats[i], strlen(zone_formats[i])) == 0) return true;
  }
  return false;
}

/* The registry entry named `name` (any case), or NULL. */
static const struct fmtdesc *find_format(const char *name, int length) {
  for (int i = 0; i < CORVINEL_FORMAT_COUNT; ++i) {
    const struct fmtdesc *d = &fmtinfo_eachfmt[i];
    if (d->namelen != length) continue;
    int same = 1;
    for (int k = 0; k < length && same; ++k) same = toupper((unsigned char)name[k]) == d->name[k];
    if (same) return d;
  }
  return NULL;
}

typedef struct {
  const struct fmtdesc *format;
  int32_t width, decimals;
  ValueKind kind;
  bool zone;
} ParsedFormat;

/* The schema the extension's functions live in, for hints that name a
   query the user can run whatever search_path says. */
static const char *own_schema(FunctionCallInfo fcinfo) {
  const Oid function = fcinfo->flinfo != NULL ? fcinfo->flinfo->fn_oid : InvalidOid;
  const Oid schema = OidIsValid(function) ? get_func_namespace(function) : InvalidOid;
  char *name = OidIsValid(schema) ? get_namespace_name(schema) : NULL;
  return name != NULL ? quote_identifier(name) : "public";
}

/* "NLNUM12.2", "nldate20.", "NLMNIEUR", "NLNUM.2": the users' syntax.  A
   width or decimals outside the descriptor's limits is refused here, in
   words; within them the format renders without its own check, as the
   host tool does. */
static ParsedFormat parse_format(const char *text, FunctionCallInfo fcinfo) {
  ParsedFormat parsed;
  int name_length = 0;
  while (isalpha((unsigned char)text[name_length])) ++name_length;
  parsed.format = find_format(text, name_length);
  if (parsed.format == NULL) {
    ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE), errmsg("unknown format \"%s\"", text),
                    errhint("SELECT name FROM %s.nlformats() lists the formats.", own_schema(fcinfo))));
  }
  const struct fmtdesc *d = parsed.format;
  parsed.width = d->defw;
  parsed.decimals = d->defd;
  parsed.kind = kind_of(d);
  parsed.zone = writes_zone(d);
  const char *rest = text + name_length;
  char *end = NULL;
  if (isdigit((unsigned char)*rest)) {
    const long width = strtol(rest, &end, 10);
    parsed.width = width > 100000 ? 100000 : (int32_t)width;
    rest = end;
  }
  if (*rest == '.') {
    ++rest;
    if (isdigit((unsigned char)*rest)) {
      const long decimals = strtol(rest, &end, 10);
      parsed.decimals = decimals > 100000 ? 100000 : (int32_t)decimals;
      rest = end;
    }
  }
  if (*rest != '\0') {
    ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE),
                    errmsg("format \"%s\" is not NAME, NAMEw., NAMEw.d or NAME.d", text)));
  }
  if (parsed.width < d->minw || parsed.width > d->maxw) {
    ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE),
                    errmsg("width %d of format \"%s\" is outside %.*s's limits %d to %d", parsed.width,
                           text, d->namelen, d->name, d->minw, d->maxw)));
  }
  if (parsed.decimals < d->mind || parsed.decimals > d->maxd) {
    ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE),
                    errmsg("decimals %d of format \"%s\" are outside %.*s's limits %d to %d",
                           parsed.decimals, text, d->namelen, d->name, d->mind, d->maxd)));
  }
  return parsed;
}

/* The record number of a locale name such as "de_DE". */
static int32_t locale_number(const char *code, int length) {
  uint32_t number = 0;
  char name[6];
  if (length == 5) {
    memcpy(name, code, 5); /* LocnameToID may write into its argument */
    name[5] = '\0';
  }
  if (length != 5 || LocnameToID(name, 5, &number) != 0) {
    ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE),
                    errmsg("unknown locale \"%.*s\"", length, code),
                    errhint("A locale is a language and a country code such as de_DE or ja_JP.")));
  }
  return (int32_t)number;
}

/* What one call site looked up last: the format and the locale it named,
   and the conversion into the database encoding.  Kept in fn_extra, so a
   query that renders a million rows with one format parses it once. */
typedef struct {
  int format_length; /* -1: nothing cached */
  char format_text[FORMAT_TEXT_CACHED];
  ParsedFormat parsed;
  int locale_length; /* -1: nothing cached */
  char locale_text[LOCALE_TEXT_CACHED];
  int32_t locale;
  int encoding;
  Oid conversion;    /* UTF-8 to the database encoding */
  bool session_utf8; /* a UTF8 database whose LC_CTYPE speaks UTF-8 */
  /* The session zone's offset over a stretch of time without a change of
     offset, so that rows near each other need no zone lookup. */
  const pg_tz *span_zone; /* NULL: no stretch known */
  pg_time_t span_from, span_until;
  int32_t span_offset; /* seconds east of UTC */
} CallCache;

static CallCache *call_cache(FunctionCallInfo fcinfo) {
  CallCache *cache = (CallCache *)fcinfo->flinfo->fn_extra;
  if (cache == NULL) {
    cache = MemoryContextAllocZero(fcinfo->flinfo->fn_mcxt, sizeof *cache);
    cache->format_length = -1;
    cache->locale_length = -1;
    cache->encoding = GetDatabaseEncoding();
    cache->conversion = cache->encoding == PG_UTF8 || cache->encoding == PG_SQL_ASCII
                            ? InvalidOid
                            : FindDefaultConversionProc(PG_UTF8, cache->encoding);
    /* The formats write the process locale's codeset, which the server
       sets from the database's LC_CTYPE; the width counts its bytes either
       way, so where it is UTF-8 in a UTF8 database the text is taken as the
       formats write it, with no 16-bit units in between. */
    const char *codeset = nl_langinfo(CODESET);
    cache->session_utf8 = cache->encoding == PG_UTF8 &&
                          (pg_strcasecmp(codeset, "UTF-8") == 0 || pg_strcasecmp(codeset, "UTF8") == 0);
    fcinfo->flinfo->fn_extra = cache;
  }
  return cache;
}

static const ParsedFormat *cached_format(CallCache *cache, text *format, FunctionCallInfo fcinfo) {
  const char *bytes = VARDATA_ANY(format);
  const int length = (int)VARSIZE_ANY_EXHDR(format);
  if (length == cache->format_length && memcmp(bytes, cache->format_text, (size_t)length) == 0) {
    return &cache->parsed;
  }
  cache->format_length = -1;
  char *name = text_to_cstring(format);
  cache->parsed = parse_format(name, fcinfo);
  pfree(name);
  if (length < FORMAT_TEXT_CACHED) {
    memcpy(cache->format_text, bytes, (size_t)length);
    cache->format_length = length;
  }
  return &cache->parsed;
}

/* 0 for a NULL locale: the server's ORB_LOCALE, else en_US. */
static int32_t cached_locale(CallCache *cache, text *locale) {
  if (locale == NULL) return 0;
  const char *bytes = VARDATA_ANY(locale);
  const int length = (int)VARSIZE_ANY_EXHDR(locale);
  if (length == cache->locale_length && memcmp(bytes, cache->locale_text, (size_t)length) == 0) {
    return cache->locale;
  }
  cache->locale = locale_number(bytes, length);
  cache->locale_length = length; /* a valid name has five bytes */
  memcpy(cache->locale_text, bytes, (size_t)length);
  return cache->locale;
}

/* Appends code point `c` as UTF-8. */
static int put_utf8(uint32_t c, char *out) {
  if (c < 0x80) {
    out[0] = (char)c;
    return 1;
  }
  if (c < 0x800) {
    out[0] = (char)(0xC0 | (c >> 6));
    out[1] = (char)(0x80 | (c & 0x3F));
    return 2;
  }
  if (c < 0x10000) {
    out[0] = (char)(0xE0 | (c >> 12));
    out[1] = (char)(0x80 | ((c >> 6) & 0x3F));
    out[2] = (char)(0x80 | (c & 0x3F));
    return 3;
  }
  out[0] = (char)(0xF0 | (c >> 18));
  out[1] = (char)(0x80 | ((c >> 12) & 0x3F));
  out[2] = (char)(0x80 | ((c >> 6) & 0x3F));
  out[3] = (char)(0x80 | (c & 0x3F));
  return 4;
}

/* UTF-16 units, low byte first, as UTF-8 (a lone surrogate becomes "?");
   at most 3 bytes per unit. */
static int units_to_utf8(const unsigned char *units, int nbytes, char *out) {
  int length = 0;
  for (int i = 0; i + 1 < nbytes; i += 2) {
    uint32_t c = (uint32_t)units[i] | (uint32_t)units[i + 1] << 8;
    if (c >= 0xD800 && c <= 0xDBFF && i + 3 < nbytes) {
      const uint32_t low = (uint32_t)units[i + 2] | (uint32_t)units[i + 3] << 8;
      if (low >= 0xDC00 && low <= 0xDFFF) {
        c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
        i += 2;
      } else {
        c = '?';
      }
    } else if (c >= 0xD800 && c <= 0xDFFF) {
      c = '?';
    }
    length += put_utf8(c, out + length);
  }
  return length;
}

/* UTF-8 text as a text value in the database encoding; a character the
   encoding lacks becomes "?".  ASCII passes unchanged: every server
   encoding contains it. */
static text *utf8_to_database(const CallCache *cache, const char *utf8, int length) {
  if (cache->encoding == PG_UTF8 || cache->encoding == PG_SQL_ASCII) {
    return cstring_to_text_with_len(utf8, length);
  }
  text *result = palloc(VARHDRSZ + (size_t)length * MAX_CONVERSION_GROWTH + 1);
  char *out = VARDATA(result);
  int used = 0;
  for (int i = 0; i < length;) {
    const unsigned char lead = (unsigned char)utf8[i];
    if (lead < 0x80) {
      out[used++] = (char)lead;
      ++i;
      continue;
    }
    const int n = pg_utf_mblen((const unsigned char *)utf8 + i);
    unsigned char converted[4 * MAX_CONVERSION_GROWTH + 1];
    const int done = OidIsValid(cache->conversion)
                         ? pg_do_encoding_conversion_buf(cache->conversion, PG_UTF8, cache->encoding,
                                                         (unsigned char *)utf8 + i, n, converted,
                                                         sizeof converted, true)
                         : 0;
    if (done == n) {
      const size_t bytes = strlen((const char *)converted);
      memcpy(out + used, converted, bytes);
      used += (int)bytes;
    } else {
      out[used++] = '?';
    }
    i += n;
  }
  SET_VARSIZE(result, VARHDRSZ + used);
  return result;
}

/* The field the format left: 16-bit units when the request says so, else
   single bytes.  A field of "*" is single bytes whatever the request says
   (a format fills it after an attempt that delivered units), so the bytes
   are looked at first: units are never all 0x2A, since U+2A2A appears in no
   locale's text. */
static text *field_text(const CallCache *cache, const fmtreq *request) {
  const unsigned char *bytes = (const unsigned char *)request->output;
  const int length = request->outlen;
  bool all_stars = length > 0;
  for (int i = 0; i < length && all_stars; ++i) all_stars = bytes[i] == '*';
  const bool units = !all_stars && (int32_t)request->xcode_state == CORVINEL_ENC_UTF16LE;
  if (units && (cache->encoding == PG_UTF8 || cache->encoding == PG_SQL_ASCII)) {
    /* Straight into the result: at most 3 bytes per unit. */
    text *result = palloc(VARHDRSZ + (size_t)length / 2 * 3 + 1);
    SET_VARSIZE(result, VARHDRSZ + units_to_utf8(bytes, length, VARDATA(result)));
    return result;
  }
  char utf8[UNITS_CAPACITY / 2 * 3 + 4];
  int utf8_length = 0;
  if (units) {
    utf8_length = units_to_utf8(bytes, length, utf8);
  } else if (cache->session_utf8 && pg_verify_mbstr(PG_UTF8, (const char *)bytes, length, true)) {
    return cstring_to_text_with_len((const char *)bytes, length);
  } else {
    /* Single bytes: a missing value or "*", both ASCII. */
    for (int i = 0; i < length; ++i) utf8[utf8_length++] = bytes[i] < 0x80 ? (char)bytes[i] : '?';
  }
  return utf8_to_database(cache, utf8, utf8_length);
}

/* What a result other than 0 means. */
static const char *result_meaning(int32_t result) {
  switch (result) {
    case CORVINEL_WIDTH_TOO_SMALL:
      return "the width is below the format's minimum";
    case CORVINEL_WIDTH_TOO_LARGE:
      return "the width is above the format's maximum";
    case CORVINEL_DECIMALS_TOO_SMALL:
      return "the decimals are below the format's minimum";
    case CORVINEL_DECIMALS_TOO_LARGE:
      return "the decimals are above the format's maximum";
    case CORVINEL_HOURS_TOO_LARGE:
      return "the hours are too large";
    case CORVINEL_DOES_NOT_FIT:
      return "the number does not fit";
    default:
      return "the format failed";
  }
}

/* A value ready for the module: the number the format reads and the zone
   offset "%z" writes (seconds east of UTC), when there is one. */
typedef struct {
  double number;
  bool has_offset;
  int32_t offset;
} ModuleValue;

static text *render(FunctionCallInfo fcinfo, const ParsedFormat *parsed, CallCache *cache,
                    int32_t locale, const ModuleValue *value, text *format_text) {
  unsigned char units[UNITS_CAPACITY];
  fmtreq request;
  memset(&request, 0, sizeof request);
  request.width = parsed->width;
  request.decimals = parsed->decimals;
  request.value = &value->number;
  request.output = (char *)units;
  request.capacity = UNITS_CAPACITY; /* widths reach 200 at most */
  request.flags = 0;                 /* the limits were checked in parse_format */
  request.locale = locale;
  request.xcode_b = cache->session_utf8 ? 0 : CORVINEL_ENC_UTF16LE;
  if (value->has_offset) corvinel_set_zone_offset(&value->offset);
  const int32_t result = parsed->format->render(&request);
  if (value->has_offset) corvinel_set_zone_offset(NULL);
  /* The date formats report a value outside their range after filling the
     field with "*": that field is the rendering. */
  if (result != CORVINEL_OK && !(result == CORVINEL_OUT_OF_RANGE && parsed->kind != KIND_NUMBER)) {
    ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE),
                    errmsg("format \"%s\" failed: %s (result %d)", text_to_cstring(format_text),
                           result_meaning(result), result)));
  }
  if (request.outlen < 0 || request.outlen > UNITS_CAPACITY) {
    ereport(ERROR, (errcode(ERRCODE_INTERNAL_ERROR),
                    errmsg("format \"%s\" left %d bytes", text_to_cstring(format_text), request.outlen)));
  }
  return field_text(cache, &request);
}

/* The session zone's offset, seconds east of UTC, at local wall time `tm`. */
static int32_t session_offset_at(struct pg_tm *tm) {
  return -DetermineTimeZoneOffset(tm, session_timezone);
}

/* The session zone's offset now (the transaction's start), for a number
   given to a zone format. */
static int32_t session_offset_now(void) {
  struct pg_tm tm;
  fsec_t fraction;
  int west = 0;
  if (timestamp2tm(GetCurrentTransactionStartTimestamp(), &west, &tm, &fraction, NULL, NULL) != 0) return 0;
  return -west;
}

static void refuse_kind(InputType input, const ParsedFormat *parsed) {
  ereport(ERROR, (errcode(ERRCODE_DATATYPE_MISMATCH),
                  errmsg("a %s value cannot be shown with %s format %.*s", input_words[input],
                         parsed->kind == KIND_NUMBER ? "the number" : parsed->kind == KIND_DATE ? "the date"
                         : parsed->kind == KIND_TIME ? "the time" : "the datetime",
                         parsed->format->namelen, parsed->format->name),
                  errhint("%.*s shows a %s.", parsed->format->namelen, parsed->format->name,
                          kind_words[parsed->kind])));
}

/* A calendar date and a time of day (microseconds) as the number the
   format reads.  Years outside the module's calendar give a value outside
   the format's range, so the format shows its out-of-range field. */
static double calendar_value(InputType input, const ParsedFormat *parsed, int year, int month, int day,
                             int64 time_of_day) {
  if (parsed->kind == KIND_NUMBER || (parsed->kind == KIND_TIME && input == INPUT_DATE) ||
      (parsed->kind != KIND_TIME && input == INPUT_TIME)) {
    refuse_kind(input, parsed);
  }
  const double seconds = (double)time_of_day / USECS_PER_SEC;
  if (parsed->kind == KIND_TIME) return seconds;
  if (year < FIRST_YEAR) return BELOW_RANGE;
  if (year > LAST_YEAR) return ABOVE_RANGE;
  /* 29 February of a year divisible by 4000 is not in the module's
     calendar: no date of it can stand for that day. */
  const double days = zmdy(month, day, year);
  if (zmiss(days)) return ABOVE_RANGE;
  return parsed->kind == KIND_DATE ? days : days * SECS_PER_DAY + seconds;
}

/* The arguments every overload shares.  NULL when the format is NULL. */
typedef struct {
  const ParsedFormat *parsed;
  CallCache *cache;
  int32_t locale;
  text *format;
} Call;

static bool begin_call(FunctionCallInfo fcinfo, Call *call) {
  if (PG_ARGISNULL(1)) return false;
  call->format = PG_GETARG_TEXT_PP(1);
  call->cache = call_cache(fcinfo);
  call->parsed = cached_format(call->cache, call->format, fcinfo);
  call->locale = cached_locale(call->cache, PG_ARGISNULL(2) ? NULL : PG_GETARG_TEXT_PP(2));
  return true;
}

static Datum finish_call(FunctionCallInfo fcinfo, const Call *call, ModuleValue *value) {
  PG_RETURN_TEXT_P(render(fcinfo, call->parsed, call->cache, call->locale, value, call->format));
}

/* A number as the format reads it: a count of days or seconds for the date
   formats.  The zone formats show the session zone's offset now. */
static Datum number_call(FunctionCallInfo fcinfo, const Call *call, double number) {
  ModuleValue value = {number, call->parsed->zone, 0};
  if (value.has_offset) value.offset = session_offset_now();
  return finish_call(fcinfo, call, &value);
}

PG_FUNCTION_INFO_V1(corvinel_nlformat);
Datum corvinel_nlformat(PG_FUNCTION_ARGS) {
  Call call;
  if (!begin_call(fcinfo, &call)) PG_RETURN_NULL();
  return number_call(fcinfo, &call, PG_ARGISNULL(0) ? std_miss_val : PG_GETARG_FLOAT8(0));
}

/* numeric becomes the nearest double: 15 to 17 significant digits. */
PG_FUNCTION_INFO_V1(corvinel_nlformat_numeric);
Datum corvinel_nlformat_numeric(PG_FUNCTION_ARGS) {
  Call call;
  if (!begin_call(fcinfo, &call)) PG_RETURN_NULL();
  const double number =
      PG_ARGISNULL(0) ? std_miss_val : DatumGetFloat8(DirectFunctionCall1(numeric_float8, PG_GETARG_DATUM(0)));
  return number_call(fcinfo, &call, number);
}

/* A NULL of a date or time type is the missing value, whatever the kinds. */
static Datum missing_call(FunctionCallInfo fcinfo, const Call *call) {
  ModuleValue value = {std_miss_val, false, 0};
  return finish_call(fcinfo, call, &value);
}

static Datum out_of_range_call(FunctionCallInfo fcinfo, const Call *call, InputType input, bool below) {
  calendar_value(input, call->parsed, FIRST_YEAR, 1, 1, 0); /* the kinds must meet */
  if (call->parsed->kind == KIND_TIME) {
    /* The time formats take any number into one day; an infinite timestamp
       has no time of day, so its field is the date formats' "*". */
    text *stars = palloc(VARHDRSZ + call->parsed->width);
    memset(VARDATA(stars), '*', (size_t)call->parsed->width);
    SET_VARSIZE(stars, VARHDRSZ + call->parsed->width);
    PG_RETURN_TEXT_P(stars);
  }
  ModuleValue value = {below ? BELOW_RANGE : ABOVE_RANGE, false, 0};
  return finish_call(fcinfo, call, &value);
}

/* A wall-clock time as the format reads it.  The zone formats get
   `offset` when it is known (a timestamptz), else the session zone's
   offset at that wall time. */
static Datum wall_time_call(FunctionCallInfo fcinfo, const Call *call, InputType input, Timestamp wall,
                            const int32_t *offset) {
  int64 days = wall / USECS_PER_DAY;
  int64 time_of_day = wall - days * USECS_PER_DAY;
  if (time_of_day < 0) {
    time_of_day += USECS_PER_DAY;
    --days;
  }
  struct pg_tm tm;
  memset(&tm, 0, sizeof tm);
  j2date((int)(days + POSTGRES_EPOCH_JDATE), &tm.tm_year, &tm.tm_mon, &tm.tm_mday);
  ModuleValue value = {calendar_value(input, call->parsed, tm.tm_year, tm.tm_mon, tm.tm_mday, time_of_day),
                       call->parsed->zone, 0};
  if (value.has_offset && offset != NULL) {
    value.offset = *offset;
  } else if (value.has_offset) {
    const int64 seconds = time_of_day / USECS_PER_SEC;
    tm.tm_hour = (int)(seconds / SECS_PER_HOUR);
    tm.tm_min = (int)(seconds / SECS_PER_MINUTE % MINS_PER_HOUR);
    tm.tm_sec = (int)(seconds % SECS_PER_MINUTE);
    value.offset = session_offset_at(&tm);
  }
  return finish_call(fcinfo, call, &value);
}

/* The session zone's offset (seconds east of UTC) at the instant `stamp`,
   remembered with the stretch of time it holds for: from the instant it
   was looked up for to the zone's next change of offset. */
static bool session_offset_at_instant(CallCache *cache, TimestampTz stamp, int32_t *offset) {
  const int64 seconds = stamp / USECS_PER_SEC - (stamp % USECS_PER_SEC < 0 ? 1 : 0);
  const pg_time_t instant = seconds + (POSTGRES_EPOCH_JDATE - UNIX_EPOCH_JDATE) * SECS_PER_DAY;
  if (cache->span_zone == session_timezone && instant >= cache->span_from && instant < cache->span_until) {
    *offset = cache->span_offset;
    return true;
  }
  long before = 0, after = 0;
  int before_dst = 0, after_dst = 0;
  pg_time_t boundary = 0;
  const int found = pg_next_dst_boundary(&instant, &before, &before_dst, &boundary, &after, &after_dst,
                                         session_timezone);
  if (found < 0) return false;
  cache->span_zone = session_timezone;
  /* 0: no change of offset after `instant`; there may be some before. */
  cache->span_from = instant;
  cache->span_until = found == 0 ? PG_INT64_MAX : boundary;
  cache->span_offset = (int32_t)before;
  *offset = cache->span_offset;
  return true;
}

/* A timestamptz as the wall time of the session's TimeZone, as its output
   shows it. */
static Datum instant_call(FunctionCallInfo fcinfo, const Call *call, TimestampTz stamp) {
  int32_t offset = 0;
  if (!session_offset_at_instant(call->cache, stamp, &offset)) {
    /* The zone library has no answer for this instant: the conversion of
       the timestamptz output decides. */
    struct pg_tm tm;
    fsec_t fraction;
    int west = 0;
    if (timestamp2tm(stamp, &west, &tm, &fraction, NULL, NULL) != 0) {
      ereport(ERROR, (errcode(ERRCODE_DATETIME_VALUE_OUT_OF_RANGE), errmsg("timestamp out of range")));
    }
    offset = -west;
  }
  return wall_time_call(fcinfo, call, INPUT_TIMESTAMPTZ, stamp + (int64)offset * USECS_PER_SEC, &offset);
}

/* The date, timestamp and timestamptz overloads.  A date is the wall time
   of its midnight; dates far outside the module's years are out of range
   before they are multiplied out. */
static Datum calendar_overload(FunctionCallInfo fcinfo, InputType input) {
  Call call;
  if (!begin_call(fcinfo, &call)) PG_RETURN_NULL();
  if (PG_ARGISNULL(0)) return missing_call(fcinfo, &call);
  if (input == INPUT_DATE) {
    const DateADT date = PG_GETARG_DATEADT(0);
    const int first = date2j(FIRST_YEAR, 1, 1) - POSTGRES_EPOCH_JDATE;
    const int after_last = date2j(LAST_YEAR + 1, 1, 1) - POSTGRES_EPOCH_JDATE;
    if (DATE_NOT_FINITE(date) || date < first || date >= after_last) {
      return out_of_range_call(fcinfo, &call, input, DATE_IS_NOBEGIN(date) || date < first);
    }
    return wall_time_call(fcinfo, &call, input, (Timestamp)date * USECS_PER_DAY, NULL);
  }
  const Timestamp stamp = PG_GETARG_TIMESTAMP(0); /* a timestamptz is stored alike */
  if (TIMESTAMP_NOT_FINITE(stamp)) {
    return out_of_range_call(fcinfo, &call, input, TIMESTAMP_IS_NOBEGIN(stamp));
  }
  if (input == INPUT_TIMESTAMPTZ) return instant_call(fcinfo, &call, stamp);
  return wall_time_call(fcinfo, &call, input, stamp, NULL);
}

PG_FUNCTION_INFO_V1(corvinel_nlformat_date);
Datum corvinel_nlformat_date(PG_FUNCTION_ARGS) { return calendar_overload(fcinfo, INPUT_DATE); }

PG_FUNCTION_INFO_V1(corvinel_nlformat_timestamp);
Datum corvinel_nlformat_timestamp(PG_FUNCTION_ARGS) { return calendar_overload(fcinfo, INPUT_TIMESTAMP); }

PG_FUNCTION_INFO_V1(corvinel_nlformat_timestamptz);
Datum corvinel_nlformat_timestamptz(PG_FUNCTION_ARGS) { return calendar_overload(fcinfo, INPUT_TIMESTAMPTZ); }

PG_FUNCTION_INFO_V1(corvinel_nlformat_time);
Datum corvinel_nlformat_time(PG_FUNCTION_ARGS) {
  Call call;
  if (!begin_call(fcinfo, &call)) PG_RETURN_NULL();
  if (PG_ARGISNULL(0)) return missing_call(fcinfo, &call);
  ModuleValue value = {calendar_value(INPUT_TIME, call.parsed, 2000, 1, 1, PG_GETARG_TIMEADT(0)), false, 0};
  return finish_call(fcinfo, &call, &value);
}

/* The registry as rows: name, the width and decimals limits, and what the
   format reads its value as. */
PG_FUNCTION_INFO_V1(corvinel_nlformats);
Datum corvinel_nlformats(PG_FUNCTION_ARGS) {
  FuncCallContext *context;
  if (SRF_IS_FIRSTCALL()) {
    context = SRF_FIRSTCALL_INIT();
    MemoryContext old = MemoryContextSwitchTo(context->multi_call_memory_ctx);
    TupleDesc descriptor;
    if (get_call_result_type(fcinfo, NULL, &descriptor) != TYPEFUNC_COMPOSITE) {
      ereport(ERROR, (errcode(ERRCODE_FEATURE_NOT_SUPPORTED), errmsg("nlformats must return rows")));
    }
    context->tuple_desc = BlessTupleDesc(descriptor);
    context->max_calls = CORVINEL_FORMAT_COUNT;
    MemoryContextSwitchTo(old);
  }
  context = SRF_PERCALL_SETUP();
  if (context->call_cntr >= context->max_calls) SRF_RETURN_DONE(context);
  const struct fmtdesc *d = &fmtinfo_eachfmt[context->call_cntr];
  Datum values[8];
  bool nulls[8] = {false, false, false, false, false, false, false, false};
  values[0] = PointerGetDatum(cstring_to_text_with_len(d->name, d->namelen));
  values[1] = Int32GetDatum(d->minw);
  values[2] = Int32GetDatum(d->maxw);
  values[3] = Int32GetDatum(d->defw);
  values[4] = Int32GetDatum(d->mind);
  values[5] = Int32GetDatum(d->maxd);
  values[6] = Int32GetDatum(d->defd);
  values[7] = PointerGetDatum(cstring_to_text(kind_words[kind_of(d)]));
  HeapTuple tuple = heap_form_tuple(context->tuple_desc, values, nulls);
  SRF_RETURN_NEXT(context, HeapTupleGetDatum(tuple));
}
