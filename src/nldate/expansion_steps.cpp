#include "nldate/expansion_steps.h"

#include <cstdlib>
#include <ctime>

#include "corvinel/calendar.h"
#include "corvinel/missing.h"
#include "frame/thread_memo.h"
#include "locale/environment_value.h"
#include "nldate/host_zone_offset.h"
#include "nldate/week_numbering.h"

namespace corvinel::nldate {
namespace {

// The eras of the Japanese calendar this expander knows: first day (day
// number) and first calendar year.  It deliberately ends with the era that
// began in 1989; the classic era rendering keeps a longer table of its own.
struct Reign {
  double first_day;
  double first_year;
};
constexpr Reign reigns[4] = {
    {-33506, 1868},  // 6 April 1868
    {-17321, 1912},  // 30 July 1912
    {-12060, 1926},  // 25 December 1926
    {10600, 1989},   // 8 January 1989
};

}  // namespace

Parts derive_parts(double date, double hour, double minute, double second) noexcept {
  Parts p{};
  p.year = p.month = p.day = std_miss_val;
  CivilDay civil{};
  if (civil_day_of(date, civil)) {
    p.date_present = true;
    p.day_of_year = civil.day_of_year;
    p.year = static_cast<double>(civil.year);
    p.month = static_cast<double>(civil.month);
    p.day = static_cast<double>(civil.day);
    p.weekday = weekday_of(date);
  } else {
    const double julian = is_missing(date) ? std_miss_val : zjuldat(date);
    p.date_present = !is_missing(julian);
    p.day_of_year = p.date_present ? whole(std::fmod(julian, 1000.0)) : 0;
    if (p.date_present) zymdjul(&p.year, &p.month, &p.day, julian);
    p.weekday = p.date_present ? (whole(zwekday(date)) + 6) % 7 : -1;
  }
  p.date = p.date_present ? date : 0;
  p.hour = hour;
  p.minute = minute;
  p.second = second;
  p.clock12 = clock12_of(hour);
  return p;
}

int64_t sunday_week(double date, int64_t day_of_year) noexcept {
  const double first_of_year = date - static_cast<double>(day_of_year) + 1;
  // 1 = Sunday .. 7 = Saturday, also before 1600.
  const int64_t weekday = (whole(zwekday(first_of_year)) + 6) % 7 + 1;
  const double first_sunday =
      weekday == 1 ? first_of_year : first_of_year - static_cast<double>(weekday) + 8;
  if (date < first_sunday) return 0;
  return whole((date - first_sunday) / 7) + 1;
}

Era era_of_region(std::optional<std::string_view> region) noexcept {
  if (!region || region->size() != 2) return Era::kGregorian;
  if (*region == "TW") return Era::kTaiwan;
  if (*region == "TH") return Era::kThai;
  if (*region == "JP") return Era::kJapan;
  return Era::kGregorian;
}

double era_year(Era era, double year, double date) noexcept {
  switch (era) {
    case Era::kTaiwan: {
      const double y = year - 1911;
      return y <= 0 ? 1 - y : y;
    }
    case Era::kThai:
      return year + 543;
    case Era::kJapan:
      for (int i = 3; i >= 0; --i) {
        if (reigns[i].first_day <= date) return year + 1 - reigns[i].first_year;
      }
      return year;
    case Era::kGregorian:
      break;
  }
  return year;
}

bool read_directive(const char *work, int32_t length, int32_t &i, bool &era,
                    Directive &directive) noexcept {
  Directive d{'0', false, false, false, 0};
  ++i;
  if (i < length && (work[i] == '#' || work[i] == '0')) {
    if (work[i] == '#') {
      d.pad = 0;
      d.alternate = true;
    }
    ++i;
  }
  if (i < length && work[i] >= '1' && work[i] <= '9') ++i;  // a width, not supported
  if (i < length && work[i] == '+') {
    era = true;
    ++i;
  }
  if (i < length && work[i] == '?') {
    d.lower = true;
    ++i;
  }
  if (i >= length) return false;  // a lone "%" at the end
  const char c = work[i];
  d.exact_second = c == 'S';
  if (c >= 'a' && c <= 'z') {
    d.lower = true;
    d.letter = static_cast<char>(c - 'a' + 'A');
  } else {
    d.letter = c;
  }
  if (d.letter == 'M' && d.lower) {
    d.letter = 'N';
    d.lower = false;
  }
  directive = d;
  return true;
}

namespace {

// The offset text for `now` under the zone state tzset last set: the
// standard offset (timezone, seconds west of UTC), an hour added while
// daylight saving is in effect.  localtime_r, not localtime, because
// localtime's result lives in one buffer shared by every thread and formats
// may run on many threads at once.
void write_offset_at(time_t now, char *out) noexcept {
  struct tm local {};
  const bool daylight_saving = localtime_r(&now, &local) != nullptr && local.tm_isdst > 0;
  const long offset = -timezone;
  const long hours = offset / 3600;
  const long minutes = (std::labs(offset) - std::labs(hours) * 3600) / 60;
  const long shown_hours = daylight_saving ? std::labs(hours + 1) : std::labs(hours);
  out[0] = offset >= 0 ? '+' : '-';
  write_digits(static_cast<uint64_t>(shown_hours), out + 1, 2, '0');
  write_digits(static_cast<uint64_t>(minutes), out + 3, 2, '0');
}

// The last offset this thread worked out, with what it depended on: the
// second it was read in and the TZ value tzset saw.  Within the same second
// and under the same TZ value tzset changes nothing and localtime_r gives
// the same daylight-saving flag, so the text is the same.
constexpr std::size_t kZoneKeyCapacity = 64;
struct ZoneMemo {
  bool filled;
  bool zone_set;  // TZ was set
  time_t second;
  std::size_t zone_length;
  char zone[kZoneKeyCapacity];
  char text[kZoneOffsetLength];
};

}  // namespace

void write_zone_offset_uncached(char *out) noexcept {
  tzset();
  write_offset_at(time(nullptr), out);
}

void write_zone_offset(char *out, const ZoneReading &reading) noexcept {
  if (write_host_zone_offset(out)) return;
  thread_local ZoneMemo thread_memo;
  ZoneMemo &memo = *frame::pinned(&thread_memo);
  const time_t now = time(nullptr);
  const char *zone = reading.read ? reading.value : locale::zone_value();
  const std::size_t zone_length = zone != nullptr ? std::strlen(zone) : 0;
  if (memo.filled && memo.second == now && memo.zone_set == (zone != nullptr) &&
      memo.zone_length == zone_length &&
      (zone_length == 0 || std::memcmp(memo.zone, zone, zone_length) == 0)) {
    std::memcpy(out, memo.text, kZoneOffsetLength);
    return;
  }
  tzset();
  write_offset_at(now, out);
  if (zone_length > kZoneKeyCapacity) {
    memo.filled = false;  // a TZ this long is not remembered
    return;
  }
  memo.filled = true;
  memo.zone_set = zone != nullptr;
  memo.second = now;
  memo.zone_length = zone_length;
  if (zone_length > 0) std::memcpy(memo.zone, zone, zone_length);
  std::memcpy(memo.text, out, kZoneOffsetLength);
}

}  // namespace corvinel::nldate
