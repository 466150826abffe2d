#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "vkprotocolstack/JsonParser.h"

namespace {

constexpr struct {
    const char* text;
    int code;
} kRows[] = {
    {"D1",          0 },
    {"704x576",     0 },
    {"704x480",     0 },
    {"704 * 576",   0 },
    {"704 * 480",   0 },
    {"HD1",         1 },
    {"352x576",     1 },
    {"352x480",     1 },
    {"352 * 576",   1 },
    {"352 * 480",   1 },
    {"BCIF",        2 },
    {"704x288",     2 },
    {"704x240",     2 },
    {"704 * 288",   2 },
    {"704 * 240",   2 },
    {"2CIF",        2 },
    {"CIF",         3 },
    {"352x288",     3 },
    {"352x240",     3 },
    {"352 * 288",   3 },
    {"352 * 240",   3 },
    {"QCIF",        4 },
    {"176x144",     4 },
    {"176x120",     4 },
    {"176 * 144",   4 },
    {"176 * 120",   4 },
    {"VGA",         5 },
    {"640x480",     5 },
    {"640 * 480",   5 },
    {"QVGA",        6 },
    {"320x240",     6 },
    {"320 * 240",   6 },
    {"SVCD",        7 },
    {"480x480",     7 },
    {"480 * 480",   7 },
    {"QQVGA",       8 },
    {"160x128",     8 },
    {"160 * 128",   8 },
    {"SVGA",        9 },
    {"800x592",     9 },
    {"800 * 592",   9 },
    {"XVGA",        10},
    {"1024x768",    10},
    {"1024 * 768",  10},
    {"WXGA",        11},
    {"1280x800",    11},
    {"1280 * 800",  11},
    {"SXGA",        12},
    {"1280x1024",   12},
    {"1280 * 1024", 12},
    {"WSXGA",       13},
    {"1600x1024",   13},
    {"1600 * 1024", 13},
    {"UXGA",        14},
    {"1600x1200",   14},
    {"1600*1200",   14},
    {"WUXGA",       15},
    {"1920x1200",   15},
    {"1920 * 1200", 15},
    {"ND1",         16},
    {"240x192",     16},
    {"240 * 192",   16},
    {"720",         17},
    {"1280x720",    17},
    {"1280 * 720",  17},
    {"1080",        18},
    {"1920x1080",   18},
    {"1920 * 1080", 18},
    {"1_3M",        19},
    {"1280x960",    19},
    {"1280 * 960",  19},
    {"2_5M",        20},
    {"1872x1408",   20},
    {"1872 * 1408", 20},
    {"5M",          21},
    {"3744x1408",   21},
    {"3744 * 1408", 21},
    {"3M",          22},
    {"2048x1536",   22},
    {"2048 * 1536", 22},
    {"5_0M",        23},
    {"2432x2048",   23},
    {"2432 * 2048", 23},
    {"1_2M",        24},
    {"1216x1024",   24},
    {"1216 * 1024", 24},
    {"1408x1024",   25},
    {"1408 * 1024", 25},
    {"3296x2472",   26},
    {"3296 * 2472", 26},
    {"5_1M",        27},
    {"2560x1920",   27},
    {"2560 * 1920", 27},
    {"960H",        28},
    {"960x576",     28},
    {"960x480",     28},
    {"960 * 576",   28},
    {"960 * 480",   28},
    {"DV720P",      29},
    {"960x720",     29},
    {"960 * 720",   29},
    {"640x360",     30},
    {"640 * 360",   30},
    {"320x180",     31},
    {"320 * 180",   31},
    {"160x90",      32},
    {"160*90",      32},
    {"960x540",     33},
    {"960 * 540",   33},
    {"640x352",     34},
    {"640 * 352",   34},
    {"640x400",     35},
    {"640 * 400",   35},
    {"320x192",     36},
    {"320 * 192",   36},
    {"320x176",     37},
    {"320 * 176",   37},
    {"SVGA1",       38},
    {"800x600",     38},
    {"800 * 600",   38},
};
static_assert(std::size(kRows) == 120);

std::string Mapped(std::string text, char (*letter)(char)) {
    std::transform(text.begin(), text.end(), text.begin(), letter);
    return text;
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

TEST(ParseResolutionString, KnowsEveryText) {
    for (const auto& row : kRows) EXPECT_EQ(ParseResolutionString(row.text), row.code) << row.text;
}

TEST(ParseResolutionString, GivesEveryCode) {
    std::array<int, 39> texts{};
    for (const auto& row : kRows) ++texts.at(static_cast<std::size_t>(row.code));
    EXPECT_EQ(texts, (std::array<int, 39>{5, 5, 6, 5, 5, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3,
                                          3, 3, 3, 3, 3, 2, 2, 3, 5, 3, 2, 2, 2, 2, 2, 2, 2, 2, 3}));
}

TEST(ParseResolutionString, IgnoresTheCaseOfLetters) {
    for (const auto& row : kRows) {
        EXPECT_EQ(ParseResolutionString(Mapped(row.text, Lower).c_str()), row.code) << row.text;
        EXPECT_EQ(ParseResolutionString(Mapped(row.text, Upper).c_str()), row.code) << row.text;
    }
    EXPECT_EQ(ParseResolutionString("d1"), 0);
    EXPECT_EQ(ParseResolutionString("2cif"), 2);
    EXPECT_EQ(ParseResolutionString("704X576"), 0);
}

TEST(ParseResolutionString, TwoSizesAreKnownWithoutBlanksAroundTheStarOnly) {
    EXPECT_EQ(ParseResolutionString("1600*1200"), 14);
    EXPECT_EQ(ParseResolutionString("1600 * 1200"), 255);
    EXPECT_EQ(ParseResolutionString("160*90"), 32);
    EXPECT_EQ(ParseResolutionString("160 * 90"), 255);
}

TEST(ParseResolutionString, TheOtherSizesAreKnownWithBlanksAroundTheStarOnly) {
    for (const char* text : {"704*576", "1920*1080", "800*592", "320*180", "640*360", "800*600"}) {
        EXPECT_EQ(ParseResolutionString(text), 255) << text;
    }
}

TEST(ParseResolutionString, Code9Is800By592And800By600IsCode38) {
    EXPECT_EQ(ParseResolutionString("800x592"), 9);
    EXPECT_EQ(ParseResolutionString("800 * 592"), 9);
    EXPECT_EQ(ParseResolutionString("800x600"), 38);
    EXPECT_EQ(ParseResolutionString("800 * 600"), 38);
}

TEST(ParseResolutionString, AnyOtherTextGives255) {
    for (const char* text : {"", " ", " D1", "D1 ", "D", "D11", "704 x 576", "704x577", "704  *  576", "1080P", "4CIF",
                             "1_4M", "0", "255", "1920x1080 "}) {
        EXPECT_EQ(ParseResolutionString(text), 255) << text;
    }
    EXPECT_EQ(ParseResolutionString(std::string(100000, 'D').c_str()), 255);
}

TEST(ParseResolutionString, ANullPointerGives255) { EXPECT_EQ(ParseResolutionString(nullptr), 255); }

}  // namespace
