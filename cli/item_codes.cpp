#include "item_codes.h"

#include <iterator>

namespace corvinel::cli {

const ItemCodes kItemCodes[] = {
    {0, 0, "locale name, language and country joined by \"_\" (English_UnitedStates)"},
    {1, 1, "language name"},
    {2, 2, "secondary language code"},
    {3, 3, "country name"},
    {4, 4, "two-letter language code (matched by ORB_LOCALE)"},
    {5, 5, "two-letter country code (matched by ORB_LOCALE)"},
    {6, 6, "order of the date parts: MDY, DMY or YMD"},
    {7, 7, "paper size name: A4 or LETTER"},
    {8, 11, "font names for East-Asian locales (mostly absent)"},
    {12, 12, "code of the host's message language"},
    {13, 17, "default date, datetime, time, number and percent format names"},
    {18, 27, "graphics font names"},
    {28, 28, "long date, month in words (%B %d, %Y)"},
    {29, 29, "short numeric date (%m/%d/%Y)"},
    {30, 31, "medium date and long date with unpadded day"},
    {32, 33, "full date with weekday, and with abbreviated weekday and month"},
    {34, 35, "month and year, full and abbreviated month"},
    {36, 37, "month and day, full and abbreviated month"},
    {38, 39, "four-digit and two-digit year"},
    {40, 41, "quarter and year, long and short quarter name"},
    {42, 43, "week of year, long and short"},
    {44, 51, "datetimes: long, medium, compact, numeric, with weekday"},
    {52, 57, "times: with and without seconds, 12- and 24-hour clock, with zone name"},
    {58, 58, "date and time from the operating system's forms (%x %X)"},
    {59, 70, "abbreviated month names, January first, as used inside a date"},
    {71, 82, "full month names, as used inside a date"},
    {83, 94, "abbreviated month names, standalone"},
    {95, 106, "full month names, standalone"},
    {107, 113, "abbreviated weekday names, Sunday first, as used inside a date"},
    {114, 120, "full weekday names, as used inside a date"},
    {121, 127, "abbreviated weekday names, standalone"},
    {128, 134, "full weekday names, standalone"},
    {135, 142, "short and long quarter names, as used inside a date"},
    {143, 150, "short and long quarter names, standalone"},
    {151, 152, "before-noon and after-noon markers (AM, PM)"},
    {153, 153, "date separator"},
    {154, 154, "first day of the week: 0 Sunday, 1 Monday, 6 Saturday"},
    {155, 155, "international currency code (USD)"},
    {156, 156, "currency symbol ($)"},
    {157, 159, "monetary decimal mark, grouping separator and grouping"},
    {160, 163, "monetary positive and negative signs, fraction digits"},
    {164, 169, "currency symbol and sign placement flags"},
    {170, 171, "currency pattern in the locale's own and in canonical symbols"},
    {172, 174, "numeric decimal mark, grouping separator and grouping"},
    {175, 182, "numeric signs and their placement flags"},
    {183, 184, "number pattern in the locale's own and in canonical symbols"},
    {185, 186, "percent pattern in the locale's own and in canonical symbols"},
    {187, 188, "paper height and width in millimetres"},
};
const int32_t kItemCodeRows = static_cast<int32_t>(std::size(kItemCodes));

}  // namespace corvinel::cli
