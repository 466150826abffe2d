#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

#if defined(__SANITIZE_THREAD__)
#include <iconv.h>

namespace {

/// iconv loads and unloads modules under a lock that the thread sanitizer does not see, so that it takes what two
/// threads do one after the other for a race. While these are open, their modules stay.
const iconv_t keptOpen[] = {
    iconv_open("UTF-8", "GBK"),        iconv_open("UTF-8", "GB18030"),     iconv_open("UTF-8", "EUC-JP"),
    iconv_open("UTF-8", "SHIFT_JIS"),  iconv_open("UTF-8", "BIG5-HKSCS"),  iconv_open("UTF-8", "CP1258"),
    iconv_open("UTF-8", "ISO-8859-1"), iconv_open("UTF-8", "ISO-8859-15"), iconv_open("UTF-8", "EBCDIC-AT-DE"),
};

}  // namespace
#endif

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
