#include <json/value.h>

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <vector>

#include "vkprotocolstack/support/charset.h"
#include "vkprotocolstack/support/support.h"

namespace {

using jsonparser::support::UpToNul;
using jsonparser::support::WholeCharacters;

/// A buffer that takes what fits and knows when it is full.
class BoundedText {
  public:
    BoundedText(char* buffer, std::size_t size) : buffer_(buffer), size_(size) {}

    bool full() const { return length_ == size_; }
    void put(char byte) {
        if (!full()) buffer_[length_++] = byte;
    }
    void put(std::string_view text) {
        for (std::size_t i = 0; i < text.size() && !full(); ++i) put(text[i]);
    }
    /// Ends the text. A full buffer gives up its last byte, and what that leaves of a character; these bytes become
    /// zero, so that a cleared record stays clear behind its texts.
    void terminate() {
        const std::size_t whole = WholeCharacters({buffer_, length_}, size_ - 1);
        std::fill(buffer_ + whole, buffer_ + std::max(length_, whole + 1), '\0');
    }

  private:
    char* buffer_;
    std::size_t size_;
    std::size_t length_ = 0;
};

std::string_view TextOf(const Json::Value& node) {
    const char* begin = nullptr;
    const char* end = nullptr;
    node.getString(&begin, &end);
    return {begin, static_cast<std::size_t>(end - begin)};
}

void PutQuoted(BoundedText& out, std::string_view text) {
    out.put('"');
    for (const char byte : text) {
        switch (byte) {
            case '"':
                out.put("\\\"");
                break;
            case '\\':
                out.put("\\\\");
                break;
            case '\b':
                out.put("\\b");
                break;
            case '\f':
                out.put("\\f");
                break;
            case '\n':
                out.put("\\n");
                break;
            case '\r':
                out.put("\\r");
                break;
            case '\t':
                out.put("\\t");
                break;
            default:
                if (static_cast<unsigned char>(byte) < 0x20) {
                    char escape[8];
                    std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(byte));
                    out.put(escape);
                } else {
                    out.put(byte);
                }
        }
        if (out.full()) return;
    }
    out.put('"');
}

/// A container that is being written, and how far it is. Elements go by index: an array may lack some of them in its
/// tree, and those read as null.
struct Level {
    const Json::Value* container;
    Json::Value::const_iterator member;
    Json::ArrayIndex written;
};

/// Writes a scalar whole; of a container its opening bracket, and the level to go on with.
void Open(BoundedText& out, const Json::Value& node, std::vector<Level>& levels) {
    if (node.isString()) {
        PutQuoted(out, TextOf(node));
    } else if (node.isArray() || node.isObject()) {
        out.put(node.isObject() ? '{' : '[');
        levels.push_back({&node, node.begin(), 0});
    } else {
        out.put(node.isNull() ? "null" : node.asString());
    }
}

/// Compact JSON. It keeps its own stack of levels, so the depth of a message cannot exhaust the thread's.
void PutJson(BoundedText& out, const Json::Value& root) {
    std::vector<Level> levels;
    Open(out, root, levels);
    while (!levels.empty() && !out.full()) {
        Level& level = levels.back();
        const Json::Value& container = *level.container;
        if (level.written == container.size()) {
            out.put(container.isObject() ? '}' : ']');
            levels.pop_back();
            continue;
        }
        if (level.written > 0) out.put(',');
        const Json::ArrayIndex index = level.written++;
        if (container.isObject()) {
            const auto member = level.member++;
            const char* end = nullptr;
            const char* begin = member.memberName(&end);
            PutQuoted(out, {begin, static_cast<std::size_t>(end - begin)});
            out.put(':');
            Open(out, *member, levels);
        } else {
            Open(out, container[index], levels);
        }
    }
}

}  // namespace

void parseJsonNodeToStr(const Json::Value& node, char* buffer, int size) {
    if (size <= 0) return;
    BoundedText out(buffer, static_cast<std::size_t>(size));
    if (node.isString()) {
        out.put(UpToNul(TextOf(node)));
    } else if (!node.isNull()) {
        PutJson(out, node);
    }
    out.terminate();
}
