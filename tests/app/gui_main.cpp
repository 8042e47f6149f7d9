// Entry of the GUI tests (the dialogs and the main window): GTK on the
// display the wrapper started (tools/with-xvfb.sh), the test fonts, then
// GoogleTest. A test still running after 150 s is stopped with its name on
// stderr: a hang must never wait for CTest's timeout. Listing the tests needs no display.
#include <gtest/gtest.h>
#include <gtkmm.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <iostream>

#include "test_support.hpp"

namespace {

char g_hang_message[512];  // written by the alarm's handler

struct Watchdog : ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo& info) override {
        std::snprintf(g_hang_message, sizeof g_hang_message, "\n%s.%s läuft länger als 150 s\n",
                      info.test_suite_name(), info.name());
        alarm(150);
    }
    void OnTestEnd(const ::testing::TestInfo&) override { alarm(0); }
};

}  // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    setenv("FONTCONFIG_FILE", sk::test::source_path("view/fonts.conf").c_str(), 0);
    if (!::testing::GTEST_FLAG(list_tests)) {
        if (!gtk_init_check(&argc, &argv)) {
            std::cerr << "Keine Anzeige: die GUI-Tests laufen nur unter X (tools/with-xvfb.sh).\n";
            return 1;
        }
        Gtk::Main::init_gtkmm_internals();
    }
    std::signal(SIGALRM, [](int) {
        if (write(STDERR_FILENO, g_hang_message, std::strlen(g_hang_message)) >= 0) _exit(3);
        _exit(4);
    });
    ::testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);
    return RUN_ALL_TESTS();
}
