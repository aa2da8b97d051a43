// Variants of NLDATM and NLTIME that differ in the items they expand, in
// whether the machine's numeric zone offset follows, and in their fallback:
// NLDATMAP, NLDATMZ, NLDATMWZ, NLDATMTM, NLDATMTZ and NLTIMAP.
#include "corvinel/formats.h"
#include "nldate/pattern_format.h"

namespace corvinel::nldate {
namespace {

// As for NLDATM and NLTIME, the check refuses decimals above 0.
constexpr frame::Limits kDatetimeLimits{16, 200, 0, 0};
constexpr frame::Limits kTimeLimits{4, 200, 0, 0};

constexpr int32_t kZone = kAppendZoneOffset;

constexpr PatternFormat kNldatmap{kDatetimeLimits, ValueKind::Datetime, 44, 47,
                                  Fallback::ShortDatetime};
constexpr PatternFormat kNldatmz{kDatetimeLimits, ValueKind::Datetime, 46 + kZone, 47 + kZone,
                                 Fallback::ShortDatetime};
constexpr PatternFormat kNldatmwz{kDatetimeLimits, ValueKind::Datetime,
                                  50 + kZone + kSelectorMark, 51 + kZone + kSelectorMark,
                                  Fallback::None};
constexpr PatternFormat kNldatmtm{kDatetimeLimits, ValueKind::Datetime, 53, kNoPattern,
                                  Fallback::ClassicTimeOfDay};
constexpr PatternFormat kNldatmtz{kDatetimeLimits, ValueKind::Datetime, 53 + kZone, kNoPattern,
                                  Fallback::ClassicTimeOfDay};
constexpr PatternFormat kNltimeap{kTimeLimits, ValueKind::Time, 52, kNoPattern,
                                  Fallback::ClassicTimeAmPm};

}  // namespace
}  // namespace corvinel::nldate

using corvinel::nldate::pattern_format_frame;

extern "C" {

int32_t nldatmap(fmtreq *request) { return pattern_format_frame(request, corvinel::nldate::kNldatmap); }
int32_t nldatmz(fmtreq *request) { return pattern_format_frame(request, corvinel::nldate::kNldatmz); }
int32_t nldatmwz(fmtreq *request) { return pattern_format_frame(request, corvinel::nldate::kNldatmwz); }
int32_t nldatmtm(fmtreq *request) { return pattern_format_frame(request, corvinel::nldate::kNldatmtm); }
int32_t nldatmtz(fmtreq *request) { return pattern_format_frame(request, corvinel::nldate::kNldatmtz); }
int32_t nltimeap(fmtreq *request) { return pattern_format_frame(request, corvinel::nldate::kNltimeap); }

}  // extern "C"
