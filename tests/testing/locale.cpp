#include "testing/locale.h"

#include <gtest/gtest.h>

namespace testing_tools {

ThreadLocale::ThreadLocale(const char* name)
    : locale_(newlocale(LC_ALL_MASK, name, nullptr)), previous_(uselocale(locale_)) {
    EXPECT_NE(locale_, nullptr) << "no locale " << name;
}

ThreadLocale::~ThreadLocale() {
    uselocale(previous_);
    if (locale_ != nullptr) freelocale(locale_);
}

}  // namespace testing_tools
