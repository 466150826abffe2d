#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/numbers.h"
#include "vkprotocolstack/wire/record.h"
#include "vkprotocolstack/wire/write.h"

using jsonparser::Clear;
using jsonparser::Flag;
using jsonparser::Members;
using jsonparser::NameList;
using jsonparser::Node;
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

}  // namespace

int deserialize_range(const Json::Value& value, tagRANGE& range) {
    const Members<kNames> in{Node(value)};
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

int serialize_range(const tagRANGE& range, Json::Value& value) { return Write(range, value, Truncate<int>); }

int serialize_range_float(const tagRANGE& range, Json::Value& value) {
    return Write<double>(range, value, [](double number) { return number; });
}
