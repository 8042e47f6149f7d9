// Entry of the main window's tests: GTK on the display the wrapper started
// (tools/with-xvfb.sh), the test fonts, then GoogleTest.
#include <gtest/gtest.h>
#include <gtkmm.h>

#include <cstdlib>
#include <cstring>
#include <iostream>

#include "test_support.hpp"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    setenv("FONTCONFIG_FILE", sk::test::source_path("view/fonts.conf").c_str(), 0);
    bool listing = false;
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], "--gtest_list_tests") == 0) listing = true;
    if (!listing) {
        if (!gtk_init_check(&argc, &argv)) {
            std::cerr
                << "Keine Anzeige: die Fenstertests laufen nur unter X (tools/with-xvfb.sh).\n";
            return 1;
        }
        Gtk::Main::init_gtkmm_internals();
    }
    return RUN_ALL_TESTS();
}
