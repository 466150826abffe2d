#include <gtest/gtest.h>

#include <string>

#include "vkprotocolstack/JsonParser.h"

namespace {

TEST(ParseStorageError, KnowsEveryKeyword) {
    EXPECT_EQ(ParseStorageError("Partition"), 1);
    EXPECT_EQ(ParseStorageError("InitializeFS"), 2);
    EXPECT_EQ(ParseStorageError("ReadData"), 3);
    EXPECT_EQ(ParseStorageError("WriteData"), 4);
    EXPECT_EQ(ParseStorageError("RaidFailed"), 5);
    EXPECT_EQ(ParseStorageError("RaidDegraded"), 6);
    EXPECT_EQ(ParseStorageError("ISCSIFailed"), 7);
}

TEST(ParseStorageError, AnEmptyTextAndSmallLettersGiveZero) {
    EXPECT_EQ(ParseStorageError(""), 0);
    EXPECT_EQ(ParseStorageError("iscsifailed"), 0);
}

TEST(ParseStorageError, ComparesLengthAndBytes) {
    for (const std::string& text :
         {std::string("Partitio"), std::string("Partitions"), std::string(" Partition"), std::string("Partition "),
          std::string("Partition\0", 10), std::string("\0", 1), std::string("partition"), std::string(100000, 'P')}) {
        EXPECT_EQ(ParseStorageError(text), 0) << text;
    }
}

TEST(ParseRaidError, KnowsEveryKeyword) {
    EXPECT_EQ(ParseRaidError("RaidFailed"), 1);
    EXPECT_EQ(ParseRaidError("RaidDegraded"), 2);
}

TEST(ParseRaidError, DoesNotKnowTheOtherStorageFaults) {
    for (const char* text : {"Partition", "InitializeFS", "ReadData", "WriteData", "ISCSIFailed"}) {
        EXPECT_EQ(ParseRaidError(text), 0) << text;
    }
}

TEST(ParseRaidError, ComparesLengthAndBytes) {
    for (const std::string& text : {std::string(), std::string("raidfailed"), std::string("RaidFaile"),
                                    std::string("RaidFailed\0", 11), std::string("RaidDegraded ")}) {
        EXPECT_EQ(ParseRaidError(text), 0) << text;
    }
}

}  // namespace
