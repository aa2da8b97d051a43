// LocnameToID: five-character locale codes to locale numbers.
#include <array>
#include <cstdint>
#include <cstring>

#include "corvinel/names.h"
#include "locale/name_hash_table.h"
#include "locale/name_tables.h"

namespace corvinel::locale {
namespace {

// Every code the host may name, with the number of its locale record.  Some
// records answer to two or three codes (HE_IL and IW_IL, the Serbian ones).
constexpr std::array<locname_entry, kLocaleNameEntries> kLocaleCodes = {{
    {"AF_ZA", 1}, {"SQ_AL", 2}, {"AR_DZ", 3}, {"AR_BH", 4}, {"AR_EG", 5}, {"AR_IN", 6},
    {"AR_IQ", 7}, {"AR_JO", 8}, {"AR_KW", 9}, {"AR_LB", 10}, {"AR_LY", 11}, {"AR_MA", 12},
    {"AR_OM", 13}, {"AR_QA", 14}, {"AR_SA", 15}, {"AR_SD", 16}, {"AR_SY", 17}, {"AR_TN", 18},
    {"AR_AE", 19}, {"AR_YE", 20}, {"BN_IN", 21}, {"BS_BA", 22}, {"BG_BG", 23}, {"BE_BY", 24},
    {"CA_ES", 25}, {"ZH_CN", 26}, {"ZH_HK", 27}, {"ZH_MO", 28}, {"ZH_SG", 29}, {"ZH_TW", 30},
    {"KW_GB", 31}, {"HR_BA", 32}, {"HR_HR", 33}, {"CS_CZ", 34}, {"DA_DK", 35}, {"NL_BE", 36},
    {"NL_NL", 37}, {"EN_AU", 38}, {"EN_BE", 39}, {"EN_BW", 40}, {"EN_CA", 41}, {"EN_CB", 42},
    {"EN_HK", 43}, {"EN_IN", 44}, {"EN_IE", 45}, {"EN_JM", 46}, {"EN_MT", 47}, {"EN_NZ", 48},
    {"EN_PH", 49}, {"EN_SG", 50}, {"EN_ZA", 51}, {"EN_GB", 52}, {"EN_US", 53}, {"EN_ZW", 54},
    {"ET_EE", 55}, {"FO_FO", 56}, {"FI_FI", 57}, {"FR_BE", 58}, {"FR_CA", 59}, {"FR_FR", 60},
    {"FR_LU", 61}, {"FR_CH", 62}, {"DE_AT", 63}, {"DE_DE", 64}, {"DE_LI", 65}, {"DE_LU", 66},
    {"DE_CH", 67}, {"EL_CY", 68}, {"EL_GR", 69}, {"KL_GL", 70}, {"HE_IL", 71}, {"IW_IL", 71},
    {"HI_IN", 72}, {"HU_HU", 73}, {"IS_IS", 74}, {"ID_ID", 75}, {"GA_IE", 76}, {"IT_IT", 77},
    {"IT_CH", 78}, {"JA_JP", 79}, {"KO_KR", 80}, {"LV_LV", 81}, {"LT_LT", 82}, {"MK_MK", 83},
    {"MS_MY", 84}, {"MT_MT", 85}, {"EU_ES", 86}, {"MR_IN", 87}, {"NB_NO", 88}, {"NN_NO", 89},
    {"NO_NO", 90}, {"FA_IN", 91}, {"FA_IR", 92}, {"PL_PL", 93}, {"PT_BR", 94}, {"PT_PT", 95},
    {"RO_RO", 96}, {"RU_RU", 97}, {"RU_UA", 98}, {"SR_BA", 99}, {"SR_ME", 100}, {"SR_CS", 101},
    {"SR_RS", 101}, {"KK_KZ", 102}, {"SH_BA", 103}, {"SH_ME", 104}, {"SH_CS", 105}, {"SH_RS", 105},
    {"SH_YU", 105}, {"SK_SK", 106}, {"SL_SI", 107}, {"ES_AR", 108}, {"ES_BO", 109}, {"ES_CL", 110},
    {"ES_CO", 111}, {"ES_CR", 112}, {"ES_DO", 113}, {"ES_EC", 114}, {"ES_SV", 115}, {"ES_GT", 116},
    {"ES_HN", 117}, {"ES_MX", 118}, {"ES_NI", 119}, {"ES_PA", 120}, {"ES_PY", 121}, {"ES_PE", 122},
    {"ES_PR", 123}, {"ES_ES", 124}, {"ES_US", 125}, {"ES_UY", 126}, {"ES_VE", 127}, {"SV_SE", 128},
    {"TA_IN", 129}, {"TE_IN", 130}, {"TH_TH", 131}, {"TR_TR", 132}, {"UK_UA", 133}, {"VI_VN", 134},
    {"PL_XX", 135}, {"ZH_XX", 136},
}};

// The separator (third byte) takes no part, so EN_US and EN-US share a
// bucket; only the exact comparison tells them apart.
constexpr uint32_t locale_code_hash(const unsigned char *c) {
  uint32_t h = (c[0] + 12573u) * 33u + c[1];
  h = h * 33u + c[3];
  h = h * 33u + c[4];
  return h;
}

constexpr std::size_t locale_bucket(const locname_entry &entry) {
  unsigned char c[5] = {};
  for (int i = 0; i < 5; ++i) c[i] = static_cast<unsigned char>(entry.name[i]);
  return locale_code_hash(c) % kLocaleNameBuckets;
}

constexpr auto kGrouped = group_by_bucket<kLocaleNameBuckets>(kLocaleCodes, locale_bucket);
static_assert(kGrouped.largest_bucket == 5);

}  // namespace

constexpr std::array<locname_bucket, kLocaleNameBuckets> table =
    bucket_array<locname_bucket>(kGrouped);

}  // namespace corvinel::locale

extern "C" int32_t LocnameToID(char *name, int32_t length, uint32_t *id) {
  using namespace corvinel::locale;
  if (id == nullptr) return CORVINEL_LOCNAME_UNKNOWN;
  *id = 0;
  if (length != 5 || name == nullptr) return CORVINEL_LOCNAME_UNKNOWN;
  upcase_ascii_letters(name, 5);
  const auto *code = reinterpret_cast<const unsigned char *>(name);
  const locname_bucket &bucket = table[locale_code_hash(code) % kLocaleNameBuckets];
  for (int32_t i = 0; i < bucket.count; ++i) {
    if (std::memcmp(bucket.entries[i].name, name, 5) == 0) {
      *id = bucket.entries[i].id;
      return 0;
    }
  }
  return CORVINEL_LOCNAME_UNKNOWN;
}
