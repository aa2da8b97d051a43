/* Locale and encoding name lookup, and the class of every encoding ID. */
#ifndef CORVINEL_NAMES_H
#define CORVINEL_NAMES_H

#include <stdint.h>

#include "corvinel/export.h"

CORVINEL_EXTERN_C_BEGIN

/* Number of encoding IDs (0..248). */
#define CORVINEL_ENCODING_IDS 249

/* Result codes of the lookups. */
#define CORVINEL_ENCNAME_UNKNOWN 4
#define CORVINEL_LOCNAME_UNKNOWN 5

/* Layout of the two open-hashed name tables compiled into the module: an
   array of buckets, each pointing at its own contiguous run of entries.
   The tables themselves stay inside the module (their names would be far
   too generic for a host's global symbol space); the host reaches them
   through LocnameToID and EncnameToID. */
struct locname_entry {
  const char *name;   /* upper-case five-character code, e.g. "EN_US" */
  uint32_t id;        /* locale number 1..136 */
};
struct locname_bucket {
  const struct locname_entry *entries; /* first entry of the run */
  int32_t count;                       /* 0 for an empty bucket */
};
struct encname_entry {
  const char *name;   /* upper-case encoding name, e.g. "UTF-8" */
  uint32_t id;        /* encoding ID 0..248 */
  int32_t length;     /* strlen(name) */
};
struct encname_bucket {
  const struct encname_entry *entries;
  int32_t count;
};
CORVINEL_LAYOUT_CHECK(sizeof(struct locname_entry) == 2 * sizeof(void *));
CORVINEL_LAYOUT_CHECK(sizeof(struct locname_bucket) == 2 * sizeof(void *));
CORVINEL_LAYOUT_CHECK(sizeof(struct encname_entry) == sizeof(void *) + 8);
CORVINEL_LAYOUT_CHECK(sizeof(struct encname_bucket) == 2 * sizeof(void *));

/* Maps a five-character locale code such as "en_US" to its locale number.
   The five bytes of `name` are upper-cased in place (the caller's buffer
   changes), then looked up exactly: the separator must be "_".  Returns 0
   and the number in *id, or CORVINEL_LOCNAME_UNKNOWN with *id = 0 when
   `length` is not 5, `name` is null or the code is unknown (and returns
   at once when `id` is null). */
CORVINEL_API int32_t LocnameToID(char *name, int32_t length, uint32_t *id);

/* Maps an encoding name such as "utf-8" or "EBCDIC1047" to its encoding ID.
   All `length` bytes are upper-cased in place, then compared exactly.
   Returns 0 and the ID in *id, or CORVINEL_ENCNAME_UNKNOWN with *id = 0 when
   `length` is below 4, `name` is null or the name is unknown. */
CORVINEL_API int32_t EncnameToID(char *name, int32_t length, uint32_t *id);

/* Class of each encoding ID:
     0  single-byte code page (ASCII, Latin, PC, Windows, Mac, EBCDIC)
     1  UTF-8
     2  UTF-16 (24 big-endian, 25 little-endian)
     3  UTF-32 (26 big-endian, 27 little-endian)
     4  stateful double-byte, switched by shift bytes or escapes
     5  double-byte with lead bytes (EUC, PC, Windows, Mac DBCS)
    -1  ID 0, which names no encoding
   IDs that no name reaches (1-19, 21-23, 115, 116, 161, 162, 203, 204) are
   the host's own numbers; their classes keep the host's class totals. */
CORVINEL_API extern const int32_t EncodingMethod[CORVINEL_ENCODING_IDS];

CORVINEL_EXTERN_C_END

#endif
