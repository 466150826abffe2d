// Every converter on many threads at once, each with records and messages of its own.

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <thread>
#include <vector>

#include "fuzz/converters.h"
#include "places.h"
#include "testing/json.h"
#include "testing/zone.h"
#include "vkprotocolstack/JsonParser.h"

namespace reliability {
namespace {

using fuzz::Memory;
using fuzz::Reader;
using fuzz::Writer;

struct Sent {
    const Reader* reader;
    Json::Value value;
    std::string text;
};

std::vector<Sent> Messages() {
    std::vector<Sent> messages;
    for (const Reader& reader : fuzz::Readers()) {
        std::vector<Json::Value> values = Samples(reader);
        for (const Json::Value& scalar : {Json::Value("路口"), Json::Value("1 08:00:00-17:30:00"), Json::Value(1.5)}) {
            values.push_back(Message(PlacesOf(reader), {scalar, 4, true}));
        }
        for (const Json::Value& value : values) messages.push_back({&reader, value, testing_tools::Text(value)});
    }
    return messages;
}

/// What all converters make of the messages, of records of any bytes, and of texts and numbers.
std::vector<std::string> Converted(const std::vector<Sent>& messages) {
    std::vector<std::string> results;
    for (const Sent& sent : messages) {
        Memory memory(sent.reader->target);
        Json::Value node = sent.value;
        results.push_back(std::to_string(sent.reader->value(node, memory.get())));
        results.push_back(memory.contents());
        memory.fill("");
        jsonparser::MessageText text(sent.text);
        results.push_back(std::to_string(sent.reader->text(text.at(""), memory.get())));
        results.push_back(memory.contents());
    }
    for (const Writer& writer : fuzz::Writers()) {
        Memory memory(writer.source);
        memory.fill("\xC2\xB7\1");
        Json::Value written;
        writer.write(written, memory.get());
        results.push_back(testing_tools::Text(written));
    }
    for (const fuzz::TextReader& reader : fuzz::TextReaders()) {
        for (const std::string& text : TextsFor(reader)) results.push_back(std::to_string(reader.read(text)));
    }
    for (const fuzz::NumberConverter& converter : fuzz::NumberConverters()) {
        for (const long number : NumbersFor(converter)) results.push_back(std::to_string(converter.convert(number)));
    }
    return results;
}

class Threads : public testing::TestWithParam<const char*> {
  protected:
    Threads() { EXPECT_NE(std::setlocale(LC_ALL, GetParam()), nullptr) << GetParam(); }
    ~Threads() override { std::setlocale(LC_ALL, "C"); }

    // Where TZ names no zone, the C library keeps a new copy of its file's name at every call, under a lock of its own
    // that the thread sanitizer does not see.
    testing_tools::TimeZone zone_{"Asia/Shanghai"};
};

INSTANTIATE_TEST_SUITE_P(In, Threads, testing::Values("C", "zh_CN.GBK"),
                         [](const auto& locale) { return std::string(locale.param[0] == 'C' ? "C" : "GBK"); });

TEST_P(Threads, SixteenConvertAtOnceAsOneAlone) {
    const std::vector<Sent> messages = Messages();
    const std::vector<std::string> alone = Converted(messages);
    EXPECT_GT(alone.size(), messages.size());
    std::vector<std::vector<std::string>> results(16);
    std::vector<std::thread> threads;
    for (std::vector<std::string>& result : results) {
        threads.emplace_back([&result, &messages] { result = Converted(messages); });
    }
    for (std::thread& thread : threads) thread.join();
    for (const std::vector<std::string>& result : results) EXPECT_EQ(result, alone);
}

}  // namespace
}  // namespace reliability
