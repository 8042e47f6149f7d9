#include "app/marking_actions.hpp"

#include <string>

#include "app/calendar_marking_dialog.hpp"
#include "app/hours_dialog.hpp"
#include "app/message_box.hpp"
#include "app/shift_column_dialog.hpp"
#include "app/shift_marking_dialog.hpp"
#include "app/vacation_dialog.hpp"
#include "marks/account_files.hpp"
#include "marks/accounts.hpp"
#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"

namespace sk::app {

namespace {

std::string not_written(std::string_view file) {
    return "Die Datei \"" + std::string(file) +
           "\" konnte nicht geschrieben werden. Die Eingabe bleibt erhalten, solange das Programm "
           "läuft, und wird beim Beenden noch einmal gespeichert.";
}

std::string account_not_written(std::string_view file) {
    return "Die Datei \"" + std::string(file) +
           "\" konnte nicht geschrieben werden. Die Eingabe gilt, bis das Programm endet.";
}

void save_shift_markings_now(Gtk::Window& parent, session::Session& session) {
    if (session.read_only) return;
    if (!marks::save_shift_markings(session.user_dir, session.shift_markings))
        show_error(&parent, not_written(marks::kShiftMarkingsFile));
}

void save_calendar_markings_now(Gtk::Window& parent, session::Session& session) {
    if (session.read_only) return;
    if (!marks::save_calendar_markings(session.user_dir, session.calendar_markings))
        show_error(&parent, not_written(marks::kCalendarMarkingsFile));
}

}  // namespace

bool edit_shift_marking(Gtk::Window& parent, view::CellSize cell, session::Session& session,
                        const calendar::Day& day, int column) {
    const int model = session.settings.model;
    const marks::MarkRefusal refusal = marks::mark_refusal(model, day, column);
    if (refusal != marks::MarkRefusal::None) {
        show_information(&parent, marks::refusal_message(refusal, model, day, column));
        return false;
    }
    const marks::ShiftMarking* current =
        marks::shift_marking_of_day(session.shift_markings, day.number);
    ShiftMarkingDialog dialog(parent, cell, model, column, day,
                              marks::preselected_code(marks::marking_kind(model), current));
    dialog.run();
    if (!dialog.get_code()) return false;
    dialog.hide();
    if (!marks::apply_marking(session.shift_markings, day.number, column, *dialog.get_code(),
                              model))
        return false;
    save_shift_markings_now(parent, session);
    return true;
}

bool choose_column_and_edit_shift_marking(Gtk::Window& parent, view::CellSize cell,
                                          session::Session& session, const calendar::Day& day) {
    int column = 0;
    {
        ShiftColumnDialog chooser(parent, cell, session.settings.model);
        chooser.run();
        column = chooser.get_column();
    }
    if (column == 0) return false;
    return edit_shift_marking(parent, cell, session, day, column);
}

bool edit_calendar_marking(Gtk::Window& parent, view::CellSize cell, session::Session& session,
                           const calendar::Day& day) {
    CalendarMarkingDialog dialog(parent, cell,
                                 marks::propose_marking(session.calendar_markings, day.number));
    dialog.run();
    dialog.hide();
    const marks::CalendarMarking entered =
        marks::ordered(dialog.get_start().number, dialog.get_end().number, dialog.get_colour());
    switch (dialog.get_action()) {
        case CalendarMarkingDialog::Action::None:
            return false;
        case CalendarMarkingDialog::Action::Save:
            marks::save_marking(session.calendar_markings, entered.start, entered.end,
                                entered.colour);
            break;
        case CalendarMarkingDialog::Action::Delete:
            if (!marks::delete_marking_at(session.calendar_markings, entered.start)) {
                show_information(&parent, "Am " +
                                              calendar::format_german_date(
                                                  calendar::Day::from_number(entered.start)) +
                                              " liegt keine Kalendermarkierung; es wurde nichts "
                                              "gelöscht.");
                return false;
            }
            break;
    }
    save_calendar_markings_now(parent, session);
    return true;
}

bool edit_hours(Gtk::Window& parent, view::CellSize cell, session::Session& session) {
    HoursDialog dialog(parent, cell, session.accounts.hours,
                       marks::keeps_accounts(session.settings.model));
    if (dialog.run() != Gtk::RESPONSE_OK) return false;
    dialog.hide();
    session.accounts.hours = dialog.get_hours();
    if (!session.read_only && !marks::save_hours_file(session.user_dir, session.accounts.hours))
        show_error(&parent, account_not_written(marks::kHoursFile));
    return true;
}

bool edit_vacation(Gtk::Window& parent, view::CellSize cell, session::Session& session,
                   const calendar::Day& today) {
    VacationDialog dialog(parent, cell, session.accounts.vacation, session.accounts.hours.home_crew,
                          calendar::day_number(today.year, 0, 1),
                          marks::keeps_accounts(session.settings.model));
    if (dialog.run() != Gtk::RESPONSE_OK) return false;
    dialog.hide();
    session.accounts.vacation = dialog.get_vacation();
    session.accounts.hours.home_crew = dialog.get_home_crew();
    if (session.read_only) return true;
    if (!marks::save_vacation_file(session.user_dir, session.accounts.vacation))
        show_error(&parent, account_not_written(marks::kVacationFile));
    if (!marks::save_hours_file(session.user_dir, session.accounts.hours))
        show_error(&parent, account_not_written(marks::kHoursFile));
    return true;
}

}  // namespace sk::app
