#include "vkprotocolstack/message_text.h"

#include <gtest/gtest.h>
#include <json/reader.h>
#include <sys/mman.h>
#include <unistd.h>

#include <climits>
#include <clocale>
#include <cstring>
#include <locale>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "testing/json.h"
#include "testing/locale.h"
#include "testing/record.h"
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/observer.h"
#include "vkprotocolstack/wire/text_pass.h"

namespace {

using jsonparser::MessagePlace;
using jsonparser::MessageText;
using jsonparser::MessageTextOptions;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::TextPassForm;
using testing_tools::Json;
using testing_tools::Placed;

/// Runs what follows with each form of the pass that the machine has.
template <class Use>
void WithEachForm(Use use) {
    for (const TextPassForm form : {TextPassForm::Plain, TextPassForm::Sse2, TextPassForm::Avx2}) {
        if (!jsonparser::UseTextPassForm(form)) continue;
        SCOPED_TRACE("form " + std::to_string(static_cast<int>(form)));
        use();
    }
    jsonparser::UseBestTextPassForm();
}

/// What the client's own reader makes of the text; null and false when it refuses it.
bool ReadTree(std::string_view text, Json::Value& tree) {
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    const std::string terminated(text);
    std::string errors;
    return reader->parse(terminated.data(), terminated.data() + terminated.size(), &tree, &errors);
}

std::string Rendered(const Node& node) {
    char text[2000];
    node.renderTo(text, sizeof text);
    return text;
}

/// Expects that all operations give the same of two nodes.
void ExpectSame(const Node& actual, const Node& expected) {
    EXPECT_EQ(static_cast<bool>(actual), static_cast<bool>(expected));
    EXPECT_EQ(actual.isArray(), expected.isArray());
    EXPECT_EQ(actual.isString(), expected.isString());
    EXPECT_EQ(actual.isBool(), expected.isBool());
    EXPECT_EQ(actual.isInt(), expected.isInt());
    EXPECT_EQ(actual.isUInt(), expected.isUInt());
    EXPECT_EQ(actual.size(), expected.size());
    EXPECT_EQ(actual.asInt(), expected.asInt());
    EXPECT_EQ(actual.asUInt(), expected.asUInt());
    EXPECT_EQ(actual.asBool(), expected.asBool());
    const auto same = [](unsigned device, unsigned& library) {
        library = device;
        return true;
    };
    EXPECT_EQ(actual.errorCode(same, 0x12345678), expected.errorCode(same, 0x12345678));
    EXPECT_EQ(actual.realToInt64(), expected.realToInt64());
    const double numbers[] = {actual.asDouble(), expected.asDouble()};
    EXPECT_EQ(std::memcmp(&numbers[0], &numbers[1], sizeof(double)), 0) << numbers[0] << " is not " << numbers[1];
    EXPECT_EQ(Rendered(actual), Rendered(expected));
    EXPECT_EQ(actual.textSize(1000), expected.textSize(1000));
    char unwritten[2][4] = {"abc", "abc"};
    actual.utf8To(unwritten[0], -1);
    expected.utf8To(unwritten[1], -1);
    EXPECT_STREQ(unwritten[0], unwritten[1]);
    for (const int size : {0, 1, 2, 5, 300}) {
        char fields[2][301] = {};
        EXPECT_EQ(actual.stringTo(fields[0], size), expected.stringTo(fields[1], size));
        EXPECT_EQ(std::memcmp(fields[0], fields[1], sizeof fields[0]), 0) << "size " << size;
        actual.utf8To(fields[0], size);
        expected.utf8To(fields[1], size);
        EXPECT_EQ(std::memcmp(fields[0], fields[1], sizeof fields[0]), 0) << "limit " << size;
        actual.rawTo(fields[0], static_cast<std::size_t>(size));
        expected.rawTo(fields[1], static_cast<std::size_t>(size));
        EXPECT_EQ(std::memcmp(fields[0], fields[1], sizeof fields[0]), 0) << "count " << size;
    }
}

/// A text that is strictly valid, and accepted so.
constexpr const char* kStrict[] = {
    "[]",
    "{}",
    R"("")",
    R"("text")",
    " \t\r\n[ \t\r\n] \t\r\n",
    R"([0,-0,1,-1,10,123456789,-123456789012345678])",
    R"([999999999999999999,1000000000000000000,9223372036854775807,9223372036854775808])",
    R"([-9223372036854775807,-9223372036854775808,-9223372036854775809])",
    R"([9999999999999999999,10000000000000000000,18446744073709551615,18446744073709551616])",
    R"([19999999999999999999,20000000000000000000,99999999999999999999,123456789012345678901234567890])",
    R"([0.0,-0.0,0.5,1.5e0,1E5,1e+5,1e-5,2.2250738585072014e-30,123456789.987654321,1e22,1e23])",
    R"([0.1,0.30000000000000004,9007199254740993,9007199254740993.0,5e-99,1e99])",
    R"([true,false,null])",
    R"({"a":true,"b":false,"c":null,"":""})",
    R"(["\"\\\/\b\f\n\r\t","\u0000","a\u0000b","\u00e9\u4EAC\uffff","\ud83d\ude97","\uD800\uDC00\udbff\udfff"])",
    "[\"\x7F\",\"京A·D12345\",\"\xF0\x9F\x9A\x97\"]",
    R"({"a":{"b":[1,[2,{"c":3}],[]],"d":{}},"a":[{}]})",
    R"(["0123456789012345678901234567890123456789012345678901234567890123456789"])",
};

/// A text that is not; jsoncpp's reader accepts some.
constexpr const char* kNotStrict[] = {
    "",
    " ",
    "[",
    "]",
    "{",
    "}",
    "[}",
    "{]",
    "[1",
    "[1,",
    "[1,]",
    "[,1]",
    "[1 2]",
    "[1]]",
    "[1] x",
    "[1][",
    "{\"a\"}",
    "{\"a\":}",
    "{\"a\":1,}",
    "{\"a\":1 \"b\":2}",
    "{a:1}",
    "{1:2}",
    "{\"a\" 1}",
    "{\"a\":1}}",
    "{'a':1}",
    "[01]",
    "[-01]",
    "[00]",
    "[1.]",
    "[.5]",
    "[+1]",
    "[-]",
    "[1e]",
    "[1e+]",
    "[1.e5]",
    "[0x10]",
    "[1e400]",
    "[-1e400]",
    "[NaN]",
    "[Infinity]",
    "[-Infinity]",
    "[tru]",
    "[True]",
    "[truee]",
    "[nul]",
    "[fals]",
    "[\"]",
    "[\"a]",
    "\"a",
    "[\"\\\"]",
    "[\"\\x\"]",
    "[\"\\u12\"]",
    "[\"\\u12g4\"]",
    "[\"\\u\"]",
    "[\"\\ud83d\"]",
    "[\"\\ud83dx\"]",
    "[\"\\ud83d\\n\"]",
    "[\"\\ud83d\\u0041\"]",
    "[\"\\ude97\"]",
    "[\"\t\"]",
    "[\"\n\"]",
    "[\"\x1F\"]",
    "[\x01]",
    "[1]//",
    "[1,/*2*/3]",
    "// c\n[1]",
    "\xEF\xBB\xBF[1]",
    "[\x0C]",
    "[\xC2\xA0]",
    "nothing",
    "\"a\" \"b\"",
};

/// Texts that are not UTF-8, within a text and within a name.
constexpr const char* kNotUtf8[] = {"\x80",
                                    "\xBF",
                                    "\xC0\x80",
                                    "\xC1\xBF",
                                    "\xC2",
                                    "\xC2\x41",
                                    "\xE0\x9F\xBF",
                                    "\xE4\xBA",
                                    "\xED\xA0\x80",
                                    "\xF0\x8F\xBF\xBF",
                                    "\xF0\x9F",
                                    "\xF4\x90\x80\x80",
                                    "\xF5\x80\x80\x80",
                                    "\xFF",
                                    "\xFE"};

TEST(MessageText, AcceptsWhatIsStrictlyValid) {
    WithEachForm([] {
        for (const std::string text : kStrict) {
            MessageText message(text, {.strictOnly = true});
            EXPECT_TRUE(message.accepted()) << text;
            EXPECT_EQ(message.error(), nullptr) << text;
        }
    });
}

TEST(MessageText, RefusesATextThatIsNowhere) {
    WithEachForm([] {
        MessageTextOptions strict;
        strict.strictOnly = true;
        EXPECT_FALSE(MessageText(std::string_view()).accepted());
        EXPECT_FALSE(MessageText(std::string_view(), strict).accepted());
    });
}

TEST(MessageText, RefusesWhatIsNotWhereItIsToBeStrict) {
    WithEachForm([] {
        for (const std::string text : kNotStrict) {
            MessageText message(text, {.strictOnly = true});
            EXPECT_FALSE(message.accepted()) << text;
            ASSERT_NE(message.error(), nullptr) << text;
            EXPECT_LE(message.error()->position, text.size());
        }
        for (const std::string bytes : kNotUtf8) {
            for (const std::string& text : {"[\"a" + bytes + "\"]", "{\"" + bytes + "\":1}"}) {
                MessageText message(text, {.strictOnly = true});
                EXPECT_FALSE(message.accepted()) << text;
            }
        }
    });
}

TEST(MessageText, ElseAcceptsWhatJsoncppAcceptsAndReadsTheSame) {
    WithEachForm([] {
        std::vector<std::string> texts(std::begin(kStrict), std::end(kStrict));
        texts.insert(texts.end(), std::begin(kNotStrict), std::end(kNotStrict));
        for (const std::string bytes : kNotUtf8) texts.push_back("[\"a" + bytes + "\"]");
        for (const std::string& text : texts) {
            SCOPED_TRACE(text);
            Json::Value tree;
            const bool expected = ReadTree(text, tree);
            MessageText message(text);
            EXPECT_EQ(message.accepted(), expected);
            if (!expected) continue;
            const auto node = NodeAt(message.at(""));
            ASSERT_TRUE(node.isAccepted);
            ExpectSame(*node, Node(tree));
            for (std::size_t i = 0; i < node->size(); ++i) ExpectSame(node->at(i), Node(tree).at(i));
        }
    });
}

TEST(MessageText, SaysWhereAndWhyItIsRefused) {
    MessageText message("{\n  \"a\": 1,\r\n  \"b\": nope\n}");
    EXPECT_FALSE(message.accepted());
    ASSERT_NE(message.error(), nullptr);
    EXPECT_EQ(message.error()->line, 3U);
    EXPECT_EQ(message.error()->column, 8U);
    EXPECT_EQ(message.error()->position, 20U);
    EXPECT_EQ(message.error()->what, "Syntax error: value, object or array expected.");

    MessageText strict("[1,\n 02]", {.strictOnly = true});
    ASSERT_NE(strict.error(), nullptr);
    EXPECT_EQ(strict.error()->line, 2U);
    EXPECT_EQ(strict.error()->column, 2U);
    EXPECT_EQ(strict.error()->position, 5U);
}

TEST(MessageText, LeavesTheRecordAloneWhenItIsRefusedAnywhere) {
    for (const char* text :
         {R"({"car":{"Lane":1},"rest":[1,2})", R"({"car":{"Lane":1}} )", R"({"car":{"Lane":1}, "x")"}) {
        MessageText message(text);
        Placed<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
        const int result = ParseStrtoTrafficCar(message.at("/car"), car.get());
        EXPECT_EQ(result, message.accepted() ? 0 : 1) << text;
        EXPECT_EQ(car.changedFields().empty(), !message.accepted()) << text;
    }
}

TEST(MessageText, SkipsWhatNobodyAsksForWhenTold) {
    const char* const text = R"({"x":[nonsense,"]}\""],"y":[[{}]],"car":{"Lane":3},"z":{"\\":"}"}})";
    WithEachForm([text] {
        MessageText checked(text);
        EXPECT_FALSE(checked.accepted());
        MessageText skipping(text, {.skipOthers = true});
        Placed<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
        EXPECT_EQ(ParseStrtoTrafficCar(skipping.at("/car"), car.get()), 0);
        EXPECT_EQ(car->nLane, 3);
    });
}

TEST(MessageText, FindsPlacesByPointers) {
    const std::string text = R"({"a/b":1,"~":2,"":3,"0":4,"list":[5,[6,7]],"~1":8,"deep":{"x":{"y":9}},"a\u0062":10})";
    struct Row {
        const char* pointer;
        int expected;
    };
    const Row rows[] = {
        {"/a~1b",                      1 },
        {"/~0",                        2 },
        {"/",                          3 },
        {"/0",                         4 },
        {"/list/0",                    5 },
        {"/list/1/1",                  7 },
        {"/~01",                       8 },
        {"/deep/x/y",                  9 },
        {"/list/00",                   0 },
        {"/list/2",                    0 },
        {"/list/-",                    0 },
        {"/list/01",                   0 },
        {"/none",                      0 },
        {"/deep/x/y/z",                0 },
        {"list/0",                     0 },
        {"x",                          0 },
        {"/list/99999999999999999999", 0 },
        {"/ab",                        10}
    };
    for (const bool hasEscapedName : {false, true}) {
        const std::string message = hasEscapedName ? text : text.substr(0, text.rfind(',')) + "}";
        for (const Row& row : rows) {
            if (!hasEscapedName && row.expected == 10) continue;
            MessageText body(message);
            const auto node = NodeAt(body.at(row.pointer));
            ASSERT_TRUE(node.isAccepted) << row.pointer;
            EXPECT_EQ(node->asInt(), row.expected) << row.pointer;
            EXPECT_EQ(body.at(row.pointer).exists(), row.expected != 0) << row.pointer;
        }
        MessageText body(message);  // all of one
        for (const Row& row : rows) {
            if (!hasEscapedName && row.expected == 10) continue;
            EXPECT_EQ(NodeAt(body.at(row.pointer))->asInt(), row.expected) << row.pointer;
        }
    }
    std::string deep = "7";
    std::string pointer;
    for (int i = 0; i < 40; ++i) {
        deep = "[" + deep + "]";
        pointer += "/0";
    }
    MessageText body(deep);
    EXPECT_EQ(NodeAt(body.at(pointer))->asInt(), 7);
}

TEST(MessageText, ATildeThatIsNoEscapeStandsForItself) {
    for (const char* text : {R"({"~x":1,"a~":2,"~2":3})", R"({"~x":1,"a~":2,"~2":3,"\u0062":4})"}) {
        const std::pair<const char*, int> rows[] = {
            {"/~x",  1},
            {"/~0x", 1},
            {"/a~",  2},
            {"/a~0", 2},
            {"/~2",  3}
        };
        for (const auto& [pointer, expected] : rows) {
            MessageText asked(text);
            EXPECT_EQ(NodeAt(asked.at(pointer))->asInt(), expected) << text << ' ' << pointer;
            MessageText whole(text);
            EXPECT_TRUE(whole.accepted());
            EXPECT_EQ(NodeAt(whole.at(pointer))->asInt(), expected) << text << ' ' << pointer;
        }
    }
}

TEST(MessageText, FindsAPlaceOfAnyLength) {
    const std::string name(300, 'n');
    const std::string text = "{\"" + name + "\":{\"a\":7}}";
    for (const std::string& pointer : {"/" + name, "/" + name + "/a"}) {
        MessageText message(text);
        EXPECT_TRUE(message.at(pointer).exists()) << pointer.size();
    }
}

TEST(MessageText, TakesNamesOfAnyLength) {
    WithEachForm([] {
        for (const std::size_t size : {0xFFFEU, 0xFFFFU, 0x10000U, 70000U}) {
            const std::string member = '"' + std::string(size, 'n') + "\":7";
            for (const std::string& text :
                 {R"({"car":{)" + member + R"(,"Lane":3}})", R"({"car":{"x":{)" + member + R"(},"Lane":3}})",
                  R"({)" + member + R"(,"car":{"Lane":3}})"}) {
                MessageText message(text);
                Placed<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
                EXPECT_EQ(ParseStrtoTrafficCar(message.at("/car"), car.get()), 0) << size;
                EXPECT_EQ(car->nLane, 3) << size;
                MessageText whole(text);
                EXPECT_EQ(NodeAt(whole.at(""))->operator[]("car")["Lane"].asInt(), 3) << size;
            }
        }
    });
}

TEST(MessageText, AnEscapeInWhatIsSkippedCountsWhereverItStands) {
    WithEachForm([] {
        for (std::size_t before = 0; before < 150; ++before) {
            for (const char* escape : {R"(\"])", R"(\\\"])"}) {
                const std::string text = R"({"x":[")" + std::string(before, 'a') + escape + std::string(150, 'b') +
                                         R"("],"car":{"Lane":3}})";
                MessageText message(text, {.skipOthers = true});
                EXPECT_EQ(NodeAt(message.at("/car/Lane"))->asInt(), 3) << before;
            }
        }
    });
}

TEST(MessageText, FindsOtherPlacesThanTheOneThatWasReadFirst) {
    const std::pair<const char*, int> rows[] = {
        {"/a",   1},
        {"/a/x", 0},
        {"/ab",  2},
        {"",     0},
        {"/a",   1}
    };
    for (const std::string text : {R"({"a":1,"ab":2})", R"({"a":1,"ab":2,"c":[/**/3]})"}) {
        MessageText withRootSecond(text);
        EXPECT_EQ(NodeAt(withRootSecond.at("/a"))->asInt(), 1);
        EXPECT_TRUE(withRootSecond.at("").exists());
        EXPECT_EQ(NodeAt(withRootSecond.at(""))->operator[]("ab").asInt(), 2);
        MessageText message(text);
        for (const auto& [pointer, expected] : rows) {
            const auto node = NodeAt(message.at(pointer));
            ASSERT_TRUE(node.isAccepted) << pointer;
            EXPECT_EQ(node->asInt(), expected) << pointer;
        }
    }
}

TEST(MessageText, ChecksWhatItSkippedWhenThatIsAskedFor) {
    const std::string comment = R"({"car":{"Lane":3},"x":[1,/*2*/3]})";
    MessageText lenient(comment, {.skipOthers = true});
    EXPECT_EQ(NodeAt(lenient.at("/car/Lane"))->asInt(), 3);
    EXPECT_EQ(NodeAt(lenient.at("/x/1"))->asInt(), 3);
    EXPECT_EQ(NodeAt(lenient.at("/car/Lane"))->asInt(), 3);

    const std::string nonsense = R"({"car":{"Lane":3},"x":[nonsense]})";
    MessageText message(nonsense, {.skipOthers = true});
    EXPECT_EQ(NodeAt(message.at("/car/Lane"))->asInt(), 3);
    EXPECT_FALSE(NodeAt(message.at("/x/1")).isAccepted);
    EXPECT_FALSE(message.accepted());
    ASSERT_NE(message.error(), nullptr);
    EXPECT_EQ(message.error()->position, 23U);
}

TEST(MessageText, HasNoPlacesWhenItIsRefused) {
    MessageText message("[1,2");
    EXPECT_FALSE(message.at("").exists());
    EXPECT_EQ(message.at("").size(), 0U);
    EXPECT_FALSE(message.accepted());
}

TEST(MessageText, OfTwoGigabytesIsForASlowerReader) {
    constexpr std::size_t kSize = INT_MAX;  // one less is taken
    void* const memory =
        mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(memory, MAP_FAILED);
    char* const text = static_cast<char*>(memory);
    std::memcpy(text, "\n[\"", 3);
    text[kSize - 1] = ']';
    MessageText message({text, kSize}, {.strictOnly = true});
    EXPECT_FALSE(message.accepted());
    ASSERT_NE(message.error(), nullptr);
    EXPECT_EQ(message.error()->position, 0U);
    munmap(memory, kSize);
}

TEST(MessageText, HasTheFirstElementsThatATreeHas) {
    for (const char* text : {"[]", "[1,2]", "[1,2,3,4]", "[1,[2],3,4,5]", "7", R"({"a":1})", R"("text")"}) {
        MessageText message(text);
        const auto node = NodeAt(message.at(""));
        ASSERT_TRUE(node.isAccepted);
        const Json::Value tree = Json(text);
        const auto actual = node->first<4>();
        const auto expected = Node(tree).first<4>();
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(static_cast<bool>(actual[i]), static_cast<bool>(expected[i])) << text << ' ' << i;
            EXPECT_EQ(Rendered(actual[i]), Rendered(expected[i])) << text << ' ' << i;
        }
    }
}

TEST(MessageText, TakesTheLastOfMembersWithTheSameName) {
    for (const char* text : {R"({"a":{"b":1},"a":{"b":2}})", R"({"a":{"b":1,"b":2}})", R"({"a":5,"a":{"b":2}})"}) {
        MessageText body(text);
        EXPECT_EQ(NodeAt(body.at("/a/b"))->asInt(), 2) << text;
    }
    MessageText replaced(R"({"a":{"b":1},"a":5})");
    EXPECT_FALSE(replaced.at("/a/b").exists());
    MessageText car(R"({"Lane":1,"Speed":2,"Lane":3})");
    Placed<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> record;
    ParseStrtoTrafficCar(car.at(""), record.get());
    EXPECT_EQ(record->nLane, 3);
}

TEST(MessageText, BoundsTheDepth) {
    WithEachForm([] {
        for (const int depth : {1, 2, 63, 64, 65, 128, 129, 1000}) {
            for (const bool isObject : {false, true}) {
                const auto nested = [isObject](int levels) {
                    std::string text = "1";
                    for (int i = 1; i < levels; ++i) text = isObject ? "{\"a\":" + text + "}" : "[" + text + "]";
                    return text;
                };
                const std::string deepest = nested(depth);
                for (const char* pointer : {"", "/none"}) {
                    MessageText fits(deepest, {.maxDepth = depth});
                    EXPECT_TRUE(fits.at(pointer).exists() || fits.accepted()) << depth;
                }
                const std::string tooDeep = nested(depth + 1);
                MessageText exceeds(tooDeep, {.maxDepth = depth});
                EXPECT_FALSE(exceeds.accepted()) << depth;
                ASSERT_NE(exceeds.error(), nullptr);
                EXPECT_EQ(exceeds.error()->what, "nested deeper than " + std::to_string(depth) + " levels");
            }
        }
    });
}

TEST(MessageText, NeedsLittleStackForAnyMessage) {
    std::string deep(100000, '[');
    const std::string comments = "/**/" + std::string(120, '[') + "1" + std::string(120, ']');
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, 128 * 1024);
    std::pair<std::string*, const std::string*> texts{&deep, &comments};
    pthread_t thread;
    ASSERT_EQ(pthread_create(
                  &thread, &attributes,
                  [](void* argument) -> void* {
                      const auto* const both = static_cast<decltype(texts)*>(argument);
                      MessageText refused(*both->first);
                      MessageText lenient(*both->second);
                      return !refused.accepted() && lenient.accepted() ? argument : nullptr;
                  },
                  &texts),
              0);
    void* result = nullptr;
    pthread_join(thread, &result);
    pthread_attr_destroy(&attributes);
    EXPECT_NE(result, nullptr);
}

TEST(MessageText, NeverReadsBehindItsEnd) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    auto* const pages =
        static_cast<char*>(mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    ASSERT_NE(pages, MAP_FAILED);
    ASSERT_EQ(mprotect(pages + page, page, PROT_NONE), 0);
    const std::string whole =
        R"({"x":[{"y":"\"}]\\"},12.5e3,-7,true,null],"car":{"PlateNumber":"D12345","Lane":2,"UTC":1704447000,)"
        R"("DrivingDirection":["n","\u4eac","s"],"VehicleColorRGB":[1,2,3,4]},"z":[[],{},"0123456789012345678901234567"]})";
    WithEachForm([&] {
        for (std::size_t size = 0; size <= whole.size(); ++size) {
            char* const text = pages + page - size;
            std::memcpy(text, whole.data(), size);
            for (const bool skips : {false, true}) {
                for (const char* pointer : {"/car", ""}) {
                    MessageText message({text, size}, {.skipOthers = skips});
                    Placed<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
                    const int result = ParseStrtoTrafficCar(message.at(pointer), car.get());
                    EXPECT_EQ(result, size == whole.size() ? 0 : 1) << size;
                }
            }
        }
    });
    munmap(pages, 2 * page);
}

TEST(MessageText, ReadsManyPlacesOfOneMessage) {
    std::string text = "[";
    for (int i = 0; i < 3000; ++i) text += (i == 0 ? "{\"Lane\":" : ",{\"Lane\":") + std::to_string(i) + "}";
    text += "]";
    MessageText message(text);
    EXPECT_EQ(message.at("").size(), 3000U);
    for (int i = 0; i < 3000; ++i) {
        const std::string pointer = "/" + std::to_string(i) + "/Lane";
        ASSERT_EQ(NodeAt(message.at(pointer))->asInt(), i);
    }
}

TEST(MessageText, GivesObserversValuesOfATree) {
    class Lookout : public jsonparser::Observer {
      public:
        void look(const jsonparser::Look& look) override {
            if (look.value != nullptr && look.path == "/Lane") seen = *look.value;
        }
        Json::Value seen;
    };
    const auto read = [](MessageText& message) {
        tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO car;
        EXPECT_EQ(ParseStrtoTrafficCar(message.at("/car"), &car), 0);
        EXPECT_EQ(car.nLane, 2);
    };
    MessageText message(R"({"car":{"Lane":2}})");
    read(message);
    Lookout lookout;
    {
        const jsonparser::ObserverScope scope(lookout);
        read(message);
        EXPECT_EQ(lookout.seen, 2);
        lookout.seen = Json::Value();
        read(message);
    }
    EXPECT_EQ(lookout.seen, 2);
}

TEST(MessageText, ReadsRealsAsJsoncppDoesInAnyLocaleOfTheProgram) {
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
    };
    const std::string name = std::setlocale(LC_ALL, nullptr);
    const std::locale previous = std::locale::global(std::locale(std::locale::classic(), new Comma));
    for (const char* text : {"[1.5]", "[15]", "[1e3]"}) {
        Json::Value tree;
        const bool expected = ReadTree(text, tree);
        MessageText message(text);
        EXPECT_EQ(message.accepted(), expected) << text;
        if (expected) {
            EXPECT_EQ(NodeAt(message.at("/0"))->asDouble(), tree[0].asDouble()) << text;
        }
    }
    for (const char* number : {"1.5", "-1.5", "1.5e3", "15"}) {
        const std::string text = R"({"other":)" + std::string(number) + R"(,"part":2})";
        Json::Value tree;
        MessageText message(text);
        EXPECT_EQ(message.at("/part").exists(), ReadTree(text, tree)) << text;
    }
    MessageText strict(R"({"other":1.5,"part":2})", {.strictOnly = true});
    EXPECT_FALSE(strict.at("/part").exists());
    std::locale::global(previous);
    std::setlocale(LC_ALL, name.c_str());  // which a named locale has replaced, too
    ASSERT_NE(strict.error(), nullptr);
    EXPECT_EQ(strict.error()->position, 0U);
    EXPECT_EQ(strict.error()->what, "a real, for which the program's C++ locale is not the classic one");
}

TEST(MessageText, TextsAreInTheEncodingOfTheLocaleInWhichTheyAreRead) {
    MessageText message(R"({"car":{"PlateNumber":"路","PlateColor":"a"},"other":"路"})");
    const auto plateNumber = [&message] {
        tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO car;
        EXPECT_EQ(ParseStrtoTrafficCar(message.at("/car"), &car), 0);
        return std::string(car.szPlateNumber);
    };
    const testing_tools::Utf8Texts utf8;
    EXPECT_EQ(plateNumber(), "路");
    {
        const testing_tools::ThreadLocale locale("zh_CN.GBK");
        EXPECT_EQ(plateNumber(), "\xC2\xB7");
    }
    EXPECT_EQ(plateNumber(), "路");
}

TEST(MessageText, InsertsNothing) {
    const std::string text = R"({"Lane":1})";
    MessageText message(text);
    tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO car;
    EXPECT_EQ(ParseStrtoTrafficCar(message.at(""), &car), 0);
    EXPECT_EQ(text, R"({"Lane":1})");
    EXPECT_FALSE(message.at("/Speed").exists());
}

TEST(MessageText, ReadersSayThatTheMessageIsRefused) {
    MessageText message("{");
    tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO car;
    VK_MSG_OBJECT first;
    tagVK_MSG_OBJECT_EX2 third;
    VK_RECT rect{1, 2, 3, 4};
    EXPECT_EQ(ParseStrtoTrafficCar(message.at(""), &car), 1);
    EXPECT_EQ(ParseStrtoObject(message.at(""), &first), 1);
    EXPECT_EQ(ParseStrtoObject(message.at(""), &third), 0);
    EXPECT_EQ(GetJsonRect(message.at(""), rect), 0);
    EXPECT_EQ(rect.nLeft, 1);
    EXPECT_EQ(ParseErrorCode(message.at("")), 0x80000015U);
    EXPECT_EQ(Json_dimension(1)(message.at("")), -1);
}

// What a text on the tape may only be copied for is asked anew by each reader.
TEST(MessageText, TextsAreInTheEncodingOfTheLocaleAtTheTimeOfEachReader) {
    constexpr std::string_view kUtf8 = "\xE8\xB7\xAF";
    constexpr std::string_view kGbk = "\xC2\xB7";
    const std::string text = R"({"PlateNumber":")" + std::string(kUtf8) + R"(","VehicleSign":")" + std::string(kUtf8) +
                             R"(","DefendCode":")" + std::string(kUtf8) + R"("})";
    MessageText body(text);
    const auto expectTexts = [&body](std::string_view expected) {
        Placed<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
        EXPECT_EQ(ParseStrtoTrafficCar(body.at(""), car.get()), 0);
        EXPECT_EQ(std::string_view(car->szPlateNumber), expected);
        EXPECT_EQ(std::string_view(car->szVehicleSign), expected);
        EXPECT_EQ(std::string_view(car->szDefendCode), expected);
    };
    for (int i = 0; i < 2; ++i) {
        const testing_tools::ThreadLocale utf8("C.UTF-8");
        expectTexts(kUtf8);
        const testing_tools::ThreadLocale gbk("zh_CN.GBK");
        expectTexts(kGbk);
    }
}

TEST(MessageText, ChecksTextsThatNobodyReadsWhereverTheyEnd) {
    MessageTextOptions strict;
    strict.strictOnly = true;
    const std::pair<const char*, bool> ends[] = {
        {"",     true },
        {"\\n",  true },
        {"\\\\", true },
        {"\\\"", true },
        {"\\x",  false},
        {"\x01", false},
        {"\\",   false}
    };
    WithEachForm([&] {
        for (std::size_t name = 0; name < 70; ++name) {
            for (std::size_t size = 0; size < 70; ++size) {
                const std::string begin = "{\"x\":{\"" + std::string(name, 'n') + "\":\"" + std::string(size, 't');
                for (const auto& [end, isValid] : ends) {
                    const std::string message = begin + end + R"(","b":true,"c":[1.5,null]},"y":2})";
                    MessageText body(message, strict);
                    ASSERT_EQ(body.at("/y").exists(), isValid) << name << ' ' << size << ' ' << end;
                }
            }
        }
    });
}

class Ignoring : public jsonparser::Observer {
    void look(const jsonparser::Look&) override {}
};

constexpr jsonparser::NameList kCarNames{"Lane", "Speed", "Plate"};
constexpr jsonparser::NameList kOtherNames{"Speed"};

void ExpectMembersOfACar(const MessagePlace& place) {
    const jsonparser::MembersAt<kCarNames> in(place);
    ASSERT_TRUE(in);
    EXPECT_EQ((*in)["Lane"].asInt(), 2);
    EXPECT_FALSE((*in)["Speed"].isMember());
    char plate[8] = {};
    (*in)["Plate"].rawTo(plate, 7);
    EXPECT_STREQ(plate, "AD12345");
}

TEST(MembersAt, AreThoseOfTheObjectHoweverTheMessageWasRead) {
    for (const char* text :
         {R"({"Car":{"Lane":2,"Plate":"AD12345"}})", R"({"Car":{"Plate":"AD12345","x":[],"Lane":2}})",
          R"({"Car":{"Lane":1,"Plate":"AD12345","Lane":2}})",
          R"({/* read as a tree */"Car":{"Lane":2,"Plate":"AD12345"}})"}) {
        SCOPED_TRACE(text);
        WithEachForm([text] {
            MessageText body(text);
            ExpectMembersOfACar(body.at("/Car"));
            ExpectMembersOfACar(body.at("/Car"));
            MessageText readForOthers(text);
            ASSERT_TRUE(NodeAt(readForOthers.at("/Car"), kOtherNames));
            ExpectMembersOfACar(readForOthers.at("/Car"));
            MessageText readElsewhere(text);
            ASSERT_TRUE(NodeAt(readElsewhere.at("/Bus"), kCarNames));
            ExpectMembersOfACar(readElsewhere.at("/Car"));
            MessageText watched(text);
            Ignoring observer;
            const jsonparser::ObserverScope scope(observer);
            ExpectMembersOfACar(watched.at("/Car"));
        });
    }
}

TEST(MembersAt, AreNotThoseOfAMessageBefore) {
    WithEachForm([] {
        for (std::size_t behind = 0; behind < 32; ++behind) {
            {
                MessageText before(R"({"Lane":1,"Speed":3,"Plate":"x"})");
                ASSERT_TRUE(jsonparser::MembersAt<kCarNames>(before.at("")));
            }
            std::string text = "[";
            for (std::size_t i = 0; i < behind; ++i) text += "0,";
            MessageText body(text += R"({"Plate":"AD12345","Lane":2}])");
            ASSERT_TRUE(body.at("").exists());
            ExpectMembersOfACar(body.at('/' + std::to_string(behind)));
        }
    });
}

TEST(MembersAt, OfWhatIsNoObjectAreNone) {
    for (const char* pointer : {"/array", "/text", "/number", "/null", "/missing", "/array/0", "/array/1"}) {
        MessageText body(R"({"array":[2,{}],"text":"Lane","number":2,"null":null})");
        const jsonparser::MembersAt<kCarNames> in(body.at(pointer));
        ASSERT_TRUE(in);
        for (std::size_t i = 0; i < 3; ++i) EXPECT_FALSE((*in).found(i)) << pointer;
    }
}

TEST(MembersAt, OfAMessageThatIsRefusedAreNot) {
    MessageText body(R"({"Lane":2)");
    EXPECT_FALSE(jsonparser::MembersAt<kCarNames>(body.at("")));
}

}  // namespace
