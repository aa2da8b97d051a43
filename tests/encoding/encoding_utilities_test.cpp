// The exported encoding utilities: the classes of EncodingMethod, NLSNUMCHAR
// that counts by them, LATIN1ToUNICODE, UTF8ToUNICODE and UNICODEToUTF8
// (against iconv where it agrees, and their deliberate leniencies), UPCASE
// and LOWCASE.
#include <iconv.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/names.h"
#include "corvinel/unicode.h"
#include "encoding/unicode_tables.h"

namespace {

// The class of each family, reached through the encoding's name, and the class totals.
TEST(EncodingMethod, ClassesOfTheFamilies) {
  const std::vector<std::pair<std::string, int32_t>> families = {
      {"UTF-8", 1},      {"UTF-16BE", 2},   {"UTF-16LE", 2},     {"UTF-32BE", 3},  {"UTF-32LE", 3},     {"US-ASCII", 0},
      {"PCOEM850", 0},   {"EBCDIC1047", 0}, {"OPEN_ED-1148", 0}, {"EUC-CN", 5},    {"SHIFT-JIS", 5},    {"GB18030", 5},
      {"IBM-930", 4},    {"JIS-7", 4},      {"ISO2022JP", 4},    {"HITORB-KO", 4}, {"OPEN_ED-930E", 4}};
  for (auto [name, cls] : families) {
    uint32_t id = 0;
    ASSERT_EQ(EncnameToID(name.data(), static_cast<int32_t>(name.size()), &id), 0) << name;
    EXPECT_EQ(EncodingMethod[id], cls) << name;
  }
  std::map<int32_t, int> totals;
  for (const int32_t cls : EncodingMethod) ++totals[cls];
  EXPECT_EQ(totals, (std::map<int32_t, int>{{-1, 1}, {0, 159}, {1, 2}, {2, 2}, {3, 2}, {4, 49}, {5, 34}}));
}

using Units = std::u16string;
constexpr char16_t kUnitGuard = 0xBEEF;

const unsigned char *bytes(const std::string &text) { return reinterpret_cast<const unsigned char *>(text.data()); }
uint16_t *units(Units &text) { return reinterpret_cast<uint16_t *>(text.data()); }

// Converts one byte or unit with iconv; nothing when iconv refuses it.
std::string iconv_one(const char *to, const char *from, std::string in) {
  iconv_t cd = iconv_open(to, from);
  char out[8];
  char *in_next = in.data(), *out_next = out;
  size_t in_left = in.size(), out_left = sizeof out;
  const bool done = iconv(cd, &in_next, &in_left, &out_next, &out_left) != static_cast<size_t>(-1);
  iconv_close(cd);
  return done ? std::string(out, out_next) : std::string();
}

// Code page 1252 as the C library has it, its undefined bytes mapping to themselves; what does not fit is dropped.
TEST(Latin1ToUnicode, WidensThroughCodePage1252) {
  for (int b = 0; b < 256; ++b) {
    const std::string reference = iconv_one("UTF-16LE", "CP1252", std::string(1, static_cast<char>(b)));
    const int expected = reference.empty() ? b : (reference[0] & 0xFF) | (reference[1] & 0xFF) << 8;
    EXPECT_EQ(corvinel::encoding::wlt1unic[b], expected) << b;
  }
  Units out(4, kUnitGuard);
  int32_t nout = -1;
  EXPECT_EQ(LATIN1ToUNICODE(bytes("\x80" "BC"), 3, units(out), 5, &nout), 2);
  EXPECT_EQ(nout, 2);
  EXPECT_EQ(out, Units(u"\x20AC" "B") + kUnitGuard + kUnitGuard);
}

struct Decoding {
  const char *what;
  std::string utf8;
  Units units;
  int32_t outcap, result;
};

void PrintTo(const Decoding &c, std::ostream *os) { *os << c.what; }

class Utf8ToUnicode : public ::testing::TestWithParam<Decoding> {};

TEST_P(Utf8ToUnicode, DecodesLeniently) {
  const Decoding &c = GetParam();
  Units out(8, kUnitGuard);
  int32_t nunits = -1, nbytes = -1;
  EXPECT_EQ(UTF8ToUNICODE(bytes(c.utf8), static_cast<int32_t>(c.utf8.size()), units(out), c.outcap, &nunits, &nbytes),
            c.result);
  EXPECT_EQ(nbytes, 2 * nunits);
  ASSERT_EQ(nunits, static_cast<int32_t>(c.units.size()));
  EXPECT_EQ(out, c.units + Units(8 - c.units.size(), kUnitGuard));
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, Utf8ToUnicode,
    ::testing::Values(Decoding{"four_bytes_keep_low_16_bits", "\xF0\x9F\x98\x80", u"\xF600", 8, 0},
                      Decoding{"six_bytes", "\xFC\x84\x80\x80\x80\x81", u"\x0001", 8, 0},
                      Decoding{"overlong_decoded", "\xC0\x81", u"\x0001", 8, 0},
                      Decoding{"stray_continuation", "\x80" "B", Units(u"\0B", 2), 8, 0},
                      // A lead byte inside a sequence adds its bits under the mask of its position.
                      Decoding{"lead_inside_sequence", "\xC3\x41", u"\x0101", 8, 0},
                      Decoding{"incomplete", "A\xE2\x82", u"A", 8, 1}, Decoding{"full", "ABC", u"AB", 4, 2},
                      Decoding{"odd_outcap", "AB", u"A", 3, 2}, Decoding{"incomplete_before_full", "A\xC3", u"A", 2, 1}));

// Every unit outside the surrogates: UTF-8 as the C library writes it, and back. Surrogates are encoded one by
// one; an odd byte count drops the last byte; a unit that does not fit ends the text.
TEST(UnicodeToUtf8, EncodesUnitByUnitAsIconvDoes) {
  for (uint32_t c = 0; c <= 0xFFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    Units unit(1, static_cast<char16_t>(c)), back(1, 0);
    std::string utf8(4, '\0');
    int32_t nunits = 0, nbytes = 0;
    ASSERT_EQ(UNICODEToUTF8(units(unit), 2, reinterpret_cast<unsigned char *>(utf8.data()), 4, &nunits, &nbytes), 0);
    utf8.resize(static_cast<std::size_t>(nbytes));
    ASSERT_EQ(utf8, iconv_one("UTF-8", "UTF-16LE", {static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)})) << c;
    ASSERT_EQ(UTF8ToUNICODE(bytes(utf8), nbytes, units(back), 2, nullptr, nullptr), 0);
    ASSERT_EQ(back, unit);
  }
  auto encode = [](Units in, int32_t nbytes_in, int32_t outcap, int32_t result, int32_t consumed) {
    std::string out(8, '\x5A');
    int32_t nunits = -1, nbytes = -1;
    EXPECT_EQ(UNICODEToUTF8(units(in), nbytes_in, reinterpret_cast<unsigned char *>(out.data()), outcap, &nunits, &nbytes), result);
    EXPECT_EQ(nunits, consumed);
    return out.substr(0, static_cast<std::size_t>(std::max(nbytes, 0))) + "|" + out.substr(static_cast<std::size_t>(outcap));
  };
  EXPECT_EQ(encode(u"\xD83D\xDE00", 4, 8, 0, 2), "\xED\xA0\xBD\xED\xB8\x80|");
  EXPECT_EQ(encode(u"ABC", 5, 8, 0, 2), "AB|");
  EXPECT_EQ(encode(u"A\x20AC", 4, 3, 2, 1), "A|ZZZZZ");
}

using Pairs = std::vector<std::pair<uint16_t, uint16_t>>;

Pairs read_aux(const corvinel::encoding::CasePair *aux) {
  Pairs pairs;
  for (; aux->from != 0; ++aux) pairs.emplace_back(aux->from, aux->to);
  return pairs;
}

// The code points whose case difference does not fit a byte, and the blocks that have mappings.
TEST(CaseTables, AuxListsAndBlocks) {
  const Pairs upper = {
      {0x017F, 0x0053}, {0x0253, 0x0181}, {0x0254, 0x0186}, {0x0257, 0x018A}, {0x0258, 0x018E}, {0x0259, 0x018F},
      {0x025B, 0x0190}, {0x0260, 0x0193}, {0x0263, 0x0194}, {0x0268, 0x0197}, {0x0269, 0x0196}, {0x026F, 0x019C},
      {0x0272, 0x019D}, {0x0283, 0x01A9}, {0x0288, 0x01AE}, {0x028A, 0x01B1}, {0x028B, 0x01B2}, {0x0292, 0x01B7},
      {0x1F78, 0x1FF8}, {0x1F79, 0x1FF9}};
  EXPECT_EQ(read_aux(corvinel::encoding::skz_upaux), upper);
  const Pairs lower = read_aux(corvinel::encoding::skz_downaux);  // the inverses, without S to long s
  EXPECT_EQ(lower.size(), 19u);
  for (const auto &[from, to] : lower) EXPECT_TRUE(from != 'S' && std::ranges::count(upper, std::pair(to, from)) == 1);
  std::vector<int> blocks;
  for (int b = 0; b < 512; ++b) {
    if (corvinel::encoding::skz_metatable[b] >= 0) blocks.push_back(b);
  }
  EXPECT_EQ(blocks, (std::vector<int>{0, 1, 2, 3, 4, 5, 7, 8, 9, 10, 11, 33, 60, 61, 62, 63, 66, 73, 510}));
}

// Units, their upper and their lower case; mapped in place, only the given count.
TEST(CaseMapping, MapsUnitsInPlace) {
  const Units from = u"aS\u017F\u00FF\u0178\u00DF\u00B5\u0130\u01C5\u0253\u018E\u01DD\u03C2\u0401\u10A0\u1FF9\u2170\u24D0\uFF3A\u4E00\uFFFFq";
  const Units upper = u"ASS\u0178\u0178\u00DF\u00B5\u0130\u01C4\u0181\u018E\u018E\u03A3\u0401\u10A0\u1FF9\u2160\u24B6\uFF3A\u4E00\uFFFFq";
  const Units lower = u"as\u017F\u00FF\u00FF\u00DF\u00B5\u0130\u01C6\u0253\u0258\u01DD\u03C2\u0451\u10D0\u1F79\u2170\u24D0\uFF5A\u4E00\uFFFFq";
  Units up = from, low = from;
  UPCASE(units(up), static_cast<int32_t>(from.size() - 1));
  LOWCASE(units(low), static_cast<int32_t>(from.size() - 1));
  for (std::size_t i = 0; i < from.size(); ++i) {
    EXPECT_EQ(up[i], upper[i]) << std::hex << "U+" << static_cast<int>(from[i]);
    EXPECT_EQ(low[i], lower[i]) << std::hex << "U+" << static_cast<int>(from[i]);
  }
  LOWCASE(nullptr, 0);
  // Upper- and lower-casing stay inverse wherever a pair is one-to-one.
  for (uint32_t c = 0; c <= 0xFFFF; ++c) {
    uint16_t upper_case = static_cast<uint16_t>(c);
    UPCASE(&upper_case, 1);
    if (upper_case == c) continue;
    uint16_t again = upper_case;
    LOWCASE(&again, 1);
    UPCASE(&again, 1);
    EXPECT_EQ(again, upper_case) << "U+" << std::hex << c;
  }
}

struct Budget {
  const char *what;
  int32_t encid;
  Units units;
  uint32_t nbytes, expected;
};

void PrintTo(const Budget &c, std::ostream *os) { *os << c.what; }

class Nlsnumchar : public ::testing::TestWithParam<Budget> {};

TEST_P(Nlsnumchar, CountsUnitsThatFit) {
  Budget c = GetParam();
  EXPECT_EQ(NLSNUMCHAR(units(c.units), static_cast<uint32_t>(c.units.size()), c.encid, c.nbytes), c.expected);
}

const Units kMixed = u"a\u00E9\u20AC";           // 1, 2, 3 bytes in UTF-8
const Units kShifted = u"A\u3042\u3044A";        // 1, 3, 2, 2 bytes when shifted
const Units kDoubleByte = u"A\u3042\u00E9\x7F";  // 1, 2, 2, 1

INSTANTIATE_TEST_SUITE_P(
    Encodings, Nlsnumchar,
    ::testing::Values(Budget{"utf8_stops_before_euro", 20, kMixed, 5, 2}, Budget{"utf8_exact", 20, kMixed, 6, 3},
                      Budget{"utf8_no_bytes", 20, kMixed, 0, 0}, Budget{"utf8_second_id", 21, kMixed, 3, 2},
                      Budget{"utf16_half_bytes", 25, kMixed, 5, 2}, Budget{"utf16_runs_out", 24, kMixed, 100, 3},
                      Budget{"utf32", 27, kMixed, 9, 2}, Budget{"shifted_open", 130, kShifted, 3, 1},
                      Budget{"shifted_in_run", 130, kShifted, 6, 3}, Budget{"shifted_close", 130, kShifted, 8, 4},
                      Budget{"shifted_first_wide", 158, u"\u3042", 2, 0}, Budget{"double_byte", 134, kDoubleByte, 4, 2},
                      Budget{"single_byte_runs_out", 62, kMixed, 9, 3}, Budget{"id_out_of_range", 249, kMixed, 2, 2},
                      Budget{"negative_id", -1, kMixed, 1, 1}));

}  // namespace
