#include "tools/jsonparser/progress.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

namespace {

using tool::ProgressText;

TEST(ProgressText, ShowsShareRateAndTimeLeft) {
    EXPECT_EQ(ProgressText(250'000'000, "160000 lines", 5, 1'000'000'000),
              " 25 %  160000 lines, 250 MB, 50.0 MB/s, 0:15 left");
    EXPECT_EQ(ProgressText(1'000'000'000, "9 lines", 4, 1'000'000'000), "100 %  9 lines, 1.00 GB, 250 MB/s, 0:00 left");
}

TEST(ProgressText, LeavesOutWhatCannotBeKnown) {
    EXPECT_EQ(ProgressText(1500, "3 lines", 2, {}), "3 lines, 1.50 kB, 750 B/s");
    EXPECT_EQ(ProgressText(0, "0 lines", 2, 1000), "0 lines, 0 B, 0 B/s");
}

TEST(ProgressText, TakesAFileThatGrows) {
    EXPECT_EQ(ProgressText(2000, "1 lines", 1, 1000), "100 %  1 lines, 2.00 kB, 2.00 kB/s, 0:00 left");
}

TEST(ProgressText, ShowsHoursAndUnitsOfAnySize) {
    EXPECT_EQ(ProgressText(1'000, "1 lines", 1, 3'724'500), "  0 %  1 lines, 1.00 kB, 1.00 kB/s, 1:02:04 left");
    EXPECT_EQ(ProgressText(999, "1 lines", 1, {}), "1 lines, 999 B, 999 B/s");
    EXPECT_EQ(ProgressText(999'600, "1 lines", 1, {}), "1 lines, 1.00 MB, 1.00 MB/s");
    EXPECT_EQ(ProgressText(99'960'000, "1 lines", 1, {}), "1 lines, 100 MB, 100 MB/s");
    EXPECT_EQ(ProgressText(18'000'000'000'000'000'000U, "1 lines", 1, {}), "1 lines, 18.0 EB, 18.0 EB/s");
}

TEST(TotalBytes, AddsUpRegularFilesOnly) {
    std::string name = testing::TempDir() + "progress_test_XXXXXX";
    close(mkstemp(name.data()));
    std::ofstream(name) << "12345";
    EXPECT_EQ(tool::TotalBytes({name, name}), 10U);
    EXPECT_EQ(tool::TotalBytes({}), 0U);
    EXPECT_EQ(tool::TotalBytes({name, "/dev/null"}), std::nullopt);
    EXPECT_EQ(tool::TotalBytes({name, "/missing"}), std::nullopt);
    std::remove(name.c_str());
}

}  // namespace
