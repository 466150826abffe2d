#include <cstring>
#include <string>
#include <string_view>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/config/mobile_data_keywords.h"
#include "vkprotocolstack/time/time_section.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/record.h"
#include "vkprotocolstack/wire/write.h"

using jsonparser::Element;
using jsonparser::FirstWithCode;
using jsonparser::Flag;
using jsonparser::Keyword;
using jsonparser::Keywords;
using jsonparser::kWirelessApns;
using jsonparser::kWirelessAuthModes;
using jsonparser::kWirelessFluxActions;
using jsonparser::kWirelessTactics;
using jsonparser::kWirelessWorkModes;
using jsonparser::Member;
using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::Put;
using jsonparser::Written;

namespace {

constexpr NameList kNames{"Enable",          "Index",    "KeepAlive",       "APN",         "AuthMode",
                          "UserName",        "Password", "AutoDial",        "TimeSection", "3GFluxTactic",
                          "3GFluxUp",        "3GFlux",   "Day3GFluxTactic", "Day3GFluxUp", "Day3GFluxUse",
                          "Day3GFluxAction", "WorkMode", "DailNumber",      "Activate"};

/// The overall traffic policies as devices number them.
constexpr unsigned kFluxTactics[] = {0, 1};

void Read(Node node, tagNET_NETAPP_WIRELESS& info) {
    const Members<kNames> in(node);
    info.bEnable = in["Enable"].asBool();
    info.nIndex = in["Index"].asInt();
    info.nKeepAlive = in["KeepAlive"].asInt();
    info.emAPN = -1;
    if (auto v = in["APN"]) {
        info.emAPN = v.firstExact(kWirelessApns, 0);
        v.stringTo(info.szAPN, 32);
    }
    info.emAuthMode = in["AuthMode"].firstExact(kWirelessAuthModes, 0);
    in["UserName"].stringTo(info.szUserName, 64);
    in["Password"].stringTo(info.szPassword, 64);
    info.bAutoDial = in["AutoDial"].asBool();
    if (auto v = in["TimeSection"]) {
        for (std::size_t d = 0; d < 7; ++d) {
            for (std::size_t s = 0; s < 6; ++s) Read(v.at(d).at(s), info.stuTimeSection[d][s]);
        }
    }
    // The record counts from 1; 0 is unknown.
    info.em3GFluxTactic = in["3GFluxTactic"].firstEqual(kFluxTactics, -1) + 1;
    info.dw3GFluxUp = in["3GFluxUp"].asUInt();
    info.dw3GFlux = in["3GFlux"].asUInt();
    info.emDay3GFluxTactic = in["Day3GFluxTactic"].firstExact(kWirelessTactics, 0);
    info.dwDay3GFluxUp = in["Day3GFluxUp"].asUInt();
    info.dwDay3GFluxUse = in["Day3GFluxUse"].asUInt();
    info.emDay3GFluxAction = in["Day3GFluxAction"].firstExact(kWirelessFluxActions, 0);
    info.emWorkMode = in["WorkMode"].firstExact(kWirelessWorkModes, 0);
    in["DailNumber"].stringTo(info.szDailNumber, 32);
    info.bActivate = in["Activate"].asBool();
}

void Trace(const char* message, int line = __builtin_LINE()) {
    SetBasicInfo("../vkprotocolstack/JsonParser", line, 1);
    SDKLogTraceOut(0, message);
}

/// Writes the word of a code, the empty text for a code of no row. An unknown code is traced instead.
void PutKeyword(Json::Value& value, std::string_view name, Keywords table, int code, int unknown, const char* message,
                int line = __builtin_LINE()) {
    if (code == unknown) return Trace(message, line);
    const Keyword* row = FirstWithCode(table, code);
    Put(value, name, std::string(row == nullptr ? "" : row->text));
}

/// A caller's field may lack its terminator.
template <std::size_t Size>
void PutText(Json::Value& value, std::string_view name, const char (&field)[Size]) {
    char text[Size + 1] = {};
    std::memcpy(text, field, Size);
    SetJsonString(Member(value, name), text, true);
}

void Write(const tagNET_NETAPP_WIRELESS& info, Json::Value& value) {
    Put(value, "Enable", Flag(info.bEnable));
    Put(value, "KeepAlive", info.nKeepAlive);
    if (info.emAPN == 0) {
        PutText(value, "APN", info.szAPN);
    } else {
        PutKeyword(value, "APN", kWirelessApns, info.emAPN, -1, "APN is unknown!");
    }
    PutKeyword(value, "AuthMode", kWirelessAuthModes, info.emAuthMode, 0, "emAuthMode is unknown!");
    PutText(value, "UserName", info.szUserName);
    PutText(value, "Password", info.szPassword);
    Put(value, "AutoDial", Flag(info.bAutoDial));
    for (Json::ArrayIndex d = 0; d < 7; ++d) {
        Json::Value& day = Element(Member(value, "TimeSection"), d);
        for (Json::ArrayIndex s = 0; s < 6; ++s) Put(day, s, Written(info.stuTimeSection[d][s]));
    }
    if (info.em3GFluxTactic == 0) {
        Trace("3GFluxTactic is unknown!");
    } else {
        Put(value, "3GFluxTactic", info.em3GFluxTactic > 0 ? info.em3GFluxTactic - 1 : 0);
    }
    Put(value, "3GFluxUp", info.dw3GFluxUp);
    Put(value, "3GFlux", info.dw3GFlux);
    PutKeyword(value, "Day3GFluxTactic", kWirelessTactics, info.emDay3GFluxTactic, 0, "Day3GFluxTactic is unknown!");
    Put(value, "Day3GFluxUp", info.dwDay3GFluxUp);
    Put(value, "Day3GFluxUse", info.dwDay3GFluxUse);
    PutKeyword(value, "Day3GFluxAction", kWirelessFluxActions, info.emDay3GFluxAction, 0,
               "Day3GFluxAction is unknown!");
    PutKeyword(value, "WorkMode", kWirelessWorkModes, info.emWorkMode, -1, "emWorkMode is unknown!");
    PutText(value, "DailNumber", info.szDailNumber);
    Put(value, "Activate", Flag(info.bActivate));
}

}  // namespace

void ParseWirelessInfo(const Json::Value& value, tagNET_NETAPP_WIRELESS& info) {
    if (const Node node(value); node) Read(node, info);
}

void ParseWirelessInfo(const MessagePlace& place, tagNET_NETAPP_WIRELESS& info) {
    if (const auto node = NodeAt(place, kNames); node && *node) Read(*node, info);
}

int PacketWirelessInfo(const tagNET_NETAPP_WIRELESS& info, Json::Value& value) {
    Write(info, value);
    return 1;
}
