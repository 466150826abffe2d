#include "record_buffer.h"

#include <algorithm>
#include <cstring>

#include "vkprotocolstack/JsonParser.h"

namespace tool {
namespace {

using vkrecords::Field;
using vkrecords::FieldKind;
using vkrecords::RecordLayout;

}  // namespace

const Field& LengthField(const RecordLayout& layout, const Field& field) {
    return *std::find_if(layout.begin(), layout.end(), [&field](const Field& candidate) {
        return std::string_view(candidate.name) == field.lengthField;
    });
}

RecordBuffer::RecordBuffer(const RecordLayout& layout)
    : layout_(layout), words_((layout.size + sizeof(std::uint64_t) - 1) / sizeof(std::uint64_t)) {}

RecordBuffer::~RecordBuffer() { jsonparser::ReleaseTexts(layout_, bytes()); }

void RecordBuffer::lendBuffers() { lendBuffers(layout_, bytes()); }

void RecordBuffer::lendBuffers(const RecordLayout& layout, unsigned char* bytes) {
    for (const Field& field : layout) {
        if (field.kind == FieldKind::CallerText) lendText(layout, bytes, field, std::string(kMaximumLength - 1, '\0'));
        if (field.kind != FieldKind::Record) continue;
        for (std::size_t i = 0; i < field.count(); ++i) {
            lendBuffers(*field.record, bytes + field.offset + i * field.elementSize);
        }
    }
}

void RecordBuffer::lendText(const RecordLayout& layout, unsigned char* bytes, const Field& field,
                            std::string_view text) {
    std::vector<char>& buffer = lent_.emplace_back(text.begin(), text.end());
    const std::size_t stated = std::min(text.size() + 1, kMaximumLength);
    buffer.resize(std::max(text.size(), kMaximumLength) + 1);
    char* pointer = buffer.data();
    std::memcpy(bytes + field.offset, &pointer, sizeof pointer);
    bytes[LengthField(layout, field).offset] = static_cast<unsigned char>(stated);
}

}  // namespace tool
