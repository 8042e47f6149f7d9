#include "calendar/school_holidays.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "calendar/dates.hpp"

namespace sk::calendar {

namespace {

// Bavarian school holidays as inclusive (start, end) pairs of dates written
// year × 10000 + month × 100 + day. Six ranges a year in the order of
// kRangeLabels; a range belongs to the year it starts in, so the Christmas
// range ends in January of the next year. 2011..2024 are kept exactly as the
// table has always read, including Whitsun 2021 running to 21 June; the two
// autumn and Christmas ranges of 2024 and the years 2025..2030 were added from
// the ministry's published dates. Autumn and Christmas 2030 are not published
// yet and stay (0, 0), which never matches a day.
// clang-format off
constexpr std::array<std::int32_t, 240> kSchoolHolidayTable = {
    20110307, 20110311, 20110418, 20110430, 20110614, 20110625,  // 2011
    20110730, 20110912, 20111031, 20111105, 20111227, 20120105,
    20120220, 20120224, 20120402, 20120414, 20120529, 20120609,  // 2012
    20120801, 20120912, 20121029, 20121103, 20121224, 20130105,
    20130211, 20130215, 20130325, 20130406, 20130521, 20130531,  // 2013
    20130731, 20130911, 20131028, 20131031, 20131223, 20140104,
    20140303, 20140307, 20140414, 20140426, 20140610, 20140621,  // 2014
    20140730, 20140915, 20141027, 20141031, 20141224, 20150105,
    20150216, 20150220, 20150330, 20150411, 20150526, 20150605,  // 2015
    20150801, 20150914, 20151102, 20151107, 20151224, 20160105,
    20160208, 20160212, 20160321, 20160401, 20160517, 20160528,  // 2016
    20160730, 20160912, 20161031, 20161104, 20161224, 20170105,
    20170227, 20170303, 20170410, 20170422, 20170606, 20170616,  // 2017
    20170729, 20170911, 20171030, 20171103, 20171223, 20180105,
    20180212, 20180216, 20180326, 20180407, 20180522, 20180602,  // 2018
    20180730, 20180910, 20181029, 20181102, 20181222, 20190105,
    20190304, 20190308, 20190415, 20190427, 20190611, 20190621,  // 2019
    20190729, 20190909, 20191028, 20191031, 20191223, 20200104,
    20200224, 20200228, 20200406, 20200418, 20200602, 20200613,  // 2020
    20200727, 20200907, 20201031, 20201106, 20201223, 20210109,
    20210215, 20210219, 20210329, 20210410, 20210525, 20210621,  // 2021
    20210730, 20210913, 20211102, 20211105, 20211224, 20220108,
    20220228, 20220304, 20220411, 20220423, 20220607, 20220618,  // 2022
    20220801, 20220912, 20221031, 20221104, 20221224, 20230107,
    20230220, 20230224, 20230403, 20230415, 20230530, 20230609,  // 2023
    20230731, 20230911, 20231030, 20231103, 20231223, 20240105,
    20240212, 20240216, 20240325, 20240406, 20240521, 20240601,  // 2024
    20240729, 20240909, 20241028, 20241031, 20241223, 20250103,
    20250303, 20250307, 20250414, 20250425, 20250610, 20250620,  // 2025
    20250801, 20250915, 20251103, 20251107, 20251222, 20260105,
    20260216, 20260220, 20260330, 20260410, 20260526, 20260605,  // 2026
    20260803, 20260914, 20261102, 20261106, 20261224, 20270108,
    20270208, 20270212, 20270322, 20270402, 20270518, 20270528,  // 2027
    20270802, 20270913, 20271102, 20271105, 20271224, 20280107,
    20280228, 20280303, 20280410, 20280421, 20280606, 20280616,  // 2028
    20280731, 20280911, 20281030, 20281103, 20281223, 20290105,
    20290212, 20290216, 20290326, 20290406, 20290522, 20290601,  // 2029
    20290730, 20290910, 20291029, 20291102, 20291224, 20300104,
    20300304, 20300308, 20300415, 20300426, 20300611, 20300621,  // 2030
    20300729, 20300909, 0, 0, 0, 0,
};
// clang-format on

constexpr int kRangesPerYear = 6;
constexpr std::string_view kRangeLabels[kRangesPerYear] = {
    "Frühjahr", "Ostern", "Pfingsten", "Sommer", "Allerheiligen", "Weihnachten"};

// "7. März"; an entry below 1 (an empty range) gives "".
std::string format_entry(std::int32_t entry) {
    if (entry < 1) return "";
    const int year = entry / 10000;
    const int month = (entry - year * 10000) / 100;  // [1, 12]
    const int mday = entry - year * 10000 - month * 100;
    return std::to_string(mday) + ". " + std::string(kMonthNames[month - 1]);
}

}  // namespace

std::span<const std::int32_t> school_holiday_table() {
    return kSchoolHolidayTable;
}

bool is_school_holiday(const Day& day) {
    const std::int32_t key = day.year * 10000 + (day.month_index + 1) * 100 + day.mday;
    for (std::size_t i = 0; i < kSchoolHolidayTable.size(); i += 2) {
        if (kSchoolHolidayTable[i] <= key && key <= kSchoolHolidayTable[i + 1]) return true;
    }
    return false;
}

std::vector<ListRow> school_holiday_list(int year) {
    std::vector<ListRow> rows;
    for (std::size_t i = 0; i < kSchoolHolidayTable.size(); i += 2 * kRangesPerYear) {
        if (kSchoolHolidayTable[i] / 10000 != year) continue;
        for (int r = 0; r < kRangesPerYear; ++r) {
            const std::size_t start = i + 2 * static_cast<std::size_t>(r);
            rows.push_back(
                {std::string(kRangeLabels[r]), format_entry(kSchoolHolidayTable[start]) + " - " +
                                                   format_entry(kSchoolHolidayTable[start + 1])});
        }
        break;
    }
    return rows;
}

}  // namespace sk::calendar
