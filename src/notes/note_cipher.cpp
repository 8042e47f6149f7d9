#include "notes/note_cipher.hpp"

namespace sk::notes {

std::string encipher_note(std::string_view latin9, std::string_view password_latin9) {
    if (password_latin9.empty()) return std::string(latin9);
    std::string out;
    out.reserve(latin9.size() * 3);
    std::size_t k = 0;
    for (const char t : latin9) {
        const auto c =
            static_cast<unsigned>(static_cast<unsigned char>(t) ^
                                  static_cast<unsigned char>(password_latin9[k]));  // [0, 255]
        out += static_cast<char>('0' + c / 100);
        out += static_cast<char>('0' + c / 10 % 10);
        out += static_cast<char>('0' + c % 10);
        if (++k == password_latin9.size()) k = 0;
    }
    return out;
}

std::string decipher_note(std::string_view stored, std::string_view password_latin9) {
    if (password_latin9.empty()) return std::string(stored);
    std::string out;
    out.reserve(stored.size() / 3 + 1);
    std::size_t k = 0;
    for (std::size_t i = 0; i < stored.size(); i += 3) {
        // The value of the group's leading digits, 0 to 999.
        unsigned value = 0;
        for (std::size_t j = i;
             j < i + 3 && j < stored.size() && stored[j] >= '0' && stored[j] <= '9'; ++j)
            value = value * 10 + static_cast<unsigned>(stored[j] - '0');
        const unsigned code = (value ^ static_cast<unsigned char>(password_latin9[k])) & 0xFFu;
        out += static_cast<char>(code);
        if (++k == password_latin9.size()) k = 0;
    }
    return out;
}

}  // namespace sk::notes
