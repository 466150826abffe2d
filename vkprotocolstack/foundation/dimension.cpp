#include <algorithm>
#include <new>
#include <vector>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::MessagePlace;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

/// An array that is being measured.
struct Level {
    std::vector<Node> samples;  ///< its elements that count; the missing one of an empty array
    long long size;
    long long step;
    long long index;  ///< the element that is being measured
    long long depth;  ///< of the shallowest element so far; 0 is final
};

/// -1 where there is no memory for the arrays that are being measured.
long long Measure(Node root, int shift) try {
    if (!root.isArray()) return 0;
    const auto levelOf = [shift](Node array) {
        const auto size = static_cast<long long>(array.size());
        Level level{{}, size, (size >> (static_cast<unsigned>(shift) % 32)) + 1, 0, 0};
        level.samples.reserve(static_cast<std::size_t>(size / level.step) + 1);
        // In one walk: an element of an array of arrays is not found by its index at once.
        array.forElements(static_cast<std::size_t>(size), [&level](Node element, std::size_t i) {
            if (static_cast<long long>(i) % level.step == 0) level.samples.push_back(element);
        });
        if (size == 0) level.samples.push_back(array.at(0));
        return level;
    };
    std::vector<Level> levels{levelOf(root)};
    for (;;) {
        Level& level = levels.back();
        const Node element = level.samples[static_cast<std::size_t>(level.index / level.step)];
        if (element.isArray()) {
            levels.push_back(levelOf(element));
            continue;
        }
        // A scalar: its depth, 0, goes up until an array has another element to sample.
        long long depth = 0;
        for (;;) {
            Level& parent = levels.back();
            parent.depth = parent.index == 0 ? depth : std::min(parent.depth, depth);
            const bool sampleNext = parent.depth > 0 && parent.index + parent.step < parent.size;
            if (sampleNext) {
                parent.index += parent.step;
                break;
            }
            depth = parent.depth + 1;
            levels.pop_back();
            if (levels.empty()) return depth;
        }
    }
} catch (const std::bad_alloc&) {
    return -1;
}

}  // namespace

Json_dimension::Json_dimension(int shift) : nShift(shift) {}

long long Json_dimension::operator()(const Json::Value& value) const { return nShift < 0 ? -1 : do_recursion(value); }

long long Json_dimension::operator()(const MessagePlace& place) const { return nShift < 0 ? -1 : do_recursion(place); }

long long Json_dimension::do_recursion(const Json::Value& value) const { return Measure(Node(value), nShift); }

long long Json_dimension::do_recursion(const MessagePlace& place) const {
    const auto node = NodeAt(place);
    return node ? Measure(*node, nShift) : -1;
}
