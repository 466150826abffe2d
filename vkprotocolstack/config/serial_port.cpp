#include <algorithm>
#include <array>
#include <string>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/config/serial_port_keywords.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/record.h"
#include "vkprotocolstack/wire/write.h"

using jsonparser::AsArray;
using jsonparser::Clear;
using jsonparser::Keyword;
using jsonparser::kParities;
using jsonparser::kStopBits;
using jsonparser::MessagePlace;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::Put;

namespace {

constexpr unsigned arrBaud[10] = {300, 600, 1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
constexpr unsigned arrDataBit[4] = {5, 6, 7, 8};

template <std::size_t N>
std::array<std::string, N> TextsOf(const Keyword (&table)[N]) {
    std::array<std::string, N> texts;
    std::transform(std::begin(table), std::end(table), texts.begin(), [](const Keyword& row) { return row.text; });
    return texts;
}

const std::array<std::string, 5> arrPatity = TextsOf(kParities);
const std::array<std::string, 3> arrStopBit = TextsOf(kStopBits);

template <class Port>
int Read(Node node, Port& port) {
    Clear(port);
    if (node.size() < 4) return 0;
    port.byBaudRate = static_cast<unsigned char>(node.at(0).firstEqual(arrBaud, 0));
    port.byDataBit = static_cast<unsigned char>(node.at(1).firstEqual(arrDataBit, 0));
    port.byParity = static_cast<unsigned char>(node.at(2).firstExact(arrPatity, 0));
    port.byStopBit = static_cast<unsigned char>(node.at(3).firstExact(arrStopBit, 0));
    return 1;
}

template <class Port>
int Write(const Port& port, Json::Value& value) {
    AsArray(value);
    if (port.byBaudRate < std::size(arrBaud)) Put(value, 0, static_cast<int>(arrBaud[port.byBaudRate]));
    if (port.byDataBit < std::size(arrDataBit)) Put(value, 1, static_cast<int>(arrDataBit[port.byDataBit]));
    if (port.byParity < std::size(arrPatity)) Put(value, 2, arrPatity[port.byParity]);
    if (port.byStopBit < std::size(arrStopBit)) Put(value, 3, arrStopBit[port.byStopBit]);
    return 1;
}

}  // namespace

int ParseCommAttr(const Json::Value& value, VK_COMM_PROP& port) { return Read(Node(value), port); }

int ParseCommAttr(const MessagePlace& place, VK_COMM_PROP& port) {
    const auto node = NodeAt(place);
    return node ? Read(*node, port) : 0;
}

int ParseCommAttr(const Json::Value& value, tagCFG_COMM_PROP& port) { return Read(Node(value), port); }

int ParseCommAttr(const MessagePlace& place, tagCFG_COMM_PROP& port) {
    const auto node = NodeAt(place);
    return node ? Read(*node, port) : 0;
}

int PacketCommAttr(const VK_COMM_PROP& port, Json::Value& value) { return Write(port, value); }

int PacketCommAttr(const tagCFG_COMM_PROP& port, Json::Value& value) { return Write(port, value); }
