// A read-only list of text rows with headed columns, sized in character
// cells: the body of the "Feiertage", "Ferientermine" and "Jahresstunden"
// windows. Up to six columns; rows can be set in bold (sums).
#pragma once

#include <gtkmm.h>

#include <string>
#include <vector>

#include "view/page_text.hpp"

namespace sk::app {

struct ListColumn {
    Glib::ustring heading;
    double width = 10;  // cells
    bool right_aligned = false;
};

class ReadOnlyList : public Gtk::TreeView {
  public:
    static constexpr int kMaxColumns = 6;

    // `name` is the list's accessible name.
    ReadOnlyList(view::CellSize cell, const Glib::ustring& name,
                 const std::vector<ListColumn>& columns);

    void add_row(const std::vector<std::string>& texts, bool bold = false);
    // The texts of every row, for the tests and for screen readers' sake.
    std::vector<std::vector<std::string>> get_rows() const;
    int get_column_count() const { return m_column_count; }

  private:
    struct Record : Gtk::TreeModelColumnRecord {
        Record() {
            for (auto& text : texts)
                add(text);
            add(weight);
        }
        std::array<Gtk::TreeModelColumn<Glib::ustring>, kMaxColumns> texts;
        Gtk::TreeModelColumn<int> weight;
    };

    Record m_record;
    Glib::RefPtr<Gtk::ListStore> m_store;
    int m_column_count = 0;
};

}  // namespace sk::app
