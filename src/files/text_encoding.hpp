// Conversion between the program's UTF-8 text and the ISO-8859-15 bytes of
// its files (one byte per character). Files are converted exactly here, at
// the file boundary, and nowhere else.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sk::files {

// Every byte is a character in ISO-8859-15, so this cannot fail.
std::string latin9_to_utf8(std::string_view bytes);

// ISO-8859-15 code of one Unicode character, or nullopt when the character
// set has none.
std::optional<unsigned char> latin9_code(char32_t c);

struct EncodeError {
    std::string message;  // German, names the first character that cannot be stored
};

// nullopt and `error` filled when the text holds invalid UTF-8 or a
// character that ISO-8859-15 cannot hold; such text is refused, never cut.
std::optional<std::string> utf8_to_latin9(std::string_view utf8, EncodeError* error = nullptr);

// Decodes UTF-8 into code points; nullopt for malformed input.
std::optional<std::u32string> decode_utf8(std::string_view utf8);
void append_utf8(std::string& out, char32_t c);

// Number of characters (code points) of valid UTF-8 text.
std::size_t utf8_length(std::string_view utf8);

}  // namespace sk::files
