#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

// What the sanitizers are not to report of the C library: newlocale loses the search path that it makes of LOCPATH, and
// iconv_close unloads modules under a lock that they do not see.
extern "C" const char* __lsan_default_suppressions() { return "leak:argz_add_sep"; }
extern "C" const char* __lsan_default_options() { return "print_suppressions=0"; }
extern "C" const char* __tsan_default_suppressions() { return "race:_dl_close_worker"; }

/// Runs the tests in the locale that JSONPARSER_TEST_LOCALE names, without it in the "C" locale.
int main(int argc, char** argv) {
    setenv("LOCPATH", JSONPARSER_LOCALES, 1);
    if (const char* locale = std::getenv("JSONPARSER_TEST_LOCALE")) {
        if (std::setlocale(LC_ALL, locale) == nullptr) {
            std::fprintf(stderr, "no locale %s in %s\n", locale, JSONPARSER_LOCALES);
            return 1;
        }
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
