#include <gtest/gtest.h>

#include "settings/text_encoding.hpp"

namespace sk::settings {
namespace {

TEST(TextEncoding, EveryByteRoundTrips) {
    std::string all;
    for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
    const std::string utf8 = latin9_to_utf8(all);
    EXPECT_EQ(utf8_to_latin9(utf8).value(), all);
}

TEST(TextEncoding, TheEightDifferencesFromLatin1) {
    struct Case { const char* utf8; unsigned char code; };
    for (const Case c : {Case{"€", 0xA4}, Case{"Š", 0xA6}, Case{"š", 0xA8}, Case{"Ž", 0xB4},
                         Case{"ž", 0xB8}, Case{"Œ", 0xBC}, Case{"œ", 0xBD}, Case{"Ÿ", 0xBE},
                         Case{"ä", 0xE4}, Case{"ß", 0xDF}, Case{"\u00A0", 0xA0}}) {
        EXPECT_EQ(utf8_to_latin9(c.utf8).value(), std::string(1, static_cast<char>(c.code)))
            << c.utf8;
    }
    // The Latin-1 characters that ISO-8859-15 replaced cannot be stored.
    for (const char* gone : {"¤", "¦", "¨", "´", "¸", "¼", "½", "¾"}) {
        EncodeError error;
        EXPECT_FALSE(utf8_to_latin9(gone, &error).has_value()) << gone;
        EXPECT_NE(error.message.find(gone), std::string::npos) << error.message;
    }
}

TEST(TextEncoding, RefusesWhatCannotBeStored) {
    struct Case { const char* text; const char* named; };
    for (const Case c : {Case{"Grüße ☃ und ♥", "U+2603"}, Case{"a\xF0\x9F\x98\x80", "U+1F600"},
                         Case{"„Zitat“", "U+201E"}}) {
        EncodeError error;
        EXPECT_FALSE(utf8_to_latin9(c.text, &error).has_value());
        EXPECT_NE(error.message.find(c.named), std::string::npos) << error.message;
    }
    for (const char* malformed : {"\xC3", "\xC3\x28", "\xE2\x82", "\xC0\xAF", "\xED\xA0\x80",
                                  "\xF8\x88\x80\x80\x80", "\x80"}) {
        EncodeError error;
        EXPECT_FALSE(utf8_to_latin9(malformed, &error).has_value());
        EXPECT_FALSE(error.message.empty());
    }
}

}  // namespace
}  // namespace sk::settings
