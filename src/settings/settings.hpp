// The program's settings as one value: page font and size, display options,
// shift model, vacation-block parameters, target hours and the observer's
// place. Strings are UTF-8 in memory; the file keeps them in ISO-8859-15
// (see settings_file.hpp).
#pragma once

#include <cstddef>
#include <string>

namespace sk::settings {

// Default place "Rodenwald": coordinates of a town in the Danube valley in
// Bavaria, in the degrees.minutes notation (49°01' N, 12°06' E). Longitude is
// positive towards west, so east is negative.
inline constexpr double kDefaultLatitude = 49.01;
inline constexpr double kDefaultLongitude = -12.06;

// "Ortsname" holds at most this many characters.
inline constexpr std::size_t kMaxPlaceNameLength = 50;

struct Settings {
    // [Programmeinstellungen]
    std::string font_name;       // "Fontname": page font family, empty = the default face
    int font_size = 10;          // "Fontgröße", 6..72
    int font_style = 0;          // "Fontstil", style flags (1 bold, 2 italic)
    int columns = 6;             // "Schichtspalten", month columns 6..23
    int school_holidays_shown = 1;  // "Schulferien anzeigen"
    int week_numbers_shown = 1;     // "Wochennummer anzeigen"
    std::string user_directory;     // "Anwenderverzeichnis", holds the users' subdirectories
    std::string user_name = "Programm";  // "Anwendername"
    int model = 0;                       // "Schichtart", 0..7
    int vacation_block_shown = 1;        // "UrlaubBlockAnzeige"
    float target_hours_38 = 1982.76f;    // "Sollstunden_38"
    float target_hours_40 = 2088.0f;     // "Sollstunden_40"
    int vacation_start_month = 4;        // "UrlaubStartMonat", 1..12
    int vacation_start_day = 25;         // "UrlaubStartTag"
    int vacation_cycle = 0;              // "UrlaubZyklus", rotations of the vacation order

    // [Astronomie]
    double latitude = kDefaultLatitude;    // "Breite", degrees.minutes, north positive
    double longitude = kDefaultLongitude;  // "Länge", degrees.minutes, west positive
    double time_zone = 1.0;                // "Zeitzone", hours east of Greenwich, -12..14
    int auto_summer_time = 1;              // "Sommerzeit automatisch"
    std::string place_name = "Rodenwald";  // "Ortsname", at most 50 characters
    int twilight = 0;                      // "Dämmerung": 0 civil, 1 nautical, 2 astronomical
    int moon_phases_shown = 0;             // "Mondphasen anzeigen"
    int perihelion_shown = 0;              // "Perihel und Aphel anzeigen"

    bool operator==(const Settings&) const = default;
};

}  // namespace sk::settings
