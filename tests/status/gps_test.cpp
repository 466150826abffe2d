#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "testing/json.h"
#include "testing/record.h"
#include "vkprotocolstack/wire/observer.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;
using testing_tools::Text;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// ---- coordinates

Json::Value Coordinate(unsigned degrees, unsigned minutes, double seconds) {
    Json::Value value;
    value[0] = degrees;
    value[1] = minutes;
    value[2] = seconds;
    return value;
}

/// The single-precision coordinate, each step stored as a float before the next.
float SingleSteps(unsigned degrees, unsigned minutes, double seconds) {
    const volatile float d = static_cast<float>(degrees);
    const volatile float m = static_cast<float>(minutes);
    const volatile float s = static_cast<float>(seconds);
    const volatile float minutesPart = m / 60.0F;
    const volatile float secondsPart = s / 3600.0F;
    const volatile float withMinutes = d + minutesPart;
    const volatile float sum = withMinutes + secondsPart;
    const volatile float product = sum * 1000000.0F;
    return product;
}

unsigned Cut(float value) {
    if (!(value > 0.0F)) return 0;
    if (value >= 4294967296.0F) return UINT_MAX;
    return static_cast<unsigned>(value);
}

double DoubleSteps(unsigned degrees, unsigned minutes, double seconds) {
    const volatile double minutesPart = static_cast<double>(minutes) / 60.0;
    const volatile double secondsPart = seconds / 3600.0;
    const volatile double withMinutes = static_cast<double>(degrees) + minutesPart;
    const volatile double sum = withMinutes + secondsPart;
    const volatile double product = sum * 1000000.0;
    return product;
}

TEST(Coordinates, ReadDegreesAndMinutesInMillionths) {
    EXPECT_EQ(TransLongitudetoUInt(Json("[120, 30, 0]")), 120500000U);
    EXPECT_EQ(TransLongitudetoDouble(Json("[120, 30, 0]")), 120500000.0);
}

TEST(Coordinates, ReadSecondsWithAFraction) {
    EXPECT_EQ(TransLongitudetoUInt(Json("[30, 15, 30.5]")), 30258472U);
    EXPECT_NEAR(TransLongitudetoDouble(Json("[30, 15, 30.5]")), 30258472.2222, 0.0001);
}

TEST(Coordinates, OfFewerThanThreeElementsAreZero) {
    for (const char* text :
         {"[120, 30]", "[120]", "[]", "null", "120.5", R"("120.5")", "true", "{}", R"({"0": 120, "1": 30, "2": 0})"}) {
        EXPECT_EQ(TransLongitudetoUInt(Json(text)), 0U) << text;
        EXPECT_EQ(TransLongitudetoDouble(Json(text)), 0.0) << text;
    }
}

TEST(Coordinates, IgnoreElementsBehindTheThird) {
    EXPECT_EQ(TransLongitudetoUInt(Json("[120, 30, 0, 7, 8]")), 120500000U);
    EXPECT_EQ(TransLongitudetoDouble(Json("[120, 30, 0, 7, 8]")), 120500000.0);
}

TEST(Coordinates, TellDegreesMinutesAndSecondsApart) {
    EXPECT_EQ(TransLongitudetoUInt(Json("[1, 0, 0]")), 1000000U);
    EXPECT_EQ(TransLongitudetoUInt(Json("[0, 6, 0]")), 100000U);
    EXPECT_EQ(TransLongitudetoUInt(Json("[0, 0, 36]")), 10000U);
    EXPECT_EQ(TransLongitudetoDouble(Json("[1, 0, 0]")), 1000000.0);
    EXPECT_EQ(TransLongitudetoDouble(Json("[0, 6, 0]")), 100000.0);
    EXPECT_EQ(TransLongitudetoDouble(Json("[0, 0, 36]")), 10000.0);
}

TEST(Coordinates, DegreesAndMinutesReadAsUnsignedSecondsAsReal) {
    EXPECT_EQ(TransLongitudetoDouble(Json("[2.9, 6.9, 0]")), 2100000.0);
    EXPECT_EQ(TransLongitudetoDouble(Json("[-2.9, 6, 0]")), 100000.0);
    EXPECT_EQ(TransLongitudetoDouble(Json("[-1, 0, 0]")), 4294967295.0 * 1000000.0);
    EXPECT_EQ(TransLongitudetoDouble(Json(R"(["2", true, "36"])")), DoubleSteps(0, 1, 0.0));
    EXPECT_EQ(TransLongitudetoDouble(Json("[null, null, null]")), 0.0);
}

TEST(Coordinates, NearHundredAndTwentyDegreesTheSinglePrecisionStepIs8) {
    EXPECT_EQ(TransLongitudetoUInt(Json("[121, 28, 25.37]")) % 8, 0U);
    EXPECT_EQ(TransLongitudetoUInt(Json("[121, 28, 25.37]")), Cut(SingleSteps(121, 28, 25.37)));
    EXPECT_NE(TransLongitudetoUInt(Json("[121, 28, 25.37]")),
              static_cast<unsigned>(TransLongitudetoDouble(Json("[121, 28, 25.37]"))));
}

/// Each of these comes out otherwise when a division becomes a multiplication, steps are reordered or fused, or a sum
/// is kept in double precision.
TEST(Coordinates, OfSinglePrecisionHaveTheseValues) {
    EXPECT_EQ(TransLongitudetoUInt(Json("[9, 58, 24.8]")), 9973556U);
    EXPECT_EQ(TransLongitudetoUInt(Json("[13, 58, 36.73]")), 13976869U);
    EXPECT_EQ(TransLongitudetoUInt(Json("[31, 34, 53.26]")), 31581462U);
    EXPECT_EQ(TransLongitudetoUInt(Json("[70, 58, 53.38]")), 70981496U);
    EXPECT_EQ(TransLongitudetoUInt(Json("[7, 46, 9.04]")), 7769177U);
    EXPECT_EQ(TransLongitudetoUInt(Json("[2, 38, 42.91]")), 2645252U);
    EXPECT_EQ(TransLongitudetoUInt(Json("[75, 8, 15.5]")), 75137632U);
    EXPECT_EQ(TransLongitudetoUInt(Json("[82, 25, 57.99]")), 82432768U);
}

TEST(Coordinates, OfSinglePrecisionAreExactToTheBit) {
    std::mt19937 random(20240105);
    std::uniform_int_distribution<unsigned> degrees(0, 180);
    std::uniform_int_distribution<unsigned> minutes(0, 59);
    std::uniform_real_distribution<double> seconds(0.0, 60.0);
    int coarser = 0;
    for (int i = 0; i < 2000; ++i) {
        const unsigned d = degrees(random);
        const unsigned m = minutes(random);
        const double s = seconds(random);
        const unsigned whole = TransLongitudetoUInt(Coordinate(d, m, s));
        EXPECT_EQ(whole, Cut(SingleSteps(d, m, s))) << d << ' ' << m << ' ' << s;
        EXPECT_EQ(TransLongitudetoDouble(Coordinate(d, m, s)), DoubleSteps(d, m, s)) << d << ' ' << m << ' ' << s;
        if (whole != static_cast<unsigned>(DoubleSteps(d, m, s))) ++coarser;
    }
    EXPECT_GT(coarser, 1000);
}

TEST(Coordinates, OfSinglePrecisionAreExactToTheBitBeyondTheGlobeToo) {
    std::mt19937 random(7);
    std::uniform_int_distribution<unsigned> any;
    std::uniform_real_distribution<double> seconds(-1e8, 1e8);
    for (int i = 0; i < 500; ++i) {
        const unsigned d = any(random) >> (any(random) % 32);
        const unsigned m = any(random) >> (any(random) % 32);
        const double s = seconds(random);
        EXPECT_EQ(TransLongitudetoUInt(Coordinate(d, m, s)), Cut(SingleSteps(d, m, s))) << d << ' ' << m << ' ' << s;
        EXPECT_EQ(TransLongitudetoDouble(Coordinate(d, m, s)), DoubleSteps(d, m, s)) << d << ' ' << m << ' ' << s;
    }
}

TEST(Coordinates, OfSinglePrecisionAreCutIntoTheirRange) {
    EXPECT_EQ(TransLongitudetoUInt(Coordinate(0, 0, -1.0)), 0U);
    EXPECT_EQ(TransLongitudetoUInt(Coordinate(1, 0, -3601.0)), 0U);
    EXPECT_EQ(TransLongitudetoUInt(Coordinate(0, 0, 0.0035)), 0U);
    EXPECT_EQ(TransLongitudetoUInt(Coordinate(0, 0, 0.0037)), 1U);
    EXPECT_EQ(TransLongitudetoUInt(Coordinate(4294, 0, 0.0)), 4294000128U);
    EXPECT_EQ(TransLongitudetoUInt(Coordinate(4295, 0, 0.0)), 4294967295U);
    EXPECT_EQ(TransLongitudetoUInt(Coordinate(4294967295, 4294967295, 1e300)), 4294967295U);
    EXPECT_EQ(TransLongitudetoUInt(Coordinate(0, 0, kInfinity)), 4294967295U);
    EXPECT_EQ(TransLongitudetoUInt(Coordinate(0, 0, -kInfinity)), 0U);
    EXPECT_EQ(TransLongitudetoUInt(Coordinate(0, 0, std::nan(""))), 0U);
}

TEST(Coordinates, OfDoublePrecisionAreNotCut) {
    EXPECT_EQ(TransLongitudetoDouble(Coordinate(0, 0, -36.0)), -10000.0);
    EXPECT_EQ(TransLongitudetoDouble(Coordinate(0, 0, -kInfinity)), -kInfinity);
    EXPECT_TRUE(std::isnan(TransLongitudetoDouble(Coordinate(0, 0, std::nan("")))));
}

TEST(Coordinates, TakeEveryValue) {
    for (const Json::Value& value : HostileValues()) {
        if (!value.isArray()) {
            EXPECT_EQ(TransLongitudetoUInt(value), 0U);
            EXPECT_EQ(TransLongitudetoDouble(value), 0.0);
        }
        TransLongitudetoUInt(value);
        TransLongitudetoDouble(value);
        for (Json::ArrayIndex i = 0; i < 3; ++i) {
            Json::Value coordinate = Coordinate(0, 0, 0.0);
            coordinate[i] = value;
            const double exact = TransLongitudetoDouble(coordinate);
            if (!value.isNumeric() && !value.isBool()) {
                EXPECT_EQ(exact, 0.0);
                EXPECT_EQ(TransLongitudetoUInt(coordinate), 0U);
            }
        }
    }
}

// ---- writing a coordinate

std::string Written(double degrees) {
    Json::Value value;
    TransLongitudeToJson(value, degrees);
    return Text(value);
}

TEST(TransLongitudeToJson, WritesDegreesMinutesAndSeconds) {
    EXPECT_EQ(Written(120.5), "[120,30,0.0]");
    EXPECT_EQ(Written(0.0), "[0,0,0.0]");
    EXPECT_EQ(Written(180.0), "[180,0,0.0]");
    EXPECT_EQ(Written(0.0625), "[0,3,45.0]");
}

TEST(TransLongitudeToJson, CutsSecondsToHundredths) {
    Json::Value value;
    TransLongitudeToJson(value, 30.2584722);
    EXPECT_EQ(value, Json("[30, 15, 30.49]"));
}

TEST(TransLongitudeToJson, WritesIntegersAndOneReal) {
    Json::Value value;
    TransLongitudeToJson(value, 120.5);
    EXPECT_EQ(value[0].type(), Json::intValue);
    EXPECT_EQ(value[1].type(), Json::intValue);
    EXPECT_EQ(value[2].type(), Json::realValue);
}

TEST(TransLongitudeToJson, CutsNegativeDegreesTowardZero) {
    EXPECT_EQ(Written(-120.5), "[-120,-30,0.0]");
    EXPECT_EQ(Written(-0.0625), "[0,-3,-45.0]");
}

TEST(TransLongitudeToJson, FollowsItsStepsForAnyPosition) {
    std::mt19937 random(42);
    std::uniform_real_distribution<double> degrees(-180.0, 180.0);
    for (int i = 0; i < 500; ++i) {
        const double input = degrees(random);
        const int d = static_cast<int>(input);
        const volatile double fraction = input - d;
        const volatile double minutes = fraction * 60.0;
        const int m = static_cast<int>(minutes);
        const volatile double rest = minutes - m;
        const volatile double seconds = rest * 60.0;
        const volatile double hundredths = seconds * 100.0;
        Json::Value value;
        TransLongitudeToJson(value, input);
        EXPECT_EQ(value[0], d) << input;
        EXPECT_EQ(value[1], m) << input;
        EXPECT_EQ(value[2], static_cast<int>(hundredths) / 100.0) << input;
    }
}

TEST(TransLongitudeToJson, CutsWhatIsBeyondTheRangeToTheNearestLimit) {
    Json::Value value;
    TransLongitudeToJson(value, kInfinity);
    EXPECT_EQ(value[0], INT_MAX);
    EXPECT_EQ(value[1], INT_MAX);
    EXPECT_EQ(value[2], 21474836.47);
    TransLongitudeToJson(value, -1e300);
    EXPECT_EQ(value[0], INT_MIN);
    EXPECT_EQ(value[1], INT_MIN);
    EXPECT_EQ(value[2], -21474836.48);
    TransLongitudeToJson(value, std::nan(""));
    EXPECT_EQ(Text(value), "[0,0,0.0]");
    TransLongitudeToJson(value, 2147483648.0);
    EXPECT_EQ(Text(value), "[2147483647,60,0.0]");
}

TEST(TransLongitudeToJson, KeepsFurtherElementsAndReplacesAnythingElse) {
    const struct {
        const char* before;
        const char* after;
    } rows[] = {
        {"null",            "[120,30,0.0]"    },
        {"[]",              "[120,30,0.0]"    },
        {"[9]",             "[120,30,0.0]"    },
        {"[9, 8, 7, 6, 5]", "[120,30,0.0,6,5]"},
        {"{\"a\": 1}",      "[120,30,0.0]"    },
        {"7",               "[120,30,0.0]"    },
        {"\"text\"",        "[120,30,0.0]"    },
    };
    for (const auto& row : rows) {
        Json::Value value = Json(row.before);
        TransLongitudeToJson(value, 120.5);
        EXPECT_EQ(Text(value), row.after) << row.before;
    }
}

TEST(TransLongitudeToJson, TakesEveryNodeAndEveryNumber) {
    for (const Json::Value& before : HostileValues()) {
        for (const double degrees : {120.5, -1e308, kInfinity, -kInfinity, std::nan(""), 5e-324}) {
            Json::Value value = before;
            TransLongitudeToJson(value, degrees);
            ASSERT_TRUE(value.isArray());
            EXPECT_EQ(value.size(), before.isArray() && before.size() > 3 ? before.size() : 3);
            EXPECT_TRUE(value[0].isInt() && value[1].isInt() && value[2].isDouble());
        }
    }
}

// ---- position report

TEST(ParseGPSInfo, ReadsEveryMember) {
    Placed<tagNET_GPS_INFO> info;
    ParseGPSInfo(Json(R"({"Longitude": [120, 30, 0], "Latitude": [30, 15, 30.5], "Altitude": 12.25, "Speed": 61.5,
                          "Bearing": -271.75})"),
                 *info);
    EXPECT_EQ(info->nLongitude, 120500000U);
    EXPECT_EQ(info->nLatitude, 30258472U);
    EXPECT_EQ(info->dbAltitude, 12.25);
    EXPECT_EQ(info->dbSpeed, 61.5);
    EXPECT_EQ(info->dbBearing, -271.75);
}

TEST(ParseGPSInfo, MissingMembersReadAsZero) {
    for (const char* text :
         {"{}", "null", "[]", "7", R"("Longitude")", R"({"longitude": [1, 2, 3]})",
          R"({"Longitude": null, "Latitude": [1, 2], "Altitude": "7", "Speed": [], "Bearing": {}})"}) {
        Placed<tagNET_GPS_INFO> info;
        ParseGPSInfo(Json(text), *info);
        EXPECT_EQ(info->nLongitude, 0U) << text;
        EXPECT_EQ(info->nLatitude, 0U) << text;
        EXPECT_EQ(info->dbAltitude, 0.0) << text;
        EXPECT_EQ(info->dbSpeed, 0.0) << text;
        EXPECT_EQ(info->dbBearing, 0.0) << text;
    }
}

TEST(ParseGPSInfo, TakesEveryValue) {
    for (const Json::Value& value : HostileValues()) {
        Placed<tagNET_GPS_INFO> whole;
        ParseGPSInfo(value, *whole);
        EXPECT_EQ(whole->dbSpeed, 0.0);
        for (const char* name : {"Longitude", "Latitude", "Altitude", "Speed", "Bearing"}) {
            Placed<tagNET_GPS_INFO> info;
            Json::Value position;
            position[name] = value;
            ParseGPSInfo(position, *info);
            if (!value.isNumeric() && !value.isBool()) {
                EXPECT_EQ(info->dbAltitude + info->dbSpeed + info->dbBearing, 0.0) << name;
            }
        }
    }
}

// ---- receiver status

/// What is written whatever the status object holds.
const Fields kAlwaysWritten{"bAntennasStatus", "bPositioningResult", "bySNR", "emDateSource"};

TEST(ParseGPSStatusInfo, ReadsEveryMember) {
    Placed<_NET_GPS_STATUS_INFO> info;
    ParseGPSStatusInfo(Json(R"({"Time": [2024, 5, 6, 7, 8, 9], "Longitude": [120, 30, 0], "Latitude": [30, 15, 36],
                                "Altitude": 12.25, "Bearing": 271.75, "Speed": 61.5, "SatelliteCount": 11,
                                "AntennasStatus": true, "PositioningResult": false, "WorkStatus": -4,
                                "AlarmPoints": [21, -22, 23], "SNR": 38, "Source": "InertialNavigation"})"),
                       info.get());
    EXPECT_EQ(info->stuGpsTime.nYear, 2024);
    EXPECT_EQ(info->stuGpsTime.nMonth, 5);
    EXPECT_EQ(info->stuGpsTime.nDay, 6);
    EXPECT_EQ(info->stuGpsTime.nHour, 7);
    EXPECT_EQ(info->stuGpsTime.nMinute, 8);
    EXPECT_EQ(info->stuGpsTime.nSecond, 9);
    EXPECT_EQ(info->dbLongitude, 120500000.0);
    EXPECT_EQ(info->dbLatitude, 30260000.0);
    EXPECT_EQ(info->dbAltitude, 12.25);
    EXPECT_EQ(info->dbBearing, 271.75);
    EXPECT_EQ(info->dbSpeed, 61.5);
    EXPECT_EQ(info->wSatelliteCount, 11);
    EXPECT_EQ(info->bAntennasStatus, 1);
    EXPECT_EQ(info->bPositioningResult, 0);
    EXPECT_EQ(info->nWorkStatus, -4);
    EXPECT_EQ(info->nAlarmCount, 3);
    EXPECT_EQ(info->nAlarmTypes[0], 21);
    EXPECT_EQ(info->nAlarmTypes[1], -22);
    EXPECT_EQ(info->nAlarmTypes[2], 23);
    EXPECT_EQ(static_cast<unsigned>(info->nAlarmTypes[3]), 0xA5A5A5A5U);
    EXPECT_EQ(info->bySNR, 38);
    EXPECT_EQ(info->emDateSource, 1);
    EXPECT_EQ(info->byReserved1[0], 0xA5);
    EXPECT_EQ(info->byReserved2[0], 0xA5);
}

TEST(ParseGPSStatusInfo, WithoutMembersWritesTheFlagsTheRatioAndTheSourceOnly) {
    for (const char* text :
         {"{}", "null", "[]", "7", R"("SNR")",
          R"({"Time": null, "Longitude": null, "Latitude": null, "Altitude": null, "Bearing": null, "Speed": null,
              "SatelliteCount": null, "AntennasStatus": null, "PositioningResult": null, "WorkStatus": null,
              "AlarmPoints": null, "SNR": null, "Source": null})"}) {
        Placed<_NET_GPS_STATUS_INFO> info;
        ParseGPSStatusInfo(Json(text), info.get());
        EXPECT_EQ(info.changedFields(), kAlwaysWritten) << text;
        EXPECT_EQ(info->bAntennasStatus, 2) << text;
        EXPECT_EQ(info->bPositioningResult, 2) << text;
        EXPECT_EQ(info->bySNR, 0) << text;
        EXPECT_EQ(info->emDateSource, 0) << text;
    }
}

TEST(ParseGPSStatusInfo, GoesThroughTheMembersInOrder) {
    struct : jsonparser::Observer {
        std::vector<std::string> paths;
        void look(const jsonparser::Look& look) override {
            if (paths.empty() || paths.back() != look.path) paths.push_back(look.path);
        }
    } observer;
    const jsonparser::ObserverScope scope(observer);
    Placed<_NET_GPS_STATUS_INFO> info;
    ParseGPSStatusInfo(Json("{}"), info.get());
    EXPECT_EQ(observer.paths,
              (std::vector<std::string>{"/Altitude", "/Speed", "/Longitude", "/Latitude", "/Bearing", "/AntennasStatus",
                                        "/PositioningResult", "/WorkStatus", "/SatelliteCount", "/AlarmPoints", "/Time",
                                        "/SNR", "/Source"}));
}

TEST(ParseGPSStatusInfo, EachMemberIsReadByItself) {
    const struct {
        const char* text;
        const char* field;
    } rows[] = {
        {R"({"Altitude": 0})",          "dbAltitude"     },
        {R"({"Speed": 0})",             "dbSpeed"        },
        {R"({"Longitude": [1, 2, 3]})", "dbLongitude"    },
        {R"({"Longitude": []})",        "dbLongitude"    },
        {R"({"Latitude": [1, 2, 3]})",  "dbLatitude"     },
        {R"({"Bearing": 0})",           "dbBearing"      },
        {R"({"WorkStatus": 0})",        "nWorkStatus"    },
        {R"({"SatelliteCount": 0})",    "wSatelliteCount"},
        {R"({"AlarmPoints": []})",      "nAlarmCount"    },
    };
    for (const auto& row : rows) {
        Placed<_NET_GPS_STATUS_INFO> info;
        ParseGPSStatusInfo(Json(row.text), info.get());
        Fields changed = info.changedFields();
        EXPECT_EQ(std::erase(changed, row.field), 1U) << row.text;
        EXPECT_EQ(changed, kAlwaysWritten) << row.text;
    }
}

TEST(ParseGPSStatusInfo, TheFlagsHaveThreeValues) {
    const struct {
        const char* value;
        int flag;
    } rows[] = {
        {"true",       1},
        {"false",      0},
        {"null",       2},
        {"0",          0},
        {"1",          1},
        {"2",          1},
        {"0.5",        1},
        {R"("true")",  0},
        {"[true]",     0},
        {"{\"a\": 1}", 0},
        {"4294967296", 1},
    };
    for (const auto& row : rows) {
        Placed<_NET_GPS_STATUS_INFO> antennas;
        ParseGPSStatusInfo(Json(R"({"AntennasStatus": )" + std::string(row.value) + "}"), antennas.get());
        EXPECT_EQ(antennas->bAntennasStatus, row.flag) << row.value;
        EXPECT_EQ(antennas->bPositioningResult, 2) << row.value;
        Placed<_NET_GPS_STATUS_INFO> result;
        ParseGPSStatusInfo(Json(R"({"PositioningResult": )" + std::string(row.value) + "}"), result.get());
        EXPECT_EQ(result->bPositioningResult, row.flag) << row.value;
        EXPECT_EQ(result->bAntennasStatus, 2) << row.value;
    }
}

TEST(ParseGPSStatusInfo, AlarmPointsAreCutTo128) {
    for (const int size : {0, 1, 127, 128, 129, 200}) {
        Json::Value status;
        status["AlarmPoints"] = Json::Value(Json::arrayValue);
        for (int i = 0; i < size; ++i) status["AlarmPoints"].append(1000 + i);
        Placed<_NET_GPS_STATUS_INFO> info;
        ParseGPSStatusInfo(status, info.get());
        EXPECT_EQ(info->nAlarmCount, size < 128 ? size : 128);
        for (int i = 0; i < 128; ++i) {
            EXPECT_EQ(info->nAlarmTypes[i], i < size ? 1000 + i : static_cast<int>(0xA5A5A5A5)) << size << ' ' << i;
        }
        EXPECT_EQ(info->byReserved2[0], 0xA5) << size;
    }
}

TEST(ParseGPSStatusInfo, AlarmPointsThatAreNoArrayCountAsNone) {
    for (const char* text : {R"({"AlarmPoints": 5})", R"({"AlarmPoints": "5"})", R"({"AlarmPoints": {"0": 5}})"}) {
        Placed<_NET_GPS_STATUS_INFO> info;
        ParseGPSStatusInfo(Json(text), info.get());
        EXPECT_EQ(info->nAlarmCount, 0) << text;
        EXPECT_EQ(static_cast<unsigned>(info->nAlarmTypes[0]), 0xA5A5A5A5U) << text;
    }
}

TEST(ParseGPSStatusInfo, ATimeOfFewerThanSixElementsIsIgnored) {
    for (const char* time : {"[2024, 5, 6, 7, 8]", "[]", "null", "2024", R"("2024-05-06 07:08:09")",
                             R"({"0": 1, "1": 2, "2": 3, "3": 4, "4": 5, "5": 6})"}) {
        Placed<_NET_GPS_STATUS_INFO> info;
        ParseGPSStatusInfo(Json(R"({"Time": )" + std::string(time) + "}"), info.get());
        EXPECT_EQ(info.changedFields(), kAlwaysWritten) << time;
    }
}

TEST(ParseGPSStatusInfo, ATimeOfMoreThanSixElementsIsReadFromItsFirstSix) {
    Placed<_NET_GPS_STATUS_INFO> info;
    ParseGPSStatusInfo(Json(R"({"Time": [-1, "5", null, 7.9, 4294967297, true, 99]})"), info.get());
    EXPECT_EQ(info->stuGpsTime.nYear, -1);
    EXPECT_EQ(info->stuGpsTime.nMonth, 0);
    EXPECT_EQ(info->stuGpsTime.nDay, 0);
    EXPECT_EQ(info->stuGpsTime.nHour, 7);
    EXPECT_EQ(info->stuGpsTime.nMinute, 1);
    EXPECT_EQ(info->stuGpsTime.nSecond, 1);
    EXPECT_EQ(info->byReserved1[0], 0xA5);
}

TEST(ParseGPSStatusInfo, TheSatelliteCountKeepsItsLow16BitsAndTheRatioItsLow8) {
    const struct {
        const char* value;
        unsigned short satellites;
        unsigned char ratio;
    } rows[] = {
        {"0",          0,     0  },
        {"255",        255,   255},
        {"256",        256,   0  },
        {"65535",      65535, 255},
        {"65536",      0,     0  },
        {"65543",      7,     7  },
        {"-1",         65535, 255},
        {"4294967295", 65535, 255},
        {"12.9",       12,    12 },
        {"true",       1,     1  },
        {R"("7")",     0,     0  },
    };
    for (const auto& row : rows) {
        Placed<_NET_GPS_STATUS_INFO> info;
        const std::string value(row.value);
        ParseGPSStatusInfo(Json(R"({"SatelliteCount": )" + value + R"(, "SNR": )" + value + "}"), info.get());
        EXPECT_EQ(info->wSatelliteCount, row.satellites) << value;
        EXPECT_EQ(info->bySNR, row.ratio) << value;
        EXPECT_EQ(info->byReserved2[0], 0xA5) << value;
    }
}

TEST(ParseGPSStatusInfo, KnowsEverySourceAndTakesAnyOtherForGps) {
    const struct {
        const char* source;
        int code;
    } rows[] = {
        {R"("GPS")",                  0},
        {R"("InertialNavigation")",   1},
        {R"("inertialnavigation")",   0},
        {R"("InertialNavigation ")",  0},
        {R"("InertialNavigatio")",    0},
        {R"("gps")",                  0},
        {R"("BeiDou")",               0},
        {R"("")",                     0},
        {"1",                         0},
        {R"(["InertialNavigation"])", 0},
        {"null",                      0},
    };
    for (const auto& row : rows) {
        Placed<_NET_GPS_STATUS_INFO> info;
        ParseGPSStatusInfo(Json(R"({"Source": )" + std::string(row.source) + "}"), info.get());
        EXPECT_EQ(info->emDateSource, row.code) << row.source;
    }
}

TEST(ParseGPSStatusInfo, CoordinatesOfFewerThanThreeElementsReadAsZero) {
    Placed<_NET_GPS_STATUS_INFO> info;
    ParseGPSStatusInfo(Json(R"({"Longitude": [120, 30], "Latitude": "30"})"), info.get());
    EXPECT_EQ(info->dbLongitude, 0.0);
    EXPECT_EQ(info->dbLatitude, 0.0);
}

TEST(ParseGPSStatusInfo, TakesEveryValue) {
    for (const Json::Value& value : HostileValues()) {
        Placed<_NET_GPS_STATUS_INFO> whole;
        ParseGPSStatusInfo(value, whole.get());
        EXPECT_EQ(whole.changedFields(), kAlwaysWritten);
        for (const char* name :
             {"Altitude", "Speed", "Longitude", "Latitude", "Bearing", "AntennasStatus", "PositioningResult",
              "WorkStatus", "SatelliteCount", "AlarmPoints", "Time", "SNR", "Source"}) {
            Placed<_NET_GPS_STATUS_INFO> info;
            Json::Value status;
            status[name] = value;
            ParseGPSStatusInfo(status, info.get());
            EXPECT_EQ(info->emDateSource, 0) << name;
            EXPECT_EQ(info->byReserved1[0], 0xA5) << name;
            EXPECT_EQ(info->byReserved1[55], 0xA5) << name;
            EXPECT_EQ(info->byReserved2[0], 0xA5) << name;
        }
    }
}

}  // namespace
