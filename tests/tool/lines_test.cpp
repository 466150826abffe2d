#include "tools/jsonparser/lines.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <thread>

#include "tools/jsonparser/catalogue.h"
#include "tools/jsonparser/line_functions.h"

namespace {

using tool::Batch;
using tool::LineReader;

constexpr std::size_t kLimit = 1000;
constexpr std::size_t kLongLine = tool::BatchLimits().longLine;

/// A file that goes with its object.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& text) {
        close(mkstemp(name_.data()));
        std::ofstream(name_, std::ios::binary) << text;
    }
    ~TemporaryFile() { std::remove(name_.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& name() const { return name_; }

  private:
    std::string name_ = testing::TempDir() + "lines_test_XXXXXX";
};

/// A pipe whose reading end has a name.
class Pipe {
  public:
    Pipe() { EXPECT_EQ(pipe2(ends_.data(), O_CLOEXEC), 0); }
    ~Pipe() {
        close(ends_[0]);
        finish();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    std::string name() const { return "/dev/fd/" + std::to_string(ends_[0]); }
    void send(const std::string& text) const {
        EXPECT_EQ(write(ends_[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    void finish() {
        if (ends_[1] >= 0) close(ends_[1]);
        ends_[1] = -1;
    }

  private:
    std::array<int, 2> ends_ = {-1, -1};
};

std::vector<std::unique_ptr<Batch>> Batches(const std::vector<std::string>& files, std::size_t limit = kLimit) {
    LineReader reader(files, limit);
    std::vector<std::unique_ptr<Batch>> batches;
    while (std::unique_ptr<Batch> batch = reader.next()) batches.push_back(std::move(batch));
    return batches;
}

/// Every line that a batch gives to its function, as number:text.
std::vector<std::string> Lines(Batch& batch) {
    std::vector<std::string> lines;
    const auto keep = [&lines](tool::LinePlace place, std::string_view line, auto&, auto&) {
        lines.push_back(std::to_string(place.number) + ':' + std::string(line));
        return true;
    };
    tool::Convert(batch, {nullptr, keep});
    return lines;
}

using Texts = std::vector<std::string>;

TEST(LineReader, GivesWholeLinesWithTheirNumbers) {
    const TemporaryFile file("one\ntwo\r\n\n \t\nfive");
    const auto batches = Batches({file.name()});
    ASSERT_EQ(batches.size(), 1U);
    EXPECT_EQ(batches[0]->file, file.name());
    EXPECT_EQ(batches[0]->bytes, 17U);
    EXPECT_EQ(Lines(*batches[0]), (Texts{"1:one", "2:two", "5:five"}));
    EXPECT_EQ(batches[0]->lines, 3U);
    EXPECT_EQ(batches[0]->bad, 0U);
}

TEST(LineReader, GivesNothingForEmptyFiles) {
    const TemporaryFile file("");
    EXPECT_TRUE(Batches({file.name(), file.name()}).empty());
    EXPECT_TRUE(Batches({}).empty());
}

TEST(LineReader, EndsABatchAtItsNumberOfLines) {
    constexpr std::size_t kBatchLines = tool::BatchLimits().lines;
    std::string text;
    for (std::size_t i = 0; i < 2 * kBatchLines + 1; ++i) text += "x\n";
    const TemporaryFile file(text);
    const auto batches = Batches({file.name()});
    ASSERT_EQ(batches.size(), 3U);
    EXPECT_EQ(batches[0]->firstLine, 1U);
    EXPECT_EQ(batches[1]->firstLine, kBatchLines + 1);
    EXPECT_EQ(batches[2]->firstLine, 2 * kBatchLines + 1);
    EXPECT_EQ(batches[2]->text, "x\n");
}

TEST(LineReader, EndsABatchOfLongLinesBeforeItIsLarge) {
    const std::string line(kLongLine - 1, 'x');
    std::string text;
    for (int i = 0; i < 5; ++i) text += line + '\n';
    const TemporaryFile file(text);
    const auto batches = Batches({file.name()}, 1000000);
    ASSERT_EQ(batches.size(), 2U);
    EXPECT_EQ(batches[0]->text.size(), 4 * kLongLine);
    EXPECT_FALSE(batches[0]->isLong);
    EXPECT_EQ(batches[1]->firstLine, 5U);
    EXPECT_EQ(batches[1]->text, line + '\n');
    EXPECT_FALSE(batches[1]->isLong);
}

TEST(LineReader, GivesLongLinesAlone) {
    const std::string longest(kLongLine, 'x');
    const TemporaryFile file("one\n" + longest + "y\r\n" + longest + "z\n" + longest + "\ntwo\n" + longest + 'y');
    const auto batches = Batches({file.name()}, 1000000);
    ASSERT_EQ(batches.size(), 5U);
    const std::vector<bool> isLong = {false, true, true, false, true};
    for (std::size_t i = 0; i < batches.size(); ++i) EXPECT_EQ(batches[i]->isLong, isLong[i]) << i;
    EXPECT_EQ(batches[1]->text, longest + "y\r\n");
    EXPECT_EQ(batches[3]->text, longest + "\ntwo\n");
    EXPECT_EQ(batches[4]->firstLine, 6U);
}

TEST(LineReader, EndsABatchWhereNoMoreInputIsReady) {
    Pipe pipe;
    LineReader reader({pipe.name()}, kLimit);
    pipe.send("one\ntwo\nthr");
    auto batch = reader.next();
    ASSERT_NE(batch, nullptr);
    EXPECT_EQ(batch->text, "one\ntwo\n");
    pipe.send("ee\n");
    batch = reader.next();
    ASSERT_NE(batch, nullptr);
    EXPECT_EQ(batch->text, "three\n");
    EXPECT_EQ(batch->firstLine, 3U);
    pipe.send("fo");
    std::thread later([&pipe] {
        pipe.send("ur");
        pipe.finish();
    });
    batch = reader.next();
    later.join();
    ASSERT_NE(batch, nullptr);
    EXPECT_EQ(batch->text, "four");
    EXPECT_EQ(reader.next(), nullptr);
}

TEST(LineReader, PassesOverLinesThatAreTooLong) {
    const std::string fits(kLimit, 'x');
    const TemporaryFile file(fits + "\n" + fits + "\r\n" + fits + "y\na\n" + std::string(300000, 'z') + "\nb\n" + fits +
                             "y");
    const auto batches = Batches({file.name()});
    Texts lines;
    std::string findings;
    std::size_t bytes = 0;
    for (const auto& batch : batches) {
        for (const std::string& line : Lines(*batch)) lines.push_back(line.substr(0, 3));
        findings += batch->findings;
        bytes += batch->bytes;
    }
    EXPECT_EQ(lines, (Texts{"1:x", "2:x", "4:a", "6:b"}));
    const std::string rest = ": found a line of more than 1000 bytes, expected at most that many (see --max-size)\n";
    std::string expected;
    for (const char* line : {":3", ":5", ":7"}) expected += "jsonparser: " + file.name() + line + rest;
    EXPECT_EQ(findings, expected);
    EXPECT_EQ(bytes, 4 * kLimit + 300000 + 11);
}

TEST(LineReader, TakesALineOfTheMostBytesWhereverReadingIsCut) {
    const std::string most(5, 'x');
    const TemporaryFile file(most + "\r\n" + most + "\n" + most + "y\r\n" + most + "\ry\n" + most + '\r');
    for (std::size_t bytes = 1; bytes < 30; ++bytes) {
        LineReader reader({file.name()}, most.size(), {.readBytes = bytes});
        Texts lines;
        while (const std::unique_ptr<Batch> batch = reader.next()) {
            for (const std::string& line : Lines(*batch)) lines.push_back(line);
            if (!batch->findings.empty()) lines.push_back(std::to_string(batch->firstLine) + " is too long");
        }
        EXPECT_EQ(lines, (Texts{"1:xxxxx", "2:xxxxx", "3 is too long", "4 is too long", "5:xxxxx"})) << bytes;
    }
}

TEST(LineReader, GoesOnBehindFilesThatCannotBeRead) {
    const TemporaryFile file("one\n");
    const auto batches = Batches({"/missing", file.name(), testing::TempDir(), file.name()});
    ASSERT_EQ(batches.size(), 4U);
    EXPECT_TRUE(batches[0]->isUnreadable);
    EXPECT_EQ(batches[0]->findings, "jsonparser: /missing: cannot be read: No such file or directory\n");
    EXPECT_EQ(batches[1]->text, "one\n");
    EXPECT_TRUE(batches[2]->isUnreadable);
    EXPECT_EQ(batches[2]->findings, "jsonparser: " + testing::TempDir() + ": cannot be read: Is a directory\n");
    EXPECT_EQ(batches[3]->firstLine, 1U);
    EXPECT_EQ(batches[3]->text, "one\n");
}

TEST(Convert, CountsBadLinesOnceEach) {
    Batch batch;
    batch.text = "good\nbad\n\nworse\n";
    const auto convert = [](tool::LinePlace, std::string_view line, std::string& output, std::string& findings) {
        if (line == "good") output += "fine\n";
        if (line != "good") findings += std::string(line) + '\n';
        if (line == "worse") findings += "worst\n";
        return line == "good";
    };
    tool::Convert(batch, {nullptr, convert});
    EXPECT_EQ(batch.output, "fine\n");
    EXPECT_EQ(batch.findings, "bad\nworse\nworst\n");
    EXPECT_EQ(batch.lines, 3U);
    EXPECT_EQ(batch.bad, 2U);
}

TEST(Convert, AttemptsLinesFirst) {
    Batch batch;
    batch.text = "good\nbad\n";
    const auto attempt = [](std::string_view line, std::string& output) {
        if (line == "good") output += "attempted\n";
        return line == "good";
    };
    const auto convert = [](tool::LinePlace, std::string_view line, std::string& output, auto&) {
        output += "converted " + std::string(line) + '\n';
        return true;
    };
    tool::Convert(batch, {attempt, convert});
    EXPECT_EQ(batch.output, "attempted\nconverted bad\n");
    EXPECT_EQ(batch.bad, 0U);
}

TEST(Convert, LeavesALongLineThatCannotBeAttempted) {
    const auto attempt = [](std::string_view line, std::string&) { return line == "good"; };
    const auto convert = [](tool::LinePlace place, std::string_view line, auto&, std::string& findings) {
        findings += std::to_string(place.number) + ':' + std::string(line);
        return false;
    };
    for (const char* text : {"good\r\n", "bad\r\n", "bad", " \r\n"}) {
        Batch batch;
        batch.text = text;
        batch.isLong = true;
        batch.firstLine = 3;
        const bool isLeft = std::string_view(text).starts_with("bad");
        tool::Convert(batch, {attempt, convert});
        EXPECT_EQ(batch.isLeft, isLeft);
        EXPECT_EQ(batch.findings, "");
        for (int i = 0; i < 2; ++i) tool::ConvertLeft(batch, {attempt, convert});
        EXPECT_EQ(batch.findings, isLeft ? "3:bad" : "");
        EXPECT_EQ(batch.bad, isLeft ? 1U : 0U);
        EXPECT_EQ(batch.lines, text[0] == ' ' ? 0U : 1U);
    }
}

/// All that a function makes of the lines of a file, on some threads.
std::string Converted(const std::string& file, const tool::LineFunction& function, unsigned threads) {
    LineReader reader({file}, kLimit, {.lines = 3});
    std::string all;
    tool::ConvertBatches(reader, threads, function, [&all](const Batch& batch) {
        all += batch.output + batch.findings;
        return true;
    });
    return all;
}

TEST(ConvertBatches, GivesTheSameOnManyThreads) {
    std::string text;
    for (int i = 0; i < 1000; ++i) {
        text += R"({"PlateNumber": "京A·)" + std::to_string(i) + R"(", "Speed": )" + std::to_string(i) +
                R"(, "VehicleSize": "Medium", "DeviceAddress": "x", "UTC": 1704447000})" + (i % 7 == 0 ? "]\n" : "\n");
    }
    const TemporaryFile file(text);
    Texts alternatives;
    const tool::CatalogueEntry* entry = tool::FindEntry("trafficcar", alternatives);
    ASSERT_NE(entry, nullptr);
    const tool::LineFunction function = tool::DecodeLine(*entry, "", false, {});
    const std::string alone = Converted(file.name(), function, 1);
    EXPECT_NE(alone.find(R"("nSpeed":999,)"), std::string::npos);
    EXPECT_NE(alone.find(file.name() + ":995:"), std::string::npos);
    EXPECT_EQ(Converted(file.name(), function, 8), alone);
}

TEST(ConvertBatches, EndsWhereNoMoreIsWanted) {
    const TemporaryFile file("1\n2\n3\n4\n5\n");
    const auto keep = [](tool::LinePlace, std::string_view line, std::string& output, auto&) {
        output += line;
        return true;
    };
    for (const unsigned threads : {1U, 8U}) {
        LineReader reader({file.name()}, kLimit, {.lines = 1});
        std::string all;
        tool::ConvertBatches(reader, threads, {nullptr, keep}, [&all](const Batch& batch) {
            all += batch.output;
            return all.size() < 3;
        });
        EXPECT_EQ(all, "123");
    }
}

}  // namespace
