// The login and settings windows driven by typed keys, the move of the data
// root as the window runs it, and printing to a file. (The login as the
// window runs it: LoginProcess.)
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "app/login_dialog.hpp"
#include "app/page_printer.hpp"
#include "app/settings_dialog.hpp"
#include "app/user_commands.hpp"
#include "gui_support.hpp"
#include "session/user_switch.hpp"
#include "settings/settings_file.hpp"
#include "settings/users.hpp"
#include "test_support.hpp"
#include "view/page_output.hpp"

namespace sk::app {
namespace {

namespace fs = std::filesystem;
using test::cell;
using test::parent_window;

bool ok_sensitive(Gtk::Dialog& dialog) {
    return dialog.get_widget_for_response(Gtk::RESPONSE_OK)->get_sensitive();
}

TEST(LoginDialog, RefusedNamesKeepTheWindowOpen) {
    for (const char* name : {"", ".", "..", "a/b", "Snow☃"}) {
        LoginDialog dialog(parent_window(), cell(), "Programm");
        const int response = test::run_dialog(dialog, [&] {
            Gtk::Entry& user = dialog.get_user_entry();
            test::send_key(user, GDK_KEY_BackSpace);
            test::type_text(user, name);
            EXPECT_FALSE(ok_sensitive(dialog)) << name;
            EXPECT_EQ(dialog.get_hint(), *settings::user_name_error(name));
            test::send_key(user, GDK_KEY_Return);  // nothing happens
            EXPECT_TRUE(dialog.get_visible());
            test::send_key(user, GDK_KEY_Escape);
        });
        EXPECT_EQ(response, Gtk::RESPONSE_CANCEL) << name;
    }
}

TEST(SettingsDialog, TypedValuesGiveTheWritersFile) {
    const settings::Settings current = settings::default_settings("/daten");
    SettingsDialog dialog(parent_window(), cell(), current);
    EXPECT_EQ(dialog.get_settings(), current);  // nothing typed, nothing changed
    const int response = test::run_dialog(dialog, [&] {
        Gtk::Entry& place = dialog.get_place_entry();
        test::type_text(place, "Weißenstadt");
        test::send_key(place, GDK_KEY_m, GDK_MOD1_MASK);  // "_Mondphasen anzeigen"
        EXPECT_TRUE(dialog.get_moon_phases_box().get_active());
        test::send_key(place, GDK_KEY_b, GDK_MOD1_MASK);  // "_Breite"
        test::type_text(dialog.get_latitude_entry(), "50,2");
        test::send_key(place, GDK_KEY_Return);
    });
    EXPECT_EQ(response, Gtk::RESPONSE_OK);
    settings::Settings expected = current;
    expected.place_name = "Weißenstadt";
    expected.moon_phases_shown = 1;
    expected.latitude = 50.2;
    ASSERT_TRUE(dialog.get_settings());
    EXPECT_EQ(settings::serialize_settings(*dialog.get_settings()),
              settings::serialize_settings(expected));
}

TEST(SettingsDialog, InvalidCoordinateBlocksSaving) {
    SettingsDialog dialog(parent_window(), cell(), settings::Settings{});
    const int response = test::run_dialog(dialog, [&] {
        Gtk::Entry& latitude = dialog.get_latitude_entry();
        test::retype(latitude, "49.0x");
        EXPECT_FALSE(ok_sensitive(dialog));
        EXPECT_NE(dialog.get_hint().raw().find("Breite"), std::string::npos) << dialog.get_hint();
        test::send_key(latitude, GDK_KEY_Return);
        EXPECT_TRUE(dialog.get_visible());
        EXPECT_FALSE(dialog.get_settings());
        test::send_key(latitude, GDK_KEY_BackSpace);
        EXPECT_TRUE(ok_sensitive(dialog));
        EXPECT_EQ(dialog.get_hint(), "");
        test::send_key(latitude, GDK_KEY_Escape);
    });
    EXPECT_EQ(response, Gtk::RESPONSE_CANCEL);
}

TEST(SettingsDialog, HelpOpensTheTextAndKeepsTheDialog) {
    SettingsDialog dialog(parent_window(), cell(), settings::Settings{});
    int response = 0;
    // "_Hilfe"; the settings stay open under the help text.
    const auto shown = test::play({test::press("Programmeinstellungen", GDK_KEY_Escape),
                                   test::press("Einstellungen", GDK_KEY_Escape)},
                                  [&] {
                                      response = test::run_dialog(dialog, [&] {
                                          test::send_key(dialog, GDK_KEY_h, GDK_MOD1_MASK);
                                      });
                                  });
    EXPECT_EQ(response, Gtk::RESPONSE_CANCEL);
    EXPECT_EQ(shown, (std::vector<std::string>{"Einstellungen", "Programmeinstellungen"}));
}

// "Nein" (and Escape) to the question takes the existing files over.
TEST(DataRootFlow, QuestionOnAnExistingDirectory) {
    for (const bool yes : {true, false}) {
        sk::test::TempDir dir;
        session::Session s = *session::open_session({.data_root = dir / "SKDaten"}).session;
        s.settings.place_name = "Altdorf";
        fs::create_directories(dir / "Neu" / "Programm");
        sk::test::write_bytes(dir / "Neu" / "Programm" / "Einstellungen.dat",
                              "[Astronomie]\nOrtsname = Ziel\n");
        std::string question;
        DataRootChange change(parent_window(), s, dir / "SKDaten" / "Programm");
        test::play({{"Frage",
                     [&](Gtk::Window& box) {
                         question = test::message_text(box);
                         test::send_key(box, yes ? GDK_KEY_j : GDK_KEY_Escape,
                                        yes ? GDK_MOD1_MASK : GdkModifierType(0));  // "_Ja"
                     }}},
                   [&] { EXPECT_TRUE(change.move_to(dir / "Neu")); });
        EXPECT_EQ(question, session::kExistingDirectoryQuestion);
        EXPECT_EQ(s.user_dir, dir / "Neu" / "Programm");
        EXPECT_EQ(s.settings.place_name, yes ? "Altdorf" : "Ziel");
    }
}

// Printing to a PDF file through GTK's print dialog and its file printer:
// one landscape page. (Without the dialog GTK never picks the file printer.)
TEST(PagePrinter, PrintsOneLandscapePageToAFile) {
    sk::test::TempDir dir;
    view::PageRenderer renderer(view::FontSpec{});
    view::PageRequest request;
    request.today = calendar::Day::from_date(2024, 0, 15);
    const view::PageLayout layout = renderer.layout(request, view::PageExtras{});
    // Only the file printer: no print server is asked (none runs here).
    g_object_set(gtk_settings_get_default(), "gtk-print-backends", "file", nullptr);
    PagePrinter printer;
    const fs::path pdf = dir / "kalender.pdf";
    printer.print_settings()->set_printer("Print to File");
    printer.print_settings()->set(GTK_PRINT_SETTINGS_OUTPUT_FILE_FORMAT, "pdf");
    printer.print_settings()->set(GTK_PRINT_SETTINGS_OUTPUT_URI, "file://" + pdf.string());
    Gtk::PrintOperationResult result{};
    test::play({{"",
                 [](Gtk::Window& dialog) {
                     // "Print" becomes sensitive once the file printer is listed and chosen.
                     Glib::signal_timeout().connect(
                         [&dialog] {
                             Gtk::Widget* print =
                                 dynamic_cast<Gtk::Dialog&>(dialog).get_widget_for_response(
                                     Gtk::RESPONSE_OK);
                             if (!print || !print->get_sensitive()) return true;
                             test::send_key(dialog, GDK_KEY_Return);
                             return false;
                         },
                         10);
                 }}},
               [&] { result = printer.print(parent_window(), layout); });
    EXPECT_EQ(result, Gtk::PRINT_OPERATION_RESULT_APPLY) << printer.error();
    ASSERT_TRUE(test::wait_until([&] { return fs::exists(pdf) && fs::file_size(pdf) > 0; }));
    const sk::test::CommandResult info = sk::test::run_command("pdfinfo '" + pdf.string() + "'");
    ASSERT_EQ(info.status, 0) << info.err;
    int pages = 0;
    double width = 0, height = 0;
    const char* at = std::strstr(info.out.c_str(), "Pages:");
    ASSERT_TRUE(at && std::sscanf(at, "Pages: %d", &pages) == 1) << info.out;
    EXPECT_EQ(pages, 1);
    at = std::strstr(info.out.c_str(), "Page size:");
    ASSERT_TRUE(at && std::sscanf(at, "Page size: %lf x %lf", &width, &height) == 2) << info.out;
    EXPECT_GT(width, height) << info.out;
    // The settings of this print are kept for the next one of the run.
    EXPECT_EQ(printer.print_settings()->get(GTK_PRINT_SETTINGS_OUTPUT_URI),
              "file://" + pdf.string());
    EXPECT_EQ(printer.page_setup()->get_orientation(), Gtk::PAGE_ORIENTATION_LANDSCAPE);
}

}  // namespace
}  // namespace sk::app
