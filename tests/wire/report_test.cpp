#include "vkprotocolstack/wire/report.h"

#include <gtest/gtest.h>

#include <limits>

#include "testing/locale.h"

namespace {

using jsonparser::Digits;
using jsonparser::QuotedLocal;

TEST(Digits, AreTheFewestThatReadBackAndShowThatItIsAReal) {
    EXPECT_EQ(Digits(0.0), "0.0");
    EXPECT_EQ(Digits(-0.0), "-0.0");
    EXPECT_EQ(Digits(1.0), "1.0");
    EXPECT_EQ(Digits(0.1), "0.1");
    EXPECT_EQ(Digits(0.1F), "0.1");
    EXPECT_EQ(Digits(static_cast<double>(0.1F)), "0.10000000149011612");
    EXPECT_EQ(Digits(1e300), "1e+300");
    EXPECT_EQ(Digits(-1.5e-7), "-1.5e-07");
    EXPECT_EQ(Digits(std::numeric_limits<double>::max()), "1.7976931348623157e+308");
    EXPECT_EQ(Digits(std::numeric_limits<double>::denorm_min()), "5e-324");
    EXPECT_EQ(Digits(std::numeric_limits<float>::max()), "3.4028235e+38");
    EXPECT_EQ(Digits(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(Digits(std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(QuotedLocal, IsJsonInUtf8) {
    EXPECT_EQ(QuotedLocal(""), "\"\"");
    EXPECT_EQ(QuotedLocal("a \"b\" \\ \n\x01"), R"("a \"b\" \\ \n\u0001")");
    const testing_tools::ThreadLocale locale("zh_CN.GBK");
    EXPECT_EQ(QuotedLocal("\xC2\xB7"), "\"路\"");
}

}  // namespace
