#include "files/text_encoding.hpp"

#include <cstdio>

namespace sk::files {

namespace {

// The eight places where ISO-8859-15 differs from ISO-8859-1.
struct Difference {
    unsigned char code;
    char32_t character;
};
constexpr Difference kDifferences[] = {
    {0xA4, U'\u20AC'}, {0xA6, U'\u0160'}, {0xA8, U'\u0161'}, {0xB4, U'\u017D'},
    {0xB8, U'\u017E'}, {0xBC, U'\u0152'}, {0xBD, U'\u0153'}, {0xBE, U'\u0178'},
};

char32_t latin9_character(unsigned char code) {
    for (const auto& d : kDifferences)
        if (d.code == code) return d.character;
    return code;
}

std::string describe(char32_t c) {
    std::string text = "\"";
    append_utf8(text, c);
    char hex[16];
    std::snprintf(hex, sizeof hex, "\" (U+%04X)", static_cast<unsigned>(c));
    return text + hex;
}

}  // namespace

void append_utf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

std::string latin9_to_utf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    for (const char b : bytes) append_utf8(out, latin9_character(static_cast<unsigned char>(b)));
    return out;
}

std::optional<unsigned char> latin9_code(char32_t c) {
    for (const auto& d : kDifferences) {
        if (d.character == c) return d.code;
        if (d.code == c) return std::nullopt;  // the Latin-1 character that was replaced
    }
    if (c < 0x100) return static_cast<unsigned char>(c);
    return std::nullopt;
}

std::optional<std::u32string> decode_utf8(std::string_view utf8) {
    std::u32string out;
    out.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const auto b0 = static_cast<unsigned char>(utf8[i]);
        int extra = 0;
        char32_t c = 0;
        char32_t minimum = 0;
        if (b0 < 0x80) {
            c = b0;
        } else if ((b0 & 0xE0) == 0xC0) {
            extra = 1, c = b0 & 0x1F, minimum = 0x80;
        } else if ((b0 & 0xF0) == 0xE0) {
            extra = 2, c = b0 & 0x0F, minimum = 0x800;
        } else if ((b0 & 0xF8) == 0xF0) {
            extra = 3, c = b0 & 0x07, minimum = 0x10000;
        } else {
            return std::nullopt;
        }
        if (i + static_cast<std::size_t>(extra) >= utf8.size() && extra > 0) return std::nullopt;
        for (int k = 1; k <= extra; ++k) {
            const auto b = static_cast<unsigned char>(utf8[i + static_cast<std::size_t>(k)]);
            if ((b & 0xC0) != 0x80) return std::nullopt;
            c = (c << 6) | (b & 0x3F);
        }
        if (c < minimum || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return std::nullopt;
        out += c;
        i += static_cast<std::size_t>(extra) + 1;
    }
    return out;
}

std::optional<std::string> utf8_to_latin9(std::string_view utf8, EncodeError* error) {
    const auto characters = decode_utf8(utf8);
    if (!characters) {
        if (error) error->message = "Der Text ist kein gültiges UTF-8.";
        return std::nullopt;
    }
    std::string out;
    out.reserve(characters->size());
    for (const char32_t c : *characters) {
        const auto code = latin9_code(c);
        if (!code) {
            if (error)
                error->message = "Das Zeichen " + describe(c) +
                                 " kann im Zeichensatz ISO-8859-15 nicht gespeichert werden.";
            return std::nullopt;
        }
        out += static_cast<char>(*code);
    }
    return out;
}

std::size_t utf8_length(std::string_view utf8) {
    std::size_t n = 0;
    for (const char b : utf8)
        if ((static_cast<unsigned char>(b) & 0xC0) != 0x80) ++n;
    return n;
}

}  // namespace sk::files
