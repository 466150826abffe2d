#include "vkprotocolstack/wire/nearest.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using jsonparser::EditDistance;
using jsonparser::Nearest;
using namespace std::string_view_literals;

constexpr std::array kNames = {"PlateNumber"sv, "PlateType"sv, "PlateColor"sv, "Speed"sv,    "SpeedLimit"sv,
                               "Lane"sv,        "UTC"sv,       "UTCMS"sv,      "Country"sv,  "车牌"sv,
                               "id"sv,          "x"sv,         ""sv,           "Province"sv, "SnapshotMode"sv};

TEST(EditDistance, CountsEditsOfEachKind) {
    EXPECT_EQ(EditDistance("", ""), 0U);
    EXPECT_EQ(EditDistance("Lane", "Lane"), 0U);
    EXPECT_EQ(EditDistance("", "Lane"), 4U);
    EXPECT_EQ(EditDistance("Lane", ""), 4U);
    EXPECT_EQ(EditDistance("Lne", "Lane"), 1U);    // inserted
    EXPECT_EQ(EditDistance("Lanee", "Lane"), 1U);  // left out
    EXPECT_EQ(EditDistance("Lake", "Lane"), 1U);   // replaced
    EXPECT_EQ(EditDistance("Lnae", "Lane"), 1U);   // swapped
    EXPECT_EQ(EditDistance("aLne", "Lane"), 1U);   // swapped at the start
    EXPECT_EQ(EditDistance("Laen", "Lane"), 1U);   // swapped at the end
    EXPECT_EQ(EditDistance("kitten", "sitting"), 3U);
    EXPECT_EQ(EditDistance("ca", "abc"), 3U);  // a swapped pair is not edited again
}

TEST(EditDistance, IgnoresTheCaseOfAsciiLettersOnly) {
    EXPECT_EQ(EditDistance("PLATENUMBER", "platenumber"), 0U);
    EXPECT_EQ(EditDistance("lNAE", "Lane"), 1U);
    EXPECT_EQ(EditDistance("@[", "`{"), 2U);
    EXPECT_EQ(EditDistance("\xC4", "\xE4"), 1U);
}

TEST(EditDistance, IsSymmetric) {
    for (const std::string_view a : kNames) {
        for (const std::string_view b : kNames) EXPECT_EQ(EditDistance(a, b), EditDistance(b, a)) << a << ' ' << b;
    }
}

TEST(Nearest, FindsWhatAMistypedNameWasMeantToBe) {
    const struct {
        std::string_view word, meant;
    } cases[] = {
        {"PlateNumer",    "PlateNumber" },
        {"platenumber",   "PlateNumber" },
        {"Plate_Number",  "PlateNumber" },
        {"PlateNubmer",   "PlateNumber" },
        {"PlateTyp",      "PlateType"   },
        {"PlateColour",   "PlateColor"  },
        {"Sped",          "Speed"       },
        {"SpeedLimt",     "SpeedLimit"  },
        {"Laen",          "Lane"        },
        {"UTCM",          "UTC"         },
        {"UTCSM",         "UTCMS"       },
        {"Contry",        "Country"     },
        {"SnapShotModus", "SnapshotMode"},
        {"dI",            "id"          },
        {"车牌1",       "车牌"      },
        {"Lane",          "Lane"        },
        {"",              ""            }
    };
    for (const auto& [word, meant] : cases) EXPECT_EQ(Nearest(word, kNames), meant) << word;
}

TEST(Nearest, ProposesNothingFarFetched) {
    for (const std::string_view word :
         {"Weight"sv, "Plate"sv, "y"sv, "ab"sv, "PN"sv, "Velocity"sv, "Spoon1"sv, "\xFF"sv}) {
        EXPECT_EQ(Nearest(word, kNames), std::nullopt) << word << " -> " << *Nearest(word, kNames);
    }
    EXPECT_EQ(Nearest("Lane", {}), std::nullopt);
}

TEST(Nearest, AllowsOneEditInThreeBytes) {
    constexpr std::array kNine = {"abcdefghi"sv};
    EXPECT_EQ(Nearest("abcdef---", kNine), "abcdefghi");
    EXPECT_EQ(Nearest("abcde----", kNine), std::nullopt);
    EXPECT_EQ(Nearest("abcdef", kNine), "abcdefghi");
    EXPECT_EQ(Nearest("abcde", kNine), std::nullopt);
    EXPECT_EQ(Nearest("abcdefghijkl", kNine), "abcdefghi");
    EXPECT_EQ(Nearest("abcdefghijklm+", kNine), std::nullopt);
}

TEST(Nearest, TakesTheFirstOfSeveral) {
    constexpr std::array kTwins = {"nBottom"sv, "nTop"sv, "nTip"sv, "nTOP"sv};
    EXPECT_EQ(Nearest("nTap", kTwins), "nTop");
    EXPECT_EQ(Nearest("nTOP", kTwins), "nTOP");
}

TEST(Nearest, TakesTheOneWithFewestEditsWhereverItStands) {
    constexpr std::array kFartherFirst = {"Snapshut"sv, "Snapshot"sv, "Snopshut"sv};
    EXPECT_EQ(Nearest("Snapshol", kFartherFirst), "Snapshot");
}

TEST(Nearest, GivesAViewOfTheCandidate) {
    const std::optional<std::string_view> found = Nearest("Lan", kNames);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->data(), kNames[5].data());
}

TEST(Nearest, TakesNoTimeForALongWord) {
    const std::string word(100'000'000, 'x');  // minutes, if it were compared
    EXPECT_EQ(Nearest(word, kNames), std::nullopt);
}

}  // namespace
