#include "app/read_only_list.hpp"

#include <algorithm>

#include "app/ui_support.hpp"

namespace sk::app {

ReadOnlyList::ReadOnlyList(view::CellSize cell, const Glib::ustring& name,
                           const std::vector<ListColumn>& columns)
    : m_store(Gtk::ListStore::create(m_record)),
      m_column_count(std::min(static_cast<int>(columns.size()), kMaxColumns)) {
    set_model(m_store);
    set_accessible_name(*this, name);
    set_enable_search(false);
    set_headers_clickable(false);
    // Rows exactly one character cell high (the theme's minimum row height,
    // the expander size, would make them taller even without expanders), so
    // that the lists fit their windows in cells; headings in the text colour,
    // as the theme greys headings that cannot be clicked.
    const Glib::RefPtr<Gtk::CssProvider> rows = Gtk::CssProvider::create();
    const Glib::RefPtr<Gtk::CssProvider> headings = Gtk::CssProvider::create();
    try {
        rows->load_from_data(
            "treeview { -GtkTreeView-vertical-separator: 0; -GtkTreeView-expander-size: 0; }");
        headings->load_from_data("button { color: @theme_fg_color; }");
    } catch (const Glib::Error&) {
        // The theme's spacing and colours stay.
    }
    get_style_context()->add_provider(rows, GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    get_selection()->set_mode(Gtk::SELECTION_BROWSE);
    for (int i = 0; i < m_column_count; ++i) {
        const ListColumn& c = columns[static_cast<std::size_t>(i)];
        auto* renderer = Gtk::manage(new Gtk::CellRendererText());
        renderer->property_ypad() = 0;
        renderer->set_fixed_size(-1, cells_high(cell, 1));
        renderer->property_xalign() = c.right_aligned ? 1.0f : 0.0f;
        auto* column = Gtk::manage(new Gtk::TreeViewColumn(c.heading));
        column->pack_start(*renderer, true);
        column->add_attribute(renderer->property_text(),
                              m_record.texts[static_cast<std::size_t>(i)]);
        column->add_attribute(renderer->property_weight(), m_record.weight);
        column->set_sizing(Gtk::TREE_VIEW_COLUMN_FIXED);
        column->set_fixed_width(cells_wide(cell, c.width));
        column->set_alignment(c.right_aligned ? 1.0f : 0.0f);
        column->set_resizable(false);
        append_column(*column);
        if (Gtk::Widget* heading = column->get_button())
            heading->get_style_context()->add_provider(headings,
                                                       GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    }
}

void ReadOnlyList::add_row(const std::vector<std::string>& texts, bool bold) {
    Gtk::TreeModel::Row row = *m_store->append();
    for (int i = 0; i < m_column_count; ++i) {
        const auto index = static_cast<std::size_t>(i);
        row[m_record.texts[index]] = index < texts.size() ? display_text(texts[index]) : "";
    }
    row[m_record.weight] = bold ? Pango::WEIGHT_BOLD : Pango::WEIGHT_NORMAL;
}

std::vector<std::vector<std::string>> ReadOnlyList::get_rows() const {
    std::vector<std::vector<std::string>> rows;
    for (const Gtk::TreeModel::Row& row : m_store->children()) {
        std::vector<std::string> texts;
        for (int i = 0; i < m_column_count; ++i)
            texts.push_back(Glib::ustring(row[m_record.texts[static_cast<std::size_t>(i)]]).raw());
        rows.push_back(std::move(texts));
    }
    return rows;
}

}  // namespace sk::app
