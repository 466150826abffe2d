// What every writer of the catalogue makes of records that nobody filled.
#include <gtest/gtest.h>
#include <json/value.h>
#include <langinfo.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tools/jsonparser/catalogue.h"
#include "tools/jsonparser/record_buffer.h"
#include "vkrecords/fields.h"

namespace {

using tool::CatalogueEntry;
using vkrecords::Field;
using vkrecords::FieldKind;
using vkrecords::RecordLayout;

// Counts that a contract leaves to the caller, and what it says that they may be.
constexpr struct {
    std::string_view field;
    unsigned most;
} kCounts[] = {
    {"wFacePicNum",          48},
    {"nCustomPersonInfoNum", 4 },
};

/// A record of random bytes. No text of it ends, unless by chance; its pointers and counts are right.
class RandomRecord {
  public:
    RandomRecord(const RecordLayout& layout, unsigned seed, bool ending)
        : random_(seed), ending_(ending), size_(layout.size), bytes_(new unsigned char[layout.size]) {
        fill(bytes_.get(), size_);
        mend(layout, bytes_.get());
    }

    const unsigned char* bytes() const { return bytes_.get(); }
    std::string copy() const { return {reinterpret_cast<const char*>(bytes_.get()), size_}; }

  private:
    void fill(unsigned char* bytes, std::size_t size) {
        for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<unsigned char>(random_());
    }

    void mend(const RecordLayout& layout, unsigned char* record) {
        for (const Field& field : layout) {
            for (std::size_t i = 0; i < field.count(); ++i) {
                unsigned char* element = record + field.offset + i * field.elementSize;
                if (field.kind == FieldKind::Record) {
                    mend(*field.record, element);
                } else if (field.kind == FieldKind::Text && !ending_) {
                    std::replace(element, element + field.elementSize, '\0', 'x');
                } else if (field.kind == FieldKind::HeapText) {
                    std::memset(element, 0, sizeof(char*));
                } else if (field.kind == FieldKind::CallerText) {
                    lent_.emplace_back(tool::kMaximumLength);
                    fill(lent_.back().data(), lent_.back().size());
                    const unsigned char* buffer = lent_.back().data();
                    std::memcpy(element, &buffer, sizeof buffer);
                }
            }
            for (const auto& count : kCounts) {
                if (field.name != count.field) continue;
                const auto value = static_cast<unsigned>(random_() % (count.most + 1));
                std::memcpy(record + field.offset, &value, field.elementSize);
            }
        }
    }

    std::minstd_rand random_;
    bool ending_;
    std::size_t size_;
    std::unique_ptr<unsigned char[]> bytes_;
    std::deque<std::vector<unsigned char>> lent_;
};

/// Bytes of the longest text that a record has, in a field or lent, before it is converted.
std::size_t LongestText(const RecordLayout& layout) {
    std::size_t longest = 83;  // of a time segment, seven numbers
    for (const Field& field : layout) {
        if (field.kind == FieldKind::Text) longest = std::max(longest, field.elementSize);
        if (field.kind == FieldKind::CallerText) longest = std::max(longest, tool::kMaximumLength);
        if (field.kind == FieldKind::Record) longest = std::max(longest, LongestText(*field.record));
    }
    return longest;
}

std::size_t LongestText(const Json::Value& value) {
    if (value.isString()) return value.asString().size();
    std::size_t longest = 0;
    for (const Json::Value& child : value) longest = std::max(longest, LongestText(child));
    return longest;
}

class EveryWriter : public testing::TestWithParam<const CatalogueEntry*> {};

TEST_P(EveryWriter, TakesAnyBytesOfARecordTerminatedOrNot) {
    const CatalogueEntry& entry = *GetParam();
    // What is two bytes in another multibyte encoding may be three in UTF-8.
    const std::size_t longest = LongestText(*entry.layout);
    const bool isConverted = MB_CUR_MAX > 1 && std::string_view(nl_langinfo(CODESET)) != "UTF-8";
    const std::size_t most = isConverted ? longest + longest / 2 : longest;
    for (unsigned seed = 1; seed <= 100; ++seed) {
        const RandomRecord record(*entry.layout, seed, seed % 2 == 0);
        const std::string before = record.copy();
        Json::Value node;
        ASSERT_NO_THROW(entry.encode(record.bytes(), node)) << seed;
        ASSERT_LE(LongestText(node), most) << seed;
        ASSERT_EQ(record.copy(), before) << seed;
    }
}

std::vector<const CatalogueEntry*> Writers() {
    std::vector<const CatalogueEntry*> writers;
    for (const CatalogueEntry& entry : tool::Catalogue()) {
        if (entry.encode != nullptr) writers.push_back(&entry);
    }
    return writers;
}

INSTANTIATE_TEST_SUITE_P(, EveryWriter, testing::ValuesIn(Writers()), [](const auto& tested) {
    std::string name(tested.param->name);
    for (char& letter : name) letter = letter == '/' ? '_' : letter;
    return name;
});

}  // namespace
