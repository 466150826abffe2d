#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "testing/json.h"
#include "testing/record.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;
using testing_tools::Text;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

bool IsZero(Placed<tagRANGE>& range) {
    return std::all_of(range.bytes(), range.bytes() + sizeof(tagRANGE), [](unsigned char byte) { return byte == 0; });
}

// ---- deserialize_range

TEST(DeserializeRange, ReadsEveryMember) {
    Placed<tagRANGE> range;
    EXPECT_EQ(deserialize_range(Json(R"({"Max": 10.5, "Min": -2.25, "Default": 3.5, "Step": 0.25})"), *range), 1);
    EXPECT_EQ(range->fMax, 10.5F);
    EXPECT_EQ(range->fMin, -2.25F);
    EXPECT_TRUE(range->bHasDefault);
    EXPECT_EQ(range->fDefault, 3.5F);
    EXPECT_TRUE(range->bHasStep);
    EXPECT_EQ(range->fStep, 0.25F);
}

TEST(DeserializeRange, WithoutDefaultAndStepBothFlagsAreFalseAndTheValues0) {
    Placed<tagRANGE> range;
    EXPECT_EQ(deserialize_range(Json(R"({"Max": 10, "Min": 0})"), *range), 1);
    EXPECT_EQ(range->fMax, 10.0F);
    EXPECT_EQ(range->fMin, 0.0F);
    EXPECT_FALSE(range->bHasDefault);
    EXPECT_FALSE(range->bHasStep);
    EXPECT_EQ(range->fDefault, 0.0F);
    EXPECT_EQ(range->fStep, 0.0F);
}

TEST(DeserializeRange, ANullStepIsNone) {
    Placed<tagRANGE> range;
    EXPECT_EQ(deserialize_range(Json(R"({"Max": 10, "Step": null})"), *range), 1);
    EXPECT_EQ(range->fMax, 10.0F);
    EXPECT_FALSE(range->bHasStep);
    EXPECT_EQ(range->fStep, 0.0F);
}

TEST(DeserializeRange, EachFlagStandsForItsOwnMember) {
    Placed<tagRANGE> withDefault;
    deserialize_range(Json(R"({"Default": 7, "Step": null})"), *withDefault);
    EXPECT_TRUE(withDefault->bHasDefault);
    EXPECT_EQ(withDefault->fDefault, 7.0F);
    EXPECT_FALSE(withDefault->bHasStep);
    Placed<tagRANGE> withStep;
    deserialize_range(Json(R"({"Default": null, "Step": 7})"), *withStep);
    EXPECT_FALSE(withStep->bHasDefault);
    EXPECT_TRUE(withStep->bHasStep);
    EXPECT_EQ(withStep->fStep, 7.0F);
}

TEST(DeserializeRange, ClearsTheWholeRecordFirst) {
    Placed<tagRANGE> range;
    EXPECT_EQ(deserialize_range(Json("{}"), *range), 1);
    EXPECT_TRUE(IsZero(range));
}

TEST(DeserializeRange, ClearsTheReservedBytes) {
    Placed<tagRANGE> range;
    deserialize_range(Json(R"({"Max": 1, "Min": 2, "Default": 3, "Step": 4})"), *range);
    for (const unsigned char byte : range->byReserved) EXPECT_EQ(byte, 0);
}

TEST(DeserializeRange, AnyRootButAnObjectReadsAsEmpty) {
    for (const Json::Value& value : HostileValues()) {
        Placed<tagRANGE> range;
        EXPECT_EQ(deserialize_range(value, *range), 1);
        EXPECT_TRUE(IsZero(range));
    }
}

TEST(DeserializeRange, NamesAreExact) {
    Placed<tagRANGE> range;
    deserialize_range(Json(R"({"max": 1, "MIN": 2, "default": 3, "Step ": 4, "": 5, "Ma": 6, "Maximum": 7, "Z": 8})"),
                      *range);
    EXPECT_TRUE(IsZero(range));
}

TEST(DeserializeRange, NarrowsTheNumbersToFloat) {
    struct Row {
        Json::Value value;
        float expected;
    };
    const Row rows[] = {
        {0.1,                          0.1F                   },
        {16777217,                     16777216.0F            },
        {Json("2147483648"),           2147483648.0F          },
        {Json("-9223372036854775808"), -9223372036854775808.0F},
        {Json("18446744073709551615"), 18446744073709551616.0F},
        {1e308,                        kInfinity              },
        {-1e308,                       -kInfinity             },
        {HUGE_VAL,                     kInfinity              },
        {-HUGE_VAL,                    -kInfinity             },
        {1e-60,                        0.0F                   },
        {true,                         1.0F                   },
        {false,                        0.0F                   },
        {"2.5",                        0.0F                   },
        {Json("[2.5]"),                0.0F                   },
        {Json(R"({"Max": 2.5})"),      0.0F                   },
    };
    for (const Row& row : rows) {
        Json::Value value;
        for (const char* name : {"Max", "Min", "Default", "Step"}) value[name] = row.value;
        Placed<tagRANGE> range;
        EXPECT_EQ(deserialize_range(value, *range), 1);
        EXPECT_EQ(range->fMax, row.expected) << Text(row.value);
        EXPECT_EQ(range->fMin, row.expected) << Text(row.value);
        EXPECT_EQ(range->fDefault, row.expected) << Text(row.value);
        EXPECT_EQ(range->fStep, row.expected) << Text(row.value);
        EXPECT_TRUE(range->bHasDefault) << Text(row.value);
        EXPECT_TRUE(range->bHasStep) << Text(row.value);
    }
}

TEST(DeserializeRange, NaNStaysNaN) {
    Json::Value value;
    value["Max"] = std::nan("");
    Placed<tagRANGE> range;
    EXPECT_EQ(deserialize_range(value, *range), 1);
    EXPECT_TRUE(std::isnan(range->fMax));
}

TEST(DeserializeRange, AnyMemberIsReadAndDisturbsNoOther) {
    for (const Json::Value& hostile : HostileValues()) {
        for (const char* name : {"Max", "Min", "Default", "Step"}) {
            Json::Value value = Json(R"({"Max": 1, "Min": 2, "Default": 3, "Step": 4})");
            value[name] = hostile;
            Placed<tagRANGE> range;
            EXPECT_EQ(deserialize_range(value, *range), 1);
            const std::string changed = name;
            if (changed != "Max") {
                EXPECT_EQ(range->fMax, 1.0F);
            }
            if (changed != "Min") {
                EXPECT_EQ(range->fMin, 2.0F);
            }
            if (changed != "Default") {
                EXPECT_EQ(range->fDefault, 3.0F);
            }
            if (changed != "Step") {
                EXPECT_EQ(range->fStep, 4.0F);
            }
            EXPECT_EQ(range->bHasDefault, changed != "Default" || !hostile.isNull());
            EXPECT_EQ(range->bHasStep, changed != "Step" || !hostile.isNull());
        }
    }
}

// ---- serialize_range, serialize_range_float

tagRANGE Range(float max, float min, bool hasDefault, float normal, bool hasStep, float step) {
    tagRANGE range{};
    range.fMax = max;
    range.fMin = min;
    range.bHasDefault = hasDefault;
    range.fDefault = normal;
    range.bHasStep = hasStep;
    range.fStep = step;
    return range;
}

tagRANGE Range(float max, float min) { return Range(max, min, false, 0, false, 0); }

std::string Integers(const tagRANGE& range, Json::Value node = {}) {
    EXPECT_EQ(serialize_range(range, node), 1);
    return Text(node);
}

std::string Reals(const tagRANGE& range, Json::Value node = {}) {
    EXPECT_EQ(serialize_range_float(range, node), 1);
    return Text(node);
}

TEST(SerializeRange, Writes2Point9As2AndMinus2Point9AsMinus2) {
    EXPECT_EQ(Integers(Range(2.9F, -2.9F)), R"({"Max":2,"Min":-2})");
}

TEST(SerializeRange, WritesDefaultAndStepOnlyWithTheirFlags) {
    EXPECT_EQ(Integers(Range(1, 2, false, 3, false, 4)), R"({"Max":1,"Min":2})");
    EXPECT_EQ(Integers(Range(1, 2, true, 3.7F, false, 4)), R"({"Default":3,"Max":1,"Min":2})");
    EXPECT_EQ(Integers(Range(1, 2, false, 3, true, 4.7F)), R"({"Max":1,"Min":2,"Step":4})");
    EXPECT_EQ(Integers(Range(1, 2, true, 3.7F, true, -4.7F)), R"({"Default":3,"Max":1,"Min":2,"Step":-4})");
}

TEST(SerializeRange, SaturatesAtTheLimitsOf32Bits) {
    EXPECT_EQ(Integers(Range(3e9F, -3e9F)), R"({"Max":2147483647,"Min":-2147483648})");
    EXPECT_EQ(Integers(Range(2147483648.0F, -2147483648.0F)), R"({"Max":2147483647,"Min":-2147483648})");
    EXPECT_EQ(Integers(Range(2147483520.0F, -2147483520.0F)), R"({"Max":2147483520,"Min":-2147483520})");
    EXPECT_EQ(Integers(Range(kInfinity, -kInfinity)), R"({"Max":2147483647,"Min":-2147483648})");
    EXPECT_EQ(Integers(Range(1, 2, true, 3.4e38F, true, -3.4e38F)),
              R"({"Default":2147483647,"Max":1,"Min":2,"Step":-2147483648})");
}

TEST(SerializeRange, NaNIs0) { EXPECT_EQ(Integers(Range(kNaN, -kNaN)), R"({"Max":0,"Min":0})"); }

TEST(SerializeRange, CutsFractionsTowardZero) {
    EXPECT_EQ(Integers(Range(0.999F, -0.999F)), R"({"Max":0,"Min":0})");
    EXPECT_EQ(Integers(Range(-0.0F, 1e-40F)), R"({"Max":0,"Min":0})");
}

TEST(SerializeRange, NumbersAreIntegers) {
    Json::Value node;
    serialize_range(Range(1, 2, true, 3, true, 4), node);
    for (const Json::Value& number : node) EXPECT_EQ(number.type(), Json::intValue);
}

TEST(SerializeRangeFloat, WritesTheFloatsWidenedToDouble) {
    Json::Value node;
    EXPECT_EQ(serialize_range_float(Range(2.9F, -2.9F), node), 1);
    EXPECT_EQ(node.size(), 2U);
    EXPECT_EQ(node["Max"], Json::Value(2.900000095367431640625));
    EXPECT_EQ(node["Min"], Json::Value(-2.900000095367431640625));
}

TEST(SerializeRangeFloat, WritesDefaultAndStepOnlyWithTheirFlags) {
    EXPECT_EQ(Reals(Range(1.5F, 2, false, 3, false, 4)), R"({"Max":1.5,"Min":2.0})");
    EXPECT_EQ(Reals(Range(1.5F, 2, true, 3.5F, false, 4)), R"({"Default":3.5,"Max":1.5,"Min":2.0})");
    EXPECT_EQ(Reals(Range(1.5F, 2, false, 3, true, 4.5F)), R"({"Max":1.5,"Min":2.0,"Step":4.5})");
    EXPECT_EQ(Reals(Range(1.5F, 2, true, 3.5F, true, -4.5F)), R"({"Default":3.5,"Max":1.5,"Min":2.0,"Step":-4.5})");
}

TEST(SerializeRangeFloat, WholeNumbersAreRealsToo) {
    Json::Value node;
    serialize_range_float(Range(0, 2147483648.0F, true, -0.0F, true, 1), node);
    for (const Json::Value& number : node) EXPECT_EQ(number.type(), Json::realValue);
    EXPECT_TRUE(std::signbit(node["Default"].asDouble()));
}

TEST(SerializeRangeFloat, KeepsInfinitiesAndNaN) {
    Json::Value node;
    serialize_range_float(Range(kInfinity, -kInfinity, true, kNaN, false, 0), node);
    EXPECT_EQ(node["Max"].asDouble(), HUGE_VAL);
    EXPECT_EQ(node["Min"].asDouble(), -HUGE_VAL);
    EXPECT_TRUE(std::isnan(node["Default"].asDouble()));
}

TEST(SerializeRangeFloat, KeepsTheLargestAndTheSmallestFloat) {
    using Limits = std::numeric_limits<float>;
    Json::Value node;
    serialize_range_float(Range(Limits::max(), Limits::denorm_min()), node);
    EXPECT_EQ(node["Max"].asDouble(), static_cast<double>(Limits::max()));
    EXPECT_EQ(node["Min"].asDouble(), static_cast<double>(Limits::denorm_min()));
}

TEST(SerializeRanges, AnObjectKeepsItsOtherMembers) {
    const Json::Value node = Json(R"({"Max": "old", "Default": "kept", "Step": [1], "Unit": "m"})");
    EXPECT_EQ(Integers(Range(1, 2), node), R"({"Default":"kept","Max":1,"Min":2,"Step":[1],"Unit":"m"})");
    EXPECT_EQ(Reals(Range(1, 2), node), R"({"Default":"kept","Max":1.0,"Min":2.0,"Step":[1],"Unit":"m"})");
    EXPECT_EQ(Integers(Range(1, 2, true, 3, true, 4), node), R"({"Default":3,"Max":1,"Min":2,"Step":4,"Unit":"m"})");
}

TEST(SerializeRanges, AnyValueButAnObjectIsReplaced) {
    for (const Json::Value& value : HostileValues()) {
        if (value.isObject()) continue;
        EXPECT_EQ(Integers(Range(1, 2), value), R"({"Max":1,"Min":2})");
        EXPECT_EQ(Reals(Range(1, 2), value), R"({"Max":1.0,"Min":2.0})");
    }
}

TEST(SerializeRanges, TheRecordIsNotChanged) {
    Placed<tagRANGE> range;
    range->bHasDefault = true;
    range->bHasStep = true;
    const Fields before = range.changedFields();
    Json::Value node;
    serialize_range(*range, node);
    serialize_range_float(*range, node);
    EXPECT_EQ(range.changedFields(), before);
}

}  // namespace
