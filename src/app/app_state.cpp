#include "app/app_state.hpp"

#include "view/page_text.hpp"

namespace sk::app {

AppState::AppState(session::Session s, const calendar::Day& today_)
    : session(std::move(s)),
      page(calendar::page_at_today(session.settings.columns, session.settings.model, today_)),
      today(today_),
      renderer(view::font_spec(session.settings)),
      start_user_dir(session.user_dir) {
    keep_page_in_settings(*this);
}

void keep_page_in_settings(AppState& state) {
    state.session.settings.columns = state.page.columns;
    state.session.settings.model = state.page.model;
}

}  // namespace sk::app
