// Every window of the program opens modal over its parent with the focus
// where the user types first, names every control for a screen reader,
// closes on Escape without a result, and grows with the character cell.
// The read-only list windows show the core's rows under their headings.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>

#include "app/calendar_marking_dialog.hpp"
#include "app/date_entry_dialog.hpp"
#include "app/delete_notes_dialog.hpp"
#include "app/export_dialog.hpp"
#include "app/holiday_list_window.hpp"
#include "app/hours_dialog.hpp"
#include "app/info_dialog.hpp"
#include "app/login_dialog.hpp"
#include "app/message_box.hpp"
#include "app/model_chooser_dialog.hpp"
#include "app/note_menu_dialog.hpp"
#include "app/prog_menu_dialog.hpp"
#include "app/school_holiday_window.hpp"
#include "app/settings_dialog.hpp"
#include "app/shift_column_dialog.hpp"
#include "app/shift_marking_dialog.hpp"
#include "app/text_window.hpp"
#include "app/ui_support.hpp"
#include "app/vacation_dialog.hpp"
#include "app/yearly_hours_window.hpp"
#include "export/csv_export.hpp"
#include "gui_support.hpp"
#include "marks/calendar_markings.hpp"

namespace sk::app {
namespace {

using calendar::Day;
using test::cell;
using test::parent_window;

const Day kDay = Day::from_date(2024, 2, 5);  // 05.03.2024

using Open = std::function<std::unique_ptr<Gtk::Dialog>(view::CellSize)>;

// Opens a D over the parent window with the cell and `args`.
template <class D, class... A>
Open make(A... args) {
    return [=](view::CellSize c) { return std::make_unique<D>(parent_window(), c, args...); };
}

Open box(MessageKind kind) {
    return [kind](view::CellSize) {
        return std::make_unique<MessageBox>(&parent_window(), kind, "Text");
    };
}

struct Window {
    const char* title;
    Open open;
    // The names of the controls the focus is on: when shown, after each Tab.
    std::vector<std::string> focus;
    std::vector<std::string> texts = {};               // in some label; "!" first: in none
    std::map<std::string, std::string> tooltips = {};  // button label -> tooltip
    std::pair<double, double> cells = {};              // the size in cells, if given
};

std::vector<Window> windows() {
    const std::pair<const std::string, std::string> cancel = {
        "Abbruch", "Verlässt das Eingabefenster ohne Änderungen"};
    calendar::PageState page;
    page.model = 1;
    page.year = 2026;
    return {
        {"Datum",
         make<DateEntryDialog>(DateEntryDialog::Purpose::GoTo, kDay, 0, calendar::kLastDay),
         {"Datum"}},
        {"Kalender", make<ModelChooserDialog>(3), {"PM 1 mit 2er Block"}},
        {"Prog.", make<ProgMenuDialog>(), {"Kalender"}},
        {"Info", make<InfoDialog>(), {"Jahresstunden"}},
        {"Notiz", make<NoteMenuDialog>(), {"Tagesnotiz"}},
        {"Notizen für den 05.03.2024",
         make<TextWindow>(notes_title(kDay), std::string("Zahnarzt\r\n"), TextWindow::kNotesSize),
         {"Notizen für den 05.03.2024"}},
        {"Tastaturbelegung", make<HelpWindow>(HelpTopic::Keys), {"Tastaturbelegung"}},
        {"Feiertage", make<HolidayListWindow>(2024), {"Feiertage 2024"}, {}, {}, {50, 33}},
        {"Ferientermine",
         make<SchoolHolidayWindow>(2024),
         {"Bayerische Schulferien 2024"},
         {},
         {},
         {54, 12}},
        {"Jahresstunden",
         make<YearlyHoursWindow>(marks::yearly_hours(marks::PlanContext{}, 2024)),
         {"Jahresstunden 2024"}},
        {"Schichtmarkierung eingeben",
         make<ShiftMarkingDialog>(1, 3, kDay, std::optional(2)),
         {"Urlaub"},
         {" Nachtschicht am 05.03.2024", "Ausfallbezahlung, kurzer Wechsel", "!Früh"},
         {{"Übernehmen", "Speichert die Stunden"},
          cancel,
          {"Schichtmarkierung löschen (Entf)", "Taste Entf"}}},
        {"Schichtmarkierung eingeben",
         make<ShiftMarkingDialog>(7, 4, kDay, std::optional<int>()),
         {"Früh"},
         {" Schicht D am 05.03.2024", "Früh", "Nacht"},
         {{"Spät", "Taste F"}, {"Krank", "Taste Entf"}}},
        {"Schichtspalte eingeben",
         make<ShiftColumnDialog>(0),
         {"Frühschicht"},
         {},
         {{"Verfügung", "[4] Schichtmarkierung: Verfügung"}}},
        {"Eingabe einer Kalendermarkierung",
         make<CalendarMarkingDialog>(marks::propose_marking({}, kDay.number)),
         {"Eingabe des Startdatums", "Eingabe des Enddatums", "Wahl einer neuen Markierungsfarbe"},
         {},
         {{"Löschen", "Löscht die Markierung in dessen Bereich sich das Startdatum befindet"}}},
        {"Stunden eingeben",
         make<HoursDialog>(marks::HoursAccount{}, true),
         {"Stunden", "Std,dez"},
         {"Wenn im Urlaubsblock gearbeitet wird, z. B. bei Schichttausch", "!keine Konten"},
         {{"Speichern", "Speichert die Stunden"}, cancel}},
        {"Stunden eingeben",
         make<HoursDialog>(marks::HoursAccount{}, false),
         {"Stunden"},
         {"keine Konten"}},
        {"Urlaub eingeben",
         make<VacationDialog>(marks::VacationAccount{}, 4, 0, true),
         {"Tage"},
         {},
         {{"Speichern", "Speichert die Urlaubstage"}, cancel}},
        {"Lösche Notizen und Markierungen",
         make<DeleteNotesDialog>(kDay),
         {"Notizen löschen bis zum"},
         {},
         {{"Abbruch", "Verlässt das Eingabefenster ohne Löschen"},
          {"Löschen", "Löscht die Notizen"}}},
        {"Export",
         make<ExportDialog>(1, exporting::default_export_request(page, 0)),
         {"iCalendar (.ics) für Kalender und Telefon"}},
        {"Anmelden", make<LoginDialog>(std::string("Programm")), {"Benutzername"}},
        {"Einstellungen", make<SettingsDialog>(settings::Settings{}), {"Ortsname"}},
        {"Fehler", box(MessageKind::Error), {"OK"}},
        {"Information", box(MessageKind::Information), {"OK"}},
        {"Info", box(MessageKind::Info), {"OK"}},
    };
}

// Every widget below `widget`, depth first.
void walk(Gtk::Widget& widget, const std::function<void(Gtk::Widget&)>& visit) {
    visit(widget);
    if (auto* container = dynamic_cast<Gtk::Container*>(&widget))
        for (Gtk::Widget* child : container->get_children())
            walk(*child, visit);
}

std::string label_of(Gtk::Widget& widget) {
    std::string text;
    walk(widget, [&](Gtk::Widget& w) {
        if (auto* label = dynamic_cast<Gtk::Label*>(&w); label && text.empty())
            text = label->get_text().raw();
    });
    return text;
}

// The name a screen reader says: the control's own, or its label's.
std::string name_of(Gtk::Widget& widget) {
    std::string name = test::accessible_name(widget);
    AtkRelationSet* relations = atk_object_ref_relation_set(widget.get_accessible()->gobj());
    if (AtkRelation* by =
            atk_relation_set_get_relation_by_type(relations, ATK_RELATION_LABELLED_BY);
        name.empty() && by) {
        GPtrArray* labels = atk_relation_get_target(by);
        if (labels->len > 0) name = atk_object_get_name(ATK_OBJECT(labels->pdata[0]));
    }
    g_object_unref(relations);
    return name;
}

TEST(Windows, TextsTooltipsAndNames) {
    for (const Window& c : windows()) {
        const std::unique_ptr<Gtk::Dialog> dialog = c.open(cell());
        EXPECT_EQ(dialog->get_title(), c.title);
        EXPECT_TRUE(dialog->get_modal()) << c.title;
        EXPECT_EQ(dialog->get_transient_for(), &parent_window()) << c.title;
        std::string labels;
        std::map<std::string, std::string> tooltips;
        walk(*dialog, [&](Gtk::Widget& w) {
            if (auto* label = dynamic_cast<Gtk::Label*>(&w)) labels += label->get_text() + "\n";
            // Every control a screen reader reaches has a name, its own or
            // its label's. (A scrolled window passes the focus on.)
            if (!w.get_can_focus() || !w.get_visible() || dynamic_cast<Gtk::ScrolledWindow*>(&w))
                return;
            EXPECT_FALSE(name_of(w).empty()) << c.title << ": " << G_OBJECT_TYPE_NAME(w.gobj());
            if (dynamic_cast<Gtk::Button*>(&w)) tooltips[label_of(w)] = w.get_tooltip_text().raw();
        });
        for (const std::string& text : c.texts) {
            const bool absent = text[0] == '!';
            EXPECT_EQ(labels.find(text.substr(absent ? 1 : 0)) == std::string::npos, absent)
                << c.title << ": " << text;
        }
        for (const auto& [label, tooltip] : c.tooltips)
            EXPECT_EQ(tooltips[label], tooltip) << c.title << ": " << label;
    }
}

// The focus is where the user types first, Tab moves it on in reading
// order; Escape closes without a choice.
TEST(Windows, FocusOnOpenAndEscapeWithoutResult) {
    for (const Window& c : windows()) {
        const std::unique_ptr<Gtk::Dialog> dialog = c.open(cell());
        const int response = test::run_dialog(*dialog, [&] {
            for (std::size_t i = 0; i < c.focus.size(); ++i) {
                if (i > 0) test::send_key(*dialog, GDK_KEY_Tab);
                Gtk::Widget* focus = dialog->get_focus();
                EXPECT_EQ(focus ? plain_label(name_of(*focus)).raw() : "", c.focus[i]) << c.title;
            }
            test::send_key(*dialog, GDK_KEY_Escape);
        });
        EXPECT_EQ(response, Gtk::RESPONSE_CANCEL) << c.title;
        if (auto* choice = dynamic_cast<ChoiceDialog*>(dialog.get())) {
            EXPECT_FALSE(choice->get_choice_index()) << c.title;
        }
        EXPECT_FALSE(dialog->get_visible()) << c.title;
    }
}

// A font twice as large, a cell twice as large and the window grows with
// them: nothing is sized in fixed pixels.
TEST(Windows, SizeFollowsThePageFont) {
    ControlFont font;
    const view::FontSpec small_font{"DejaVu Sans", 10, 0}, large_font{"DejaVu Sans", 20, 0};
    for (const Window& c : windows()) {
        if (c.focus[0] == "OK") continue;  // a message box: as long as its text
        int width[2] = {}, height[2] = {};
        for (int i = 0; i < 2; ++i) {
            const view::FontSpec& chosen = i == 0 ? small_font : large_font;
            font.apply(chosen);
            const std::unique_ptr<Gtk::Dialog> dialog = c.open(view::TextShaper(chosen).cell());
            Gtk::Dialog& d = *dialog;
            d.show();
            ASSERT_TRUE(test::wait_until([&] { return d.get_mapped(); })) << c.title;
            width[i] = d.get_allocated_width();
            height[i] = d.get_allocated_height();
        }
        const view::CellSize small = view::TextShaper(small_font).cell();
        if (c.cells.first > 0) {  // the size the calendar gives the window
            EXPECT_NEAR(width[0], c.cells.first * small.width, small.width) << c.title;
            EXPECT_NEAR(height[0], c.cells.second * small.height, small.height) << c.title;
        }
        // The theme's paddings stay as they are, all else doubles.
        EXPECT_GT(width[1], width[0] * 1.5) << c.title;
        EXPECT_GT(height[1], height[0] * 1.3) << c.title;
    }
}

// Escape on a question is "Nein"; Return takes the button that has the
// focus, which the caller chooses; "J" and "N" with Alt pick by mnemonic.
TEST(MessageBoxes, QuestionAnswers) {
    struct Answer {
        QuestionBox::Default focus;
        guint key;
        GdkModifierType state;
        bool yes;
    };
    for (const auto& a :
         {Answer{QuestionBox::Default::Yes, GDK_KEY_Escape, GdkModifierType(0), false},
          Answer{QuestionBox::Default::Yes, GDK_KEY_Return, GdkModifierType(0), true},
          Answer{QuestionBox::Default::No, GDK_KEY_Return, GdkModifierType(0), false},
          Answer{QuestionBox::Default::No, GDK_KEY_j, GDK_MOD1_MASK, true},
          Answer{QuestionBox::Default::Yes, GDK_KEY_n, GDK_MOD1_MASK, false}}) {
        QuestionBox box(&parent_window(), "Sollen die Änderungen gespeichert werden?", a.focus);
        EXPECT_EQ(box.get_title(), "Frage");
        test::run_dialog(box, [&] { test::send_key(box, a.key, a.state); });
        EXPECT_EQ(box.answered_yes(), a.yes) << gdk_keyval_name(a.key);
    }
}

using Rows = std::vector<std::vector<std::string>>;

bool has_row(const Rows& rows, const std::vector<std::string>& row) {
    return std::find(rows.begin(), rows.end(), row) != rows.end();
}

std::vector<std::string> headings(Gtk::TreeView& list) {
    std::vector<std::string> texts;
    for (Gtk::TreeViewColumn* column : list.get_columns())
        texts.push_back(column->get_title());
    return texts;
}

// All 27 rows (8 + blank + 10 + blank + 7) show without scrolling: the rows
// are one character cell high.
TEST(HolidayList, Year2024) {
    HolidayListWindow window(parent_window(), cell(), 2024);
    ReadOnlyList& list = window.get_list();
    const Rows rows = list.get_rows();
    EXPECT_EQ(headings(list), (std::vector<std::string>{"2024", "Feiertag"}));
    EXPECT_EQ(rows.size(), 27u);
    EXPECT_EQ(rows[8], (std::vector<std::string>{"", ""}));
    EXPECT_EQ(test::accessible_name(list), "Feiertage 2024");
    window.show();
    const Glib::RefPtr<Gtk::Adjustment> scroll = list.get_vadjustment();
    ASSERT_TRUE(test::wait_until([&] { return window.get_mapped() && scroll->get_upper() > 0; }));
    EXPECT_LE(scroll->get_upper(), scroll->get_page_size());
    Gdk::Rectangle area;
    list.get_background_area(Gtk::TreePath("0"), *list.get_column(0), area);
    EXPECT_EQ(area.get_height(), cell().height);
}

TEST(SchoolHolidayList, Year2020) {
    SchoolHolidayWindow window(parent_window(), cell(), 2020);
    ReadOnlyList& list = window.get_list();
    EXPECT_EQ(headings(list), (std::vector<std::string>{"2020", "Bayerische Schulferien"}));
    const Rows rows = list.get_rows();
    EXPECT_EQ(rows.size(), 6u);
    EXPECT_TRUE(has_row(rows, {"Weihnachten", "23. Dezember - 9. Januar"}));
}

// Five crews and the month give six columns; model 7 has no table.
TEST(YearlyHoursWindow, FiveCrewsAndNone) {
    const auto table = [](int model) {
        return marks::yearly_hours(marks::PlanContext{.model = model}, 2024);
    };
    EXPECT_EQ(YearlyHoursWindow(parent_window(), cell(), table(7)).get_list(), nullptr);
    YearlyHoursWindow window(parent_window(), cell(), table(1));
    ReadOnlyList* list = window.get_list();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(headings(*list).front(), "Monat");
    EXPECT_EQ(headings(*list).size(), 6u);
    const Rows rows = list->get_rows();
    ASSERT_EQ(rows.size(), 14u);
    EXPECT_EQ(rows[0][0], "Januar");
    EXPECT_EQ(rows[0][1], "168,00");
    EXPECT_EQ(rows[12][0], "Summe");
    EXPECT_EQ(rows[13][0], "Soll");
}

}  // namespace
}  // namespace sk::app
