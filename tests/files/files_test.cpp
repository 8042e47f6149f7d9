#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>

#include "files/atomic_file.hpp"
#include "files/text_encoding.hpp"
#include "test_support.hpp"

namespace sk::files {
namespace {

// A full disk, simulated by a file size limit in a child process: the write
// fails and the previous file is untouched, with no temporary file left.
TEST(AtomicFile, FullDiskKeepsTheOldFile) {
    test::TempDir dir;
    const auto file = dir / "Kalendermarkierung.dat";
    ASSERT_TRUE(write_file_atomic(file, "old content"));
    std::string error;
    EXPECT_TRUE(test::fails_on_full_disk(
        [&] { return write_file_atomic(file, std::string(4096, 'x'), &error); }));
    EXPECT_EQ(test::read_bytes(file), "old content");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()),
                            std::filesystem::directory_iterator()),
              1);
}

TEST(AtomicFile, ReadStopsAtTheCap) {
    test::TempDir dir;
    test::write_bytes(dir / "big", std::string(100000, 'a'));
    EXPECT_EQ(read_file(dir / "big", 8192)->size(), 8192u);
    EXPECT_FALSE(read_file(dir / "missing").has_value());
}

TEST(TextEncoding, EveryByteRoundTrips) {
    std::string all;
    for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
    const std::string utf8 = latin9_to_utf8(all);
    EXPECT_EQ(utf8_to_latin9(utf8).value(), all);
}

TEST(TextEncoding, TheEightDifferencesFromLatin1) {
    struct Case { const char* utf8; unsigned char code; };
    for (const Case c : {Case{"€", 0xA4}, Case{"Š", 0xA6}, Case{"š", 0xA8}, Case{"Ž", 0xB4},
                         Case{"ž", 0xB8}, Case{"Œ", 0xBC}, Case{"œ", 0xBD}, Case{"Ÿ", 0xBE}}) {
        EXPECT_EQ(utf8_to_latin9(c.utf8).value(), std::string(1, static_cast<char>(c.code)))
            << c.utf8;
    }
}

// The refusal names the character; the Latin-1 characters that ISO-8859-15
// replaced cannot be stored either.
TEST(TextEncoding, RefusesWhatCannotBeStored) {
    const struct { const char* text; const char* named; } cases[] = {
        {"Grüße ☃ und ♥", "\"☃\" (U+2603)"}, {"a\xF0\x9F\x98\x80", "U+1F600"},
        {"„Zitat“", "U+201E"},
        {"¤", "\"¤\" (U+00A4)"}, {"¦", "U+00A6"}, {"¨", "U+00A8"}, {"´", "U+00B4"},
        {"¸", "U+00B8"}, {"¼", "U+00BC"}, {"½", "U+00BD"}, {"¾", "U+00BE"},
    };
    for (const auto& c : cases) {
        EncodeError error;
        EXPECT_FALSE(utf8_to_latin9(c.text, &error).has_value()) << c.text;
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
}  // namespace sk::files
