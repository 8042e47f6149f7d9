#include "app/commands.hpp"

#include <gdk/gdkkeysyms.h>

#include <array>
#include <iostream>

#include "app/date_entry_dialog.hpp"
#include "app/export_actions.hpp"
#include "app/holiday_list_window.hpp"
#include "app/info_dialog.hpp"
#include "app/main_window.hpp"
#include "app/marking_actions.hpp"
#include "app/message_box.hpp"
#include "app/model_chooser_dialog.hpp"
#include "app/note_actions.hpp"
#include "app/prog_menu_dialog.hpp"
#include "app/school_holiday_window.hpp"
#include "app/settings_dialog.hpp"
#include "app/text_window.hpp"
#include "app/user_commands.hpp"
#include "app/yearly_hours_window.hpp"
#include "calendar/shift_model.hpp"
#include "notes/notes_of_day.hpp"
#include "session/user_switch.hpp"
#include "view/hit_test.hpp"
#include "view/page_geometry.hpp"
#include "view/page_sources.hpp"
#include "view/status_texts.hpp"

namespace sk::app {

namespace {

using calendar::PageCommand;

constexpr std::array kKeys = {
    KeyBinding{GDK_KEY_Escape, Command::Quit},
    KeyBinding{GDK_KEY_F1, Command::YearBack},
    KeyBinding{GDK_KEY_F2, Command::MonthBack},
    KeyBinding{GDK_KEY_F3, Command::MonthForward},
    KeyBinding{GDK_KEY_F4, Command::YearForward},
    KeyBinding{GDK_KEY_F5, Command::PageBack},
    KeyBinding{GDK_KEY_Page_Up, Command::PageBack},
    KeyBinding{GDK_KEY_KP_Page_Up, Command::PageBack},
    KeyBinding{GDK_KEY_F6, Command::Today},
    KeyBinding{GDK_KEY_Home, Command::Today},
    KeyBinding{GDK_KEY_KP_Home, Command::Today},
    KeyBinding{GDK_KEY_F7, Command::PageForward},
    KeyBinding{GDK_KEY_Page_Down, Command::PageForward},
    KeyBinding{GDK_KEY_KP_Page_Down, Command::PageForward},
    KeyBinding{GDK_KEY_Left, Command::CursorLeft},
    KeyBinding{GDK_KEY_KP_Left, Command::CursorLeft},
    KeyBinding{GDK_KEY_Right, Command::CursorRight},
    KeyBinding{GDK_KEY_KP_Right, Command::CursorRight},
    KeyBinding{GDK_KEY_Up, Command::CursorUp},
    KeyBinding{GDK_KEY_KP_Up, Command::CursorUp},
    KeyBinding{GDK_KEY_Down, Command::CursorDown},
    KeyBinding{GDK_KEY_KP_Down, Command::CursorDown},
    KeyBinding{GDK_KEY_F8, Command::DateEntry},
    KeyBinding{GDK_KEY_d, Command::DateEntry},
    KeyBinding{GDK_KEY_F9, Command::NoteMenu},
    KeyBinding{GDK_KEY_F10, Command::ProgMenu},
    KeyBinding{GDK_KEY_F11, Command::Login},
    KeyBinding{GDK_KEY_a, Command::Login},
    KeyBinding{GDK_KEY_F12, Command::InfoMenu},
    KeyBinding{GDK_KEY_KP_Add, Command::MoreColumns},
    KeyBinding{GDK_KEY_plus, Command::MoreColumns},  // for keyboards without a keypad
    KeyBinding{GDK_KEY_KP_Subtract, Command::FewerColumns},
    KeyBinding{GDK_KEY_minus, Command::FewerColumns},
    KeyBinding{GDK_KEY_t, Command::DailyNote},
    KeyBinding{GDK_KEY_p, Command::PeriodicNote},
    KeyBinding{GDK_KEY_j, Command::YearlyNote},
    KeyBinding{GDK_KEY_w, Command::WeekdayNote},
    KeyBinding{GDK_KEY_u, Command::NotesOverview},
    KeyBinding{GDK_KEY_k, Command::CalendarMarking},
    KeyBinding{GDK_KEY_l, Command::DeleteUpTo},
    KeyBinding{GDK_KEY_1, Command::MarkEarly},
    KeyBinding{GDK_KEY_KP_1, Command::MarkEarly},
    KeyBinding{GDK_KEY_2, Command::MarkLate},
    KeyBinding{GDK_KEY_KP_2, Command::MarkLate},
    KeyBinding{GDK_KEY_3, Command::MarkNight},
    KeyBinding{GDK_KEY_KP_3, Command::MarkNight},
    KeyBinding{GDK_KEY_4, Command::MarkStandby},
    KeyBinding{GDK_KEY_KP_4, Command::MarkStandby},
    KeyBinding{GDK_KEY_i, Command::ProgramInfo},
    KeyBinding{GDK_KEY_s, Command::Font},
    KeyBinding{GDK_KEY_h, Command::BackgroundColour},
    KeyBinding{GDK_KEY_e, Command::Settings},
    KeyBinding{GDK_KEY_n, Command::ModelN},
    KeyBinding{GDK_KEY_m, Command::ModelM},
    KeyBinding{GDK_KEY_b, Command::ModelB},
    KeyBinding{GDK_KEY_v, Command::ModelV},
    KeyBinding{GDK_KEY_c, Command::ModelC},
    KeyBinding{GDK_KEY_x, Command::ModelX},
    KeyBinding{GDK_KEY_z, Command::Clipboard},
    KeyBinding{GDK_KEY_y, Command::RotateVacationOrder},
    KeyBinding{GDK_KEY_f, Command::VacationStart},
};

constexpr std::array kButtons = {
    ButtonEntry{Command::YearBack, "<Jahr", "[F1] Ein Jahr zurück"},
    ButtonEntry{Command::MonthBack, "<Monat", "[F2] Einen Monat zurück"},
    ButtonEntry{Command::MonthForward, "Monat>", "[F3] Einen Monat vor"},
    ButtonEntry{Command::YearForward, "Jahr>", "[F4] Ein Jahr vor"},
    ButtonEntry{Command::PageBack, "<Seite", "[F5] Eine Seite zurück"},
    ButtonEntry{Command::Today, "Heute", "[F6] Setzt den Kursor auf den heutigen Tag"},
    ButtonEntry{Command::PageForward, "Seite>", "[F7] Eine Seite vor"},
    ButtonEntry{Command::DateEntry, "Datum", "[F8] Direkte Eingabe eines Datums"},
    ButtonEntry{Command::NoteMenu, "Notiz", "[F9] Tagesnotiz eingeben"},
    ButtonEntry{Command::ProgMenu, "Prog.", "[F10] Unterprogramme auswählen"},
    ButtonEntry{Command::Login, "Name", "[F11] Als neuer Anwender anmelden"},
    ButtonEntry{Command::InfoMenu, "Info", "[F12] Verschiedene Infos zum Kalender und Programm"},
    ButtonEntry{Command::MoreColumns, "+", "[+] Mehr Monate anzeigen"},
    ButtonEntry{Command::FewerColumns, "\u2212", "[-] Weniger Monate anzeigen"},
    ButtonEntry{Command::BlockToggle, "Urlaubsblock", "Urlaubsblockanzeige ein- und ausschalten"},
};

std::optional<PageCommand> page_command(Command c) {
    switch (c) {
        case Command::YearBack:
            return PageCommand::YearBack;
        case Command::MonthBack:
            return PageCommand::MonthBack;
        case Command::MonthForward:
            return PageCommand::MonthForward;
        case Command::YearForward:
            return PageCommand::YearForward;
        case Command::PageBack:
            return PageCommand::PageBack;
        case Command::PageForward:
            return PageCommand::PageForward;
        case Command::CursorLeft:
            return PageCommand::CursorLeft;
        case Command::CursorRight:
            return PageCommand::CursorRight;
        case Command::CursorUp:
            return PageCommand::CursorUp;
        case Command::CursorDown:
            return PageCommand::CursorDown;
        default:
            return std::nullopt;
    }
}

std::optional<char> model_letter(Command c) {
    switch (c) {
        case Command::ModelN:
            return 'n';
        case Command::ModelM:
            return 'm';
        case Command::ModelB:
            return 'b';
        case Command::ModelV:
            return 'v';
        case Command::ModelC:
            return 'c';
        case Command::ModelX:
            return 'x';
        default:
            return std::nullopt;
    }
}

// The Pango description of a page font ("DejaVu Sans Bold 10").
Pango::FontDescription pango_font(const view::FontSpec& font) {
    Pango::FontDescription description;
    description.set_family(font.family);
    description.set_size(font.size * PANGO_SCALE);
    if (font.style & 1) description.set_weight(Pango::WEIGHT_BOLD);
    if (font.style & 2) description.set_style(Pango::STYLE_ITALIC);
    return description;
}

}  // namespace

std::span<const KeyBinding> key_bindings() {
    return kKeys;
}
std::span<const ButtonEntry> button_entries() {
    return kButtons;
}

std::optional<Command> command_for_key(guint keyval, GdkModifierType state) {
    const auto modifiers =
        state & (GDK_CONTROL_MASK | GDK_MOD1_MASK | GDK_SUPER_MASK | GDK_META_MASK);
    if (modifiers == GDK_CONTROL_MASK && gdk_keyval_to_lower(keyval) == GDK_KEY_p)
        return Command::Print;
    if (state & (GDK_CONTROL_MASK | GDK_MOD1_MASK | GDK_SUPER_MASK | GDK_META_MASK))
        return std::nullopt;
    const guint key = gdk_keyval_to_lower(keyval);
    for (const KeyBinding& binding : kKeys)
        if (binding.keyval == key) return binding.command;
    return std::nullopt;
}

std::string start_title(std::string_view user) {
    return "Quorvel Schichtkalender - Benutzername: " + std::string(user);
}
std::string login_title(std::string_view user) {
    return "Quorvel Schichtkalender  - Benutzername: " + std::string(user);
}

CommandDispatcher::CommandDispatcher(MainWindow& window, AppState& state)
    : m_window(window), m_state(state), m_extras(view::page_extras(state.session)) {}

Gtk::Window& CommandDispatcher::window() {
    return m_window;
}
view::CellSize CommandDispatcher::cell() {
    return m_state.renderer.cell();
}

bool CommandDispatcher::page_fits(int columns, view::CellSize c) const {
    const std::optional<ScreenSize> screen = m_state.screen ? m_state.screen() : std::nullopt;
    return screen && view::geometry::page_fits_screen(c, columns, screen->width, screen->height);
}

void CommandDispatcher::run(Command command) {
    if (m_quit) return;
    if (const auto page = page_command(command))
        return set_page(calendar::apply(m_state.page, *page));
    if (const auto letter = model_letter(command)) return switch_model(*letter);
    switch (command) {
        case Command::Quit:
            return quit(true);
        case Command::Today:
            return set_page(calendar::go_to_today(m_state.page, m_state.today));
        case Command::MoreColumns:
            return change_columns(1);
        case Command::FewerColumns:
            return change_columns(-1);
        case Command::DateEntry:
            return enter_date();
        case Command::VacationStart:
            return enter_vacation_start();
        case Command::NotesOverview:
            return show_notes_overview();
        case Command::NoteMenu:
            return note_menu();
        case Command::DailyNote:
            return edit_note(notes::NoteKind::Daily);
        case Command::PeriodicNote:
            return edit_note(notes::NoteKind::Periodic);
        case Command::YearlyNote:
            return edit_note(notes::NoteKind::Yearly);
        case Command::WeekdayNote:
            return edit_note(notes::NoteKind::Weekday);
        case Command::DeleteUpTo:
            return delete_up_to();
        case Command::Font:
            return choose_font();
        case Command::BackgroundColour:
            return choose_background();
        case Command::Clipboard:
            return copy_to_clipboard();
        case Command::ProgMenu:
            return prog_menu();
        case Command::InfoMenu:
            return info_menu();
        case Command::ModelChooser:
            return choose_model();
        case Command::RotateVacationOrder:
            session::rotate_vacation_order(m_state.session);
            return changed(kPage | kStatus);
        case Command::BlockToggle:
            if (!calendar::offers_block_toggle(m_state.page.model)) return;
            m_state.session.settings.vacation_block_shown =
                m_state.session.settings.vacation_block_shown ? 0 : 1;
            return changed(kPage | kStatus);
        case Command::MarkEarly:
            return open_shift_marking(m_state.page.cursor, 1);
        case Command::MarkLate:
            return open_shift_marking(m_state.page.cursor, 2);
        case Command::MarkNight:
            return open_shift_marking(m_state.page.cursor, 3);
        case Command::MarkStandby:
            return open_shift_marking(m_state.page.cursor, 4);
        case Command::Hours:
            return open_hours();
        case Command::Vacation:
            if (edit_vacation(window(), cell(), m_state.session, m_state.today)) changed(kStatus);
            return;
        case Command::CalendarMarking:
            if (edit_calendar_marking(window(), cell(), m_state.session, m_state.page.cursor))
                changed(kPage | kStatus);
            return;
        case Command::ProgramInfo:
        case Command::ProgInfoText:
            return show_help(command);
        case Command::Login:
            return log_in();
        case Command::Settings:
            return edit_settings();
        case Command::DataDirectory:
            return change_data_directory();
        case Command::Print:
            return print_page();
        case Command::Export:
            export_plan(window(), cell(), m_state.session, m_state.page);
            return;
        default:
            // The page moves and the model keys are handled above.
            return;
    }
}

// Keys F11 and A, button "Name".
void CommandDispatcher::log_in() {
    if (run_login(window(), cell(), m_state.session)) session_replaced();
}

// "Prog." - "Programmverzeichnis".
void CommandDispatcher::change_data_directory() {
    DataRootChange change(window(), m_state.session, m_state.start_user_dir);
    if (change.run()) session_replaced();
}

void CommandDispatcher::session_replaced() {
    const settings::Settings& s = m_state.session.settings;
    m_state.renderer.set_font(view::font_spec(s));
    calendar::PageState page = m_state.page;
    page.columns = s.columns;
    page.model = s.model;
    page = calendar::normalized(page);
    // As at the start: seven or more columns that do not fit fall back to six.
    if (page.columns >= 7 && !page_fits(page.columns, cell())) {
        page.columns = calendar::kMinColumns;
        page = calendar::normalized(page);
    }
    m_state.page = page;
    changed(kSources | kPage | kStatus | kSize | kControls | kTitle);
}

// Key E, "Prog." - "Einstellungen": saved at once, then drawn anew.
void CommandDispatcher::edit_settings() {
    std::optional<settings::Settings> saved;
    {
        SettingsDialog dialog(window(), cell(), m_state.session.settings);
        if (dialog.run() != Gtk::RESPONSE_OK) return;
        saved = dialog.get_settings();
    }
    if (!saved) return;
    const std::string error = session::apply_settings(m_state.session, *saved);
    changed(kSources | kPage | kStatus | kSize);
    if (!error.empty()) show_error(&window(), to_ustring(error));
}

// Ctrl+P: the shown months on paper, without the cursor and on white, as a
// plan for the wall.
void CommandDispatcher::print_page() {
    const calendar::PageState& p = m_state.page;
    view::PageRequest request =
        view::page_request(m_state.session, calendar::Day::from_date(p.year, p.month_index, 1),
                           p.cursor, m_state.today);
    request.cursor.reset();
    const view::PageLayout layout = m_state.renderer.layout(request, m_extras);
    if (m_printer.print(window(), layout) == Gtk::PRINT_OPERATION_RESULT_ERROR)
        show_error(&window(), to_ustring(m_printer.error()));
}

// Keys 1 to 4 and a double click into a crew's cell. The day to be marked
// becomes the cursor day, wherever it was clicked; a marking shows at once on
// the page and in the account fields.
void CommandDispatcher::open_shift_marking(const calendar::Day& day, int column) {
    const calendar::PageState page = calendar::select_day(m_state.page, day);
    if (!(page == m_state.page)) set_page(page);
    if (edit_shift_marking(window(), cell(), m_state.session, day, column))
        changed(kPage | kStatus);
}

// A click on the hours field and "Prog." - "Stunden".
void CommandDispatcher::open_hours() {
    if (edit_hours(window(), cell(), m_state.session)) changed(kStatus);
}

void CommandDispatcher::set_page(const calendar::PageState& page) {
    const calendar::PageState& old = m_state.page;
    const bool resized = page.columns != old.columns || page.model != old.model;
    const bool cursor_only =
        !resized && page.year == old.year && page.month_index == old.month_index;
    m_state.page = page;
    changed((cursor_only ? kCursor : kPage) | kStatus | (resized ? kSize : 0u));
}

void CommandDispatcher::changed(unsigned what) {
    keep_page_in_settings(m_state);
    if (what & kSources) m_extras = view::page_extras(m_state.session);
    if (what & kControls) {
        m_control_font.apply(m_state.renderer.font());
        m_window.status_lines().rebuild(cell());
    }
    if (what & kTitle) m_window.set_title(login_title(m_state.session.user));
    if (what & (kPage | kCursor)) {
        const calendar::PageState& p = m_state.page;
        const view::PageRequest request =
            view::page_request(m_state.session, calendar::Day::from_date(p.year, p.month_index, 1),
                               p.cursor, m_state.today);
        view::PageLayout layout = m_state.renderer.layout(request, m_extras);
        layout.background = m_state.background;
        m_window.page_view().show_page(std::move(layout), !(what & kPage));
        m_window.set_block_toggle_visible(calendar::offers_block_toggle(p.model));
    }
    if (what & (kStatus | kPage | kCursor))
        m_window.status_lines().show_texts(
            view::status_texts(m_state.session, m_state.page.cursor, m_state.today));
    if (what & (kSize | kControls))
        m_window.fit_to_page(m_state.screen ? m_state.screen() : std::nullopt);
}

void CommandDispatcher::change_columns(int delta) {
    const calendar::ColumnChange change = calendar::change_columns(m_state.page, delta);
    if (change.check_screen && !page_fits(change.state.columns, cell())) {
        show_error(&window(), std::string(calendar::kColumnsTooWide));
        return;
    }
    set_page(change.state);
}

void CommandDispatcher::switch_model(char key) {
    if (const auto model = calendar::model_for_key(m_state.page.model, static_cast<char32_t>(key)))
        set_page(calendar::switch_model(m_state.page, *model));
}

void CommandDispatcher::click(double x, double y) {
    const view::PageLayout* layout = m_window.page_view().page();
    if (!layout || m_quit) return;
    const view::PageHit hit = view::hit_test(*layout, x, y);
    if (hit.kind == view::HitKind::Nothing) return;
    const calendar::PageState page = calendar::select_day(m_state.page, hit.day);
    if (!(page == m_state.page)) set_page(page);
}

void CommandDispatcher::double_click(double x, double y) {
    const view::PageLayout* layout = m_window.page_view().page();
    if (!layout || m_quit) return;
    const view::PageHit hit = view::hit_test(*layout, x, y);
    if (hit.kind != view::HitKind::Shift) return;
    if (const auto column = view::marking_column(m_state.page.model, hit.crew, hit.shift))
        open_shift_marking(hit.day, *column);
}

void CommandDispatcher::scroll(int direction) {
    run(direction < 0 ? Command::MonthBack : Command::MonthForward);
}

// Key Z: the page as the window shows it, at its own size (the render
// command writes the same image), without asking first.
void CommandDispatcher::copy_to_clipboard() {
    const view::PageLayout* layout = m_window.page_view().page();
    if (!layout) return;
    const view::SurfacePtr image = view::render_image(*layout, 1.0);
    if (!image) return;
    GdkPixbuf* pixbuf =
        gdk_pixbuf_get_from_surface(image.get(), 0, 0, cairo_image_surface_get_width(image.get()),
                                    cairo_image_surface_get_height(image.get()));
    if (!pixbuf) return;
    Gtk::Clipboard::get()->set_image(Glib::wrap(pixbuf));
    show_information(&window(), std::string(kCopiedMessage));
}

bool CommandDispatcher::try_font(const view::FontSpec& font) {
    const view::TextShaper probe(font);
    if (!page_fits(m_state.page.columns, probe.cell())) {
        show_error(&window(), std::string(kFontTooLarge));
        return false;
    }
    m_state.renderer.set_font(font);
    settings::Settings& s = m_state.session.settings;
    s.font_name = font.family;
    s.font_size = font.size;
    s.font_style = font.style;
    changed(kPage | kStatus | kControls | kSize);
    return true;
}

void CommandDispatcher::choose_font() {
    view::FontSpec chosen;
    {
        Gtk::FontChooserDialog dialog("Schriftart", window());
        dialog.set_font_desc(pango_font(m_state.renderer.font()));
        dialog.set_preview_text("23 Mo KW 48 · Frühschicht, Spätschicht, Nachtschicht");
        if (dialog.run() != Gtk::RESPONSE_OK) return;
        const Pango::FontDescription description = dialog.get_font_desc();
        chosen.family = description.get_family();
        // The settings keep whole points within 6..72.
        chosen.size = std::clamp((description.get_size() + PANGO_SCALE / 2) / PANGO_SCALE, 6, 72);
        chosen.style = (description.get_weight() >= Pango::WEIGHT_BOLD ? 1 : 0) |
                       (description.get_style() != Pango::STYLE_NORMAL ? 2 : 0);
        if (chosen.family.empty()) return;
    }
    try_font(chosen);
}

void CommandDispatcher::choose_background() {
    // gtkmm's constructor with a parent sets the widget's "parent" property
    // instead of the transient parent (GTK warns and the chooser floats free).
    Gtk::ColorChooserDialog dialog("Hintergrundfarbe");
    dialog.set_transient_for(window());
    dialog.set_use_alpha(false);
    Gdk::RGBA current;
    current.set_rgba_u(m_state.background.r * 257, m_state.background.g * 257,
                       m_state.background.b * 257);
    dialog.set_rgba(current);
    if (dialog.run() != Gtk::RESPONSE_OK) return;
    const Gdk::RGBA c = dialog.get_rgba();
    m_state.background = {static_cast<std::uint8_t>(c.get_red_u() / 257),
                          static_cast<std::uint8_t>(c.get_green_u() / 257),
                          static_cast<std::uint8_t>(c.get_blue_u() / 257)};
    changed(kPage);
}

void CommandDispatcher::enter_date() {
    calendar::Day chosen;
    {
        DateEntryDialog dialog(window(), cell(), DateEntryDialog::Purpose::GoTo,
                               calendar::date_entry_start(m_state.page), calendar::kDateEntryFirst,
                               calendar::kDateEntryLast);
        if (dialog.run() != Gtk::RESPONSE_OK) return;
        chosen = dialog.get_date();
    }
    set_page(calendar::apply_entered_date(m_state.page, chosen));
}

// Key F: for this run only; the page and the accounts follow at once.
void CommandDispatcher::enter_vacation_start() {
    calendar::Day chosen;
    {
        DateEntryDialog dialog(
            window(), cell(), DateEntryDialog::Purpose::VacationStart,
            calendar::vacation_start_entry(m_state.session.vacation_start, m_state.page.year),
            calendar::kFirstDay, calendar::kLastDay);
        if (dialog.run() != Gtk::RESPONSE_OK) return;
        chosen = dialog.get_date();
    }
    m_state.session.vacation_start = calendar::entered_vacation_start(chosen);
    changed(kPage | kStatus);
}

void CommandDispatcher::show_todays_notes() {
    const std::string text =
        notes::notes_of_day(m_state.session.notes, m_state.today, notes::Separator::MultiLine);
    if (text.empty()) return;
    TextWindow notes_window(window(), cell(), notes_title(m_state.today), text,
                            TextWindow::kNotesSize);
    notes_window.run();
}

void CommandDispatcher::show_notes_overview() {
    const calendar::PageState& p = m_state.page;
    const std::string text =
        notes::notes_overview(m_state.session.notes, calendar::first_shown_day(p).number,
                              calendar::last_shown_day(p).number, m_state.today);
    if (text.empty()) {
        show_information(&window(), std::string(notes::kNoNotesInRange));
        return;
    }
    TextWindow overview(window(), cell(), kOverviewTitle, text, TextWindow::kNotesSize);
    overview.run();
}

// The note menu closes before the chosen window opens.
void CommandDispatcher::note_menu() {
    const std::optional<NoteMenuChoice> choice = choose_from_note_menu(window(), cell());
    if (!choice) return;
    if (const std::optional<notes::NoteKind> kind = note_kind_of(*choice)) return edit_note(*kind);
    switch (*choice) {
        case NoteMenuChoice::CalendarMarking:
            return run(Command::CalendarMarking);
        case NoteMenuChoice::ShiftMarking:
            return mark_shift_from_note_menu();
        case NoteMenuChoice::Delete:
            return delete_up_to();
        case NoteMenuChoice::Overview:
            return show_notes_overview();
        case NoteMenuChoice::Info: {
            HelpWindow help(window(), cell(), HelpTopic::Notes);
            help.run();
            return;
        }
        default:
            return;
    }
}

// The editors open on the cursor day; a saved or deleted note shows at once
// in the page's highlight and the notes line.
void CommandDispatcher::edit_note(notes::NoteKind kind) {
    if (app::edit_note(window(), cell(), m_state.session, kind, m_state.page.cursor))
        changed(kPage | kStatus);
}

void CommandDispatcher::delete_up_to() {
    if (delete_notes_up_to(window(), cell(), m_state.session, m_state.page.cursor))
        changed(kPage | kStatus);
}

// The note menu's "Schichtmarkierung": the column chooser "Schichtspalte
// eingeben" first, then the marking of the cursor day in that column.
void CommandDispatcher::mark_shift_from_note_menu() {
    if (choose_column_and_edit_shift_marking(window(), cell(), m_state.session,
                                             m_state.page.cursor))
        changed(kPage | kStatus);
}

// The "Prog." window closes before the chosen window opens.
void CommandDispatcher::prog_menu() {
    std::optional<ProgChoice> choice;
    {
        ProgMenuDialog dialog(window(), cell());
        dialog.run();
        choice = dialog.get_choice();
    }
    if (!choice) return;
    switch (*choice) {
        case ProgChoice::Calendar:
            return choose_model();
        case ProgChoice::Font:
            return choose_font();
        case ProgChoice::BackgroundColour:
            return choose_background();
        case ProgChoice::Hours:
            return open_hours();
        case ProgChoice::Vacation:
            return run(Command::Vacation);
        case ProgChoice::Directory:
            return change_data_directory();
        case ProgChoice::Settings:
            return edit_settings();
        case ProgChoice::Export:
            return run(Command::Export);
        case ProgChoice::Info:
            return show_help(Command::ProgInfoText);
    }
}

void CommandDispatcher::info_menu() {
    std::optional<InfoChoice> choice;
    {
        InfoDialog dialog(window(), cell());
        dialog.run();
        choice = dialog.get_choice();
    }
    if (!choice) return;
    switch (*choice) {
        case InfoChoice::YearlyHours: {
            // The year of the cursor's month column.
            YearlyHoursWindow hours(window(), cell(),
                                    marks::yearly_hours(session::plan_context(m_state.session),
                                                        m_state.page.cursor.year));
            hours.run();
            return;
        }
        case InfoChoice::SchoolHolidays: {
            SchoolHolidayWindow list(window(), cell(),
                                     m_state.page.year);  // the first column's year
            list.run();
            return;
        }
        case InfoChoice::Holidays: {
            HolidayListWindow list(window(), cell(), m_state.page.year);
            list.run();
            return;
        }
        default:
            if (const auto topic = help_topic(*choice)) {
                HelpWindow help(window(), cell(), *topic);
                help.run();
            }
            return;
    }
}

void CommandDispatcher::choose_model() {
    std::optional<int> model;
    {
        ModelChooserDialog dialog(window(), cell(), m_state.page.model);
        dialog.run();
        model = dialog.get_model();
    }
    if (model) set_page(calendar::switch_model(m_state.page, *model));
}

// Key I and the "Prog." window's "Info": the overview of the program.
void CommandDispatcher::show_help(Command) {
    HelpWindow help(window(), cell(), HelpTopic::ProgramInfo);
    help.run();
}

void CommandDispatcher::quit(bool can_show) {
    if (m_quit) return;
    m_quit = true;
    keep_page_in_settings(m_state);
    for (const std::string& error : session::save_on_exit(m_state.session)) {
        if (can_show)
            show_error(&window(), error);
        else
            std::cerr << "schichtkalender: " << error << '\n';
    }
    m_window.hide();
}

}  // namespace sk::app
