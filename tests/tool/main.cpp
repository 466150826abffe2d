#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

/// Runs the tests in the locale that JSONPARSER_TEST_LOCALE names, without it in the "C" locale. The search path is set
/// for a moment only: the tool's newlocale never gives the memory back that it takes for one.
int main(int argc, char** argv) {
    if (const char* locale = std::getenv("JSONPARSER_TEST_LOCALE")) {
        setenv("LOCPATH", JSONPARSER_LOCALES, 1);
        if (std::setlocale(LC_ALL, locale) == nullptr) {
            std::fprintf(stderr, "no locale %s in %s\n", locale, JSONPARSER_LOCALES);
            return 1;
        }
        std::setlocale(LC_MESSAGES, "C");  // as the tool, which speaks one language
        unsetenv("LOCPATH");
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
