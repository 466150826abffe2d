#include <gtest/gtest.h>
#include <json/value.h>

#include <string>

#include "testing/json.h"
#include "testing/locale.h"
#include "vkprotocolstack/support/support.h"

namespace {

using testing_tools::HostileValues;
using testing_tools::Text;
using testing_tools::Utf8Texts;

TEST(SetJsonString, StoresTheTextWhateverTheFlagSays) {
    const Utf8Texts utf8;
    for (const bool convert : {true, false}) {
        Json::Value value;
        SetJsonString(value, "沪A·12345", convert);
        EXPECT_EQ(Text(value), R"("沪A·12345")");
    }
}

TEST(SetJsonString, StoresUpToTheTerminator) {
    Json::Value value;
    SetJsonString(value, "abc\0def", true);
    EXPECT_EQ(value, Json::Value("abc"));
}

TEST(SetJsonString, AnEmptyOrNullTextStoresTheEmptyText) {
    for (const char* text : {"", static_cast<const char*>(nullptr)}) {
        Json::Value value = 7;
        SetJsonString(value, text, true);
        EXPECT_EQ(value, Json::Value(""));
    }
}

TEST(SetJsonString, ReplacesWhateverTheValueHeld) {
    for (Json::Value value : HostileValues()) {
        SetJsonString(value, "x", true);
        EXPECT_EQ(value, Json::Value("x"));
    }
}

TEST(SetJsonString, TakesATextOutOfTheValueThatItReplaces) {
    Json::Value value = "abcdef";
    SetJsonString(value, value.asCString() + 2, true);
    EXPECT_EQ(value, Json::Value("cdef"));
}

}  // namespace
