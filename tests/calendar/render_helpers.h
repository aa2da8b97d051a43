// Calls a classic rendering on a guarded request and collects what it did.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/classic_dates.h"
#include "corvinel/fmtreq.h"
#include "support/request_builder.h"

namespace corvinel::testing {

// A rendering with its name, so that test rows name what they call.
struct Renderer {
  const char *name;
  fmt_render_fn render;
};

// Every classic rendering, named after its function: renderers::zfmmdy.
namespace renderers {
#define CORVINEL_RENDERER(name) inline constexpr Renderer name{#name, ::name}
CORVINEL_RENDERER(zfmmdy); CORVINEL_RENDERER(zfmmdyb); CORVINEL_RENDERER(zfmmdyc);
CORVINEL_RENDERER(zfmmdyd); CORVINEL_RENDERER(zfmmdyn); CORVINEL_RENDERER(zfmmdyp);
CORVINEL_RENDERER(zfmdmy); CORVINEL_RENDERER(zfmdmyb); CORVINEL_RENDERER(zfmdmyc);
CORVINEL_RENDERER(zfmdmyd); CORVINEL_RENDERER(zfmdmyn); CORVINEL_RENDERER(zfmdmyp);
CORVINEL_RENDERER(zfmymd); CORVINEL_RENDERER(zfmymdb); CORVINEL_RENDERER(zfmymdc);
CORVINEL_RENDERER(zfmymdn); CORVINEL_RENDERER(zfmymdp); CORVINEL_RENDERER(zfmymds);
CORVINEL_RENDERER(zfmmmy); CORVINEL_RENDERER(zfmmmyc); CORVINEL_RENDERER(zfmmmyd);
CORVINEL_RENDERER(zfmmmyn); CORVINEL_RENDERER(zfmmmyp); CORVINEL_RENDERER(zfmmmys);
CORVINEL_RENDERER(zfmyym); CORVINEL_RENDERER(zfmyymc); CORVINEL_RENDERER(zfmyymd);
CORVINEL_RENDERER(zfmyymn); CORVINEL_RENDERER(zfmyymp); CORVINEL_RENDERER(zfmyyms);
CORVINEL_RENDERER(zfmyyqc); CORVINEL_RENDERER(zfmyyqd); CORVINEL_RENDERER(zfmyyqn);
CORVINEL_RENDERER(zfmyyqp); CORVINEL_RENDERER(zfmyyqs); CORVINEL_RENDERER(zfmyyqr);
CORVINEL_RENDERER(zfmyqrc); CORVINEL_RENDERER(zfmyqrd); CORVINEL_RENDERER(zfmyqrn);
CORVINEL_RENDERER(zfmyqrp); CORVINEL_RENDERER(zfmyqrs); CORVINEL_RENDERER(zfmmony);
CORVINEL_RENDERER(zfmdate); CORVINEL_RENDERER(zfmtime); CORVINEL_RENDERER(zfmtod);
CORVINEL_RENDERER(zfmtimm); CORVINEL_RENDERER(zfmdttm); CORVINEL_RENDERER(zfmdtda);
#undef CORVINEL_RENDERER

inline constexpr Renderer kDates[] = {
    zfmmdy,
    zfmmdyb,
    zfmmdyc,
    zfmmdyd,
    zfmmdyn,
    zfmmdyp,
    zfmdmy,
    zfmdmyb,
    zfmdmyc,
    zfmdmyd,
    zfmdmyn,
    zfmdmyp,
    zfmymd,
    zfmymdb,
    zfmymdc,
    zfmymdn,
    zfmymdp,
    zfmymds,
    zfmmmy,
    zfmmmyc,
    zfmmmyd,
    zfmmmyn,
    zfmmmyp,
    zfmmmys,
    zfmyym,
    zfmyymc,
    zfmyymd,
    zfmyymn,
    zfmyymp,
    zfmyyms,
    zfmyyqc,
    zfmyyqd,
    zfmyyqn,
    zfmyyqp,
    zfmyyqs,
    zfmyyqr,
    zfmyqrc,
    zfmyqrd,
    zfmyqrn,
    zfmyqrp,
    zfmyqrs,
    zfmmony,
    zfmdate,
};
inline constexpr Renderer kTimes[] = {zfmtime, zfmtod, zfmtimm, zfmdttm, zfmdtda};
}  // namespace renderers

struct Rendered {
  std::string field;  // the first `width` bytes of the buffer
  int32_t result;
  int32_t outlen;
  bool guards_intact;
  bool restored;
};

inline Rendered render(const Renderer &renderer, int32_t width, int32_t decimals, double value) {
  Request request(width, decimals, value);
  const int32_t result = renderer.render(request.get());
  return {request.field(), result, request->outlen, request.guards_intact(), request.restored()};
}

// One expected rendering: what the field holds and the result code.
struct RenderCase {
  Renderer renderer;
  int32_t width;
  int32_t decimals;
  double value;
  const char *expected;
  int32_t result = CORVINEL_OK;
};

inline void PrintTo(const RenderCase &c, std::ostream *os) {
  *os << c.renderer.name << " w" << c.width << "." << c.decimals << " of " << c.value;
}

// Checks one RenderCase: the field, the result, outlen = width, the guard
// bytes after the buffer and the request fields handed back.
class ClassicRendering : public ::testing::TestWithParam<RenderCase> {};

}  // namespace corvinel::testing
