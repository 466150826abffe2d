#include <gtest/gtest.h>

#include "testing/json.h"
#include "testing/record.h"

namespace {

using testing_tools::Placed;
using testing_tools::Text;

tagRANGE& Filled(Placed<tagRANGE>& range) {
    range->fMax = 100;
    range->fMin = -2.5;
    range->fStep = 5;
    range->fDefault = 50;
    return *range;
}

// A placed record's flags hold 0xA5, neither 0 nor 1.
TEST(SerializeRange, AFlagOfAnyByteButZeroIsSet) {
    Placed<tagRANGE> range;
    Json::Value node;
    EXPECT_EQ(serialize_range(Filled(range), node), 1);
    EXPECT_EQ(Text(node), R"({"Default":50,"Max":100,"Min":-2,"Step":5})");
}

TEST(SerializeRangeFloat, AFlagOfAnyByteButZeroIsSet) {
    Placed<tagRANGE> range;
    Json::Value node;
    EXPECT_EQ(serialize_range_float(Filled(range), node), 1);
    EXPECT_EQ(Text(node), R"({"Default":50.0,"Max":100.0,"Min":-2.5,"Step":5.0})");
}

}  // namespace
