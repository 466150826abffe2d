#include "vkprotocolstack/JsonParser.h"

namespace jsonparser {

void ReleaseTexts(const vkrecords::RecordLayout& layout, void* record) {
    for (const vkrecords::Field& field : layout) {
        auto* element = static_cast<unsigned char*>(record) + field.offset;
        for (std::size_t i = 0; i < field.count(); ++i, element += field.elementSize) {
            if (field.kind == vkrecords::FieldKind::Record) {
                ReleaseTexts(*field.record, element);
            } else if (field.kind == vkrecords::FieldKind::HeapText) {
                char* text = nullptr;
                std::memcpy(&text, element, sizeof text);
                delete[] text;
                text = nullptr;
                std::memcpy(element, &text, sizeof text);
            }
        }
    }
}

}  // namespace jsonparser
