#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::Members;
using jsonparser::NameList;
using jsonparser::Node;

namespace {

constexpr NameList kNames{"WeighInfo"};
constexpr NameList kWeighNames{"Rough", "Tare", "Net"};

void Read(Node node, tagWEIGH_INFO& weigh) {
    const Members<kWeighNames> in(node);
    weigh.dwRough = in["Rough"].asUInt();
    weigh.dwTare = in["Tare"].asUInt();
    weigh.dwNet = in["Net"].asUInt();
}

}  // namespace

bool ParseCustomInfo(const Json::Value& event, tagEVENT_JUNCTION_CUSTOM_INFO& info) {
    const Members<kNames> in{Node(event)};
    if (auto v = in["WeighInfo"]) Read(v, info.stuWeighInfo);
    return true;
}
