#include "catalogue.h"

#include <algorithm>

#include "vkprotocolstack/JsonParser.h"

namespace tool {
namespace {

using vkrecords::kLayout;

/// A record that is only read. read(node, record) says whether it succeeded.
template <class Record, class Read>
constexpr CatalogueEntry Reads(std::string_view name, std::string_view meaning, Read) {
    return {name, meaning, &kLayout<Record>,
            [](Json::Value& node, void* record) -> bool { return Read{}(node, *static_cast<Record*>(record)); },
            nullptr};
}

/// A record that is only written.
template <class Record, class Write>
constexpr CatalogueEntry Writes(std::string_view name, std::string_view meaning, Write) {
    return {name, meaning, &kLayout<Record>, nullptr, [](const void* record, Json::Value& node) -> bool {
                return Write{}(node, *static_cast<const Record*>(record));
            }};
}

/// A record that is read and written.
template <class Record, class Read, class Write>
constexpr CatalogueEntry ReadsAndWrites(std::string_view name, std::string_view meaning, Read read, Write write) {
    CatalogueEntry entry = Reads<Record>(name, meaning, read);
    entry.encode = Writes<Record>(name, meaning, write).encode;
    return entry;
}

constexpr CatalogueEntry kCatalogue[] = {
    // ---- foundation
    ReadsAndWrites<VK_RECT>(
        "VK_RECT", "rectangle, wide form", [](auto& node, auto& rect) { return GetJsonRect(node, rect); },
        [](auto& node, auto& rect) { return SetJsonRect(node, rect); }),
    Reads<tagNET_RECT>("tagNET_RECT", "rectangle, 32-bit form",
                       [](auto& node, auto& rect) { return JsonRect::parse(node, rect); }),
    ReadsAndWrites<VK_POINT>(
        "VK_POINT", "point", [](auto& node, auto& point) { return GetJsonPoint(node, point); },
        [](auto& node, auto& point) { return SetJsonPoint(node, point); }),
    ReadsAndWrites<tagRANGE>(
        "tagRANGE", "numeric range, written as integers",
        [](auto& node, auto& range) { return deserialize_range(node, range); },
        [](auto& node, auto& range) { return serialize_range(range, node); }),
    ReadsAndWrites<tagRANGE>(
        "tagRANGE/float", "numeric range, written as reals",
        [](auto& node, auto& range) { return deserialize_range(node, range); },
        [](auto& node, auto& range) { return serialize_range_float(range, node); }),

    // ---- time
    Reads<tagNET_TIME>("tagNET_TIME", "calendar time, 2024-01-05 09:30:00",
                       [](auto& node, auto& time) { return JsonTime::parse(node, time); }),
    ReadsAndWrites<tagNET_TIME>(
        "tagNET_TIME/compact", "calendar time, 20240105 093000",
        [](auto& node, auto& time) { return GetJsonTimeB(node, time); },
        [](auto& node, auto& time) { return SetJsonTimeB(node, time); }),
    ReadsAndWrites<tagNET_TIME>(
        "tagNET_TIME/date", "date, 2024-01-05", [](auto& node, auto& time) { return GetJsonDate(node, time); },
        [](auto& node, auto& time) { return SetJsonDate(node, time); }),
    ReadsAndWrites<tagNET_TIME_EX>(
        "tagNET_TIME_EX", "calendar time with milliseconds, 2024-01-05 09:30:00.250",
        [](auto& node, auto& time) { return GetJsonTime(node, time); },
        [](auto& node, auto& time) { return SetJsonTime(node, time); }),
    ReadsAndWrites<tagCFG_NET_TIME_EX>(
        "tagCFG_NET_TIME_EX", "calendar time with milliseconds of the configuration layer",
        [](auto& node, auto& time) { return GetJsonTime(node, time); },
        [](auto& node, auto& time) { return SetJsonTime(node, time); }),
    ReadsAndWrites<tagCFG_TIME>(
        "tagCFG_TIME", "time of day, 09:30:00", [](auto& node, auto& time) { return GetJsonTime(node, time); },
        [](auto& node, auto& time) { return SetJsonTime(node, time); }),
    Writes<_VKDEVTIME>("_VKDEVTIME", "packed device time, 24-01-05 09:30:00",
                       [](auto& node, auto& time) { return SetJsonTime(node, time); }),

    // ---- traffic
    Reads<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO>(
        "tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO", "vehicle of an intelligent-traffic event",
        [](auto& node, auto& car) { return ParseStrtoTrafficCar(node, &car) == 0; }),
    Reads<tagEVENT_JUNCTION_CUSTOM_INFO>("tagEVENT_JUNCTION_CUSTOM_INFO", "weighbridge data of a junction event",
                                         [](auto& node, auto& info) { return ParseCustomInfo(node, info); }),
    Reads<tagEVENT_VEHICLE_INFO>("tagEVENT_VEHICLE_INFO", "vehicle of a vehicle event",
                                 [](auto& node, auto& info) { return ParseStrtoVehicle(node, &info); }),

    // ---- faces
    Reads<VK_PIC_INFO>("VK_PIC_INFO", "picture with a path of any length",
                       [](auto& node, auto& info) { return ParseImageInfo(node, info), true; }),
    Reads<VK_PIC_INFO_EX3>("VK_PIC_INFO_EX3", "picture with a path of bounded length",
                           [](auto& node, auto& info) { return ParseImageInfo(node, info), true; }),
    ReadsAndWrites<tagFACERECOGNITION_PERSON_INFO>(
        "tagFACERECOGNITION_PERSON_INFO", "person of the face database, first generation",
        [](auto& node, auto& info) { return ParsePersonInfo(node, info), true; },
        [](auto& node, auto& info) { return PacketPersonInfo(node, info); }),
    ReadsAndWrites<tagFACERECOGNITION_PERSON_INFOEX>(
        "tagFACERECOGNITION_PERSON_INFOEX", "person of the face database, second generation",
        [](auto& node, auto& info) { return ParsePersonInfo(node, info), true; },
        [](auto& node, auto& info) { return PacketPersonInfo(node, info); }),
    Reads<tagCANDIDATE_INFO>("tagCANDIDATE_INFO", "candidate of a recognition, first generation",
                             [](auto& node, auto& info) { return ParseCandidate(node, info), true; }),
    Reads<tagCANDIDATE_INFOEX>("tagCANDIDATE_INFOEX", "candidate of a recognition, second generation",
                               [](auto& node, auto& info) { return ParseCandidate(node, info), true; }),
    Reads<tagNET_EXTENSION_INFO>("tagNET_EXTENSION_INFO", "extension data of an event",
                                 [](auto& node, auto& info) { return ParseExtensionInfo(node, info); }),
    Reads<tagNET_HUMANTRAIT_EXTENSION_INFO>(
        "tagNET_HUMANTRAIT_EXTENSION_INFO", "extension data of a human-trait event",
        [](auto& node, auto& info) { return ParseHumanTraitExtensionInfo(node, info); }),
};

std::string Folded(std::string_view text) {
    std::string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return folded;
}

}  // namespace

std::span<const CatalogueEntry> Catalogue() { return kCatalogue; }

const CatalogueEntry* FindEntry(std::string_view name, std::vector<std::string>& alternatives) {
    const std::string wanted = Folded(name);
    const CatalogueEntry* found = nullptr;
    for (const CatalogueEntry& entry : kCatalogue) {
        const std::string folded = Folded(entry.name);
        if (folded == wanted) {
            alternatives.clear();
            return &entry;
        }
        if (folded.find(wanted) == std::string::npos) continue;
        found = &entry;
        alternatives.emplace_back(entry.name);
    }
    return alternatives.size() == 1 ? found : nullptr;
}

}  // namespace tool
