#include "vkprotocolstack/vocabulary.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace jsonparser {
namespace {

TEST(Vocabularies, HaveEachANameOfItsOwnAMeaningAndWords) {
    std::set<std::string_view> names;
    for (const Vocabulary& vocabulary : Vocabularies()) {
        EXPECT_TRUE(names.insert(vocabulary.name).second) << vocabulary.name;
        EXPECT_FALSE(vocabulary.meaning.empty()) << vocabulary.name;
        EXPECT_EQ(static_cast<std::size_t>(vocabulary.end() - vocabulary.begin()), vocabulary.count);
        std::size_t words = 0;
        for (const Keyword& keyword : vocabulary) words += keyword.text.empty() ? 0U : 1U;
        EXPECT_GT(words, 0U) << vocabulary.name;
    }
    EXPECT_EQ(names.size(), Vocabularies().count);
}

}  // namespace
}  // namespace jsonparser
