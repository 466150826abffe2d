#include "fuzz/locales.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace fuzz {
namespace {

constexpr const char* kLocales[] = {"C", "zh_CN.GBK", "zh_CN.GB18030", "ja_JP.EUC-JP", "de_DE.ISO-8859-15"};

/// A locale by way of the process's: newlocale loses the search path that it makes of LOCPATH,
/// and never gives its memory back, wherever it is called while that is set.
locale_t Made(const char* name) {
    setenv("LOCPATH", JSONPARSER_LOCALES, 1);
    if (std::setlocale(LC_ALL, name) == nullptr) {
        std::fprintf(stderr, "no locale %s in %s\n", name, JSONPARSER_LOCALES);
        std::exit(1);
    }
    locale_t made = duplocale(LC_GLOBAL_LOCALE);
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
    return made;
}

}  // namespace

locale_t Locale(std::size_t number) {
    static locale_t made[std::size(kLocales)];
    const std::size_t i = number % std::size(kLocales);
    if (made[i] == nullptr) made[i] = Made(kLocales[i]);
    return made[i];
}

}  // namespace fuzz
