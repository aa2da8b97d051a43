#include "render_columns.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <atomic>
#include <cmath>
#include <limits>
#include <thread>
#include <tuple>
#include <utility>
#include <type_traits>
#include <vector>

#include "corvinel/calendar.h"
#include "corvinel/missing.h"
#include "corvinel/zone_offset.h"

namespace corvinel::python {
namespace {

constexpr int64_t kNaT = std::numeric_limits<int64_t>::min();
constexpr int64_t kSecondsPerDay = 86400;
// Room every step of output expansion may use, whatever the width.
constexpr int32_t kExpansionRoom = 402;
// Fewer elements than this per thread are not worth a thread.
constexpr std::size_t kLeastPerThread = 4096;

constexpr int64_t floor_div(int64_t a, int64_t b) {
  const int64_t q = a / b;
  return (a % b != 0 && ((a < 0) != (b < 0))) ? q - 1 : q;
}

// Day count from 1970-01-01 of a proleptic Gregorian date, the calendar
// numpy and Python use (Howard Hinnant's days_from_civil: eras of 400
// years counted from 0000-03-01, months from March so that the leap day
// ends the year).
constexpr int64_t days_from_civil(int64_t year, int64_t month, int64_t day) {
  const int64_t y = month <= 2 ? year - 1 : year;
  const int64_t era = (y >= 0 ? y : y - 399) / 400;
  const int64_t year_of_era = y - era * 400;
  const int64_t day_of_year = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
  const int64_t day_of_era = year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
  return era * 146097 + day_of_era - 719468;
}

// Its inverse (civil_from_days).
struct Civil {
  int64_t year, month, day;
};
Civil civil_from_days(int64_t days) {
  const int64_t z = days + 719468;
  const int64_t era = floor_div(z, 146097);
  const int64_t day_of_era = z - era * 146097;
  const int64_t year_of_era = (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const int64_t day_of_year = day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const int64_t month_from_march = (5 * day_of_year + 2) / 153;
  const int64_t day = day_of_year - (153 * month_from_march + 2) / 5 + 1;
  const int64_t month = month_from_march < 10 ? month_from_march + 3 : month_from_march - 9;
  return {year_of_era + era * 400 + (month <= 2 ? 1 : 0), month, day};
}

// The module's calendar holds 1 January 1582 .. 31 December 20000.  It
// follows the Gregorian one day by day except that years divisible by 4000
// are not leap years: its day numbers (from 1 January 1960, 3653 days
// before 1970) fall one behind after each 29 February of 4000, 8000, ...,
// 20000, and those days it does not have.
constexpr int64_t kFirstModuleDay = days_from_civil(1582, 1, 1);
constexpr int64_t kLastModuleDay = days_from_civil(20000, 12, 31);
constexpr int64_t kDaysFrom1960To1970 = 3653;
constexpr int64_t kLeapDaysOnlyGregorianHas[] = {days_from_civil(4000, 2, 29), days_from_civil(8000, 2, 29),
                                                 days_from_civil(12000, 2, 29), days_from_civil(16000, 2, 29),
                                                 days_from_civil(20000, 2, 29)};
static_assert(days_from_civil(1970, 1, 1) == 0 && days_from_civil(1960, 1, 1) == -kDaysFrom1960To1970);

// Seconds of `ticks` (ticks_per_second to the second): the whole minutes
// exactly, then the seconds within the minute divided once, so that
// 12:39:43.25 gives the double the host tool reads from "12:39:43.25".
template <typename TicksPerSecond>
double seconds_of_ticks(int64_t ticks, TicksPerSecond ticks_per_second) {
  const int64_t per_minute = 60 * ticks_per_second;
  const int64_t within_minute = ticks - floor_div(ticks, per_minute) * per_minute;
  const int64_t whole = (ticks - within_minute) / ticks_per_second;
  return static_cast<double>(whole) + static_cast<double>(within_minute) / static_cast<double>(ticks_per_second);
}

// Calls work(ticks_per_second) with numpy's units as constants, so that
// every division by them is a multiplication: a division by a number known
// only at run time costs as much as the rest of a value's conversion.
template <typename Work>
double with_unit(int64_t ticks_per_second, Work work) {
  switch (ticks_per_second) {
    case 1: return work(std::integral_constant<int64_t, 1>{});
    case 1000: return work(std::integral_constant<int64_t, 1000>{});
    case 1000000: return work(std::integral_constant<int64_t, 1000000>{});
    case 1000000000: return work(std::integral_constant<int64_t, 1000000000>{});
    default: return work(ticks_per_second);
  }
}

// UTF-8 bytes as code points; a byte that starts no valid sequence becomes
// U+FFFD.  At most `room` characters.
std::size_t decode_utf8(const unsigned char *bytes, std::size_t length, char32_t *out, std::size_t room) {
  // Most fields are ASCII throughout: one test over the bytes and one
  // widening pass, both without branches per byte.
  const std::size_t most = std::min(length, room);
  unsigned char high_bits = 0;
  for (std::size_t i = 0; i < most; ++i) high_bits |= bytes[i];
  if (high_bits < 0x80) {
    for (std::size_t i = 0; i < most; ++i) out[i] = bytes[i];
    return most;
  }
  std::size_t written = 0;
  for (std::size_t i = 0; i < length && written < room;) {
    const unsigned char lead = bytes[i];
    if (lead < 0x80) {  // most of every field
      out[written++] = lead;
      ++i;
      continue;
    }
    const std::size_t extra = (lead >> 5) == 0x6 ? 1 : (lead >> 4) == 0xE ? 2 : (lead >> 3) == 0x1E ? 3 : 9;
    char32_t c = extra == 1 ? (lead & 0x1F) : extra == 2 ? (lead & 0x0F) : (lead & 0x07);
    bool valid = extra != 9;
    for (std::size_t k = 1; valid && k <= extra; ++k) {
      if (i + k >= length || (bytes[i + k] & 0xC0) != 0x80) {
        valid = false;
      } else {
        c = (c << 6) | (bytes[i + k] & 0x3F);
      }
    }
    if (!valid) {
      out[written++] = 0xFFFD;
      ++i;
      continue;
    }
    out[written++] = c;
    i += extra + 1;
  }
  return written;
}

// Decodes the session's bytes into code points with one converter per
// thread.
class Decoder {
 public:
  explicit Decoder(const Session &session) : utf8_(session.utf8) {
    if (!utf8_) converter_ = iconv_open("UTF-32LE", session.codeset.c_str());
  }
  ~Decoder() {
    if (converter_ != reinterpret_cast<iconv_t>(-1)) iconv_close(converter_);
  }
  Decoder(const Decoder &) = delete;
  Decoder &operator=(const Decoder &) = delete;

  std::size_t decode(const char *bytes, std::size_t length, char32_t *out, std::size_t room) {
    if (utf8_ || converter_ == reinterpret_cast<iconv_t>(-1)) {
      return decode_utf8(reinterpret_cast<const unsigned char *>(bytes), length, out, room);
    }
    iconv(converter_, nullptr, nullptr, nullptr, nullptr);
    char *in = const_cast<char *>(bytes);
    char *target = reinterpret_cast<char *>(out);
    std::size_t in_left = length, out_left = room * sizeof(char32_t);
    while (in_left > 0 && out_left >= sizeof(char32_t)) {
      if (iconv(converter_, &in, &in_left, &target, &out_left) != static_cast<std::size_t>(-1)) break;
      // A byte the codeset does not define: U+FFFD, and on.
      if (errno == E2BIG) break;
      const char32_t replacement = 0xFFFD;
      std::memcpy(target, &replacement, sizeof replacement);
      target += sizeof replacement;
      out_left -= sizeof replacement;
      ++in;
      --in_left;
    }
    return (room * sizeof(char32_t) - out_left) / sizeof(char32_t);
  }

 private:
  bool utf8_;
  iconv_t converter_ = reinterpret_cast<iconv_t>(-1);
};

// The column cut into chunks that threads claim one at a time until none is
// left: a thread the machine slows down (another process on its processor,
// memory the kernel must fetch back) takes fewer, and all finish together.
class Chunks {
 public:
  explicit Chunks(std::size_t count) : count_(count) {}
  // [first, last) of the next chunk; first == last when none is left.
  std::pair<std::size_t, std::size_t> claim() {
    const std::size_t first = std::min(count_, next_.fetch_add(kChunk, std::memory_order_relaxed));
    return {first, std::min(count_, first + kChunk)};
  }

 private:
  // Long enough that claiming costs nothing beside the rendering, short
  // enough (about 1 MiB of text at width 16) to even out the threads.
  static constexpr std::size_t kChunk = 16384;
  std::size_t count_;
  std::atomic<std::size_t> next_{0};
};

// The first element a format failed on, and the result it gave.
struct Failure {
  std::size_t index = std::numeric_limits<std::size_t>::max();
  int32_t result = 0;
};

// Renders the chunks it claims on the calling thread, under the session's
// locale; returns the first failure among them.
Failure render_chunks(const Column &column, const Rendering &rendering, const Session &session, char32_t *out,
                      std::size_t slot, Chunks &chunks) {
  const locale_t previous = uselocale(session.locale);
  Decoder decoder(session);
  HostValues host_values(column, rendering.kind);
  const int32_t capacity = std::max(rendering.width, kExpansionRoom);
  std::vector<char> field(static_cast<std::size_t>(capacity));
  // Every request differs from this one only in its value and what the
  // format reports back.
  // No limit checks (the package checked the limits), the session's own
  // encoding rather than 16-bit units.
  const fmtreq prepared{.width = rendering.width, .decimals = rendering.decimals, .value = nullptr,
                        .reserved = nullptr, .output = field.data(), .capacity = capacity, .outlen = 0,
                        .host_private = {0, 0}, .flags = 0, .locale = rendering.locale_number,
                        .xcode_a = 0, .xcode_b = 0, .xcode_state = 0};
  Failure failure;
  for (auto [first, last] = chunks.claim(); first < last; std::tie(first, last) = chunks.claim()) {
    for (std::size_t i = first; i < last; ++i) {
      double value = host_values(i);
      fmtreq request = prepared;
      request.value = &value;
      if (column.zone_offsets != nullptr) corvinel_set_zone_offset(&column.zone_offsets[i]);
      const int32_t result = rendering.render(&request);
      char32_t *text_out = out + i * slot;
      if (result != 0 || request.outlen < 0 || request.outlen > capacity) {
        if (i < failure.index) failure = {i, result != 0 ? result : -1};
        std::fill_n(text_out, slot, U'\0');
        continue;
      }
      const char *text = field.data();
      std::size_t length = static_cast<std::size_t>(request.outlen);
      if (rendering.strip) {
        while (length > 0 && text[0] == ' ') ++text, --length;
        while (length > 0 && text[length - 1] == ' ') --length;
      }
      const std::size_t written = decoder.decode(text, length, text_out, slot);
      std::fill(text_out + written, text_out + slot, U'\0');  // numpy pads with NULs
    }
  }
  if (column.zone_offsets != nullptr) corvinel_set_zone_offset(nullptr);
  uselocale(previous);
  return failure;
}

}  // namespace

double host_day_number(int64_t year, int64_t month, int64_t day) {
  // The module's calendar holds 1582..20000; there zmdy decides, refusing
  // the 29 February of a year divisible by 4000, which it does not have.
  if (year >= 1582 && year <= 20000) {
    return zmdy(static_cast<double>(month), static_cast<double>(day), static_cast<double>(year));
  }
  // Outside it the same count as the host tool's (days from 1 January 1960:
  // 365 a year plus the leap days before the year, 715875 being the count
  // this gives for 31 December 1959), so that the formats see the value the
  // host would hand them and show it as out of range.
  static constexpr int64_t kDaysBeforeMonth[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) && year % 4000 != 0;
  const int64_t y = year - 1;
  const int64_t day_of_year = kDaysBeforeMonth[month - 1] + day + (leap && month > 2 ? 1 : 0);
  return static_cast<double>(day_of_year + 365 * year + floor_div(y, 4) - floor_div(y, 100) + floor_div(y, 400) -
                             floor_div(y, 4000) - 715875);
}

double day_number(int64_t days_from_1970) {
  if (days_from_1970 < kFirstModuleDay || days_from_1970 > kLastModuleDay) {
    const Civil civil = civil_from_days(days_from_1970);
    return host_day_number(civil.year, civil.month, civil.day);
  }
  int64_t day = days_from_1970 + kDaysFrom1960To1970;
  for (const int64_t leap_day : kLeapDaysOnlyGregorianHas) {
    if (days_from_1970 < leap_day) break;
    if (days_from_1970 == leap_day) return std_miss_val;
    --day;
  }
  return static_cast<double>(day);
}

double HostValues::from_datetime64(int64_t ticks) {
  if (column_.ticks_per_second == 0) {  // whole days: midnight
    if (kind_ == ValueKind::kTime) return 0.0;
    const double date = day_number(ticks);
    if (kind_ != ValueKind::kDatetime || zmiss(date) != 0) return date;
    return date * static_cast<double>(kSecondsPerDay);
  }
  return with_unit(column_.ticks_per_second, [&](auto ticks_per_second) {
    const int64_t ticks_per_day = kSecondsPerDay * ticks_per_second;
    const int64_t days = floor_div(ticks, ticks_per_day);
    const int64_t within_day = ticks - days * ticks_per_day;
    if (kind_ == ValueKind::kTime) return seconds_of_ticks(within_day, ticks_per_second);
    const double date = day_number(days);
    if (kind_ == ValueKind::kDate || zmiss(date) != 0) return date;
    return date * static_cast<double>(kSecondsPerDay) + seconds_of_ticks(within_day, ticks_per_second);
  });
}

double HostValues::operator()(std::size_t index) {
  switch (column_.storage) {
    case ColumnStorage::kDouble: {
      const double value = static_cast<const double *>(column_.data)[index];
      return std::isnan(value) && zmiss(value) == 0 ? std_miss_val : value;
    }
    case ColumnStorage::kDatetime64: {
      const int64_t ticks = static_cast<const int64_t *>(column_.data)[index];
      return ticks == kNaT ? std_miss_val : from_datetime64(ticks);
    }
    case ColumnStorage::kTimedelta64: {
      const int64_t ticks = static_cast<const int64_t *>(column_.data)[index];
      if (ticks == kNaT) return std_miss_val;
      return with_unit(column_.ticks_per_second, [ticks](auto ticks_per_second) {
        return seconds_of_ticks(ticks, ticks_per_second);
      });
    }
  }
  return std_miss_val;
}

int32_t render_column(const Column &column, const Rendering &rendering, const Session &session, char32_t *out,
                      std::size_t slot, unsigned threads) {
  const std::size_t most_threads = std::max<std::size_t>(1, column.count / kLeastPerThread);
  const std::size_t count = std::clamp<std::size_t>(threads, 1, most_threads);
  Chunks chunks(column.count);
  // The calling thread works too, beside count - 1 others.
  std::vector<Failure> failures(count);
  std::vector<std::thread> helpers;
  for (std::size_t t = 1; t < count; ++t) {
    helpers.emplace_back([&, t] { failures[t] = render_chunks(column, rendering, session, out, slot, chunks); });
  }
  failures[0] = render_chunks(column, rendering, session, out, slot, chunks);
  for (std::thread &helper : helpers) helper.join();
  // The first failure in the column's order, whichever thread met it.
  return std::min_element(failures.begin(), failures.end(), [](const Failure &a, const Failure &b) {
           return a.index < b.index;
         })->result;
}

}  // namespace corvinel::python
