#include "testing/locale.h"

#include <gtest/gtest.h>
#include <langinfo.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <string>

namespace testing_tools {

/// By way of the process's locale, which comes back at once: newlocale loses the search path that it makes of LOCPATH.
locale_t MakeLocale(const char* name) {
    static std::mutex one;
    const std::lock_guard lock(one);
    const bool hasPath = std::getenv("LOCPATH") != nullptr;
    if (!hasPath) setenv("LOCPATH", JSONPARSER_LOCALES, 1);
    const std::string previous = std::setlocale(LC_ALL, nullptr);
    const bool exists = std::setlocale(LC_ALL, name) != nullptr;
    locale_t made = exists ? duplocale(LC_GLOBAL_LOCALE) : nullptr;
    std::setlocale(LC_ALL, previous.c_str());
    if (!hasPath) unsetenv("LOCPATH");
    return made;
}

ThreadLocale::ThreadLocale(const char* name) : locale_(MakeLocale(name)), previous_(uselocale(locale_)) {
    EXPECT_NE(locale_, nullptr) << "no locale " << name;
}

ThreadLocale::~ThreadLocale() {
    uselocale(previous_);
    if (locale_ != nullptr) freelocale(locale_);
}

// By way of the process's locale, which comes back at once: newlocale loses the search path that it makes of LOCPATH.
Utf8Texts::Utf8Texts() {
    const char* codeset = nl_langinfo(CODESET);
    if (std::strcmp(codeset, "UTF-8") == 0 || std::strcmp(codeset, "ANSI_X3.4-1968") == 0) return;
    const std::string previous = std::setlocale(LC_CTYPE, nullptr);
    EXPECT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    locale_ = duplocale(LC_GLOBAL_LOCALE);
    std::setlocale(LC_CTYPE, previous.c_str());
    previous_ = uselocale(locale_);
}

Utf8Texts::~Utf8Texts() {
    if (locale_ == nullptr) return;
    uselocale(previous_);
    freelocale(locale_);
}

}  // namespace testing_tools
