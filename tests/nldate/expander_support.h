// Dates as people write them, and the expander called the way the formats
// call it, for the tests of the date pattern expander.
#pragma once

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string>
#include <string_view>

#include "corvinel/locale_db.h"
#include "corvinel/missing.h"
#include "nldate/pattern_expander.h"

namespace corvinel::testing {

// The day number of a civil (proleptic Gregorian) date: days since
// 1 January 1960.  Independent of the module's calendar.
inline double day_number(int year, unsigned month, unsigned day) {
  using namespace std::chrono;
  const sys_days d = std::chrono::year{year} / std::chrono::month{month} / std::chrono::day{day};
  const sys_days origin = std::chrono::year{1960} / January / std::chrono::day{1};
  return static_cast<double>((d - origin).count());
}

// The record number (1..136) whose language and country codes are these.
inline int32_t record_number(std::string_view language, std::string_view country) {
  for (int32_t r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    const locitem *rec = ORBlocaleData[r];
    if (rec[4].text != nullptr && rec[5].text != nullptr && language == rec[4].text &&
        country == rec[5].text) {
      return r + 1;
    }
  }
  return -1;
}

// Keeps TZ as it was when made and puts it back (set or unset) when done.
class SavedZone {
 public:
  SavedZone() {
    const char *zone = std::getenv("TZ");
    was_set_ = zone != nullptr;
    if (was_set_) value_ = zone;
  }
  ~SavedZone() {
    if (was_set_) {
      setenv("TZ", value_.c_str(), 1);
    } else {
      unsetenv("TZ");
    }
    tzset();
  }
  SavedZone(const SavedZone &) = delete;
  SavedZone &operator=(const SavedZone &) = delete;

 private:
  bool was_set_ = false;
  std::string value_;
};

struct Expanded {
  int32_t result;
  std::string text;
};

// expand into a wide field: the result and the text it placed.
inline Expanded expand_text(int32_t locale, std::string_view pattern, double date,
                            double hour = std_miss_val, double minute = std_miss_val,
                            double second = std_miss_val, int32_t digits = 0) {
  char field[600];
  int32_t width = static_cast<int32_t>(sizeof field);
  const int32_t result = nldate::expand(locale, pattern.data(), static_cast<int32_t>(pattern.size()),
                                        field, &width, digits, date, hour, minute, second);
  if (result != 0) return {result, {}};
  return {result, std::string(field, static_cast<std::size_t>(width))};
}

}  // namespace corvinel::testing
