#include "vkprotocolstack/wire/text_entry.h"

#include <charconv>
#include <cstdint>
#include <vector>

namespace jsonparser {
namespace {

std::uint32_t Hex4(const char* digits) {
    std::uint32_t code = 0;
    std::from_chars(digits, digits + 4, code, 16);
    return code;
}

char* PutUtf8(char* to, std::uint32_t code) {
    if (code < 0x80) {
        *to++ = static_cast<char>(code);
        return to;
    }
    if (code < 0x800) {
        *to++ = static_cast<char>(0xC0 | code >> 6);
    } else {
        if (code < 0x10000) {
            *to++ = static_cast<char>(0xE0 | code >> 12);
        } else {
            *to++ = static_cast<char>(0xF0 | code >> 18);
            *to++ = static_cast<char>(0x80 | (code >> 12 & 0x3F));
        }
        *to++ = static_cast<char>(0x80 | (code >> 6 & 0x3F));
    }
    *to++ = static_cast<char>(0x80 | (code & 0x3F));
    return to;
}

Json::Value TextOf(const TextEntry& entry) {
    if (entry.isPlainText()) return {entry.text, entry.text + entry.size};
    std::string text(entry.size, '\0');
    const std::size_t size = Unescape(entry, text.data());
    return {text.data(), text.data() + size};
}

}  // namespace

std::size_t Unescape(const TextEntry& entry, char* buffer) {
    char* to = buffer;
    const char* const end = entry.text + entry.size;
    for (const char* p = entry.text; p != end;) {
        if (*p != '\\') {
            *to++ = *p++;
            continue;
        }
        const char escape = p[1];
        p += 2;
        switch (escape) {
            case 'b':
                *to++ = '\b';
                break;
            case 'f':
                *to++ = '\f';
                break;
            case 'n':
                *to++ = '\n';
                break;
            case 'r':
                *to++ = '\r';
                break;
            case 't':
                *to++ = '\t';
                break;
            case 'u': {
                std::uint32_t code = Hex4(p);
                p += 4;
                if (code >= 0xD800 && code <= 0xDBFF) {
                    code = 0x10000 + ((code & 0x3FF) << 10) + (Hex4(p + 2) & 0x3FF);
                    p += 6;
                }
                to = PutUtf8(to, code);
                break;
            }
            default:
                *to++ = escape;
        }
    }
    return static_cast<std::size_t>(to - buffer);
}

Json::Value ScalarOf(const TextEntry& entry) {
    switch (entry.type) {
        case TextType::False:
            return false;
        case TextType::True:
            return true;
        case TextType::Integer:
            return Json::Value::Int64{entry.integer};
        case TextType::Unsigned:
            return Json::Value::UInt64{entry.unsignedInteger};
        case TextType::Real:
            return entry.real;
        default:
            return {};
    }
}

Json::Value TreeOf(const TextEntry& entry) {
    struct Level {
        const TextEntry* next;
        std::size_t left;
        Json::Value* container;
    };
    std::vector<Level> levels;
    const auto valueOf = [&levels](const TextEntry& from, Json::Value& to) {
        switch (from.type) {
            case TextType::Text:
            case TextType::CopiedText:
            case TextType::EscapedText:
                to = TextOf(from);
                break;
            case TextType::Array:
            case TextType::Object:
                to = Json::Value(from.type == TextType::Array ? Json::arrayValue : Json::objectValue);
                levels.push_back({from.first(), from.size, &to});
                break;
            default:
                to = ScalarOf(from);
        }
    };
    Json::Value root;
    valueOf(entry, root);
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.left == 0) {
            levels.pop_back();
            continue;
        }
        const TextEntry& child = *level.next;
        level.next = child.next();
        --level.left;
        Json::Value& container = *level.container;
        if (container.isArray()) {
            valueOf(child, container[container.size()]);
        } else {
            valueOf(child, *container.demand(child.name, child.name + child.nameSize));
        }
    }
    return root;
}

}  // namespace jsonparser
