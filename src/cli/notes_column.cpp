#include "cli/notes_column.hpp"

#include <filesystem>
#include <memory>

#include "notes/notes_of_day.hpp"
#include "files/text_encoding.hpp"

namespace sk::cli {

std::shared_ptr<notes::NoteStore> user_note_store(const UserContext& context, const Options& options) {
    std::string password;
    if (const auto typed = options.value("password")) {
        files::EncodeError error;
        const auto latin9 = files::utf8_to_latin9(*typed, &error);
        if (!latin9)
            throw UsageError("das Passwort (--password) ist nicht verwendbar: " + error.message);
        password = *latin9;
    }
    std::error_code ec;
    if (!std::filesystem::is_directory(context.user_dir, ec)) return nullptr;
    auto store = std::make_shared<notes::NoteStore>(context.user_dir, std::move(password));
    store->scan_all();
    return store;
}

std::function<std::string(const calendar::Day&)> notes_column(const UserContext& context,
                                                              const Options& options) {
    auto store = user_note_store(context, options);
    if (!store) return {};
    return [store](const calendar::Day& day) {
        return notes::notes_of_day(*store, day, notes::Separator::OneLine);
    };
}

}  // namespace sk::cli
