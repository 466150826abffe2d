#include "vkprotocolstack/wire/number_format.h"

#include <gtest/gtest.h>

namespace {

using jsonparser::NumberFormat;

TEST(NumberFormat, ATimeIsThreePairsWithColonsBetween) {
    const struct {
        NumberFormat<3> format;
        bool isTime;
    } rows[] = {
        {"%d:%d:%d",       true },
        {"%02d:%02d:%02d", true },
        {" %02u:%u:%02d",  true },
        {"%04d:%02d:%02d", false},
        {"%02d:%04d:%02d", false},
        {"%02d:%02d:%04d", false},
        {"%02d-%02d:%02d", false},
        {"%02d:%02d-%02d", false},
        {"%02d%02d%02d",   false}
    };
    for (const auto& [format, isTime] : rows) EXPECT_EQ(format.isTime(0), isTime) << format.text();
}

TEST(NumberFormat, ATimeMayStandBehindADate) {
    constexpr NumberFormat<6> kFormat("%04d-%02d-%02d %02d:%02d:%02d");
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(kFormat.isTime(i), i == 3) << i;
}

TEST(NumberFormat, HasAStepForEachNumber) {
    constexpr NumberFormat<2> kFormat("%d-%04u");
    EXPECT_EQ(kFormat.text(), "%d-%04u");
    EXPECT_EQ(kFormat.steps()[0].before, '\0');
    EXPECT_EQ(kFormat.steps()[0].width, 0);
    EXPECT_TRUE(kFormat.steps()[0].isSigned);
    EXPECT_EQ(kFormat.steps()[1].before, '-');
    EXPECT_EQ(kFormat.steps()[1].width, 4);
    EXPECT_FALSE(kFormat.steps()[1].isSigned);
}

}  // namespace
