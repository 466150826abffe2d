#include <gtest/gtest.h>

#include <array>
#include <string>

#include "testing/json.h"
#include "testing/record.h"

namespace {

using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;
using testing_tools::Text;

/// Baud rate, data bits, parity, stop bits: the order of the message.
using Indexes = std::array<int, 4>;

template <class Port>
Indexes IndexesOf(const Port& port) {
    return {port.byBaudRate, port.byDataBit, port.byParity, port.byStopBit};
}

template <class Port>
Port PortOf(const Indexes& indexes) {
    Port port{};
    port.byBaudRate = static_cast<unsigned char>(indexes[0]);
    port.byDataBit = static_cast<unsigned char>(indexes[1]);
    port.byParity = static_cast<unsigned char>(indexes[2]);
    port.byStopBit = static_cast<unsigned char>(indexes[3]);
    return port;
}

struct Row {
    const char* json;
    Indexes indexes;
};

template <class Port>
class SerialPort : public testing::Test {};
using Ports = testing::Types<VK_COMM_PROP, tagCFG_COMM_PROP>;
TYPED_TEST_SUITE(SerialPort, Ports, );

// Every row of every table, and every element with its own index.
constexpr Row kSettings[] = {
    {R"([300,5,"None","1"])",      {0, 0, 0, 0}},
    {R"([600,6,"Odd","1.5"])",     {1, 1, 1, 1}},
    {R"([1200,7,"Even","2"])",     {2, 2, 2, 2}},
    {R"([2400,8,"Mark","1"])",     {3, 3, 3, 0}},
    {R"([4800,5,"Space","1"])",    {4, 0, 4, 0}},
    {R"([9600,8,"None","1"])",     {5, 3, 0, 0}},
    {R"([19200,5,"None","1"])",    {6, 0, 0, 0}},
    {R"([38400,5,"None","1"])",    {7, 0, 0, 0}},
    {R"([57600,5,"None","1"])",    {8, 0, 0, 0}},
    {R"([115200,7,"Even","1.5"])", {9, 2, 2, 1}},
};

TYPED_TEST(SerialPort, ReadsEverySetting) {
    for (const Row& row : kSettings) {
        Placed<TypeParam> port;
        EXPECT_EQ(ParseCommAttr(Json(row.json), *port), 1) << row.json;
        EXPECT_EQ(IndexesOf(*port), row.indexes) << row.json;
    }
}

TYPED_TEST(SerialPort, WhatIsInNoTableGivesZeroAndIsNoError) {
    for (const Row& row : {
             Row{R"([14400, 9, "odd", "1.0"])",          {0, 0, 0, 0}},
             Row{R"([9600, 9, "odd", "1.0"])",           {5, 0, 0, 0}},
             Row{R"([14400, 8, "odd", "1.0"])",          {0, 3, 0, 0}},
             Row{R"([14400, 9, "Odd", "1.0"])",          {0, 0, 1, 0}},
             Row{R"([14400, 9, "odd", "1.5"])",          {0, 0, 0, 1}},
             Row{R"([115201, 4, "EVEN", "2 "])",         {0, 0, 0, 0}},
             Row{R"([null, null, null, null])",          {0, 0, 0, 0}},
             Row{R"(["9600", "8", 2, ["2"]])",           {0, 0, 0, 0}},
             Row{R"([9600, 8, {}, {}])",                 {5, 3, 0, 0}},
             Row{R"([9600, 8, "Odd\u0000", "2\u0000"])", {5, 3, 0, 0}},
             Row{R"([-1, -5, "", ""])",                  {0, 0, 0, 0}},
             Row{R"([1e300, -1e300, "Space", "2"])",     {0, 0, 4, 2}},
    }) {
        Placed<TypeParam> port;
        EXPECT_EQ(ParseCommAttr(Json(row.json), *port), 1) << row.json;
        EXPECT_EQ(IndexesOf(*port), row.indexes) << row.json;
    }
}

TYPED_TEST(SerialPort, NumbersAreReadAsIntegersAndAsTexts) {
    for (const Row& row : {
             Row{R"([9600.9, 7.2, "None", 2])",       {5, 2, 0, 2}},
             Row{R"([4294976896, 8, "None", 1.5])",   {5, 3, 0, 1}},
             Row{R"([-4294957696, 8, "None", true])", {5, 3, 0, 0}},
    }) {
        Placed<TypeParam> port;
        EXPECT_EQ(ParseCommAttr(Json(row.json), *port), 1) << row.json;
        EXPECT_EQ(IndexesOf(*port), row.indexes) << row.json;
    }
}

TYPED_TEST(SerialPort, ElementsBehindTheFourthAreIgnored) {
    Placed<TypeParam> port;
    EXPECT_EQ(ParseCommAttr(Json(R"([115200, 7, "Even", "1.5", 9600, "RTS"])"), *port), 1);
    EXPECT_EQ(IndexesOf(*port), (Indexes{9, 2, 2, 1}));
}

TYPED_TEST(SerialPort, FewerThanFourElementsOrNoArrayFailWithTheRecordCleared) {
    for (const char* text : {"[]", "[9600]", R"([9600, 8, "Odd"])", "null", "{}", "9600", R"("9600")", "true",
                             R"({"0": 9600, "1": 8, "2": "Odd", "3": "2"})"}) {
        Placed<TypeParam> port;
        EXPECT_EQ(ParseCommAttr(Json(text), *port), 0) << text;
        EXPECT_EQ(IndexesOf(*port), (Indexes{0, 0, 0, 0})) << text;
    }
}

TYPED_TEST(SerialPort, ReadingIsDefinedForEveryValue) {
    for (const Json::Value& hostile : HostileValues()) {
        Placed<TypeParam> root;
        EXPECT_NO_THROW(ParseCommAttr(hostile, *root));
        for (Json::ArrayIndex i = 0; i < 4; ++i) {
            Placed<TypeParam> port;
            Json::Value value = Json(R"([300, 5, "None", "1"])");
            value[i] = hostile;
            EXPECT_NO_THROW(EXPECT_EQ(ParseCommAttr(value, *port), 1));
        }
    }
}

TYPED_TEST(SerialPort, WritesEverySetting) {
    for (const Row& row : kSettings) {
        Json::Value node;
        EXPECT_EQ(PacketCommAttr(PortOf<TypeParam>(row.indexes), node), 1) << row.json;
        EXPECT_EQ(node, Json(row.json)) << Text(node);
    }
}

TYPED_TEST(SerialPort, AnIndexBeyondItsTableWritesNoElement) {
    for (const Row& row : {
             Row{R"([null,8,"Space","2"])",  {10, 3, 4, 2}       },
             Row{R"([300,5,"None"])",        {0, 0, 0, 3}        },
             Row{R"([300,null,"None","1"])", {0, 4, 0, 0}        },
             Row{R"([300,5,null,"1"])",      {0, 0, 5, 0}        },
             Row{R"([115200])",              {9, 4, 5, 3}        },
             Row{R"([null,8])",              {255, 3, 255, 255}  },
             Row{R"([null,null,null,"2"])",  {10, 255, 255, 2}   },
             Row{"null",                     {10, 4, 5, 3}       },
             Row{"null",                     {255, 255, 255, 255}},
    }) {
        Json::Value node;
        EXPECT_EQ(PacketCommAttr(PortOf<TypeParam>(row.indexes), node), 1) << row.json;
        EXPECT_EQ(Text(node), row.json);
    }
}

TYPED_TEST(SerialPort, AnIndexBeyondItsTableLeavesItsElement) {
    Json::Value node = Json(R"([1, 2, 3, 4, "RTS"])");
    EXPECT_EQ(PacketCommAttr(PortOf<TypeParam>({10, 4, 5, 3}), node), 1);
    EXPECT_EQ(Text(node), R"([1,2,3,4,"RTS"])");
    EXPECT_EQ(PacketCommAttr(PortOf<TypeParam>({5, 4, 1, 3}), node), 1);
    EXPECT_EQ(Text(node), R"([9600,2,"Odd",4,"RTS"])");
}

TYPED_TEST(SerialPort, ANodeThatIsNoArrayIsReplaced) {
    for (const char* text : {"{}", R"({"0": 1})", "7", R"("text")", "true"}) {
        Json::Value node = Json(text);
        EXPECT_EQ(PacketCommAttr(PortOf<TypeParam>({5, 3, 0, 0}), node), 1) << text;
        EXPECT_EQ(Text(node), R"([9600,8,"None","1"])") << text;
        Json::Value nothing = Json(text);
        EXPECT_EQ(PacketCommAttr(PortOf<TypeParam>({10, 4, 5, 3}), nothing), 1) << text;
        EXPECT_EQ(Text(nothing), "[]") << text;
    }
}

}  // namespace
