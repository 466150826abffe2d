#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/numbers.h"
#include "vkprotocolstack/wire/record.h"
#include "vkprotocolstack/wire/write.h"

using jsonparser::Clear;
using jsonparser::Flag;
using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::Put;
using jsonparser::Truncate;

namespace {

constexpr NameList kNames{"Max", "Min", "Default", "Step"};

template <class Number>
int Write(const tagRANGE& range, Json::Value& value, Number (*number)(double)) {
    Put(value, "Max", number(range.fMax));
    Put(value, "Min", number(range.fMin));
    if (Flag(range.bHasDefault)) Put(value, "Default", number(range.fDefault));
    if (Flag(range.bHasStep)) Put(value, "Step", number(range.fStep));
    return 1;
}

int Read(Node node, tagRANGE& range) {
    const Members<kNames> in(node);
    Clear(range);
    range.fMax = in["Max"].asFloat();
    range.fMin = in["Min"].asFloat();
    if (auto v = in["Default"]) {
        range.bHasDefault = true;
        range.fDefault = v.asFloat();
    }
    if (auto v = in["Step"]) {
        range.bHasStep = true;
        range.fStep = v.asFloat();
    }
    return 1;
}

}  // namespace

int deserialize_range(const Json::Value& value, tagRANGE& range) { return Read(Node(value), range); }

int deserialize_range(const MessagePlace& place, tagRANGE& range) {
    const auto node = NodeAt(place, kNames);
    return node ? Read(*node, range) : 0;
}

int serialize_range(const tagRANGE& range, Json::Value& value) { return Write(range, value, Truncate<int>); }

int serialize_range_float(const tagRANGE& range, Json::Value& value) {
    return Write<double>(range, value, [](double number) { return number; });
}
