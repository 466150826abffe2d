#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <string>

#include "vkprotocolstack/support/support.h"

namespace {

/// While it lives, the process has this locale.
class Locale {
  public:
    explicit Locale(const char* name) : previous_(setlocale(LC_ALL, nullptr)), found_(setlocale(LC_ALL, name)) {}
    ~Locale() { setlocale(LC_ALL, previous_.c_str()); }
    Locale(const Locale&) = delete;
    Locale& operator=(const Locale&) = delete;
    bool found() const { return found_ != nullptr; }

  private:
    std::string previous_;
    const char* found_;
};

TEST(_stricmp, IgnoresTheCaseOfAsciiLetters) {
    EXPECT_EQ(_stricmp("", ""), 0);
    EXPECT_EQ(_stricmp("Light-duty", "LIGHT-DUTY"), 0);
    EXPECT_EQ(_stricmp("abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"), 0);
    EXPECT_EQ(_stricmp("路A", "路a"), 0);
}

TEST(_stricmp, TellsEveryOtherByteFromEveryOther) {
    for (int x = 1; x < 256; ++x) {
        for (int y = 1; y < 256; ++y) {
            const auto isLetter = [](int c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
            const bool equal = x == y || (isLetter(x) && isLetter(y) && (x ^ y) == 0x20);
            const char a[] = {static_cast<char>(x), '\0'};
            const char b[] = {static_cast<char>(y), '\0'};
            ASSERT_EQ(_stricmp(a, b) == 0, equal) << x << ' ' << y;
        }
    }
}

TEST(_stricmp, GivesTheSignOfTheFirstDifference) {
    EXPECT_LT(_stricmp("", "a"), 0);
    EXPECT_GT(_stricmp("a", ""), 0);
    EXPECT_LT(_stricmp("Abc", "abD"), 0);
    EXPECT_GT(_stricmp("abD", "ABC"), 0);
    EXPECT_LT(_stricmp("car", "Cart"), 0);
    EXPECT_GT(_stricmp("\xFF", "z"), 0);
    EXPECT_LT(_stricmp("_", "A"), 0);  // letters compare as small ones
}

TEST(_stricmp, ComparesUpToTheFirstNul) { EXPECT_EQ(_stricmp("car\0x", "CAR\0y"), 0); }

TEST(_stricmp, FoldsNoOtherLettersInAUnicodeLocale) {
    const Locale locale("C.utf8");
    ASSERT_TRUE(locale.found());
    EXPECT_NE(_stricmp("é", "É"), 0);
    EXPECT_EQ(_stricmp("MINI", "mini"), 0);
}

TEST(_stricmp, FoldsTheLetterIInATurkishLocale) {
    bool found = false;
    for (const char* name : {"tr_TR.UTF-8", "tr_TR.ISO-8859-9"}) {
        const Locale locale(name);
        if (!locale.found()) continue;
        found = true;
        EXPECT_EQ(_stricmp("MINI", "mini"), 0) << name;
        EXPECT_NE(_stricmp("\xDD", "i"), 0) << name;
        EXPECT_NE(_stricmp("I", "\xFD"), 0) << name;
    }
    if (!found) GTEST_SKIP() << "no Turkish locale on this machine";
}

}  // namespace
