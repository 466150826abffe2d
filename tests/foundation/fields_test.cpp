#include "vkrecords/fields.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <string>

namespace vkrecords {
namespace {

// What the bytes of a record are, one letter each: f of a field, r reserved, p padding.
std::string Bytes(const RecordLayout& layout) {
    std::string bytes(layout.size, 'p');
    for (const Field& field : layout) {
        const char kind = field.kind == FieldKind::Reserved ? 'r' : 'f';
        for (std::size_t i = 0; i < field.size(); ++i) {
            char& byte = bytes.at(field.offset + i);
            const bool laterBits = field.kind == FieldKind::Bits && field.bit != 0;
            EXPECT_EQ(byte, laterBits ? 'f' : 'p') << layout.name << "." << field.name << " shares a byte";
            byte = kind;
        }
    }
    return bytes;
}

TEST(Fields, EveryByteIsAFieldReservedOrAlignmentPadding) {
    std::size_t records = 0;
    std::size_t counts[3] = {};
    for (const RecordLayout* layout : AllLayouts::list) {
        ++records;
        const std::string bytes = Bytes(*layout);
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            ++counts[std::string("frp").find(bytes[i])];
            if (bytes[i] != 'p') continue;
            // The next byte that is not padding begins a field that needs it, or there is none.
            const std::size_t next = bytes.find_first_not_of('p', i);
            for (const Field& field : *layout) {
                if (field.offset == next) {
                    EXPECT_LT(next - i, field.alignment) << layout->name << " at " << i;
                }
            }
            if (next == std::string::npos) {
                EXPECT_LT(bytes.size() - i, alignof(std::max_align_t)) << layout->name;
            }
        }
    }
    std::printf("%zu records: %zu bytes of fields, %zu reserved, %zu of padding\n", records, counts[0], counts[1],
                counts[2]);
    EXPECT_GT(records, 0U);
}

TEST(Fields, BitsAreWhereTheirRowsSay) {
    const auto word = [](auto set) {
        _VKDEVTIME time;
        std::memset(&time, 0, sizeof time);
        set(time);
        std::uint32_t bits;
        std::memcpy(&bits, &time, sizeof bits);
        return bits;
    };
    const std::uint32_t words[] = {
        word([](_VKDEVTIME& time) { time.second = 63; }), word([](_VKDEVTIME& time) { time.minute = 63; }),
        word([](_VKDEVTIME& time) { time.hour = 31; }),   word([](_VKDEVTIME& time) { time.day = 31; }),
        word([](_VKDEVTIME& time) { time.month = 15; }),  word([](_VKDEVTIME& time) { time.year = 63; }),
    };
    const char* names[] = {"second", "minute", "hour", "day", "month", "year"};
    const RecordLayout& layout = kLayout<_VKDEVTIME>;
    ASSERT_EQ(layout.fieldCount, std::size(words));
    for (std::size_t i = 0; i < layout.fieldCount; ++i) {
        const Field& field = layout.fields[i];
        EXPECT_STREQ(field.name, names[i]);
        EXPECT_EQ(words[i], ((std::uint32_t{1} << field.width) - 1) << field.bit) << field.name;
    }
}

}  // namespace
}  // namespace vkrecords
