#include "testing/locale.h"

#include <gtest/gtest.h>
#include <langinfo.h>

#include <cstring>

namespace testing_tools {

ThreadLocale::ThreadLocale(const char* name)
    : locale_(newlocale(LC_ALL_MASK, name, nullptr)), previous_(uselocale(locale_)) {
    EXPECT_NE(locale_, nullptr) << "no locale " << name;
}

ThreadLocale::~ThreadLocale() {
    uselocale(previous_);
    if (locale_ != nullptr) freelocale(locale_);
}

Utf8Texts::Utf8Texts() {
    const char* codeset = nl_langinfo(CODESET);
    if (std::strcmp(codeset, "UTF-8") == 0 || std::strcmp(codeset, "ANSI_X3.4-1968") == 0) return;
    locale_ = newlocale(LC_CTYPE_MASK, "C.UTF-8", duplocale(uselocale(nullptr)));
    EXPECT_NE(locale_, nullptr);
    previous_ = uselocale(locale_);
}

Utf8Texts::~Utf8Texts() {
    if (locale_ == nullptr) return;
    uselocale(previous_);
    freelocale(locale_);
}

}  // namespace testing_tools
