#include <gtest/gtest.h>

#include <thread>

#include "vkprotocolstack/support/support.h"
#include "vkprotocolstack/support/trace.h"

namespace {

using jsonparser::support::ThreadTraceSource;

TEST(SetBasicInfo, TheLastCallCounts) {
    SetBasicInfo("first", 1, 2);
    SetBasicInfo("second", -3, 0);
    EXPECT_STREQ(ThreadTraceSource().sourceFile, "second");
    EXPECT_EQ(ThreadTraceSource().line, -3);
    EXPECT_EQ(ThreadTraceSource().level, 0);
}

TEST(SetBasicInfo, TouchesTheCallingThreadAlone) {
    SetBasicInfo("outer", 1, 2);
    std::thread([] {
        EXPECT_STREQ(ThreadTraceSource().sourceFile, "");
        EXPECT_EQ(ThreadTraceSource().line, 0);
        EXPECT_EQ(ThreadTraceSource().level, 0);
        SetBasicInfo("inner", 7, 8);
        EXPECT_STREQ(ThreadTraceSource().sourceFile, "inner");
    }).join();
    EXPECT_STREQ(ThreadTraceSource().sourceFile, "outer");
    EXPECT_EQ(ThreadTraceSource().line, 1);
    EXPECT_EQ(ThreadTraceSource().level, 2);
}

}  // namespace
