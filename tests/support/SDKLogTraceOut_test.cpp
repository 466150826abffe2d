#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "vkprotocolstack/support/support.h"

namespace {

/// What is written to standard error while write runs.
template <class Write>
std::string Captured(Write write) {
    testing::internal::CaptureStderr();
    write();
    return testing::internal::GetCapturedStderr();
}

TEST(SDKLogTraceOut, WritesALineToStandardError) {
    EXPECT_EQ(Captured([] {
                  SetBasicInfo("../vkprotocolstack/JsonParser", 1234, 1);
                  SDKLogTraceOut(0, "the message");
              }),
              "../vkprotocolstack/JsonParser:1234: level 1, code 0: the message\n");
}

TEST(SDKLogTraceOut, EveryMessageOfAPlaceNamesIt) {
    EXPECT_EQ(Captured([] {
                  SetBasicInfo("file", 1, 2);
                  SDKLogTraceOut(-3, "first");
                  SDKLogTraceOut(4, "");
              }),
              "file:1: level 2, code -3: first\nfile:1: level 2, code 4: \n");
}

TEST(SDKLogTraceOut, AThreadWithoutAPlaceNamesNone) {
    EXPECT_EQ(Captured([] { std::thread([] { SDKLogTraceOut(0, "message"); }).join(); }),
              ":0: level 0, code 0: message\n");
}

TEST(SDKLogTraceOut, AMessageIsNoFormat) {
    EXPECT_EQ(Captured([] {
                  SetBasicInfo("%s", 0, 0);
                  SDKLogTraceOut(0, "100%n %s");
              }),
              "%s:0: level 0, code 0: 100%n %s\n");
}

}  // namespace
