// The encipherment of note files. With a password, every character of a
// note is stored as three decimal digits: its 8-bit code exclusive-or the
// code of the password character at the same position, the password repeated
// from its first character for every note. Both sides are ISO-8859-15 bytes;
// the password is never stored or checked, so a wrong one just gives wrong
// characters. An empty password stores the text as it is.
#pragma once

#include <string>
#include <string_view>

namespace sk::notes {

// "Hi" with password "ab" becomes "041011" (72 ^ 97 = 41, 105 ^ 98 = 11).
std::string encipher_note(std::string_view latin9, std::string_view password_latin9);

// Any stored bytes: each group of up to three characters is read as the
// value of its leading digits (a final group may be shorter, non-digits count
// as 0) and the low 8 bits of that value exclusive-or the password code give
// one character.
std::string decipher_note(std::string_view stored, std::string_view password_latin9);

}  // namespace sk::notes
