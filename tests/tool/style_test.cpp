#include "tools/jsonparser/style.h"

#include <gtest/gtest.h>

namespace {

using tool::Style;
using tool::Styler;

TEST(Styler, ColoursAndResets) {
    const Styler style(true);
    EXPECT_TRUE(style.colors());
    EXPECT_EQ(style(Style::kError, "x"), "\x1b[1;31mx\x1b[0m");
    EXPECT_EQ(style(Style::kWarning, "x"), "\x1b[33mx\x1b[0m");
    EXPECT_EQ(style(Style::kGood, "x"), "\x1b[32mx\x1b[0m");
    EXPECT_EQ(style(Style::kName, "x"), "\x1b[36mx\x1b[0m");
    EXPECT_EQ(style(Style::kHeading, "x"), "\x1b[1mx\x1b[0m");
    EXPECT_EQ(style(Style::kLocation, "x"), "\x1b[1mx\x1b[0m");
    EXPECT_EQ(style(Style::kFaint, "x"), "\x1b[2mx\x1b[0m");
}

TEST(Styler, LeavesPlainAndEmptyTextAlone) {
    const Styler style(true);
    EXPECT_EQ(style(Style::kPlain, "x"), "x");
    EXPECT_EQ(style(Style::kError, ""), "");
}

TEST(Styler, LeavesEverythingAloneWithoutColour) {
    const Styler style(false);
    EXPECT_FALSE(style.colors());
    EXPECT_EQ(style(Style::kError, "x"), "x");
}

}  // namespace
