// The plan of every crew as a table for spreadsheets: a header row, then one
// row per day with the date (dd.mm.yyyy), weekday, calendar week, statutory
// holiday, whether the plant stands still, each crew's letter as the page
// draws it without markings, and the user's shift marking with the crew it is
// drawn on. Fields are separated by ";" and quoted where needed; the text is
// UTF-8 with a byte order mark and CRLF line ends, which German spreadsheet
// programs open without an import dialog.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "calendar/dates.hpp"
#include "export/duties.hpp"
#include "export/ical_export.hpp"

namespace sk::exporting {

inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct CsvOptions {
    calendar::Day first;
    calendar::Day last;
};

// The header's names, in column order, for the source's model.
std::vector<std::string> csv_header(int model);

ExportText csv_text(const ExportSource& source, const CsvOptions& options);

// A field as written: in double quotes, with inner quotes doubled, when it
// holds ";", a quote, a line break or a blank at either end.
std::string csv_field(std::string_view text);

}  // namespace sk::exporting
