#include <json/value.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

#include "vkprotocolstack/support/charset.h"
#include "vkprotocolstack/support/defaults.h"
#include "vkprotocolstack/support/support.h"

namespace {

using jsonparser::support::LocalText;
using jsonparser::support::ToLocal;
using jsonparser::support::UpToNul;

std::string_view TextOf(const Json::Value& node) {
    const char* begin = nullptr;
    const char* end = nullptr;
    node.getString(&begin, &end);
    return {begin, static_cast<std::size_t>(end - begin)};
}

void PutQuoted(LocalText& out, std::string_view text) {
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

/// The containers that are open, outermost first. As many as messages have need no memory.
class Levels {
  public:
    bool empty() const { return size_ == 0; }
    Level& back() { return levels_[size_ - 1]; }
    void pop() { --size_; }
    /// @return false where there is no memory for one more
    bool push(const Level& level) {
        if (size_ == capacity_ && !grow()) return false;
        levels_[size_++] = level;
        return true;
    }

  private:
    bool grow() {
        std::unique_ptr<Level[]> larger(new (std::nothrow) Level[2 * capacity_]);
        if (larger == nullptr) return false;
        std::copy_n(levels_, size_, larger.get());
        heap_ = std::move(larger);
        levels_ = heap_.get();
        capacity_ *= 2;
        return true;
    }

    std::array<Level, 16> first_;
    std::unique_ptr<Level[]> heap_;
    Level* levels_ = first_.data();
    std::size_t size_ = 0;
    std::size_t capacity_ = first_.size();
};

/// Writes a scalar whole; of a container its opening bracket, and the level to go on with.
/// @return false where there is no memory for that level
bool Open(LocalText& out, const Json::Value& node, Levels& levels) {
    if (node.isString()) {
        PutQuoted(out, TextOf(node));
    } else if (node.isArray() || node.isObject()) {
        out.put(node.isObject() ? '{' : '[');
        return levels.push({&node, node.begin(), 0});
    } else {
        out.put(node.isNull() ? "null" : node.asString());
    }
    return true;
}

/// Compact JSON. It keeps its own stack of levels, so the depth of a message cannot exhaust the thread's; where there
/// is no memory for that, the text ends.
void PutJson(LocalText& out, const Json::Value& root) {
    Levels levels;
    bool going = Open(out, root, levels);
    while (going && !levels.empty() && !out.full()) {
        Level& level = levels.back();
        const Json::Value& container = *level.container;
        if (level.written == container.size()) {
            out.put(container.isObject() ? '}' : ']');
            levels.pop();
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
            going = Open(out, *member, levels);
        } else {
            going = Open(out, container[index], levels);
        }
    }
}

}  // namespace

void parseJsonNodeToStr(const Json::Value& node, char* buffer, int size) {
    if (size <= 0) return;
    if (node.isString()) return ToLocal(UpToNul(TextOf(node)), buffer, static_cast<std::size_t>(size));
    LocalText out(buffer, static_cast<std::size_t>(size));
    if (!node.isNull()) PutJson(out, node);
    out.terminate();
}

[[gnu::alias("_Z18parseJsonNodeToStrRKN4Json5ValueEPci")]] void jsonparser::support::DefaultParseJsonNodeToStr(
    const Json::Value& node, char* buffer, int size);
