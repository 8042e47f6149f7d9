#include "settings/astro_place.hpp"

#include "calendar/ranges.hpp"

namespace sk::settings {

astro::Place astro_place(const Settings& s) {
    astro::Place place;
    place.latitude = s.latitude;
    place.longitude = s.longitude;
    place.time_zone = s.time_zone;
    place.auto_summer_time = s.auto_summer_time != 0;
    if (calendar::kTwilightKinds.contains(s.twilight))
        place.twilight = static_cast<astro::Twilight>(s.twilight);
    return place;
}

}  // namespace sk::settings
