#include "vkprotocolstack/support/trace.h"

#include <gtest/gtest.h>

#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "vkprotocolstack/support/support.h"

namespace {

using jsonparser::SetTraceSink;
using jsonparser::TraceMessage;

/// Collects messages while it lives.
class Collector {
  public:
    Collector() { SetTraceSink(Collect, this); }
    ~Collector() { SetTraceSink(nullptr, nullptr); }
    Collector(const Collector&) = delete;
    Collector& operator=(const Collector&) = delete;

    std::vector<std::string> lines;

  private:
    static void Collect(const TraceMessage& trace, void* context) {
        auto& self = *static_cast<Collector*>(context);
        const std::scoped_lock lock(self.mutex_);
        self.lines.push_back(std::string(trace.sourceFile) + '|' + std::to_string(trace.line) + '|' +
                             std::to_string(trace.level) + '|' + std::to_string(trace.code) + '|' + trace.message);
    }

    std::mutex mutex_;
};

TEST(SetTraceSink, SendsMessagesToTheSinkWithItsContextAndNotToStandardError) {
    testing::internal::CaptureStderr();
    Collector collector;
    SetBasicInfo("file", 10, 1);
    SDKLogTraceOut(0, "message");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(collector.lines, std::vector<std::string>{"file|10|1|0|message"});
}

TEST(SetTraceSink, TheLastSinkWins) {
    Collector first;
    {
        Collector second;
        SDKLogTraceOut(0, "message");
        EXPECT_EQ(second.lines.size(), 1U);
    }
    EXPECT_EQ(first.lines.size(), 0U);
}

TEST(SetTraceSink, ANullSinkRestoresStandardError) {
    { Collector collector; }
    testing::internal::CaptureStderr();
    SetBasicInfo("file", 10, 1);
    SDKLogTraceOut(0, "message");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "file:10: level 1, code 0: message\n");
}

TEST(SetTraceSink, MessagesOfThreadsNameTheirOwnPlaces) {
    Collector collector;
    const auto trace = [](const char* file) {
        for (int line = 0; line < 200; ++line) {
            SetBasicInfo(file, line, 1);
            SDKLogTraceOut(line, file);
        }
    };
    std::thread a(trace, "a");
    std::thread b(trace, "b");
    a.join();
    b.join();
    std::set<std::string> expected;
    for (const std::string file : {"a", "b"}) {
        for (int line = 0; line < 200; ++line) {
            const std::string number = std::to_string(line);
            expected.insert(file + '|' + number + "|1|" + number + '|' + file);
        }
    }
    EXPECT_EQ(collector.lines.size(), 400U);
    EXPECT_EQ(std::set<std::string>(collector.lines.begin(), collector.lines.end()), expected);
}

}  // namespace
