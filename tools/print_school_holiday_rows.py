#!/usr/bin/env python3
"""Prints school-holiday ranges as rows for the table in school_holidays.cpp.

Input: a header line, then lines `year<TAB>kind<TAB>YYYY-MM-DD<TAB>YYYY-MM-DD`
(UTF-8), kind one of Frühjahr, Ostern, Pfingsten, Sommer, Allerheiligen,
Weihnachten. Prints the (start, end) pairs of a year in that order, on two lines;
a kind missing from the input becomes an empty (0, 0) pair.

    tools/print_school_holiday_rows.py schulferien-bayern.tsv

The output is pasted into the table once; the build never runs this.
"""
import sys

KINDS = ["Frühjahr", "Ostern", "Pfingsten", "Sommer", "Allerheiligen", "Weihnachten"]


def key(iso):
    year, month, day = (int(part) for part in iso.split("-"))
    return year * 10000 + month * 100 + day


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    years = {}
    with open(sys.argv[1], encoding="utf-8") as f:
        header = f.readline().rstrip("\n").split("\t")
        if header != ["year", "kind", "start", "end"]:
            sys.exit(f"unexpected header: {header!r}")
        for line in f:
            year, kind, start, end = line.rstrip("\n").split("\t")
            if kind not in KINDS or key(start) > key(end) or key(start) // 10000 != int(year):
                sys.exit(f"bad row: {line!r}")
            years.setdefault(int(year), {})[kind] = (key(start), key(end))
    for year in sorted(years):
        pairs = [years[year].get(kind, (0, 0)) for kind in KINDS]
        for half, comment in ((pairs[:3], f"  // {year}"), (pairs[3:], "")):
            print("    " + " ".join(f"{s}, {e}," for s, e in half) + comment)


if __name__ == "__main__":
    main()
