// Builds the items of one locale record from its sources, before the fixed
// values are applied.
#pragma once

#include "cldr_source.h"
#include "date_item_rules.h"
#include "glibc_locale.h"
#include "locale_record.h"

namespace corvinel::locale_data {

// The monetary fields of a glibc locale source.
MonetaryFields read_monetary_fields(GlibcLocales &glibc, const std::string &locale);

// The record's items, and in `clock` what its dates and times follow.
LocaleRecord build_record(const RecordSource &source, GlibcLocales &glibc, RecordClock &clock);

}  // namespace corvinel::locale_data
