#include <gtest/gtest.h>

#include "testing/json.h"
#include "testing/record.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;

TEST(ParseStrtoVehicle, ReadsTheCategory) {
    Placed<tagEVENT_VEHICLE_INFO> info;
    EXPECT_TRUE(ParseStrtoVehicle(Json(R"({"Category": "Bus"})"), info.get()));
    EXPECT_STREQ(info->szVehicleCategory, "Bus");
}

TEST(ParseStrtoVehicle, WithoutCategoryLeavesTheRecordUntouchedAndReturnsTrue) {
    for (const char* text : {"{}", R"({"Category": null})", "null", "[]", "7", R"("Category")"}) {
        Placed<tagEVENT_VEHICLE_INFO> info;
        EXPECT_TRUE(ParseStrtoVehicle(Json(text), info.get())) << text;
        EXPECT_EQ(info.changedFields(), Fields{}) << text;
    }
}

TEST(ParseStrtoVehicle, ACategoryThatIsNoTextEmptiesTheFieldAndReturnsFalse) {
    for (const char* text : {"7", "true", "1.5", "[]", "{}", R"(["Bus"])"}) {
        Placed<tagEVENT_VEHICLE_INFO> info;
        Json::Value vehicle;
        vehicle["Category"] = Json(text);
        EXPECT_FALSE(ParseStrtoVehicle(vehicle, info.get())) << text;
        EXPECT_STREQ(info->szVehicleCategory, "") << text;
    }
}

TEST(ParseStrtoVehicle, CutsTheCategoryTo64BytesTerminatorIncluded) {
    for (const std::size_t length : {62U, 63U, 64U, 65U, 1000U}) {
        Placed<tagEVENT_VEHICLE_INFO> info;
        Json::Value vehicle;
        vehicle["Category"] = std::string(length, 'x');
        EXPECT_TRUE(ParseStrtoVehicle(vehicle, info.get()));
        EXPECT_EQ(std::string(info->szVehicleCategory), std::string(std::min<std::size_t>(length, 63), 'x'));
    }
}

TEST(ParseStrtoVehicle, TakesAnyJson) {
    for (const Json::Value& value : HostileValues()) {
        Placed<tagEVENT_VEHICLE_INFO> info;
        EXPECT_NO_THROW(ParseStrtoVehicle(value, info.get()));
        Json::Value vehicle;
        vehicle["Category"] = value;
        EXPECT_NO_THROW(ParseStrtoVehicle(vehicle, info.get()));
    }
}

}  // namespace
