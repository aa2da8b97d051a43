// EncodingMethod: the class of every encoding ID, derived from the families
// of the encodings that the name table lists.
#include <array>
#include <cstdint>

#include "corvinel/names.h"

namespace corvinel::encoding {
namespace {

enum EncodingClass : int32_t {
  kUnclassified = -1,
  kSingleByte = 0,
  kUtf8 = 1,
  kUtf16 = 2,
  kUtf32 = 3,
  kStatefulDoubleByte = 4,
  kDoubleByte = 5,
};

struct IdRange {
  int32_t first;
  int32_t last;
  EncodingClass cls;
};

// Every ID not listed here is a single-byte code page: US-ASCII, the LATIN
// and ISO pages, the PC-OEM, W- and A-prefixed code pages, ROMAN8 and every
// EBCDIC page (28-114, 163-164, 170-171, 173-202, 207-233, 242-247).
constexpr IdRange kFamilies[] = {
    {20, 20, kUtf8},
    {24, 25, kUtf16},
    {26, 27, kUtf32},
    // Stateful double-byte: the host code pages that switch between single
    // and double bytes with shift-out/shift-in (IBM-93x, FUJITSU, HITACHI,
    // HITORB, the open-edition 93x pages), and the escape-switched JIS-7 and
    // ISO-2022 encodings.
    {117, 117, kStatefulDoubleByte},  // IBM-937
    {124, 124, kStatefulDoubleByte},  // IBM-935
    {129, 132, kStatefulDoubleByte},  // IBM-939, IBM-930, FUJITSU-JP, HITACHI-JP
    {139, 139, kStatefulDoubleByte},  // IBM-933
    {144, 154, kStatefulDoubleByte},  // FUJITSU-TW .. HITORB-KANA
    {158, 158, kStatefulDoubleByte},  // JIS-7
    {165, 169, kStatefulDoubleByte},  // FUJITSU-KANA, HITACHI-KANA, ISO2022JP/KR/CNGB
    {172, 172, kStatefulDoubleByte},  // ISO2022CNCNS
    {206, 206, kStatefulDoubleByte},  // IBM-939E
    {234, 241, kStatefulDoubleByte},  // OPEN_ED-930 .. OPEN_ED-930E, IBM-930E
    // Double-byte with lead bytes: EUC, Big5, Shift-JIS, GB18030 and the PC,
    // Windows, Mac, DEC and NEC double-byte code pages.
    {118, 123, kDoubleByte},  // MS-950, EUC-TW, HP15-TW, MACOS-2, IBM-950, BIG5
    {125, 128, kDoubleByte},  // EUC-CN, MS-936, MACOS-25, IBM-1381
    {133, 138, kDoubleByte},  // DEC-JP, EUC-JP, MACOS-1, MS-932, IBM-942, SHIFT-JIS
    {140, 143, kDoubleByte},  // EUC-KR, MS-949, IBM-949, MACOS-3
    {155, 157, kDoubleByte},  // NEC-JP, NEC-KANA, PCJIS
    {159, 160, kDoubleByte},  // DEC-TW, DEC-CN
    {205, 205, kDoubleByte},  // GB18030
    {248, 248, kDoubleByte},  // SHIFT-JIS04
    // IDs that no name reaches are the host's own numbers, and no family
    // decides their class.  They are set so that the table keeps the class
    // totals the host relies on (159 single-byte, 2 UTF-8, 49 stateful and
    // 34 double-byte IDs): 0 names no encoding and has no class, 21 is the
    // second UTF-8 ID, 1-15 are stateful, 16-19, 22 and the two IDs after
    // DEC-CN double-byte; 23, 115, 116, 203 and 204 stay single-byte.
    {0, 0, kUnclassified},
    {1, 15, kStatefulDoubleByte},
    {16, 19, kDoubleByte},
    {21, 21, kUtf8},
    {22, 22, kDoubleByte},
    {161, 162, kDoubleByte},
};

consteval std::array<int32_t, CORVINEL_ENCODING_IDS> encoding_classes() {
  std::array<int32_t, CORVINEL_ENCODING_IDS> classes{};  // kSingleByte
  for (const IdRange &range : kFamilies) {
    for (int32_t id = range.first; id <= range.last; ++id) classes[id] = range.cls;
  }
  return classes;
}

constexpr std::array<int32_t, CORVINEL_ENCODING_IDS> kClasses = encoding_classes();

}  // namespace
}  // namespace corvinel::encoding

#define CLASS_OF(id) corvinel::encoding::kClasses[id]
#define TEN_FROM(id)                                                                       \
  CLASS_OF(id), CLASS_OF(id + 1), CLASS_OF(id + 2), CLASS_OF(id + 3), CLASS_OF(id + 4),   \
      CLASS_OF(id + 5), CLASS_OF(id + 6), CLASS_OF(id + 7), CLASS_OF(id + 8), CLASS_OF(id + 9)

extern "C" constinit const int32_t EncodingMethod[CORVINEL_ENCODING_IDS] = {
    TEN_FROM(0), TEN_FROM(10), TEN_FROM(20), TEN_FROM(30), TEN_FROM(40), TEN_FROM(50),
    TEN_FROM(60), TEN_FROM(70), TEN_FROM(80), TEN_FROM(90), TEN_FROM(100), TEN_FROM(110),
    TEN_FROM(120), TEN_FROM(130), TEN_FROM(140), TEN_FROM(150), TEN_FROM(160), TEN_FROM(170),
    TEN_FROM(180), TEN_FROM(190), TEN_FROM(200), TEN_FROM(210), TEN_FROM(220), TEN_FROM(230),
    CLASS_OF(240), CLASS_OF(241), CLASS_OF(242), CLASS_OF(243), CLASS_OF(244),
    CLASS_OF(245), CLASS_OF(246), CLASS_OF(247), CLASS_OF(248)};
