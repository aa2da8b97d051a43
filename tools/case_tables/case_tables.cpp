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
// Usage: case_tables_generator OUTPUT
#include <unicode/uchar.h>
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
  out << "}  // namespace corvinel::encoding\n";

  std::ofstream file(argv[1], std::ios::binary);
  file << out.str();
  return file.good() ? 0 : 1;
}
