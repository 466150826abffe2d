// The strict reader against the files of the JSON test suite, where they are.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "tools/jsonparser/input.h"

namespace {

namespace fs = std::filesystem;
using tool::Finding;

/// Of the files that a parser may accept or refuse, those that this one accepts: numbers that are rounded, and a UTF-8
/// byte-order mark.
constexpr std::array<std::string_view, 6> kAccepted = {
    "i_number_double_huge_neg_exp.json",   "i_number_real_underflow.json",
    "i_number_too_big_neg_int.json",       "i_number_too_big_pos_int.json",
    "i_number_very_big_negative_int.json", "i_structure_UTF-8_BOM_empty_object.json",
};

/// And those that it refuses: numbers beyond a double, half surrogates, what is not UTF-8, 500 levels.
constexpr std::array<std::string_view, 29> kRefused = {
    "i_number_huge_exp.json",
    "i_number_neg_int_huge_exp.json",
    "i_number_pos_double_huge_exp.json",
    "i_number_real_neg_overflow.json",
    "i_number_real_pos_overflow.json",
    "i_object_key_lone_2nd_surrogate.json",
    "i_string_1st_surrogate_but_2nd_missing.json",
    "i_string_1st_valid_surrogate_2nd_invalid.json",
    "i_string_UTF-16LE_with_BOM.json",
    "i_string_UTF-8_invalid_sequence.json",
    "i_string_UTF8_surrogate_U+D800.json",
    "i_string_incomplete_surrogate_and_escape_valid.json",
    "i_string_incomplete_surrogate_pair.json",
    "i_string_incomplete_surrogates_escape_valid.json",
    "i_string_invalid_lonely_surrogate.json",
    "i_string_invalid_surrogate.json",
    "i_string_invalid_utf-8.json",
    "i_string_inverted_surrogates_U+1D11E.json",
    "i_string_iso_latin_1.json",
    "i_string_lone_second_surrogate.json",
    "i_string_lone_utf8_continuation_byte.json",
    "i_string_not_in_unicode_range.json",
    "i_string_overlong_sequence_2_bytes.json",
    "i_string_overlong_sequence_6_bytes.json",
    "i_string_overlong_sequence_6_bytes_null.json",
    "i_string_truncated-utf-8.json",
    "i_string_utf16BE_no_BOM.json",
    "i_string_utf16LE_no_BOM.json",
    "i_structure_500_nested_arrays.json",
};

/// The files whose names begin so.
std::vector<fs::path> Files(std::string_view prefix) {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(fs::path(JSON_TEST_SUITE) / "test_parsing")) {
        if (entry.path().filename().string().starts_with(prefix)) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// What is wrong with a file.
std::vector<Finding> FindingsOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(stream), {});
    std::vector<Finding> findings;
    Json::Value document;
    const bool read = tool::ParseDocument(text, {}, document, findings);
    EXPECT_EQ(read, findings.empty()) << file;
    return findings;
}

void ExpectRefusedAtAPlace(const fs::path& file) {
    const std::vector<Finding> findings = FindingsOf(file);
    ASSERT_EQ(findings.size(), 1U) << file << " is accepted";
    EXPECT_NE(findings[0].offset, Finding::kNowhere) << file;
    EXPECT_LE(findings[0].offset, fs::file_size(file)) << file;
    EXPECT_TRUE(findings[0].text.starts_with("found ")) << file;
    EXPECT_NE(findings[0].text.find(", expected "), std::string::npos) << file;
}

class JsonTestSuite : public testing::Test {
  protected:
    void SetUp() override {
        if (!fs::is_directory(fs::path(JSON_TEST_SUITE) / "test_parsing")) {
            GTEST_SKIP() << "no JSON test suite in " << JSON_TEST_SUITE
                         << " (JSONPARSER_JSON_TEST_SUITE names its folder)";
        }
    }
};

TEST_F(JsonTestSuite, AcceptsWhatMustBeAccepted) {
    const std::vector<fs::path> files = Files("y_");
    EXPECT_EQ(files.size(), 95U);
    for (const fs::path& file : files) {
        const std::vector<Finding> findings = FindingsOf(file);
        EXPECT_TRUE(findings.empty()) << file << ": " << findings[0].text;
    }
}

TEST_F(JsonTestSuite, RefusesWhatMustBeRefusedAtAPlace) {
    const std::vector<fs::path> files = Files("n_");
    EXPECT_EQ(files.size(), 188U);
    for (const fs::path& file : files) ExpectRefusedAtAPlace(file);
}

TEST_F(JsonTestSuite, DecidesTheRestAsListed) {
    EXPECT_EQ(Files("i_").size(), kAccepted.size() + kRefused.size());
    for (const std::string_view name : kAccepted) {
        const std::vector<Finding> findings = FindingsOf(fs::path(JSON_TEST_SUITE) / "test_parsing" / name);
        EXPECT_TRUE(findings.empty()) << name << ": " << findings[0].text;
    }
    for (const std::string_view name : kRefused) {
        ExpectRefusedAtAPlace(fs::path(JSON_TEST_SUITE) / "test_parsing" / name);
    }
}

}  // namespace
