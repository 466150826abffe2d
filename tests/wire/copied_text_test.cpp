#include "vkprotocolstack/wire/copied_text.h"

#include <gtest/gtest.h>

#include "testing/locale.h"

namespace {

// This program has none of the text functions of its own.
TEST(CopiesTexts, WhereTheDefaultsWouldCopy) {
    const struct {
        const char* locale;
        bool copies;
    } rows[] = {
        {"C",            true },
        {"C.UTF-8",      true },
        {"zh_CN.GBK",    false},
        {"ja_JP.EUC-JP", false},
    };
    for (const auto& row : rows) {
        const testing_tools::ThreadLocale locale(row.locale);
        EXPECT_EQ(jsonparser::CopiesTexts(), row.copies) << row.locale;
    }
}

}  // namespace
