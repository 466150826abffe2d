#include "tools/jsonparser/catalogue.h"

#include <gtest/gtest.h>
#include <json/value.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "tools/jsonparser/explain.h"
#include "tools/jsonparser/record_buffer.h"
#include "vkprotocolstack/explain.h"
#include "vkprotocolstack/vocabulary.h"

namespace {

using jsonparser::Outcome;
using jsonparser::Reading;
using tool::Catalogue;
using tool::CatalogueEntry;
using tool::RecordBuffer;

std::vector<Reading> Readings(const CatalogueEntry& entry, Json::Value node, RecordBuffer& record) {
    record.lendBuffers();
    return tool::DecodeExplained(entry, node, record.bytes()).explanation.readings;
}

TEST(Catalogue, EveryReaderIsWatched) {
    Json::Value array;
    array.append("word");
    const Json::Value nodes[] = {"word", Json::objectValue, array};
    for (const CatalogueEntry& entry : Catalogue()) {
        if (entry.decode == nullptr) continue;
        EXPECT_TRUE(std::any_of(std::begin(nodes), std::end(nodes), [&entry](const Json::Value& node) {
            RecordBuffer record(*entry.layout);
            const std::vector<Reading> readings = Readings(entry, node, record);
            return !readings.empty() && readings[0].outcome != Outcome::kUnread;
        })) << entry.name;
    }
}

/// The text in capitals, and what is before and behind a NUL.
std::vector<std::string> Variants(std::string_view word) {
    const std::string text(word);
    std::string capitals = text;
    for (char& c : capitals) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return {text, capitals, text + "x", " " + text, text + '\0', text + '\0' + 'x', ""};
}

TEST(Catalogue, WhatIsToldOfAWordIsWhatItsFunctionGives) {
    for (const CatalogueEntry& entry : Catalogue()) {
        if (entry.decode == nullptr || entry.decodeText != nullptr) continue;
        for (const jsonparser::Vocabulary& vocabulary : jsonparser::Vocabularies()) {
            for (const jsonparser::Keyword& row : vocabulary) {
                for (const std::string& word : Variants(row.text)) {
                    RecordBuffer record(*entry.layout);
                    const std::vector<Reading> readings = Readings(entry, word, record);
                    int code = 0;
                    std::memcpy(&code, record.bytes(), sizeof code);
                    ASSERT_EQ(readings.size(), 1U) << entry.name;
                    EXPECT_EQ(readings[0].value, std::to_string(code)) << entry.name << ": " << word;
                }
            }
        }
    }
}

}  // namespace
