#include "testing/record.h"

#include <algorithm>

namespace testing_tools {
namespace {

bool Changed(const unsigned char* begin, std::size_t size) {
    return std::any_of(begin, begin + size, [](unsigned char byte) { return byte != kPattern; });
}

void Collect(const vkrecords::RecordLayout& layout, const unsigned char* record, const std::string& prefix,
             std::vector<std::string>& names) {
    std::size_t end = 0;
    for (const vkrecords::Field& field : layout) {
        const unsigned char* bytes = record + field.offset;
        if (field.offset > end && Changed(record + end, field.offset - end)) names.push_back(prefix + "(padding)");
        end = field.offset + field.size();
        if (field.kind != vkrecords::FieldKind::Record) {
            if (Changed(bytes, field.size())) names.push_back(prefix + field.name);
            continue;
        }
        for (std::size_t i = 0; i < field.count(); ++i) {
            const std::string index = field.rank == 0 ? "" : '[' + std::to_string(i) + ']';
            Collect(*field.record, bytes + i * field.elementSize, prefix + field.name + index + '.', names);
        }
    }
    if (Changed(record + end, layout.size - end)) names.push_back(prefix + "(padding)");
}

}  // namespace

std::vector<std::string> ChangedFields(const vkrecords::RecordLayout& layout, const void* record) {
    std::vector<std::string> names;
    Collect(layout, static_cast<const unsigned char*>(record), "", names);
    return names;
}

}  // namespace testing_tools
