#include <iconv.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/unicode.h"
#include "locale/unicode_tables.h"

namespace {

using Units = std::vector<uint16_t>;
using Bytes = std::vector<unsigned char>;

struct Widening {
  const char *what;
  Bytes in;
  int32_t outcap;
  Units expected;
  int32_t result;
};

void PrintTo(const Widening &c, std::ostream *os) { *os << c.what; }

class Latin1ToUnicode : public ::testing::TestWithParam<Widening> {};

TEST_P(Latin1ToUnicode, WidensThroughCodePage1252) {
  const Widening &c = GetParam();
  Units out(16, 0xBEEF);
  int32_t nout = -1;
  EXPECT_EQ(LATIN1ToUNICODE(c.in.data(), static_cast<int32_t>(c.in.size()), out.data(), c.outcap,
                            &nout),
            c.result);
  ASSERT_EQ(nout, static_cast<int32_t>(c.expected.size()));
  EXPECT_EQ(Units(out.begin(), out.begin() + nout), c.expected);
  EXPECT_EQ(out[nout], 0xBEEF);
}

INSTANTIATE_TEST_SUITE_P(
    Bytes, Latin1ToUnicode,
    ::testing::Values(Widening{"euro", {0x80}, 2, {0x20AC}, 0},
                      Widening{"e_acute", {0xE9}, 2, {0x00E9}, 0},
                      Widening{"undefined_0x81", {0x81, 0x8D, 0x8F, 0x90, 0x9D}, 10,
                               {0x81, 0x8D, 0x8F, 0x90, 0x9D}, 0},
                      Widening{"last_of_c1_row", {0x9F, 0x9E}, 4, {0x0178, 0x017E}, 0},
                      Widening{"ascii_and_nbsp", {'A', 0xA0, 0xFF}, 6, {0x41, 0xA0, 0xFF}, 0},
                      Widening{"odd_outcap_drops", {'A', 'B'}, 3, {0x41}, 2},
                      Widening{"no_room", {'A'}, 0, {}, 2}, Widening{"empty", {}, 4, {}, 0}));

// The table against the C library's own code page 1252, where it has one.
TEST(Latin1ToUnicode, AgreesWithIconvCp1252) {
  iconv_t cd = iconv_open("UTF-16LE", "CP1252");
  ASSERT_NE(cd, reinterpret_cast<iconv_t>(-1));
  for (int b = 0; b < 256; ++b) {
    char in = static_cast<char>(b);
    unsigned char out[4] = {};
    char *in_next = &in;
    char *out_next = reinterpret_cast<char *>(out);
    size_t in_left = 1, out_left = sizeof out;
    const bool defined = iconv(cd, &in_next, &in_left, &out_next, &out_left) != static_cast<size_t>(-1);
    const uint16_t expected = defined ? static_cast<uint16_t>(out[0] | out[1] << 8) : b;
    EXPECT_EQ(corvinel::locale::wlt1unic[b], expected) << "byte " << b;
  }
  iconv_close(cd);
}

struct Decoding {
  const char *what;
  Bytes in;
  int32_t outcap;
  Units expected;
  int32_t result;
};

void PrintTo(const Decoding &c, std::ostream *os) { *os << c.what; }

class Utf8ToUnicode : public ::testing::TestWithParam<Decoding> {};

TEST_P(Utf8ToUnicode, DecodesLeniently) {
  const Decoding &c = GetParam();
  Units out(16, 0xBEEF);
  int32_t nunits = -1, nbytes = -1;
  EXPECT_EQ(UTF8ToUNICODE(c.in.data(), static_cast<int32_t>(c.in.size()), out.data(), c.outcap,
                          &nunits, &nbytes),
            c.result);
  ASSERT_EQ(nunits, static_cast<int32_t>(c.expected.size()));
  EXPECT_EQ(nbytes, 2 * nunits);
  EXPECT_EQ(Units(out.begin(), out.begin() + nunits), c.expected);
  EXPECT_EQ(out[nunits], 0xBEEF);
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, Utf8ToUnicode,
    ::testing::Values(
        Decoding{"two_bytes", {0xC3, 0xA9}, 8, {0x00E9}, 0},
        Decoding{"three_bytes", {'A', 0xE2, 0x82, 0xAC}, 8, {0x41, 0x20AC}, 0},
        Decoding{"four_bytes_keep_low_16_bits", {0xF0, 0x9F, 0x98, 0x80}, 8, {0xF600}, 0},
        Decoding{"six_bytes", {0xFC, 0x84, 0x80, 0x80, 0x80, 0x81}, 8, {0x0001}, 0},
        Decoding{"overlong_decoded", {0xC0, 0x81}, 8, {0x0001}, 0},
        Decoding{"stray_continuation", {0x80, 'B'}, 8, {0x0000, 0x42}, 0},
        // A non-continuation byte inside a sequence adds its bits under the
        // mask of its position instead of being rejected.
        Decoding{"lead_inside_sequence", {0xC3, 0x41}, 8, {0x0101}, 0},
        Decoding{"incomplete_alone", {0xC3}, 8, {}, 1},
        Decoding{"incomplete_after_text", {'A', 0xE2, 0x82}, 8, {0x41}, 1},
        Decoding{"full", {'A', 'B', 'C'}, 4, {0x41, 0x42}, 2},
        Decoding{"odd_outcap", {'A', 'B'}, 3, {0x41}, 2},
        // An incomplete sequence is reported before a full output.
        Decoding{"incomplete_before_full", {'A', 0xC3}, 2, {0x41}, 1},
        Decoding{"empty", {}, 8, {}, 0}));

struct Encoding {
  const char *what;
  Units in;
  int32_t nbytes_in;
  int32_t outcap;
  Bytes expected;
  int32_t units_consumed;
  int32_t result;
};

void PrintTo(const Encoding &c, std::ostream *os) { *os << c.what; }

class UnicodeToUtf8 : public ::testing::TestWithParam<Encoding> {};

TEST_P(UnicodeToUtf8, EncodesUnitByUnit) {
  const Encoding &c = GetParam();
  Bytes out(16, 0x5A);
  int32_t nunits = -1, nbytes = -1;
  EXPECT_EQ(UNICODEToUTF8(c.in.data(), c.nbytes_in, out.data(), c.outcap, &nunits, &nbytes),
            c.result);
  EXPECT_EQ(nunits, c.units_consumed);
  ASSERT_EQ(nbytes, static_cast<int32_t>(c.expected.size()));
  EXPECT_EQ(Bytes(out.begin(), out.begin() + nbytes), c.expected);
  EXPECT_EQ(out[nbytes], 0x5A);
}

INSTANTIATE_TEST_SUITE_P(
    Units, UnicodeToUtf8,
    ::testing::Values(
        Encoding{"one_two_three", {0x41, 0xE9, 0x20AC}, 6, 16,
                 {0x41, 0xC3, 0xA9, 0xE2, 0x82, 0xAC}, 3, 0},
        Encoding{"boundaries", {0x7F, 0x80, 0x7FF, 0x800}, 8, 16,
                 {0x7F, 0xC2, 0x80, 0xDF, 0xBF, 0xE0, 0xA0, 0x80}, 4, 0},
        Encoding{"surrogates_one_by_one", {0xD83D, 0xDE00}, 4, 16,
                 {0xED, 0xA0, 0xBD, 0xED, 0xB8, 0x80}, 2, 0},
        Encoding{"odd_byte_count", {0x41, 0x42, 0x43}, 5, 16, {0x41, 0x42}, 2, 0},
        Encoding{"next_does_not_fit", {0x41, 0x20AC}, 4, 3, {0x41}, 1, 2},
        Encoding{"exact_fit", {0x41, 0x20AC}, 4, 4, {0x41, 0xE2, 0x82, 0xAC}, 2, 0},
        Encoding{"no_room", {0x41}, 2, 0, {}, 0, 2}));

// Every unit outside the surrogates survives a round trip, and its UTF-8
// agrees with the C library's.
TEST(UnicodeToUtf8, RoundTripsAndAgreesWithIconv) {
  iconv_t cd = iconv_open("UTF-8", "UTF-16LE");
  ASSERT_NE(cd, reinterpret_cast<iconv_t>(-1));
  for (uint32_t c = 0; c <= 0xFFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    const uint16_t unit = static_cast<uint16_t>(c);
    unsigned char utf8[4];
    int32_t nunits = 0, nbytes = 0;
    ASSERT_EQ(UNICODEToUTF8(&unit, 2, utf8, 4, &nunits, &nbytes), 0);
    char reference[4];
    char in[2] = {static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
    char *in_next = in, *out_next = reference;
    size_t in_left = 2, out_left = 4;
    ASSERT_NE(iconv(cd, &in_next, &in_left, &out_next, &out_left), static_cast<size_t>(-1));
    ASSERT_EQ(std::string(reinterpret_cast<char *>(utf8), static_cast<size_t>(nbytes)),
              std::string(reference, out_next))
        << "unit " << c;
    uint16_t back = 0;
    ASSERT_EQ(UTF8ToUNICODE(utf8, nbytes, &back, 2, nullptr, nullptr), 0);
    ASSERT_EQ(back, unit);
  }
  iconv_close(cd);
}

}  // namespace
