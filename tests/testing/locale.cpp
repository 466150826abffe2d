#include "testing/locale.h"

#include <gtest/gtest.h>

#include <clocale>
#include <mutex>
#include <string>

namespace testing_tools {

/// By way of the process's locale, which comes back at once: newlocale loses the search path that it makes of LOCPATH.
locale_t MakeLocale(const char* name) {
    static std::mutex one;
    const std::lock_guard lock(one);
    const std::string previous = std::setlocale(LC_ALL, nullptr);
    if (std::setlocale(LC_ALL, name) == nullptr) return nullptr;
    locale_t made = duplocale(LC_GLOBAL_LOCALE);
    std::setlocale(LC_ALL, previous.c_str());
    return made;
}

ThreadLocale::ThreadLocale(const char* name) : locale_(MakeLocale(name)), previous_(uselocale(locale_)) {
    EXPECT_NE(locale_, nullptr) << "no locale " << name;
}

ThreadLocale::~ThreadLocale() {
    uselocale(previous_);
    if (locale_ != nullptr) freelocale(locale_);
}

}  // namespace testing_tools
