/* The corvinel extension: SQL functions that render values with the
   module's formats.  The registry is read directly (the module's entry
   would call setlocale and change the server's locale), the locale is
   chosen per call by its record number (never through the environment),
   and results come back as 16-bit units converted to the database
   encoding, so a cluster in the C locale still shows every character its
   encoding has ("?" for one it lacks). */
#include "postgres.h"

#include "catalog/namespace.h"
#include "fmgr.h"
#include "funcapi.h"
#include "mb/pg_wchar.h"
#include "utils/builtins.h"

#include <ctype.h>
#include <stdint.h>
#include <string.h>

#include "corvinel/fmtinfo.h"
#include "corvinel/missing.h"
#include "corvinel/names.h"

PG_MODULE_MAGIC;

#define UNITS_CAPACITY 402 /* room for every step of output expansion */

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
} ParsedFormat;

/* "NLNUM12.2", "nldate20.", "NLMNIEUR", "NLNUM.2": the users' syntax. */
static ParsedFormat parse_format(const char *text) {
  ParsedFormat parsed;
  int name_length = 0;
  while (isalpha((unsigned char)text[name_length])) ++name_length;
  parsed.format = find_format(text, name_length);
  if (parsed.format == NULL) {
    ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE),
                    errmsg("unknown format \"%s\"", text),
                    errhint("SELECT name FROM nlformats() lists the formats.")));
  }
  parsed.width = parsed.format->defw;
  parsed.decimals = parsed.format->defd;
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
  const struct fmtdesc *d = parsed.format;
  if (parsed.width < d->minw || parsed.width > d->maxw) {
    ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE),
                    errmsg("width %d of format \"%s\" is outside %d..%d", parsed.width, text, d->minw,
                           d->maxw)));
  }
  if (parsed.decimals < d->mind || parsed.decimals > d->maxd) {
    ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE),
                    errmsg("decimals %d of format \"%s\" are outside %d..%d", parsed.decimals, text,
                           d->mind, d->maxd)));
  }
  return parsed;
}

/* The record number of a locale name such as "de_DE", or 0 for NULL (the
   server's ORB_LOCALE, else en_US). */
static int32_t locale_number(text *name) {
  if (name == NULL) return 0;
  char *code = text_to_cstring(name);
  uint32_t number = 0;
  if (strlen(code) != 5 || LocnameToID(code, 5, &number) != 0) {
    ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE),
                    errmsg("unknown locale \"%s\"", text_to_cstring(name)),
                    errhint("A locale is a language and a country code such as de_DE or ja_JP.")));
  }
  return (int32_t)number;
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

/* UTF-16 units, low byte first, as UTF-8 (a lone surrogate becomes "?"). */
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
   encoding lacks becomes "?". */
static text *utf8_to_database(const char *utf8, int length) {
  const int encoding = GetDatabaseEncoding();
  if (encoding == PG_UTF8 || encoding == PG_SQL_ASCII) return cstring_to_text_with_len(utf8, length);
  const Oid proc = FindDefaultConversionProc(PG_UTF8, encoding);
  StringInfoData out;
  initStringInfo(&out);
  for (int i = 0; i < length;) {
    const int n = pg_utf_mblen((const unsigned char *)utf8 + i);
    unsigned char converted[4 * MAX_CONVERSION_GROWTH + 1];
    const int done = OidIsValid(proc)
                         ? pg_do_encoding_conversion_buf(proc, PG_UTF8, encoding, (unsigned char *)utf8 + i,
                                                         n, converted, sizeof converted, true)
                         : 0;
    if (done == n) {
      appendStringInfoString(&out, (const char *)converted);
    } else {
      appendStringInfoChar(&out, '?');
    }
    i += n;
  }
  return cstring_to_text_with_len(out.data, out.len);
}

static text *render(double value, text *format_text, text *locale_name) {
  const ParsedFormat parsed = parse_format(text_to_cstring(format_text));
  unsigned char units[UNITS_CAPACITY];
  fmtreq request;
  memset(&request, 0, sizeof request);
  request.width = parsed.width;
  request.decimals = parsed.decimals;
  request.value = &value;
  request.output = (char *)units;
  request.capacity = parsed.width > UNITS_CAPACITY ? parsed.width : UNITS_CAPACITY;
  request.flags = FMTREQ_CHECK_LIMITS;
  request.locale = locale_number(locale_name);
  request.xcode_b = CORVINEL_ENC_UTF16LE;
  char *field = parsed.width > UNITS_CAPACITY ? palloc(parsed.width) : NULL;
  if (field != NULL) request.output = field;
  const int32_t result = parsed.format->render(&request);
  if (result != CORVINEL_OK) {
    ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE),
                    errmsg("format \"%s\" failed with result %d", text_to_cstring(format_text), result)));
  }
  const unsigned char *bytes = (const unsigned char *)request.output;
  char *utf8 = palloc((size_t)request.outlen * 2 + 4);
  int length;
  if ((int32_t)request.xcode_state == CORVINEL_ENC_UTF16LE) {
    length = units_to_utf8(bytes, request.outlen, utf8);
  } else {
    /* A format that leaves the field in the session's bytes: those of a
       missing value or of "*" are ASCII. */
    memcpy(utf8, bytes, (size_t)request.outlen);
    length = request.outlen;
  }
  return utf8_to_database(utf8, length);
}

PG_FUNCTION_INFO_V1(corvinel_nlformat);
Datum corvinel_nlformat(PG_FUNCTION_ARGS) {
  if (PG_ARGISNULL(1)) PG_RETURN_NULL();
  const double value = PG_ARGISNULL(0) ? std_miss_val : PG_GETARG_FLOAT8(0);
  PG_RETURN_TEXT_P(render(value, PG_GETARG_TEXT_PP(1), PG_ARGISNULL(2) ? NULL : PG_GETARG_TEXT_PP(2)));
}

/* The registry as rows: name and the width and decimals limits. */
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
  Datum values[7];
  bool nulls[7] = {false, false, false, false, false, false, false};
  values[0] = PointerGetDatum(cstring_to_text_with_len(d->name, d->namelen));
  values[1] = Int32GetDatum(d->minw);
  values[2] = Int32GetDatum(d->maxw);
  values[3] = Int32GetDatum(d->defw);
  values[4] = Int32GetDatum(d->mind);
  values[5] = Int32GetDatum(d->maxd);
  values[6] = Int32GetDatum(d->defd);
  HeapTuple tuple = heap_form_tuple(context->tuple_desc, values, nulls);
  SRF_RETURN_NEXT(context, HeapTupleGetDatum(tuple));
}
