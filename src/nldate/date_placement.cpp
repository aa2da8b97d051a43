#include "nldate/date_placement.h"

#include <algorithm>
#include <cstring>

#include "corvinel/text.h"
#include "locale/output_expansion.h"
#include "locale/transcode_steps.h"
#include "nlnum/request_expansion.h"

namespace corvinel::nldate {

int32_t place_at_start(fmtreq &request, const char *text, int32_t length, Accept accept) {
  // Expansion never yields more than one conversion step, so a work buffer
  // of that size with the room cut to it gives the same results as
  // expanding in a buffer of the request's capacity.
  if (length > locale::kStepCapacity) return locale::kExpansionImpossible;
  char work[locale::kStepCapacity];
  std::memcpy(work, text, static_cast<std::size_t>(std::max(length, 0)));
  int32_t expanded = length;
  const int32_t room = std::min(request.capacity, locale::kStepCapacity);
  const int32_t result = nlnum::expand_for_request(request, work, &expanded, room);
  const int32_t limit = accept == Accept::kWhole ? 0 : locale::kExpansionShortened;
  if (result > limit) return result;
  std::memset(request.output, ' ', static_cast<std::size_t>(request.capacity));
  std::memcpy(request.output, work, static_cast<std::size_t>(expanded));
  request.outlen = expanded;
  return result;
}

int32_t left_justify_and_expand(fmtreq &request) {
  const int32_t field = std::clamp(request.outlen, 0, request.capacity);
  int32_t length = field > 0 ? wzstrip(request.output, field) : 0;
  int32_t start = 0;
  while (start < length && request.output[start] == ' ') ++start;
  if (start > 0) {
    std::memmove(request.output, request.output + start, static_cast<std::size_t>(length - start));
    std::memset(request.output + length - start, ' ', static_cast<std::size_t>(start));
  }
  length -= start;
  request.outlen = length;
  return nlnum::expand_for_request(request, request.output, &request.outlen, request.capacity);
}

}  // namespace corvinel::nldate
