#include "settings/users.hpp"

#include "files/text_encoding.hpp"

namespace sk::settings {

std::optional<std::string> user_name_error(std::string_view name) {
    if (name.empty()) return "Bitte einen Benutzernamen eingeben.";
    const auto characters = files::decode_utf8(name);
    if (!characters) return "Der Benutzername ist kein gültiger Text.";
    if (characters->size() > kMaxUserNameLength)
        return "Der Benutzername darf höchstens 50 Zeichen lang sein.";
    if (name == "." || name == "..")
        return "Der Benutzername darf nicht \".\" oder \"..\" lauten.";
    for (const char32_t c : *characters) {
        if (c == U'/') return "Der Benutzername darf keinen Schrägstrich \"/\" enthalten.";
        if (c < 0x20 || (c >= 0x7F && c < 0xA0))
            return "Der Benutzername darf keine Steuerzeichen enthalten.";
    }
    files::EncodeError error;
    if (!files::utf8_to_latin9(name, &error)) return error.message;
    return std::nullopt;
}

}  // namespace sk::settings
