// Builds the items of one locale record from its sources, before the fixed
// values are applied.
#pragma once

#include "cldr_source.h"
#include "glibc_locale.h"
#include "locale_record.h"

namespace corvinel::locale_data {

// The monetary fields of a glibc locale source.
MonetaryFields read_monetary_fields(GlibcLocales &glibc, const std::string &locale);

// glibc's grouping operands ("3;3", "3;2", "-1", "0;0") in the records'
// coding: "3", "3;2" or "0" (no grouping).
std::string grouping_text(const std::vector<std::u16string> &operands);

LocaleRecord build_record(const RecordSource &source, GlibcLocales &glibc);

}  // namespace corvinel::locale_data
