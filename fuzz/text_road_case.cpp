#include "fuzz/text_road_case.h"

#include <json/reader.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>
#include <random>
#include <vector>

#include "vkprotocolstack/wire/text_pass.h"

namespace fuzz {
namespace {

using jsonparser::MessageText;
using jsonparser::TextPassForm;

constexpr Way kWays[] = {
    {"",                            "",                                                               ""                        },
    {"/params/Events/0/TrafficCar", R"({"id":7,"params":{"Events":[{"A":[{"b":"]}"}],"TrafficCar":)",
     R"(,"Z":"\\\""},{"TrafficCar":1}],"n":-1.5e3},"session":12345})"                                                           },
    {"/a~1b/~0/1",                  R"({ "x" : "\"{" , "a/b" : { "~" : [ null , )",                   R"( , 3 ] , "~0" : 1 } })"},
    {"/params",                     R"({"params":{"old":1},"params":)",                               "}"                       },
    {"/params/table",               R"({"params":{"table":5},"params":{"table":)",                    R"(},"end":["\u005d"]})"  },
    {"/3",                          "[1,\n\t2,[[[]]],\r\n",                                           " ]  "                    },
    {"/missing/0",                  R"({"missing":)",                                                 "}"                       },
    {"/gone",                       "[",                                                              "]"                       },
};

/// What a message may hold; texts that the grammar's borders and the readers' rules are about.
constexpr const char* kScalars[] = {
    "0",
    "1",
    "-1",
    "-0",
    "7",
    "42",
    "65",
    "255",
    "256",
    "-129",
    "65535",
    "65536",
    "1234567890",
    "2147483647",
    "2147483648",
    "-2147483648",
    "-2147483649",
    "4294967295",
    "4294967296",
    "4026990592",
    "999999999999999999",
    "1000000000000000000",
    "9223372036854775807",
    "9223372036854775808",
    "-9223372036854775808",
    "-9223372036854775809",
    "9999999999999999999",
    "10000000000000000000",
    "18446744073709551615",
    "18446744073709551616",
    "19999999999999999999",
    "20000000000000000000",
    "123456789012345678901234567890",
    "0.0",
    "-0.0",
    "0.5",
    "1.5",
    "-2.75",
    "3.0",
    "1e0",
    "1E+2",
    "2.5e-3",
    "1e22",
    "1e23",
    "1.7976931348623157e308",
    "1.7976931348623159e308",
    "4.9e-324",
    "1e-400",
    "1e400",
    "0.1",
    "0.30000000000000004",
    "9007199254740993",
    "9007199254740993.0",
    "123456789.123456789",
    "120.123456789012345678901234567890123456789012345678901234567890123456789012345678901234567890123456789",
    "01",
    "1.",
    ".5",
    "+1",
    "-",
    "1e",
    "true",
    "false",
    "null",
    "True",
    "nul",
    "NaN",
    "Infinity",
    "[]",
    "{}",
    "[1,2,3,4]",
    "[1, 2]",
    "[-5,70000,3.9,true]",
    "[120,7,24.5]",
    "[[1,2],[3,4]]",
    "[\"京\",\"south\",\"\\u5317\"]",
    "[1,\"8N1\",null,[]]",
    "[9600,8,\"None\",\"1\"]",
    "[2024,1,5,9,30,0]",
    "\"\"",
    "\"a\"",
    "\"Blue\"",
    "\"blue\"",
    "\"WithSafeBelt\"",
    "\"Other\"",
    "\"Male\"",
    "\"Rapid\"",
    "\"Yes\"",
    "\"Playback\"",
    "\"2024-01-05 09:30:00.250\"",
    "\"2024-1-5\"",
    "\"20240105 093000\"",
    "\"1 08:00:00-17:30:00\"",
    "\"127 8:0:0-24:00:00\"",
    "\"京A·D12345\"",
    "\"\\u4eac\\u0041\"",
    "\"\\ud83d\\ude97 car\"",
    "\"\\ud83d\"",
    "\"\\ude97\"",
    "\"\\ud83d\\u0041\"",
    "\"a\\u0000b\"",
    "\"\\\"\\\\\\/\\b\\f\\n\\r\\t\"",
    "\"\\x\"",
    "\"\\u12g4\"",
    "\"/mnt/sd/2024-01-05/09.30.00.jpg\"",
    "\"0123456789012345678901234567890\"",
    "\"01234567890123456789012345678901\"",
    "\"012345678901234567890123456789012345678901234567890123456789012\"",
    "\"0123456789012345678901234567890123456789012345678901234567890123\"",
    "\"路路路路路路路路路路路路路路路路路路路路路路路路路路路路路路路路路\"",
    "\"\xFF\xFE\"",
    "\"\xE4\xBA\"",
    "\"\x7F\x1F\"",
    "\"tab\there\"",
    "{\"BoundingBox\":[0,0,8191,8191],\"UTC\":1704447000,\"UTCMS\":250}",
    "{\"Offset\":1,\"Length\":2,\"Width\":3,\"Height\":4,\"FilePath\":\"/p\",\"IsDetected\":true}",
    "{\"Name\":\"Ann\",\"Sex\":\"Female\",\"Image\":[{\"FilePath\":\"x\"},{}],\"Type\":\"VIP\",\"IsCustomType\":1}",
    "{\"Red\":10,\"Blue\":300,\"a\\u0062\":1}",
    "{\"Speed\":3,\"Size\":4,\"Direction\":[[1,2],[3,4]],\"code\":268632079}",
    "{\"FilePath\":\"a\",\"FilePath\":\"b\",\"Rough\":1,\"Tare\":2,\"Net\":3}",
    "[[\"1 08:00:00-17:30:00\",\"0 0:0:0-0:0:0\"],[],[\"1 1:1:1-2:2:2\"],[],[],[],[]]",
    "[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]]",
};

/// What damage is made of.
constexpr const char* kPieces[] = {"\"", "\\",   "{",    "}",    "[",       "]",        ":",    ",",   " ",  "\n",
                                   "\t", "\r",   "0",    "9",    "-",       ".",        "e",    "E+",  "//", "/*",
                                   "*/", "\\u",  "d800", "\x01", "\x80",    "\xEF\xBB", "null", "tru", ",,", "\"\"",
                                   "''", "\xBF", "1e9",  "\f",   "// c\n1", "/**/",     "[[[[", "]]]", "}}", "a"};

class Random {
  public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(engine_() % limit); }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    template <class Range>
    const auto& of(const Range& range) {
        return *std::next(std::begin(range), static_cast<std::ptrdiff_t>(below(std::size(range))));
    }

  private:
    std::mt19937_64 engine_;
};

std::vector<std::string> Words(std::string_view list) {
    std::vector<std::string> words;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(' '), list.size());
        words.emplace_back(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return words;
}

class MessageMaker {
  public:
    explicit MessageMaker(Random& random) : random_(random), blanks_(random.below(3)) {}

    std::string value(const Reader& reader) {
        if (random_.oneIn(24)) return scalar();
        if (reader.members.empty()) return scalar();
        if (reader.members == "[]") return array();
        return object(Words(reader.members));
    }

  private:
    std::string blank() {
        if (blanks_ == 0) return "";
        if (blanks_ == 1) return random_.oneIn(2) ? " " : "";
        constexpr const char* kBlanks[] = {"", " ", "\n", "\t", "\r\n  ", "                                     "};
        return random_.of(kBlanks);
    }

    std::string scalar() {
        // Mostly what is right: else few messages get past the grammar.
        for (;;) {
            const std::string text = random_.of(kScalars);
            static const Json::CharReaderBuilder builder;
            static const std::vector<bool> valid = [] {
                std::vector<bool> all;
                for (const char* candidate : kScalars) {
                    MessageText message(candidate);
                    all.push_back(message.accepted());
                }
                return all;
            }();
            const auto index = static_cast<std::size_t>(
                std::find_if(std::begin(kScalars), std::end(kScalars), [&](const char* s) { return text == s; }) -
                std::begin(kScalars));
            if (valid[index] || random_.oneIn(16)) return text;
        }
    }

    std::string array() {
        std::string text = "[";
        for (std::size_t count = random_.below(9); count > 0; --count) {
            text += blank() + scalar() + blank();
            if (count > 1) text += ',';
        }
        return text + "]";
    }

    std::string object(std::vector<std::string> names) {
        if (random_.oneIn(4)) names.push_back(random_.of(names));
        if (random_.oneIn(4)) names.emplace_back("unknown");
        if (random_.oneIn(8)) names.emplace_back("\\u0055TC");
        if (random_.oneIn(8)) names.emplace_back("");
        if (random_.oneIn(3)) {
            for (std::size_t i = names.size(); i > 1; --i) std::swap(names[i - 1], names[random_.below(i)]);
        }
        const std::size_t kept = 1 + random_.below(3);
        std::string text = "{";
        bool isFirst = true;
        for (const std::string& name : names) {
            if (names.size() > 4 && random_.below(4) >= kept) continue;
            if (!isFirst) text += ',';
            isFirst = false;
            text += blank() + '"' + name + '"' + blank() + ':' + blank() + scalar() + blank();
        }
        return text + "}";
    }

    Random& random_;
    std::size_t blanks_;
};

void Damage(std::string& text, Random& random) {
    for (std::size_t times = 1 + random.below(3); times > 0 && !text.empty(); --times) {
        const std::size_t at = random.below(text.size());
        switch (random.below(6)) {
            case 0:
                text.erase(at, 1 + random.below(3));
                break;
            case 1:
                text.insert(at, random.of(kPieces));
                break;
            case 2:
                text.replace(at, 1, random.of(kPieces));
                break;
            case 3:
                text[at] = static_cast<char>(random.below(256));
                break;
            case 4:
                text.resize(at);
                break;
            default:
                text.insert(at, text.substr(random.below(text.size()), random.below(40)));
        }
    }
}

/// What the client's own reader makes of the text; false when it refuses it.
bool ReadTree(const std::string& text, int maxDepth, Json::Value& tree) {
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    builder["stackLimit"] = maxDepth;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    std::string errors;
    try {
        return reader->parse(text.data(), text.data() + text.size(), &tree, &errors);
    } catch (const Json::RuntimeError&) {
        return false;
    }
}

/// Follows a pointer as RFC 6901 says.
Json::Value At(const Json::Value& tree, std::string pointer) {
    Json::Value place = tree;
    while (!pointer.empty()) {
        const std::size_t end = std::min(pointer.find('/', 1), pointer.size());
        std::string step = pointer.substr(1, end - 1);
        pointer.erase(0, end);
        for (std::size_t i = 0; (i = step.find("~1", i)) != step.npos; ++i) step.replace(i, 2, "/");
        for (std::size_t i = 0; (i = step.find("~0", i)) != step.npos; ++i) step.replace(i, 2, "~");
        Json::Value next;
        if (place.isObject()) {
            next = place.get(step, Json::Value());
        } else if (place.isArray() && step.size() == 1 && step[0] >= '0' && step[0] <= '9') {
            next = place.get(static_cast<Json::ArrayIndex>(step[0] - '0'), Json::Value());
        }
        place = next;
    }
    return place;
}

/// What a reader leaves behind: what it returned, and what is in its memory.
struct Outcome {
    long long result;
    std::string contents;

    bool operator==(const Outcome&) const = default;
};

/// What read leaves behind in a reader's memory.
template <class Read>
Outcome OutcomeOf(const Reader& reader, Read read) {
    Memory memory(reader.target);
    const long long result = read(memory.get());
    return {result, memory.guardsIntact() ? memory.contents() : "written outside"};
}

std::string Shown(const Case& test) {
    std::string shown = std::string(test.reader->name) + " at \"" + std::string(test.way->pointer) + "\"" +
                        (test.options.skipOthers ? ", skipping" : "") + (test.options.strictOnly ? ", strict" : "") +
                        (test.readsRootFirst ? ", behind a reader" : "") + ", form " + std::to_string(test.form) + ": ";
    for (const char byte : test.text) {
        const auto code = static_cast<unsigned char>(byte);
        constexpr const char* kDigits = "0123456789ABCDEF";
        if (code < 0x20 || code > 0x7E) {
            shown += std::string("\\x") + kDigits[code >> 4] + kDigits[code & 15];
        } else {
            shown += byte;
        }
    }
    return shown;
}

}  // namespace

Case MakeCase(std::uint64_t number) {
    Random random(number);
    Case test;
    test.reader = &random.of(Readers());
    test.way = random.oneIn(2) ? &kWays[0] : &random.of(kWays);
    MessageMaker maker(random);
    test.text = std::string(test.way->before) + maker.value(*test.reader) + std::string(test.way->behind);
    if (random.oneIn(2)) Damage(test.text, random);
    const std::size_t mode = random.below(4);
    test.options.skipOthers = mode == 1;
    test.options.strictOnly = mode == 2;
    if (random.oneIn(8)) test.options.maxDepth = static_cast<int>(1 + random.below(12));
    test.form = static_cast<unsigned>(random.below(3));
    test.readsRootFirst = random.oneIn(8);
    return test;
}

Case MakeCase(std::string_view bytes) {
    std::uint64_t choice = 0;
    std::memcpy(&choice, bytes.data(), std::min(bytes.size(), sizeof choice));
    Case test = MakeCase(choice);
    const std::string_view value = bytes.substr(std::min(bytes.size(), sizeof choice));
    test.text = std::string(test.way->before) + std::string(value) + std::string(test.way->behind);
    return test;
}

std::string DifferenceOf(const Case& test) {
    jsonparser::UseTextPassForm(static_cast<TextPassForm>(test.form));
    // In bytes of its own, so that reading past the text is seen.
    const auto bytes = std::make_unique<char[]>(test.text.size());
    std::memcpy(bytes.get(), test.text.data(), test.text.size());
    MessageText message({bytes.get(), test.text.size()}, test.options);
    const Reader& reader = *test.reader;
    if (test.readsRootFirst) OutcomeOf(Readers()[0], [&](void* to) { return Readers()[0].text(message.at(""), to); });
    const Outcome fromText =
        OutcomeOf(reader, [&](void* to) { return reader.text(message.at(test.way->pointer), to); });
    const auto fromTree = [&](Json::Value& place) {
        return OutcomeOf(reader, [&](void* to) { return reader.value(place, to); });
    };
    const bool accepted = message.accepted();

    Json::Value tree;
    const bool treeAccepted = ReadTree(test.text, test.options.maxDepth, tree);
    Json::Value place = treeAccepted ? At(tree, std::string(test.way->pointer)) : Json::Value();
    if (fromText.contents == "written outside") return "written outside: " + Shown(test);
    if (!accepted && fromText != OutcomeOf(reader, reader.refused)) return "touched when refused: " + Shown(test);
    if (!accepted && message.error() == nullptr) return "refused without a reason: " + Shown(test);
    if (accepted && treeAccepted && fromText != fromTree(place)) return "another record: " + Shown(test);
    if (accepted && !treeAccepted && !test.options.skipOthers) return "accepted: " + Shown(test);
    if (!accepted && treeAccepted && !test.options.strictOnly) return "refused: " + Shown(test);
    return "";
}

}  // namespace fuzz
