#include <gtest/gtest.h>

#include <cstdint>
#include <set>

#include "fuzz/text_road_case.h"
#include "vkprotocolstack/wire/text_pass.h"

namespace {

TEST(TextRoad, AgreesWithTheRoadThroughAJsonValue) {
    std::set<const fuzz::Reader*> readers;
    std::size_t accepted = 0;
    constexpr std::uint64_t kCases = 20000;
    for (std::uint64_t number = 0; number < kCases; ++number) {
        const fuzz::Case test = fuzz::MakeCase(number);
        ASSERT_EQ(fuzz::DifferenceOf(test), "") << "case " << number;
        readers.insert(test.reader);
        jsonparser::MessageText message(test.text);
        if (message.accepted()) ++accepted;
    }
    jsonparser::UseBestTextPassForm();
    EXPECT_EQ(readers.size(), fuzz::Readers().size());
    EXPECT_GT(accepted, kCases / 3);
    EXPECT_LT(accepted, kCases);
}

}  // namespace
