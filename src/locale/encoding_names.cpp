// EncnameToID: encoding names to encoding IDs.
#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "corvinel/names.h"
#include "locale/name_hash_table.h"
#include "locale/name_tables.h"

namespace corvinel::locale {
namespace {

struct EncodingName {
  const char *name;
  uint32_t id;
};

// Every name the host may use, grouped by encoding ID: most encodings have a
// long name and a four-character short one.  THAI and BIG5 stand twice, as
// their long and short names coincide.
constexpr std::array<EncodingName, kEncodingNameEntries> kEncodingNames = {{
    {"UTF-8", 20}, {"UTF8", 20},
    {"U16B", 24}, {"UTF-16BE", 24},
    {"U16L", 25}, {"UTF-16LE", 25},
    {"U32B", 26}, {"UTF-32BE", 26},
    {"U32L", 27}, {"UTF-32LE", 27},
    {"ANSI", 28}, {"US-ASCII", 28},
    {"LAT1", 29}, {"LATIN1", 29},
    {"LAT2", 30}, {"LATIN2", 30},
    {"LAT3", 31}, {"LATIN3", 31},
    {"LAT4", 32}, {"LATIN4", 32},
    {"CYRILLIC", 33}, {"CYRL", 33},
    {"ARAB", 34}, {"ARABIC", 34},
    {"GREEK", 35}, {"GREK", 35},
    {"HEBR", 36}, {"HEBREW", 36},
    {"LAT5", 37}, {"LATIN5", 37},
    {"LAT6", 38}, {"LATIN6", 38},
    {"THAI", 39}, {"THAI", 39},
    {"LAT9", 40}, {"LATIN9", 40},
    {"P437", 41}, {"PCOEM437", 41},
    {"P850", 42}, {"PCOEM850", 42},
    {"P852", 43}, {"PCOEM852", 43},
    {"P857", 44}, {"PCOEM857", 44},
    {"P858", 45}, {"PCOEM858", 45},
    {"P862", 46}, {"PCOEM862", 46},
    {"P864", 47}, {"PCOEM864", 47},
    {"P865", 48}, {"PCOEM865", 48},
    {"P866", 49}, {"PCOEM866", 49},
    {"P869", 50}, {"PCOEM869", 50},
    {"P874", 51}, {"PCOEM874", 51},
    {"P921", 52}, {"PCOEM921", 52},
    {"P922", 53}, {"PCOEM922", 53},
    {"PCOEM1129", 54}, {"PVIE", 54},
    {"MSDOS720", 55}, {"P720", 55},
    {"MSDOS737", 56}, {"P737", 56},
    {"MSDOS775", 57}, {"P775", 57},
    {"P860", 58}, {"PCOEM860", 58},
    {"P863", 59}, {"PCOEM863", 59},
    {"WLATIN2", 60}, {"WLT2", 60},
    {"WCYR", 61}, {"WCYRILLIC", 61},
    {"WLATIN1", 62}, {"WLT1", 62},
    {"WGREEK", 63}, {"WGRK", 63},
    {"WTUR", 64}, {"WTURKISH", 64},
    {"WHEB", 65}, {"WHEBREW", 65},
    {"WARA", 66}, {"WARABIC", 66},
    {"WBAL", 67}, {"WBALTIC", 67},
    {"WVIE", 68}, {"WVIETNAMESE", 68},
    {"AROM", 69}, {"AROMAN", 69},
    {"AARA", 70}, {"AARABIC", 70},
    {"AHEB", 71}, {"AHEBREW", 71},
    {"AGREEK", 72}, {"AGRK", 72},
    {"ATHA", 73}, {"ATHAI", 73},
    {"AEASTEURO", 74}, {"ALT2", 74},
    {"ATUR", 75}, {"ATURKISH", 75},
    {"AUKR", 76}, {"AUKRAINIAN", 76},
    {"ETPC", 77},
    {"E037", 78}, {"EBCDIC037", 78},
    {"E273", 79}, {"EBCDIC273", 79},
    {"E277", 80}, {"EBCDIC277", 80},
    {"E278", 81}, {"EBCDIC278", 81},
    {"E280", 82}, {"EBCDIC280", 82},
    {"E284", 83}, {"EBCDIC284", 83},
    {"E285", 84}, {"EBCDIC285", 84},
    {"E297", 85}, {"EBCDIC297", 85},
    {"E420", 86}, {"EBCDIC420", 86},
    {"E424", 87}, {"EBCDIC424", 87},
    {"E500", 88}, {"EBCDIC500", 88},
    {"E838", 89}, {"EBCDIC838", 89},
    {"E870", 90}, {"EBCDIC870", 90},
    {"E875", 91}, {"EBCDIC875", 91},
    {"E880", 92}, {"EBCDIC880", 92},
    {"E924", 93}, {"EBCDIC924", 93},
    {"KZ1048", 94}, {"KZ48", 94},
    {"EBCDIC1025", 95}, {"ECYR", 95},
    {"EBCDIC1026", 96}, {"ETUR", 96},
    {"EBCDIC1047", 97}, {"ELAT", 97},
    {"EBAL", 98}, {"EBCDIC1112", 98},
    {"EBCDIC1122", 99}, {"EEST", 99},
    {"EBCDIC1130", 100}, {"EVIE", 100},
    {"EOAR", 101}, {"OPEN_ED-420", 101},
    {"EOIW", 102}, {"OPEN_ED-424", 102},
    {"EOTH", 103}, {"OPEN_ED-838", 103},
    {"EOL2", 104}, {"OPEN_ED-870", 104},
    {"EOEL", 105}, {"OPEN_ED-875", 105},
    {"EOLT", 106}, {"OPEN_ED-924", 106},
    {"EO66", 107}, {"OPEN_ED-1166", 107},
    {"EOCY", 108}, {"OPEN_ED-1025", 108},
    {"EOTR", 109}, {"OPEN_ED-1026", 109},
    {"EOL1", 110}, {"OPEN_ED-1047", 110},
    {"EOBL", 111}, {"OPEN_ED-1112", 111},
    {"EOET", 112}, {"OPEN_ED-1122", 112},
    {"EOVI", 113}, {"OPEN_ED-1130", 113},
    {"ROM8", 114}, {"ROMAN8", 114},
    {"IBM-937", 117}, {"YIBM", 117},
    {"MS-950", 118}, {"YWIN", 118},
    {"EUC-TW", 119}, {"YEUC", 119},
    {"HP15-TW", 120}, {"YHPX", 120},
    {"MACOS-2", 121}, {"YMAC", 121},
    {"IBM-950", 122}, {"YPCE", 122},
    {"BIG5", 123}, {"BIG5", 123},
    {"IBM-935", 124}, {"ZIBM", 124},
    {"EUC-CN", 125}, {"ZEUC", 125},
    {"MS-936", 126}, {"ZWIN", 126},
    {"MACOS-25", 127}, {"ZMAC", 127},
    {"IBM-1381", 128}, {"ZPCE", 128},
    {"IBM-939", 129}, {"JIBM", 129},
    {"IBM-930", 130}, {"J930", 130},
    {"FUJITSU-JP", 131}, {"JFUJ", 131},
    {"HITACHI-JP", 132}, {"JHIT", 132},
    {"DEC-JP", 133}, {"JVMS", 133},
    {"EUC-JP", 134}, {"JEUC", 134},
    {"JMAC", 135}, {"MACOS-1", 135},
    {"J932", 136}, {"MS-932", 136},
    {"IBM-942", 137}, {"J942", 137},
    {"SHIFT-JIS", 138}, {"SJIS", 138},
    {"IBM-933", 139}, {"KIBM", 139},
    {"EUC-KR", 140}, {"KEUC", 140},
    {"KWIN", 141}, {"MS-949", 141},
    {"IBM-949", 142}, {"KPCE", 142},
    {"KMAC", 143}, {"MACOS-3", 143},
    {"FUJITSU-TW", 144}, {"YFUJ", 144},
    {"FUJITSU-CN", 145}, {"ZFUJ", 145},
    {"FUJITSU-KO", 146}, {"KFUJ", 146},
    {"HITACHI-TW", 147}, {"YHIT", 147},
    {"HITACHI-CN", 148}, {"ZHIT", 148},
    {"HITACHI-KO", 149}, {"KHIT", 149},
    {"HITORB-TW", 150}, {"YHTS", 150},
    {"HITORB-CN", 151}, {"ZHTS", 151},
    {"HITORB-JP", 152}, {"JHTS", 152},
    {"HITORB-KO", 153}, {"KHTS", 153},
    {"HITORB-KANA", 154}, {"JHTK", 154},
    {"JNEC", 155}, {"NEC-JP", 155},
    {"JNEK", 156}, {"NEC-KANA", 156},
    {"JSPC", 157}, {"PCJIS", 157},
    {"JIS-7", 158}, {"JIS7", 158},
    {"DEC-TW", 159}, {"YVMS", 159},
    {"DEC-CN", 160}, {"ZVMS", 160},
    {"AICE", 163}, {"AICELAND", 163},
    {"E275", 164}, {"EBCDIC275", 164},
    {"FUJITSU-KANA", 165}, {"JFUK", 165},
    {"HITACHI-KANA", 166}, {"JHIK", 166},
    {"ISO2022JP", 167}, {"JISO", 167},
    {"ISO2022KR", 168}, {"KISO", 168},
    {"ISO2022CNGB", 169}, {"ZISO", 169},
    {"ORB1047", 170}, {"SELT", 170},
    {"USER", 171},
    {"ISO2022CNCNS", 172}, {"ZIST", 172},
    {"EOUS", 173}, {"OPEN_ED-037", 173},
    {"EODE", 174}, {"OPEN_ED-273", 174},
    {"EOBR", 175}, {"OPEN_ED-275", 175},
    {"EODA", 176}, {"OPEN_ED-277", 176},
    {"EOFI", 177}, {"OPEN_ED-278", 177},
    {"EOIT", 178}, {"OPEN_ED-280", 178},
    {"EOES", 179}, {"OPEN_ED-284", 179},
    {"EOUK", 180}, {"OPEN_ED-285", 180},
    {"EOFR", 181}, {"OPEN_ED-297", 181},
    {"EOSW", 182}, {"OPEN_ED-500", 182},
    {"E140", 183}, {"EBCDIC1140", 183},
    {"E141", 184}, {"EBCDIC1141", 184},
    {"E142", 185}, {"EBCDIC1142", 185},
    {"E143", 186}, {"EBCDIC1143", 186},
    {"E144", 187}, {"EBCDIC1144", 187},
    {"E145", 188}, {"EBCDIC1145", 188},
    {"E146", 189}, {"EBCDIC1146", 189},
    {"E147", 190}, {"EBCDIC1147", 190},
    {"E148", 191}, {"EBCDIC1148", 191},
    {"EO40", 192}, {"OPEN_ED-1140", 192},
    {"EO41", 193}, {"OPEN_ED-1141", 193},
    {"EO42", 194}, {"OPEN_ED-1142", 194},
    {"EO43", 195}, {"OPEN_ED-1143", 195},
    {"EO44", 196}, {"OPEN_ED-1144", 196},
    {"EO45", 197}, {"OPEN_ED-1145", 197},
    {"EO46", 198}, {"OPEN_ED-1146", 198},
    {"EO47", 199}, {"OPEN_ED-1147", 199},
    {"EO48", 200}, {"OPEN_ED-1148", 200},
    {"E425", 201}, {"EBCDIC425", 201},
    {"EOA2", 202}, {"OPEN_ED-425", 202},
    {"GB18030", 205}, {"GBKE", 205},
    {"939E", 206}, {"IBM-939E", 206},
    {"E097", 207}, {"EBCDIC1097", 207},
    {"EOFA", 208}, {"OPEN_ED-1097", 208},
    {"E137", 209}, {"EBCDIC1137", 209},
    {"EOIN", 210}, {"OPEN_ED-1137", 210},
    {"E149", 211}, {"EBCDIC1149", 211},
    {"EOIS", 212}, {"OPEN_ED-1149", 212},
    {"E153", 213}, {"EBCDIC1153", 213},
    {"EO53", 214}, {"OPEN_ED-1153", 214},
    {"E154", 215}, {"EBCDIC1154", 215},
    {"EO54", 216}, {"OPEN_ED-1154", 216},
    {"E155", 217}, {"EBCDIC1155", 217},
    {"EO55", 218}, {"OPEN_ED-1155", 218},
    {"E156", 219}, {"EBCDIC1156", 219},
    {"EO56", 220}, {"OPEN_ED-1156", 220},
    {"E157", 221}, {"EBCDIC1157", 221},
    {"EO57", 222}, {"OPEN_ED-1157", 222},
    {"E158", 223}, {"EBCDIC1158", 223},
    {"EO58", 224}, {"OPEN_ED-1158", 224},
    {"E905", 225}, {"EBCDIC905", 225},
    {"EOL3", 226}, {"OPEN_ED-905", 226},
    {"LAT8", 227}, {"LATIN8", 227},
    {"P806", 228}, {"PCISCII806", 228},
    {"P098", 229}, {"PC1098", 229},
    {"E160", 230}, {"EBCDIC1160", 230},
    {"EO60", 231}, {"OPEN_ED-1160", 231},
    {"E164", 232}, {"EBCDIC1164", 232},
    {"EO64", 233}, {"OPEN_ED-1164", 233},
    {"OE30", 234}, {"OPEN_ED-930", 234},
    {"OE33", 235}, {"OPEN_ED-933", 235},
    {"OE35", 236}, {"OPEN_ED-935", 236},
    {"OE37", 237}, {"OPEN_ED-937", 237},
    {"OE39", 238}, {"OPEN_ED-939", 238},
    {"OE9E", 239}, {"OPEN_ED-939E", 239},
    {"930E", 240}, {"IBM-930E", 240},
    {"OE3E", 241}, {"OPEN_ED-930E", 241},
    {"LAT7", 242}, {"LATIN7", 242},
    {"LA10", 243}, {"LATIN10", 243},
    {"TERALATIN", 244}, {"TLAT", 244},
    {"ACRO", 245}, {"ACROATIAN", 245},
    {"ACYR", 246}, {"ACYRILLIC", 246},
    {"ARMA", 247}, {"AROMANIA", 247},
    {"SHIFT-JIS04", 248}, {"SJS4", 248},
}};

constexpr uint32_t encoding_name_hash(const unsigned char *c, int32_t length) {
  return c[0] + 3u * c[1] + 5u * c[length - 3] + 7u * c[length - 2] + 9u * c[length - 1];
}

constexpr std::array<encname_entry, kEncodingNameEntries> with_lengths(
    const std::array<EncodingName, kEncodingNameEntries> &names) {
  std::array<encname_entry, kEncodingNameEntries> entries{};
  for (std::size_t i = 0; i < names.size(); ++i) {
    entries[i] = {names[i].name, names[i].id,
                  static_cast<int32_t>(std::string_view(names[i].name).size())};
  }
  return entries;
}

constexpr std::size_t encoding_bucket(const encname_entry &entry) {
  unsigned char c[16] = {};
  for (int32_t i = 0; i < entry.length; ++i) c[i] = static_cast<unsigned char>(entry.name[i]);
  return encoding_name_hash(c, entry.length) % kEncodingNameBuckets;
}

constexpr auto kGrouped =
    group_by_bucket<kEncodingNameBuckets>(with_lengths(kEncodingNames), encoding_bucket);
static_assert(kGrouped.largest_bucket == 9);

}  // namespace

constexpr std::array<encname_bucket, kEncodingNameBuckets> etable =
    bucket_array<encname_bucket>(kGrouped);

}  // namespace corvinel::locale

extern "C" int32_t EncnameToID(char *name, int32_t length, uint32_t *id) {
  using namespace corvinel::locale;
  if (id == nullptr) return CORVINEL_ENCNAME_UNKNOWN;
  *id = 0;
  if (length < 4 || name == nullptr) return CORVINEL_ENCNAME_UNKNOWN;
  upcase_ascii_letters(name, length);
  const auto *bytes = reinterpret_cast<const unsigned char *>(name);
  const encname_bucket &bucket = etable[encoding_name_hash(bytes, length) % kEncodingNameBuckets];
  for (int32_t i = 0; i < bucket.count; ++i) {
    const encname_entry &entry = bucket.entries[i];
    if (entry.length == length && std::memcmp(entry.name, name, static_cast<size_t>(length)) == 0) {
      *id = entry.id;
      return 0;
    }
  }
  return CORVINEL_ENCNAME_UNKNOWN;
}
