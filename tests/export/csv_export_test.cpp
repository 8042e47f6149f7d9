// The CSV export: a golden file, and the text read back by a small reader
// of its own (";" separated, fields in double quotes with doubled quotes).
#include "export/csv_export.hpp"

#include <gtest/gtest.h>

#include <map>

#include "test_support.hpp"

namespace sk::exporting {
namespace {

using Rows = std::vector<std::vector<std::string>>;

// RFC 4180 with ";" and CRLF; a quoted field may hold ";", CR, LF and "".
Rows read_csv(std::string_view text) {
    Rows rows(1, std::vector<std::string>(1));
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        std::string& field = rows.back().back();
        if (quoted) {
            if (c != '"')
                field += c;
            else if (i + 1 < text.size() && text[i + 1] == '"')
                field += c, ++i;
            else
                quoted = false;
        } else if (c == '"') {
            quoted = true;
        } else if (c == ';') {
            rows.back().emplace_back();
        } else if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            rows.emplace_back(1), ++i;
        } else {
            field += c;
        }
    }
    EXPECT_FALSE(quoted);
    rows.pop_back();  // after the last CRLF
    return rows;
}

ExportSource plan(int model, const marks::ShiftMarkings* markings = nullptr) {
    return {{model, true, calendar::kVacationOrder, {}}, markings, nullptr};
}

std::string csv(const ExportSource& source, const char* from, const char* to) {
    return csv_text(source, {*calendar::parse_iso_date(from), *calendar::parse_iso_date(to)}).text;
}

// Whitsun and the first days of the 2024 block, two markings: one on the
// crew holding the late shift, one on a standby week nobody has that day.
TEST(Csv, MatchesTheGoldenFile) {
    marks::ShiftMarkings markings;
    markings.items = {{calendar::day_number(2024, 4, 20), 4, marks::kind_a::kCourse},
                      {calendar::day_number(2024, 4, 21), 2, marks::kind_a::kVacation}};
    const std::string text = csv(plan(1, &markings), "2024-05-17", "2024-05-26");
    EXPECT_EQ(text, test::read_bytes(test::source_path("export/golden/csv-2024-05-model1.csv")));
}

TEST(Csv, FieldsRoundTripThroughAReader) {
    const std::vector<std::string> fields = {"",   "Früh",  "a;b", "\"Zitat\"", "zwei\r\nZeilen",
                                             " x", "Ende ", "\n",  ";;",        "€ ß"};
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i)
        line += (i ? ";" : "") + csv_field(fields[i]);
    EXPECT_EQ(read_csv(line + "\r\n"), Rows{fields});
}

// Over whole years: a BOM, a header, one row per day with as many fields,
// and no shift held by two crews (the plan leaves some Sundays without a
// late shift, never two crews on one).
TEST(Csv, EveryDayHasOneRowAndEachShiftOneCrew) {
    for (int model = 0; model < 8; ++model) {
        const std::string text = csv(plan(model), "2023-01-01", "2024-12-31");
        ASSERT_EQ(text.rfind(kByteOrderMark, 0), 0u);
        const Rows rows = read_csv(std::string_view(text).substr(kByteOrderMark.size()));
        ASSERT_EQ(rows.size(), 1u + 731u);
        EXPECT_EQ(rows[0], csv_header(model));
        const std::size_t crews = rows[0].size() - 7;
        for (std::size_t r = 1; r < rows.size(); ++r) {
            ASSERT_EQ(rows[r].size(), rows[0].size()) << r;
            EXPECT_EQ(rows[r][0], calendar::format_german_date(
                                      calendar::Day::from_date(2023, 0, static_cast<int>(r))));
            std::map<std::string, int> letters;
            for (std::size_t c = 0; c < crews; ++c)
                ++letters[rows[r][5 + c]];
            EXPECT_EQ(letters["F"], 1) << model << " " << rows[r][0];
            EXPECT_LE(letters["S"], 1) << model << " " << rows[r][0];
            EXPECT_EQ(letters["N"], model == 2 ? 0 : 1) << model << " " << rows[r][0];
            EXPECT_EQ(letters["U"] + letters["US"] + letters["V"], crews == 5 ? 1 : 0)
                << model << " " << rows[r][0];
        }
    }
}

}  // namespace
}  // namespace sk::exporting
