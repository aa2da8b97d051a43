#include "record_sources.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace corvinel::locale_data {

// Choices where no exact source exists:
// - Arabic records take their names and patterns from CLDR's "ar" rather
//   than the regional variants: the database writes Modern Standard Arabic
//   month names in every Arabic country (Arabic_Algeria's January is
//   "yanayir", where CLDR's ar_DZ has the Maghreb "janfi"). The region still
//   decides the first weekday and the paper size.
// - Arabic_India and Persian_India: CLDR has no such locales; "ar" and "fa"
//   with the Indian region. The lconv fields come from glibc's ar_IN and, for
//   Persian, ur_IN (Urdu in India: the Perso-Arabic-script language of India
//   nearest to Persian); both carry the Indian rupee.
// - English_Caribbean ("CB" is no ISO country): CLDR and glibc en_AG,
//   Antigua and Barbuda, an English-speaking member of the East Caribbean
//   currency union (XCD).
// - English_Jamaica: CLDR en_JM; glibc has no en_JM, so the lconv fields come
//   from en_AG (Caribbean English conventions) with the Jamaican dollar.
// - English_Belgium, English_Malta: CLDR en_BE, en_MT; lconv fields from the
//   country's glibc locale (nl_BE, the majority language, and mt_MT).
// - Chinese_Macau: CLDR zh_Hant_MO; glibc has no zh_MO, so the lconv fields
//   come from zh_HK (the same conventions) with the Macanese pataca.
// - Croatian, Serbian and SerbianLatin records of Bosnia and Herzegovina:
//   glibc has only bs_BA for that country; it carries the convertible mark.
// - Serbian records use CLDR's Cyrillic sr_Cyrl_*, SerbianLatin records the
//   Latin sr_Latn_*; in glibc sr_ME and sr_RS are Cyrillic, sr_RS@latin is
//   Latin (monetary and numeric fields hold no letters but the symbol).
// - Norwegian_Norway ("no"): Bokmal, CLDR nb_NO and glibc nb_NO.
// - Polish_XX and Chinese_XX: the pseudo-country "XX" lets a locale string
//   name the language alone; they take the sources of pl_PL and zh_CN.
const std::array<RecordSource, kRecordCount> kRecordSources = {{
    {"Afrikaans_SouthAfrica", "af", "ZA", "af_ZA", "ZA", "af_ZA"},
    {"Albanian_Albania", "sq", "AL", "sq_AL", "AL", "sq_AL"},
    {"Arabic_Algeria", "ar", "DZ", "ar", "DZ", "ar_DZ"},
    {"Arabic_Bahrain", "ar", "BH", "ar", "BH", "ar_BH"},
    {"Arabic_Egypt", "ar", "EG", "ar", "EG", "ar_EG"},
    {"Arabic_India", "ar", "IN", "ar", "IN", "ar_IN"},
    {"Arabic_Iraq", "ar", "IQ", "ar", "IQ", "ar_IQ"},
    {"Arabic_Jordan", "ar", "JO", "ar", "JO", "ar_JO"},
    {"Arabic_Kuwait", "ar", "KW", "ar", "KW", "ar_KW"},
    {"Arabic_Lebanon", "ar", "LB", "ar", "LB", "ar_LB"},
    {"Arabic_Libya", "ar", "LY", "ar", "LY", "ar_LY"},
    {"Arabic_Morocco", "ar", "MA", "ar", "MA", "ar_MA"},
    {"Arabic_Oman", "ar", "OM", "ar", "OM", "ar_OM"},
    {"Arabic_Qatar", "ar", "QA", "ar", "QA", "ar_QA"},
    {"Arabic_SaudiArabia", "ar", "SA", "ar", "SA", "ar_SA"},
    {"Arabic_Sudan", "ar", "SD", "ar", "SD", "ar_SD"},
    {"Arabic_Syria", "ar", "SY", "ar", "SY", "ar_SY"},
    {"Arabic_Tunisia", "ar", "TN", "ar", "TN", "ar_TN"},
    {"Arabic_UnitedArabEmirates", "ar", "AE", "ar", "AE", "ar_AE"},
    {"Arabic_Yemen", "ar", "YE", "ar", "YE", "ar_YE"},
    {"Bengali_India", "bn", "IN", "bn_IN", "IN", "bn_IN"},
    {"Bosnian_BosniaHerzegovina", "bs", "BA", "bs_Latn_BA", "BA", "bs_BA"},
    {"Bulgarian_Bulgaria", "bg", "BG", "bg_BG", "BG", "bg_BG"},
    {"Belarusian_Belarus", "be", "BY", "be_BY", "BY", "be_BY"},
    {"Catalan_Spain", "ca", "ES", "ca_ES", "ES", "ca_ES"},
    {"Chinese_China", "zh", "CN", "zh_Hans_CN", "CN", "zh_CN"},
    {"Chinese_HongKong", "zh", "HK", "zh_Hant_HK", "HK", "zh_HK"},
    {"Chinese_Macau", "zh", "MO", "zh_Hant_MO", "MO", "zh_HK"},
    {"Chinese_Singapore", "zh", "SG", "zh_Hans_SG", "SG", "zh_SG"},
    {"Chinese_Taiwan", "zh", "TW", "zh_Hant_TW", "TW", "zh_TW"},
    {"Cornish_UnitedKingdom", "kw", "GB", "kw_GB", "GB", "kw_GB"},
    {"Croatian_BosniaHerzegovina", "hr", "BA", "hr_BA", "BA", "bs_BA"},
    {"Croatian_Croatia", "hr", "HR", "hr_HR", "HR", "hr_HR"},
    {"Czech_CzechRepublic", "cs", "CZ", "cs_CZ", "CZ", "cs_CZ"},
    {"Danish_Denmark", "da", "DK", "da_DK", "DK", "da_DK"},
    {"Dutch_Belgium", "nl", "BE", "nl_BE", "BE", "nl_BE"},
    {"Dutch_Netherlands", "nl", "NL", "nl_NL", "NL", "nl_NL"},
    {"English_Australia", "en", "AU", "en_AU", "AU", "en_AU"},
    {"English_Belgium", "en", "BE", "en_BE", "BE", "nl_BE"},
    {"English_Botswana", "en", "BW", "en_BW", "BW", "en_BW"},
    {"English_Canada", "en", "CA", "en_CA", "CA", "en_CA"},
    {"English_Caribbean", "en", "CB", "en_AG", "AG", "en_AG"},
    {"English_HongKong", "en", "HK", "en_HK", "HK", "en_HK"},
    {"English_India", "en", "IN", "en_IN", "IN", "en_IN"},
    {"English_Ireland", "en", "IE", "en_IE", "IE", "en_IE"},
    {"English_Jamaica", "en", "JM", "en_JM", "JM", "en_AG"},
    {"English_Malta", "en", "MT", "en_MT", "MT", "mt_MT"},
    {"English_NewZealand", "en", "NZ", "en_NZ", "NZ", "en_NZ"},
    {"English_Philippines", "en", "PH", "en_PH", "PH", "en_PH"},
    {"English_Singapore", "en", "SG", "en_SG", "SG", "en_SG"},
    {"English_SouthAfrica", "en", "ZA", "en_ZA", "ZA", "en_ZA"},
    {"English_UnitedKingdom", "en", "GB", "en_GB", "GB", "en_GB"},
    {"English_UnitedStates", "en", "US", "en_US", "US", "en_US"},
    {"English_Zimbabwe", "en", "ZW", "en_ZW", "ZW", "en_ZW"},
    {"Estonian_Estonia", "et", "EE", "et_EE", "EE", "et_EE"},
    {"Faeroese_FaroeIsland", "fo", "FO", "fo_FO", "FO", "fo_FO"},
    {"Finnish_Finland", "fi", "FI", "fi_FI", "FI", "fi_FI"},
    {"French_Belgium", "fr", "BE", "fr_BE", "BE", "fr_BE"},
    {"French_Canada", "fr", "CA", "fr_CA", "CA", "fr_CA"},
    {"French_France", "fr", "FR", "fr_FR", "FR", "fr_FR"},
    {"French_Luxembourg", "fr", "LU", "fr_LU", "LU", "fr_LU"},
    {"French_Switzerland", "fr", "CH", "fr_CH", "CH", "fr_CH"},
    {"German_Austria", "de", "AT", "de_AT", "AT", "de_AT"},
    {"German_Germany", "de", "DE", "de_DE", "DE", "de_DE"},
    {"German_Liechtenstein", "de", "LI", "de_LI", "LI", "de_LI"},
    {"German_Luxembourg", "de", "LU", "de_LU", "LU", "de_LU"},
    {"German_Switzerland", "de", "CH", "de_CH", "CH", "de_CH"},
    {"Greek_Cyprus", "el", "CY", "el_CY", "CY", "el_CY"},
    {"Greek_Greece", "el", "GR", "el_GR", "GR", "el_GR"},
    {"Greenlandic_Greenland", "kl", "GL", "kl_GL", "GL", "kl_GL"},
    {"Hebrew_Israel", "he", "IL", "he_IL", "IL", "he_IL"},
    {"Hindi_India", "hi", "IN", "hi_IN", "IN", "hi_IN"},
    {"Hungarian_Hungary", "hu", "HU", "hu_HU", "HU", "hu_HU"},
    {"Icelandic_Iceland", "is", "IS", "is_IS", "IS", "is_IS"},
    {"Indonesian_Indonesia", "id", "ID", "id_ID", "ID", "id_ID"},
    {"Irish_Ireland", "ga", "IE", "ga_IE", "IE", "ga_IE"},
    {"Italian_Italy", "it", "IT", "it_IT", "IT", "it_IT"},
    {"Italian_Switzerland", "it", "CH", "it_CH", "CH", "it_CH"},
    {"Japanese_Japan", "ja", "JP", "ja_JP", "JP", "ja_JP"},
    {"Korean_SouthKorea", "ko", "KR", "ko_KR", "KR", "ko_KR"},
    {"Latvian_Latvia", "lv", "LV", "lv_LV", "LV", "lv_LV"},
    {"Lithuanian_Lithuania", "lt", "LT", "lt_LT", "LT", "lt_LT"},
    {"Macedonian_Macedonia", "mk", "MK", "mk_MK", "MK", "mk_MK"},
    {"Malay_Malaysia", "ms", "MY", "ms_MY", "MY", "ms_MY"},
    {"Maltese_Malta", "mt", "MT", "mt_MT", "MT", "mt_MT"},
    {"Basque_Spain", "eu", "ES", "eu_ES", "ES", "eu_ES"},
    {"Marathi_India", "mr", "IN", "mr_IN", "IN", "mr_IN"},
    {"NorwegianBokmal_Norway", "nb", "NO", "nb_NO", "NO", "nb_NO"},
    {"NorwegianNynorsk_Norway", "nn", "NO", "nn_NO", "NO", "nn_NO"},
    {"Norwegian_Norway", "no", "NO", "nb_NO", "NO", "nb_NO"},
    {"Persian_India", "fa", "IN", "fa", "IN", "ur_IN"},
    {"Persian_Iran", "fa", "IR", "fa_IR", "IR", "fa_IR"},
    {"Polish_Poland", "pl", "PL", "pl_PL", "PL", "pl_PL"},
    {"Portuguese_Brazil", "pt", "BR", "pt_BR", "BR", "pt_BR"},
    {"Portuguese_Portugal", "pt", "PT", "pt_PT", "PT", "pt_PT"},
    {"Romanian_Romania", "ro", "RO", "ro_RO", "RO", "ro_RO"},
    {"Russian_Russia", "ru", "RU", "ru_RU", "RU", "ru_RU"},
    {"Russian_Ukraine", "ru", "UA", "ru_UA", "UA", "ru_UA"},
    {"Serbian_BosniaHerzegovina", "sr", "BA", "sr_Cyrl_BA", "BA", "bs_BA"},
    {"Serbian_Montenegro", "sr", "ME", "sr_Cyrl_ME", "ME", "sr_ME"},
    {"Serbian_Serbia", "sr", "RS", "sr_Cyrl_RS", "RS", "sr_RS"},
    {"Kazakh_Kazakhstan", "kk", "KZ", "kk_KZ", "KZ", "kk_KZ"},
    {"SerbianLatin_BosniaHerzegovina", "sh", "BA", "sr_Latn_BA", "BA", "bs_BA"},
    {"SerbianLatin_Montenegro", "sh", "ME", "sr_Latn_ME", "ME", "sr_ME"},
    {"SerbianLatin_Serbia", "sh", "RS", "sr_Latn_RS", "RS", "sr_RS@latin"},
    {"Slovak_Slovakia", "sk", "SK", "sk_SK", "SK", "sk_SK"},
    {"Slovenian_Slovenia", "sl", "SI", "sl_SI", "SI", "sl_SI"},
    {"Spanish_Argentina", "es", "AR", "es_AR", "AR", "es_AR"},
    {"Spanish_Bolivia", "es", "BO", "es_BO", "BO", "es_BO"},
    {"Spanish_Chile", "es", "CL", "es_CL", "CL", "es_CL"},
    {"Spanish_Colombia", "es", "CO", "es_CO", "CO", "es_CO"},
    {"Spanish_CostaRica", "es", "CR", "es_CR", "CR", "es_CR"},
    {"Spanish_DominicanRepublic", "es", "DO", "es_DO", "DO", "es_DO"},
    {"Spanish_Ecuador", "es", "EC", "es_EC", "EC", "es_EC"},
    {"Spanish_ElSalvador", "es", "SV", "es_SV", "SV", "es_SV"},
    {"Spanish_Guatemala", "es", "GT", "es_GT", "GT", "es_GT"},
    {"Spanish_Honduras", "es", "HN", "es_HN", "HN", "es_HN"},
    {"Spanish_Mexico", "es", "MX", "es_MX", "MX", "es_MX"},
    {"Spanish_Nicaragua", "es", "NI", "es_NI", "NI", "es_NI"},
    {"Spanish_Panama", "es", "PA", "es_PA", "PA", "es_PA"},
    {"Spanish_Paraguay", "es", "PY", "es_PY", "PY", "es_PY"},
    {"Spanish_Peru", "es", "PE", "es_PE", "PE", "es_PE"},
    {"Spanish_PuertoRico", "es", "PR", "es_PR", "PR", "es_PR"},
    {"Spanish_Spain", "es", "ES", "es_ES", "ES", "es_ES"},
    {"Spanish_UnitedStates", "es", "US", "es_US", "US", "es_US"},
    {"Spanish_Uruguay", "es", "UY", "es_UY", "UY", "es_UY"},
    {"Spanish_Venezuela", "es", "VE", "es_VE", "VE", "es_VE"},
    {"Swedish_Sweden", "sv", "SE", "sv_SE", "SE", "sv_SE"},
    {"Tamil_India", "ta", "IN", "ta_IN", "IN", "ta_IN"},
    {"Telugu_India", "te", "IN", "te_IN", "IN", "te_IN"},
    {"Thai_Thailand", "th", "TH", "th_TH", "TH", "th_TH"},
    {"Turkish_Turkey", "tr", "TR", "tr_TR", "TR", "tr_TR"},
    {"Ukrainian_Ukraine", "uk", "UA", "uk_UA", "UA", "uk_UA"},
    {"Vietnamese_Vietnam", "vi", "VN", "vi_VN", "VN", "vi_VN"},
    {"Polish_XX", "pl", "XX", "pl_PL", "PL", "pl_PL"},
    {"Chinese_XX", "zh", "XX", "zh_Hans_CN", "CN", "zh_CN"},
}};

std::size_t record_index(const char *name) {
  for (std::size_t i = 0; i < kRecordSources.size(); ++i) {
    if (std::strcmp(kRecordSources[i].name, name) == 0) return i;
  }
  throw std::runtime_error(std::string("no locale record named ") + name);
}

}  // namespace corvinel::locale_data
