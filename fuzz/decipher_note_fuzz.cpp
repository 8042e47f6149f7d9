// Any bytes as a stored note: the first byte gives the password's length
// (up to 31), the following bytes the password, the rest the file. Reading
// must cut, decipher and convert to UTF-8 without fault, give one character
// per group of three, and the year placeholder must come to an end on the
// text. Enciphering any bytes and deciphering them gives them back.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "notes/note_cipher.hpp"
#include "notes/note_keys.hpp"
#include "notes/notes_of_day.hpp"
#include "files/text_encoding.hpp"

namespace {

void check(bool condition) {
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace sk::notes;
    if (size == 0) return 0;
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t password_length =
        std::min<std::size_t>(static_cast<unsigned char>(bytes[0]) & 31u, bytes.size() - 1);
    const std::string_view password = bytes.substr(1, password_length);
    const std::string_view stored = bytes.substr(1 + password_length).substr(0, kMaxStoredBytes);

    const std::string latin9 = decipher_note(stored, password);
    check(latin9.size() == (password.empty() ? stored.size() : (stored.size() + 2) / 3));
    const std::string text = sk::files::latin9_to_utf8(latin9);
    check(sk::files::decode_utf8(text).has_value());
    check(sk::files::utf8_length(text) == latin9.size());
    const std::string shown = apply_year_placeholder(text, 2024);
    check(sk::files::decode_utf8(shown).has_value());

    const std::string enciphered = encipher_note(stored, password);
    check(decipher_note(enciphered, password) == stored);
    return 0;
}
