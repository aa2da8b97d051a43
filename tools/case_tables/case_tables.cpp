// Writes the case tables behind UPCASE and LOWCASE (src/encoding/data/
// case_tables.cpp) from ICU's character properties.
//
// Scheme: one signed byte per code point of 19 blocks of 128 code points,
// the difference to the mapped code point; differences outside -127..127
// are stored as -128 and listed in an aux list of (from, to) pairs.  The
// block index table skz_metatable is shared by both directions.
//
// Repertoire.  The module's case pairs predate today's Unicode: they are the
// simple case mappings of the characters that Unicode 1.1 assigned.  So the
// tool takes every code point of the 19 blocks whose age (u_charAge) is 1.1,
// maps it with ICU's simple mappings (u_toupper, u_tolower) when the target
// is of the same age, and then applies the early pairings that later
// versions of Unicode changed (kEarlyPairings below):
//   - no mapping for MICRO SIGN, for the Turkish dotted and dotless i, for
//     GREEK PROSGEGRAMMENI, for OHM, KELVIN and ANGSTROM SIGN, and for the
//     African D, barred O and YR pairs (U+0189/U+0256, U+019F/U+0275,
//     U+01A6/U+0280), which gained their mappings after 1.1;
//   - U+018E LATIN CAPITAL LETTER REVERSED E pairs with U+0258 (the pairing
//     with U+01DD came later; U+01DD keeps its upper-case mapping);
//   - the Georgian capitals U+10A0-U+10C5 pair with U+10D0-U+10F5.
// With these, the escaped differences come out as the 20 upper-casing pairs
// (U+017F and the African/IPA letters, U+1F78 and U+1F79) and their 19
// inverses, which the tests check.  ICU 72 (Unicode 15.0) is what Debian 12
// installs; a newer ICU gives the same tables as long as the simple case
// pairs of these old characters stay as they are.
//
// Greek capitals.  Greek drops its accents in capitals (ΜΆΙΟΣ is written
// ΜΑΪΟΣ).  For every letter of the Greek and Greek Extended blocks whose
// canonical decomposition is a Greek letter and diacritics, the tool lists
// the simple upper case of that letter (Ϊ or Ϋ where the diacritics hold a
// dialytika) and what the letter carried: an accent (any diacritic but the
// dialytika and the iota subscript), a dialytika, and whether it is a vowel.
//
// Usage: case_tables_generator OUTPUT
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/uscript.h>
#include <unicode/uversion.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr std::array<int, 19> kBlocks = {0,  1,  2,  3,  4,  5,  7,  8,  9,  10,
                                         11, 33, 60, 61, 62, 63, 66, 73, 510};
constexpr int kMetaEntries = 512;
constexpr int kEscape = -128;

enum class Direction { kUpper, kLower };

bool assigned_by_unicode_1_1(UChar32 c) {
  if (u_charType(c) == U_UNASSIGNED) return false;
  UVersionInfo age;
  u_charAge(c, age);
  return age[0] == 1;  // 1.1: the first version in the age data
}

// The early pairings that later versions of Unicode changed: a target of -1
// removes the mapping.
struct EarlyPairing {
  UChar32 from;
  UChar32 to;
  Direction direction;
};

std::vector<EarlyPairing> early_pairings() {
  std::vector<EarlyPairing> pairings = {
      {0x00B5, -1, Direction::kUpper},      // MICRO SIGN
      {0x0131, -1, Direction::kUpper},      // dotless i
      {0x0130, -1, Direction::kLower},      // I with dot above
      {0x1FBE, -1, Direction::kUpper},      // GREEK PROSGEGRAMMENI
      {0x2126, -1, Direction::kLower},      // OHM SIGN
      {0x212A, -1, Direction::kLower},      // KELVIN SIGN
      {0x212B, -1, Direction::kLower},      // ANGSTROM SIGN
      {0x0256, -1, Direction::kUpper},      // d with tail
      {0x0189, -1, Direction::kLower},      // African D
      {0x0275, -1, Direction::kUpper},      // barred o
      {0x019F, -1, Direction::kLower},      // O with middle tilde
      {0x0280, -1, Direction::kUpper},      // small capital R
      {0x01A6, -1, Direction::kLower},      // YR
      {0x018E, 0x0258, Direction::kLower},  // reversed E
      {0x0258, 0x018E, Direction::kUpper},
  };
  for (UChar32 capital = 0x10A0; capital <= 0x10C5; ++capital) {  // Georgian
    pairings.push_back({capital, capital + 0x30, Direction::kLower});
    pairings.push_back({capital + 0x30, capital, Direction::kUpper});
  }
  return pairings;
}

// The mapping of every code point of the covered blocks that has one.
std::map<UChar32, UChar32> case_mapping(Direction direction) {
  std::map<UChar32, UChar32> mapping;
  for (int block : kBlocks) {
    for (UChar32 c = block * 128; c < (block + 1) * 128; ++c) {
      if (!assigned_by_unicode_1_1(c)) continue;
      const UChar32 to = direction == Direction::kUpper ? u_toupper(c) : u_tolower(c);
      if (to != c && assigned_by_unicode_1_1(to)) mapping[c] = to;
    }
  }
  for (const EarlyPairing &pairing : early_pairings()) {
    if (pairing.direction != direction) continue;
    if (pairing.to < 0) {
      if (mapping.erase(pairing.from) != 1) {
        std::cerr << "early pairing removes a mapping that is not there: " << std::hex
                  << pairing.from << "\n";
        std::exit(1);
      }
    } else {
      mapping[pairing.from] = pairing.to;
    }
  }
  return mapping;
}

struct Tables {
  std::array<int, kMetaEntries> meta{};
  std::vector<int> shift;  // kBlocks.size() * 128 differences
  std::vector<std::pair<UChar32, UChar32>> aux;
};

Tables build(const std::map<UChar32, UChar32> &mapping) {
  Tables tables;
  tables.meta.fill(-1);
  tables.shift.assign(kBlocks.size() * 128, 0);
  for (std::size_t k = 0; k < kBlocks.size(); ++k) {
    tables.meta[kBlocks[k]] = static_cast<int>(k * 128);
  }
  for (const auto &[from, to] : mapping) {
    const int offset = tables.meta[from >> 7] + (from & 127);
    const int difference = to - from;
    if (difference > 127 || difference < -127) {
      tables.shift[offset] = kEscape;
      tables.aux.emplace_back(from, to);
    } else {
      tables.shift[offset] = difference;
    }
  }
  return tables;
}

std::string hex4(UChar32 c) {
  char text[8];
  std::snprintf(text, sizeof text, "0x%04X", static_cast<unsigned>(c));
  return text;
}

void write_numbers(std::ostream &out, const std::vector<int> &values, int per_line) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    out << (i % per_line == 0 ? "    " : " ") << values[i] << ",";
    if (i % per_line == static_cast<std::size_t>(per_line - 1) || i + 1 == values.size())
      out << "\n";
  }
}

void write_shift(std::ostream &out, const char *name, const Tables &tables) {
  out << "const int8_t " << name << "[kCaseBlocks * 128] = {\n";
  for (std::size_t k = 0; k < kBlocks.size(); ++k) {
    out << "    // block " << kBlocks[k] << ": U+" << hex4(kBlocks[k] * 128).substr(2) << "-U+"
        << hex4(kBlocks[k] * 128 + 127).substr(2) << "\n";
    write_numbers(out, std::vector<int>(tables.shift.begin() + k * 128,
                                        tables.shift.begin() + (k + 1) * 128),
                  16);
  }
  out << "};\n\n";
}

void write_aux(std::ostream &out, const char *name, const Tables &tables) {
  out << "const CasePair " << name << "[] = {\n";
  for (const auto &[from, to] : tables.aux) out << "    {" << hex4(from) << ", " << hex4(to) << "},\n";
  out << "    {0, 0},\n};\n\n";
}

// Flags of a Greek capital, as unicode_tables.h names them.
constexpr int kGreekVowel = 1;
constexpr int kGreekAccent = 2;
constexpr int kGreekDialytika = 4;

struct GreekCapital {
  UChar32 from, capital;
  int flags;
};

std::vector<GreekCapital> greek_capitals() {
  UErrorCode status = U_ZERO_ERROR;
  const UNormalizer2 *nfd = unorm2_getNFDInstance(&status);
  if (U_FAILURE(status)) {
    std::cerr << "no NFD normalizer: " << u_errorName(status) << "\n";
    std::exit(1);
  }
  std::vector<GreekCapital> capitals;
  for (const auto &[first, last] : {std::pair{0x0370, 0x03FF}, std::pair{0x1F00, 0x1FFF}}) {
    for (UChar32 c = first; c <= last; ++c) {
      UChar source[2] = {static_cast<UChar>(c)};
      UChar parts[8];
      status = U_ZERO_ERROR;
      const int32_t n = unorm2_normalize(nfd, source, 1, parts, 8, &status);
      if (U_FAILURE(status) || n < 2) continue;
      const UChar32 base = parts[0];
      if (uscript_getScript(base, &status) != USCRIPT_GREEK || !u_isalpha(base)) continue;
      const UChar32 upper = u_toupper(base);
      int flags = 0;
      for (int32_t i = 1; i < n; ++i) {
        if (parts[i] == 0x0308) {
          flags |= kGreekDialytika;
        } else if (parts[i] != 0x0345) {
          flags |= kGreekAccent;
        }
      }
      if (upper == 0x0391 || upper == 0x0395 || upper == 0x0397 || upper == 0x0399 ||
          upper == 0x039F || upper == 0x03A5 || upper == 0x03A9) {
        flags |= kGreekVowel;
      }
      UChar32 capital = upper;
      if ((flags & kGreekDialytika) != 0 && upper == 0x0399) capital = 0x03AA;
      if ((flags & kGreekDialytika) != 0 && upper == 0x03A5) capital = 0x03AB;
      capitals.push_back({c, capital, flags});
    }
  }
  return capitals;
}

void write_greek(std::ostream &out, const std::vector<GreekCapital> &capitals) {
  out << "// Greek letters with diacritics, by code point: the capital without accents\n"
         "// (a dialytika kept) and what the letter carries.\n"
         "const GreekCapital skz_greek_capitals[] = {\n";
  for (const GreekCapital &g : capitals) {
    out << "    {" << hex4(g.from) << ", " << hex4(g.capital) << ", " << g.flags << "},\n";
  }
  out << "};\n\n"
      << "const int32_t skz_greek_capital_count = " << capitals.size() << ";\n\n";
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 2) {
    std::cerr << "usage: case_tables_generator OUTPUT\n";
    return 2;
  }
  const Tables upper = build(case_mapping(Direction::kUpper));
  const Tables lower = build(case_mapping(Direction::kLower));
  for (std::size_t k = 0; k < kBlocks.size(); ++k) {
    bool any = false;
    for (int i = 0; i < 128; ++i)
      any = any || upper.shift[k * 128 + i] != 0 || lower.shift[k * 128 + i] != 0;
    if (!any) {
      std::cerr << "block " << kBlocks[k] << " has no case mapping\n";
      return 1;
    }
  }

  std::ostringstream out;
  out << "// Case tables of UPCASE and LOWCASE.\n"
         "// Generated by tools/case_tables from ICU's character properties (simple case\n"
         "// mappings of the characters assigned by Unicode 1.1, with the early pairings\n"
         "// the tool documents).  Do not edit: run the regen-case-tables target.\n"
         "#include <cstdint>\n\n"
         "#include \"encoding/unicode_tables.h\"\n\n"
         "namespace corvinel::encoding {\n\n";
  out << "// Offset of each 128-code-point block in the shift tables; -1: no mappings.\n"
         "const int16_t skz_metatable[512] = {\n";
  write_numbers(out, std::vector<int>(upper.meta.begin(), upper.meta.end()), 16);
  out << "};\n\n";
  write_shift(out, "skz_upshift", upper);
  write_shift(out, "skz_downshift", lower);
  write_aux(out, "skz_upaux", upper);
  write_aux(out, "skz_downaux", lower);
  write_greek(out, greek_capitals());
  out << "}  // namespace corvinel::encoding\n";

  std::ofstream file(argv[1], std::ios::binary);
  file << out.str();
  return file.good() ? 0 : 1;
}
