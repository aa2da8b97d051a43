// The short items of a record and the widths they must fit: the pattern a
// format tries last before it gives up (or falls back to a fixed form) is
// measured with the record's longest names, a four-digit year and two-digit
// numbers, in UTF-8 bytes, against the format's default width.  Where
// CLDR's own pattern is longer, the generator takes the next shorter
// skeleton of the item's list; the list gives the reason of each step.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "locale_record.h"

namespace corvinel::locale_data {

// How a skeleton's pattern is used: as CLDR gives it, with the abbreviated
// quarter names where it names the long ones, with the standalone
// abbreviated quarter names ("%#q"), or with the quarter as a number: the
// quarter names used inside a date (items 135-138, read only by the
// patterns) become CLDR's narrow names, which are the quarter's number.
enum class SkeletonUse { kAsIs, kAbbreviatedQuarter, kStandaloneQuarter, kNumericQuarter };

struct ShorterSkeleton {
  const char *skeleton;  // CLDR skeleton of the date part ("yMEd")
  SkeletonUse use;
  const char *reason;    // why it is taken, for the report and the change list
  // A datetime's time in CLDR's 24-hour skeleton ("H", item 53) instead of
  // the locale's 12-hour clock, whose day-period names may be too long.
  bool twenty_four_hour = false;
};

struct ShortItem {
  int item;
  int width;                // the format's default width
  int suffix;               // bytes the format adds (the " +0100" of a zone)
  const char *format;       // the format whose last pattern it is
  std::vector<ShorterSkeleton> shorter;  // in order, after CLDR's own pattern
};

const std::vector<ShortItem> &short_items();

// Why a short item of a record whose calendar counts another era shows the
// era's year without the era's marker ("B.E. 2546" as "2546").
std::string without_era_marker_reason(const ShortItem &entry);

// The most UTF-8 bytes the escaped pattern can expand to in the record:
// the longest name of each name set it uses, four-digit years, two-digit
// numbers, "XST" for a zone name.  `one_digit_hour`: an unpadded hour
// ("%#I") counts one digit, as the 12-hour time writes it from 1 to 9.
std::size_t widest_bytes(const std::string &pattern, const LocaleRecord &record, bool one_digit_hour = false);

}  // namespace corvinel::locale_data
