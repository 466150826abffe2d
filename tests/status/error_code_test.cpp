#include "vkprotocolstack/status/error_code.h"

#include <gtest/gtest.h>
#include <json/value.h>

#include <limits>
#include <map>
#include <string>

#include "testing/json.h"
#include "vkprotocolstack/JsonParser.h"

namespace {

using jsonparser::kErrorCodes;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Text;

constexpr unsigned kNoUsableCode = 0x80000015;

constexpr struct {
    unsigned device;
    unsigned library;
} kRows[] = {
    {0x01003007, 0x80000096},
    {0x0100300F, 0x80000207},
    {0x11020402, 0x80000186},
    {0x11030001, 0x80000007},
    {0x11030002, 0x80000198},
    {0x11030003, 0x80000199},
    {0x11030004, 0x80000018},
    {0x110F0000, 0x8000019A},
    {0x110F0001, 0x8000019B},
    {0x110F0002, 0x8000019C},
    {0x110F0003, 0x8000019D},
    {0x110F000C, 0x80000019},
    {0x11100000, 0x800001A0},
    {0x11100001, 0x800001A1},
    {0x11100002, 0x80000093},
    {0x11100003, 0x80000096},
    {0x11100004, 0x800001A2},
    {0x11100005, 0x800001A3},
    {0x11100006, 0x800001A4},
    {0x11100007, 0x80000154},
    {0x11100008, 0x800001A5},
    {0x11160001, 0x800001A8},
    {0x111D0000, 0x800003F4},
    {0x111D0001, 0x800003F5},
    {0x111D0002, 0x800003F6},
    {0x11010029, 0x80000019},
    {0x1101002C, 0x800003F8},
    {0x1101002D, 0x800003F9},
    {0x11230001, 0x800003FA},
    {0x11230005, 0x800003FE},
    {0x11230009, 0x800003FB},
    {0x1123000A, 0x800003FC},
    {0x1123000B, 0x800003FF},
    {0x11010022, 0x80000208},
    {0x10030010, 0x8000004F},
    {0x10070002, 0x8000004F},
    {0x10070001, 0x80000400},
    {0x1123000C, 0x80000401},
    {0x11350000, 0xFFFFFFFF},
    {0x11350001, 0x80000404},
    {0x11350002, 0x80000405},
    {0x11350003, 0x80000406},
    {0x11350004, 0x80000407},
    {0x11350005, 0x80000408},
    {0x11350006, 0x8000040C},
    {0x00000000, 0x00000000},
    {0x110D0101, 2         },
    {0x110D0102, 3         },
    {0x110D0103, 4         },
    {0x110D0104, 5         },
    {0x110D0105, 6         },
    {0x110D0106, 7         },
    {0x110D0107, 8         },
    {0x110D0108, 9         },
    {0x110D0109, 10        },
    {0x110D0110, 11        },
    {0x110D0111, 12        },
    {0x110D0112, 13        },
    {0x110D0113, 14        },
    {0x110D0114, 15        },
    {0x110D0115, 16        },
    {0x110D0116, 17        },
    {0x110D0117, 18        },
    {0x110D0118, 19        },
    {0x110D0119, 20        },
    {0xF0070000, 0x80000437},
    {0xF0070001, 0x80000438},
    {0xF0070002, 0x8000004F},
    {0xF0070003, 0x80000007},
    {0xF0070004, 0x80000439},
    {0xF0070005, 0x8000043A},
    {0xF0070006, 0x8000043B},
    {0xF0070007, 0x8000043C},
    {0xF007FFFF, 0x8000043D},
    {0x10030000, 0x8000043E},
    {0x10030001, 0x8000043F},
    {0x10030002, 0x80000440},
    {0x10030003, 0x80000441},
    {0x1003000D, 0x80000442},
    {0x1003000E, 0x80000443},
    {0x10030101, 0x80000444},
    {0x10030102, 0x80000007},
    {0x10030103, 0x80000445},
    {0x10030104, 0x8000043D},
    {0x10030105, 0x80000446},
    {0x10030106, 0x8000004F},
    {0x10030107, 0x80000447},
    {0x10030108, 0x80000448},
    {0x10030201, 0x80000449},
    {0x11020700, 0x8000004F},
    {0x11020701, 0x8000044A},
    {0x11020702, 0x8000044B},
    {0x11020801, 0x8000044C},
    {0x11020802, 0x8000044D},
    {0x11020803, 0x8000044E},
    {0x11020804, 0x8000044F},
    {0x11330021, 0x8000040D},
    {0x11330022, 0x8000040E},
    {0x11330023, 0x8000040F},
    {0x11330024, 0x80000410},
    {0x11330025, 0x80000411},
    {0x11330026, 0x80000412},
    {0x11330027, 0x80000413},
    {0x11330028, 0x80000414},
    {0x11330029, 0x80000415},
    {0x1133002A, 0x80000416},
    {0x1133002B, 0x80000417},
    {0x11340000, 0x80000419},
    {0x11340001, 0x8000041A},
    {0x11340002, 0x8000041B},
    {0x11340003, 0x8000041C},
    {0x11340004, 0x8000041D},
    {0x11340005, 0x8000041E},
    {0x11340006, 0x8000041F},
    {0x11340007, 0x80000420},
    {0x11340008, 0x80000421},
    {0x11340009, 0x80000422},
    {0x1134000A, 0x80000423},
    {0x1134000B, 0x80000424},
    {0x1134000C, 0x80000425},
    {0x1134000D, 0x80000426},
    {0x1134000E, 0x80000427},
    {0x1134000F, 0x80000428},
    {0x11340010, 0x80000429},
    {0x11340011, 0x8000042A},
    {0x11340012, 0x8000042B},
    {0x11340013, 0x8000042C},
    {0x11340014, 0x8000042D},
    {0x11340015, 0x8000042E},
    {0x11340016, 0x8000042F},
    {0x11340017, 0x80000430},
    {0x11340018, 0x80000431},
    {0x11340019, 0x80000432},
    {0x1134002A, 0x80000433},
    {0x1134002B, 0x80000434},
    {0x1134002C, 0x80000435},
    {0x1134002D, 0x80000436},
};
static_assert(std::size(kRows) == 137);

Json::Value Reply(const Json::Value& code) {
    Json::Value reply;
    reply["error"]["code"] = code;
    return reply;
}

unsigned FromReply(const std::string& text) { return ParseErrorCode(Json(text)); }

TEST(ErrorCodes, HasThe137RowsInTheirOrder) {
    ASSERT_EQ(std::size(kErrorCodes), std::size(kRows));
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        EXPECT_EQ(kErrorCodes[i].device, kRows[i].device) << i;
        EXPECT_EQ(kErrorCodes[i].library, kRows[i].library) << i;
    }
}

TEST(ErrorCodes, Has137DifferentDeviceCodesOfWhichSomeShareALibraryCode) {
    std::map<unsigned, int> devices;
    std::map<unsigned, int> libraries;
    for (const auto& row : kErrorCodes) {
        ++devices[row.device];
        ++libraries[row.library];
    }
    EXPECT_EQ(devices.size(), 137U);
    std::map<unsigned, int> shared;
    for (const auto& [code, count] : libraries) {
        if (count > 1) shared[code] = count;
    }
    EXPECT_EQ(shared, (std::map<unsigned, int>{
                          {0x8000004F, 5},
                          {0x80000007, 3},
                          {0x80000096, 2},
                          {0x80000019, 2},
                          {0x8000043D, 2}
    }));
    EXPECT_EQ(libraries.count(kNoUsableCode), 0U);
}

TEST(ParseErrorCodeOfANumber, MapsEveryRow) {
    for (const auto& row : kRows) {
        unsigned library = 0xA5A5A5A5;
        EXPECT_TRUE(ParseErrorCode(row.device, library)) << std::hex << row.device;
        EXPECT_EQ(library, row.library) << std::hex << row.device;
    }
}

TEST(ParseErrorCodeOfANumber, TheNeighboursOfRowsAreUnknown) {
    std::map<unsigned, unsigned> known;
    for (const auto& row : kRows) known[row.device] = row.library;
    int unknown = 0;
    for (const auto& row : kRows) {
        for (const unsigned neighbour : {row.device - 1, row.device + 1}) {
            if (known.count(neighbour) != 0) continue;
            ++unknown;
            unsigned library = 0xA5A5A5A5;
            EXPECT_FALSE(ParseErrorCode(neighbour, library)) << std::hex << neighbour;
            EXPECT_EQ(library, 0xA5A5A5A5U) << std::hex << neighbour;
        }
    }
    EXPECT_GT(unknown, 50);
}

TEST(ParseErrorCodeOfANumber, TheHighestCodeOfItsFamilyIsFound) {
    unsigned library = 0;
    EXPECT_TRUE(ParseErrorCode(0xF007FFFFU, library));
    EXPECT_EQ(library, 0x8000043DU);
}

TEST(ParseErrorCodeOfANumber, AnUnknownCodeLeavesTheOutputUntouched) {
    unsigned library = 0xA5A5A5A5;
    EXPECT_FALSE(ParseErrorCode(0x12345678U, library));
    EXPECT_EQ(library, 0xA5A5A5A5U);
}

TEST(ParseErrorCodeOfAReply, MapsEveryRowFromANegativeAndFromALargePositiveNumber) {
    for (const auto& row : kRows) {
        EXPECT_EQ(ParseErrorCode(Reply(row.device)), row.library) << std::hex << row.device;
        EXPECT_EQ(ParseErrorCode(Reply(static_cast<Json::Int64>(row.device))), row.library) << std::hex << row.device;
        EXPECT_EQ(ParseErrorCode(Reply(static_cast<int>(row.device))), row.library) << std::hex << row.device;
    }
}

TEST(ParseErrorCodeOfAReply, MapsTheCodesOfDevices) {
    EXPECT_EQ(FromReply(R"({"error": {"code": 268632080}})"), 0x8000004FU);
    EXPECT_EQ(FromReply(R"({"error": {"code": 286064913}})"), 12U);
    EXPECT_EQ(FromReply(R"({"error": {"code": 288686080}})"), 0xFFFFFFFFU);
    EXPECT_EQ(FromReply(R"({"error": {"code": 268632080, "message": "busy"}, "id": 7, "result": false})"), 0x8000004FU);
}

TEST(ParseErrorCodeOfAReply, HighCodesArriveAsNegativeAndAsLargePositiveNumbers) {
    EXPECT_EQ(FromReply(R"({"error": {"code": -267976704}})"), 0x80000437U);
    EXPECT_EQ(FromReply(R"({"error": {"code": 4026990592}})"), 0x80000437U);
    EXPECT_EQ(FromReply(R"({"error": {"code": -267911169}})"), 0x8000043DU);
    EXPECT_EQ(FromReply(R"({"error": {"code": 4027056127}})"), 0x8000043DU);
}

TEST(ParseErrorCodeOfAReply, CodeZeroIsNoError) { EXPECT_EQ(FromReply(R"({"error": {"code": 0}})"), 0U); }

TEST(ParseErrorCodeOfAReply, AReplyWithoutErrorOrWithoutCodeHasNoUsableCode) {
    for (const char* text :
         {"{}", R"({"error": null})", R"({"error": {}})", R"({"error": {"code": null}})", R"({"error": {"Code": 0}})",
          R"({"code": 0})", R"({"Error": {"code": 0}})", R"({"error": 0})", R"({"error": "code"})", R"({"error": [0]})",
          R"({"error": [{"code": 0}]})", "null", "0", "[]", R"("error")", R"([{"error": {"code": 0}}])"}) {
        EXPECT_EQ(FromReply(text), kNoUsableCode) << text;
    }
}

TEST(ParseErrorCodeOfAReply, AnUnknownCodeHasNoUsableCode) {
    for (const char* code : {"1", "-1", "2147483647", "-2147483648", "4294967295", "305419896", "21"}) {
        EXPECT_EQ(FromReply(R"({"error": {"code": )" + std::string(code) + "}}"), kNoUsableCode) << code;
    }
}

TEST(ParseErrorCodeOfAReply, WhatIsNoNumberIsNeverSuccess) {
    for (const char* code : {R"("")", R"("0")", R"("268632080")", R"("text")", "[]", "[0]", "{}", R"({"code": 0})"}) {
        EXPECT_EQ(FromReply(R"({"error": {"code": )" + std::string(code) + "}}"), kNoUsableCode) << code;
    }
}

TEST(ParseErrorCodeOfAReply, AnIntegerBeyond32BitsIsNeverSuccessNorTheCodeOfItsLowBits) {
    using Int = std::numeric_limits<Json::Int64>;
    const Json::Int64 low = 0x10030010;
    for (const Json::Int64 code : {Json::Int64{4294967296}, Json::Int64{4294967296} + low, Json::Int64{-4294967296},
                                   Json::Int64{-4294967296} + low, Json::Int64{-2147483649}, Int::min(), Int::max()}) {
        EXPECT_EQ(ParseErrorCode(Reply(code)), kNoUsableCode) << code;
    }
    for (const Json::UInt64 code :
         {Json::UInt64{4294967296}, Json::UInt64{9223372036854775808U}, std::numeric_limits<Json::UInt64>::max()}) {
        EXPECT_EQ(ParseErrorCode(Reply(code)), kNoUsableCode) << code;
    }
}

TEST(ParseErrorCodeOfAReply, ABoolReadsAsZeroOrOne) {
    EXPECT_EQ(FromReply(R"({"error": {"code": false}})"), 0U);
    EXPECT_EQ(FromReply(R"({"error": {"code": true}})"), kNoUsableCode);
}

TEST(ParseErrorCodeOfAReply, ARealIsCutTowardZeroAndSaturates) {
    const struct {
        double code;
        unsigned library;
    } rows[] = {
        {268632080.0,  0x8000004F   },
        {268632080.9,  0x8000004F   },
        {268632079.9,  kNoUsableCode},
        {-267976704.5, 0x80000437   },
        {0.0,          0            },
        {0.9,          0            },
        {-0.9,         0            },
        {4026990592.0, kNoUsableCode}, // saturates, unlike the integer
        {1e300,        kNoUsableCode},
        {-1e300,       kNoUsableCode},
    };
    for (const auto& row : rows) EXPECT_EQ(ParseErrorCode(Reply(row.code)), row.library) << row.code;
}

TEST(ParseErrorCodeOfAReply, TakesEveryReply) {
    for (const Json::Value& value : HostileValues()) {
        EXPECT_EQ(ParseErrorCode(value), kNoUsableCode);
        Json::Value reply;
        reply["error"] = value;
        EXPECT_EQ(ParseErrorCode(reply), kNoUsableCode);
    }
}

TEST(ParseErrorCodeOfAReply, TakesEveryCodeAndFindsSuccessInNumbersOnly) {
    for (const Json::Value& value : HostileValues()) {
        if (ParseErrorCode(Reply(value)) == 0) {
            EXPECT_TRUE(value.isNumeric() || value.isBool()) << Text(value);
        }
    }
}

}  // namespace
