// NLSTRMON, NLSTRQTR and NLSTRWK: a month, quarter or weekday number shown as
// its name in the request's locale.  `decimals` selects the form: bit 0 the
// abbreviated name, bit 1 upper case.
#include "corvinel/formats.h"
#include "frame/format_frame.h"

namespace corvinel::nlnum {
namespace {

struct NameFormat {
  double last;                 // highest value with a name: 12, 4 or 7
  int32_t full_names;          // item of the first full name
  int32_t abbreviated_names;   // item of the first abbreviated name
};

constexpr frame::Limits kNameLimits{1, 200, 0, 3};

constexpr NameFormat kMonths{12, 95, 83};
constexpr NameFormat kQuarters{4, 147, 143};
constexpr NameFormat kWeekdays{7, 128, 121};

// The name of a value in 1 .. last, left-aligned, with outlen its length.
// Not built yet: the field shows "*".
int32_t render_name(fmtreq &request, const NameFormat & /*format*/, double /*value*/) {
  return frame::fill_stars(request);
}

int32_t name_frame(fmtreq *request, const NameFormat &format) {
  fmtreq &r = *request;
  if (const int32_t code = frame::check_limits(r, kNameLimits)) return code;
  const double value = frame::read_value(r);
  r.outlen = r.width;
  // A value without a name shows a blank field, a missing value its mark at
  // the right edge.  NaNs that are not missing values also take this path,
  // as no item can be computed from them.
  if (frame::is_missing(value) || !(value >= 1 && value <= format.last)) {
    return frame::render_missing_at_right_edge(r);
  }
  if (!frame::field_fits_buffer(r)) return frame::fill_stars(r);
  return render_name(r, format, value);
}

}  // namespace
}  // namespace corvinel::nlnum

using corvinel::nlnum::name_frame;

extern "C" {

int32_t nlstrmon(fmtreq *request) { return name_frame(request, corvinel::nlnum::kMonths); }
int32_t nlstrqtr(fmtreq *request) { return name_frame(request, corvinel::nlnum::kQuarters); }
int32_t nlstrwk(fmtreq *request) { return name_frame(request, corvinel::nlnum::kWeekdays); }

}  // extern "C"
