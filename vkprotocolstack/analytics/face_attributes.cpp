#include "vkprotocolstack/analytics/face_attributes.h"

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/analytics/face_attributes_keywords.h"
#include "vkprotocolstack/foundation/geometry.h"
#include "vkprotocolstack/wire/message_node.h"

namespace jsonparser {
namespace {

constexpr NameList kNames{"Sex",   "Age",        "Complexion", "Eye",    "Mouth",   "Mask",
                          "Beard", "Attractive", "Glass",      "Nation", "Emotion", "BoundingBox"};

/// The device's code plus one, so that 0 stays for what was not sent.
int ShiftedCode(Node code) { return code ? code.intPlusOne() : 0; }

}  // namespace

bool Read(Node node, tagNET_FACE_ATTRIBUTE_EX& face) {
    const Members<kNames> in(node);
    face.emSex = in["Sex"].firstExact(kFaceSexes, 0);
    face.nAge = in["Age"].asInt();
    face.nComplexion = in["Complexion"].asInt();
    face.emEye = ShiftedCode(in["Eye"]);
    face.emMouth = ShiftedCode(in["Mouth"]);
    face.emMask = ShiftedCode(in["Mask"]);
    face.emBeard = ShiftedCode(in["Beard"]);
    face.nAttractive = in["Attractive"].asInt();
    // Not shifted, unlike the codes around it.
    face.emGlass = in["Glass"].asInt();
    face.emNation = ShiftedCode(in["Nation"]);
    face.emEmotion = in["Emotion"].firstExact(kFaceEmotions, 0);
    return Read(in["BoundingBox"], face.stuBoundingBox) != 0;
}

}  // namespace jsonparser

bool ParseFaceAttributes(const Json::Value& node, tagNET_FACE_ATTRIBUTE_EX& stuFace) {
    return Read(jsonparser::Node(node), stuFace);
}

bool ParseFaceAttributes(const jsonparser::MessagePlace& place, tagNET_FACE_ATTRIBUTE_EX& stuFace) {
    const auto node = NodeAt(place, jsonparser::kNames);
    return node && Read(*node, stuFace);
}
