#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

constexpr NameList kNames{"WeighInfo"};
constexpr NameList kWeighNames{"Rough", "Tare", "Net"};

void Read(Node node, tagWEIGH_INFO& weigh) {
    const Members<kWeighNames> in(node);
    weigh.dwRough = in["Rough"].asUInt();
    weigh.dwTare = in["Tare"].asUInt();
    weigh.dwNet = in["Net"].asUInt();
}

void Read(Node node, tagEVENT_JUNCTION_CUSTOM_INFO& info) {
    const Members<kNames> in(node);
    if (auto v = in["WeighInfo"]) Read(v, info.stuWeighInfo);
}

}  // namespace

bool ParseCustomInfo(const Json::Value& event, tagEVENT_JUNCTION_CUSTOM_INFO& info) {
    Read(Node(event), info);
    return true;
}

bool ParseCustomInfo(const MessagePlace& event, tagEVENT_JUNCTION_CUSTOM_INFO& info) {
    const auto node = NodeAt(event, kNames);
    if (!node) return false;
    Read(*node, info);
    return true;
}
