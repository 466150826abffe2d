#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/analytics/face_attributes.h"
#include "vkprotocolstack/analytics/face_attributes_keywords.h"
#include "vkprotocolstack/analytics/non_motor_keywords.h"
#include "vkprotocolstack/foundation/box.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::BoxOf;
using jsonparser::kFaceEmotions;
using jsonparser::kFaceSexes;
using jsonparser::kNonMotorCategories;
using jsonparser::kNonMotorColors;
using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

constexpr NameList kNames{"ObjectID", "Category",   "BoundingBox",    "OriginalBoundingBox", "Color",     "MainColor",
                          "Image",    "SceneImage", "FaceSceneImage", "NumOfCycling",        "NumOfFace", "RiderList"};

constexpr NameList kRiderNames{
    "FeatureValid",   "Helmet",    "Sex",           "Age",     "Call",      "Bag",         "CarrierBag",
    "Umbrella",       "Glasses",   "Mask",          "Emotion", "UpClothes", "DownClothes", "UpperBodyColor",
    "LowerBodyColor", "FaceImage", "FaceAttributes"};

constexpr NameList kPictureNames{"Offset", "Length", "Width", "Height"};

template <class Picture>
void ReadPicture(Node node, Picture& picture) {
    const Members<kPictureNames> in(node);
    picture.dwOffset = in["Offset"].asUInt();
    picture.dwFileLength = in["Length"].asUInt();
    picture.dwWidth = in["Width"].asUInt();
    picture.dwHeight = in["Height"].asUInt();
}

void Read(Node node, tagNONMOTOR_COLOR& color) {
    color.nRed = static_cast<int>(node.at(0).asUInt());
    color.nGreen = static_cast<int>(node.at(1).asUInt());
    color.nBlue = static_cast<int>(node.at(2).asUInt());
    color.nAlpha = static_cast<int>(node.at(3).asUInt());
}

void Read(Node node, tagNONMOTOR_RIDER_INFO& rider) {
    const Members<kRiderNames> in(node);
    rider.bFeatureValid = in["FeatureValid"].asBool();
    rider.nHelmet = in["Helmet"].asInt();
    rider.emSex = in["Sex"].firstExact(kFaceSexes, 0);
    rider.nAge = in["Age"].asInt();
    rider.nCall = in["Call"].asInt();
    rider.nBag = in["Bag"].asInt();
    rider.nCarrierBag = in["CarrierBag"].asInt();
    rider.nUmbrella = in["Umbrella"].asInt();
    rider.nGlasses = in["Glasses"].asInt();
    rider.nMask = in["Mask"].asInt();
    rider.emEmotion = in["Emotion"].firstExact(kFaceEmotions, 0);
    rider.nUpClothes = in["UpClothes"].asInt();
    rider.nDownClothes = in["DownClothes"].asInt();
    rider.emUpperBodyColor = in["UpperBodyColor"].firstExact(kNonMotorColors, 0);
    rider.emLowerBodyColor = in["LowerBodyColor"].firstExact(kNonMotorColors, 0);
    rider.bFaceImage = 0;
    if (auto v = in["FaceImage"]) {
        rider.bFaceImage = 1;
        ReadPicture(v, rider.stuFaceImage);
    }
    rider.bFaceAttributes = 0;
    if (auto v = in["FaceAttributes"]) {
        rider.bFaceAttributes = 1;
        Read(v, rider.stuFaceAttributes);
    }
}

void Read(Node node, tagVA_OBJECT_NONMOTOR& object) {
    const Members<kNames> in(node);
    object.nObjectID = in["ObjectID"].asInt();
    object.emCategory = in["Category"].firstExact(kNonMotorCategories, 0);
    if (auto v = in["BoundingBox"]; v.size() >= 4) object.stuBoundingBox = BoxOf(v);
    if (auto v = in["OriginalBoundingBox"]; v.size() >= 4) object.stuOriginalBoundingBox = BoxOf(v);
    object.emColor = in["Color"].firstExact(kNonMotorColors, 0);
    if (auto v = in["MainColor"]; v.size() >= 4) Read(v, object.stuMainColor);
    if (auto v = in["Image"]) {
        object.bPicEnable = 1;
        ReadPicture(v, object.stuImage);
        v["FilePath"].stringTo(object.stuImage.szFilePath, 260);
    }
    if (auto v = in["SceneImage"]) ReadPicture(v, object.stuSceneImage);
    if (auto v = in["FaceSceneImage"]) ReadPicture(v, object.stuFaceSceneImage);
    object.nNumOfCycling = in["NumOfCycling"].asInt();
    object.nNumOfFace = in["NumOfFace"].asInt();
    if (auto v = in["RiderList"]) {
        for (std::size_t i = 0; i < 16 && i < v.size(); ++i) Read(v.at(i), object.stuRiderList[i]);
    }
}

}  // namespace

void ParseObjectNonMotor(const Json::Value& root, tagVA_OBJECT_NONMOTOR* pObject) { Read(Node(root), *pObject); }

void ParseObjectNonMotor(const MessagePlace& root, tagVA_OBJECT_NONMOTOR* pObject) {
    if (const auto node = NodeAt(root, kNames)) Read(*node, *pObject);
}
