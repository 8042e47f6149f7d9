// The observer's place of the settings, as the astronomy takes it.
#pragma once

#include "astro/place.hpp"
#include "settings/settings.hpp"

namespace sk::settings {

// "Breite", "Länge", "Zeitzone", "Sommerzeit automatisch" and "Dämmerung".
// A twilight kind outside 0..2, which the repair on reading never leaves,
// is civil twilight.
astro::Place astro_place(const Settings& settings);

}  // namespace sk::settings
