// NLDATE, NLDATM and NLTIME: the locale's own representation of a date, a
// datetime and a time of day, then its short representation, then a fixed
// short format.
#include "corvinel/formats.h"
#include "nldate/pattern_format.h"

namespace corvinel::nldate {
namespace {

// With the check on, NLDATM and NLTIME refuse decimals above 0 although
// their descriptors allow 3: deliberate, fraction digits are reached only
// when the host does not ask for the check.
constexpr frame::Limits kRepresentationLimits{10, 200, 0, 0};

constexpr PatternFormat kNldate{kRepresentationLimits, ValueKind::Date, 28, 29,
                                Fallback::ShortDate};
constexpr PatternFormat kNldatm{kRepresentationLimits, ValueKind::Datetime, 46, 47,
                                Fallback::ShortDatetime};
constexpr PatternFormat kNltime{kRepresentationLimits, ValueKind::Time, 53, kNoPattern,
                                Fallback::ClassicTime};

}  // namespace
}  // namespace corvinel::nldate

using corvinel::nldate::pattern_format_frame;

extern "C" {

int32_t nldate(fmtreq *request) { return pattern_format_frame(request, corvinel::nldate::kNldate); }
int32_t nldatm(fmtreq *request) { return pattern_format_frame(request, corvinel::nldate::kNldatm); }
int32_t nltime(fmtreq *request) { return pattern_format_frame(request, corvinel::nldate::kNltime); }

}  // extern "C"
