#include <gtest/gtest.h>
#include <json/value.h>
#include <json/writer.h>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "testing/buffer.h"
#include "testing/json.h"
#include "testing/locale.h"
#include "vkprotocolstack/support/support.h"

namespace {

using testing_tools::Buffer;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Text;
using testing_tools::Utf8Texts;

std::string Rendered(const Json::Value& node, std::size_t size) {
    Buffer buffer(size);
    parseJsonNodeToStr(node, buffer.get(), static_cast<int>(size));
    return buffer.text();
}

/// The longest prefix of limit bytes that ends with a character of UTF-8.
std::string WholePrefix(const std::string& text, std::size_t limit) {
    std::size_t length = std::min(limit, text.size());
    while (length < text.size() && length > 0 && (text[length] & '\xC0') == '\x80') --length;
    return text.substr(0, length);
}

void ExpectAtEverySize(const Json::Value& node, const std::string& whole) {
    for (std::size_t size = 1; size <= whole.size() + 2; ++size) {
        ASSERT_EQ(Rendered(node, size), WholePrefix(whole, size - 1)) << whole << " in " << size;
    }
}

TEST(parseJsonNodeToStr, RendersEveryType) {
    const Utf8Texts utf8;
    const struct {
        Json::Value node;
        const char* expected;
    } rows[] = {
        {Json::Value(),                                               ""                                                },
        {true,                                                        "true"                                            },
        {false,                                                       "false"                                           },
        {0,                                                           "0"                                               },
        {-2147483647 - 1,                                             "-2147483648"                                     },
        {4294967295U,                                                 "4294967295"                                      },
        {Json::Value::minLargestInt,                                  "-9223372036854775808"                            },
        {Json::Value::maxLargestUInt,                                 "18446744073709551615"                            },
        {0.0,                                                         "0.0"                                             },
        {-0.0,                                                        "-0.0"                                            },
        {2.0,                                                         "2.0"                                             },
        {0.1,                                                         "0.10000000000000001"                             },
        {-2.5,                                                        "-2.5"                                            },
        {1e308,                                                       "1e+308"                                          },
        {std::numeric_limits<double>::infinity(),                     "1e+9999"                                         },
        {-std::numeric_limits<double>::infinity(),                    "-1e+9999"                                        },
        {std::nan(""),                                                "null"                                            },
        {"",                                                          ""                                                },
        {"AP-007",                                                    "AP-007"                                          },
        {"\"quoted\"\n\x01",                                          "\"quoted\"\n\x01"                                },
        {"null",                                                      "null"                                            },
        {Json::Value(Json::arrayValue),                               "[]"                                              },
        {Json::Value(Json::objectValue),                              "{}"                                              },
        {Json(R"([null, true, 1, -2, 1.5, "x", [], {}])"),            R"([null,true,1,-2,1.5,"x",[],{}])"               },
        {Json(R"({"b": [1, {"路": "é😀"}], "a": {}, "": null})"), R"({"":null,"a":{},"b":[1,{"路":"é😀"}]})"    },
        {Json(R"(["\"\\\/\b\f\n\r\t\u0001\u001f\u007f"])"),           "[\"\\\"\\\\/\\b\\f\\n\\r\\t\\u0001\\u001f\x7F\"]"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Rendered(row.node, 260), row.expected);
        ExpectAtEverySize(row.node, row.expected);
    }
}

TEST(parseJsonNodeToStr, ATextEndsAtItsFirstNulAndATextInATreeDoesNot) {
    Json::Value text(std::string("ab\0cd", 5));
    ExpectAtEverySize(text, "ab");
    Json::Value tree;
    tree[std::string("k\0", 2)] = text;
    ExpectAtEverySize(tree, R"({"k\u0000":"ab\u0000cd"})");
}

TEST(parseJsonNodeToStr, CutsCharactersOfEveryLengthBetweenThem) {
    const Utf8Texts utf8;
    for (const char* text : {"aé路😀z", "éééé", "路路路", "😀😀😀", "a路路", "ab😀😀"}) {
        ExpectAtEverySize(text, text);
        Json::Value tree;
        tree[text].append(text);
        ExpectAtEverySize(tree, Text(tree));
    }
}

TEST(parseJsonNodeToStr, LeavesNothingOfACharacterThatDoesNotFit) {
    const Utf8Texts utf8;
    for (const char* text : {"aé路😀z", "éééé", "路路路", "😀😀😀"}) {
        const std::string whole = text;
        for (std::size_t size = 1; size <= whole.size(); ++size) {
            Buffer buffer(size);
            parseJsonNodeToStr(text, buffer.get(), static_cast<int>(size));
            std::string expected = WholePrefix(whole, size - 1);
            expected.resize(size, '\0');
            ASSERT_EQ(buffer.all(), expected) << text << " in " << size;
        }
    }
}

TEST(parseJsonNodeToStr, ASizeOfZeroOrLessWritesNothing) {
    for (const int size : {0, -1, INT_MIN}) {
        for (const Json::Value& node : HostileValues()) {
            Buffer buffer(8);
            parseJsonNodeToStr(node, buffer.get(), size);
            ASSERT_TRUE(buffer.untouched()) << size;
        }
    }
}

TEST(parseJsonNodeToStr, ElementsThatAnArrayDoesNotHoldRenderAsNull) {
    Json::Value sparse;
    sparse[5] = 1;
    ExpectAtEverySize(sparse, "[null,null,null,null,null,1]");
    Json::Value holes;
    holes[1] = "x";
    holes[3] = Json::Value(Json::objectValue);
    EXPECT_EQ(Rendered(holes, 64), R"([null,"x",null,{}])");
}

TEST(parseJsonNodeToStr, AHugeSparseArrayIsRenderedOnlyAsFarAsItFits) {
    Json::Value sparse;
    sparse[4000000000U] = 1;
    EXPECT_EQ(Rendered(sparse, 14), "[null,null,nu");
}

TEST(parseJsonNodeToStr, ContainersAreByteForByteWhatTheStreamWriterWrites) {
    const Utf8Texts utf8;
    for (const Json::Value& value : HostileValues()) {
        Json::Value tree;
        tree["value"] = value;
        tree["values"].append(value);
        const std::string expected = Text(tree);
        ASSERT_EQ(Rendered(tree, expected.size() + 1), expected);
    }
}

/// Trees of everything that a message can hold, texts of every kind of byte and character among it.
class RandomTrees {
  public:
    Json::Value next(int depth) {
        switch (below(depth == 0 ? 8U : 16U)) {
            case 0:
                return {};
            case 1:
                return below(2) == 0;
            case 2:
                return static_cast<int>(random_());
            case 3:
                return Json::Value(static_cast<Json::UInt64>(random_()) << below(33));
            case 4:
                return Json::Value(-static_cast<Json::Int64>(random_()));
            case 5:
                return real();
            case 6:
            case 7:
                return text();
            case 8:
            case 9: {
                Json::Value object(Json::objectValue);
                for (auto count = below(5); count > 0; --count) object[text()] = next(depth - 1);
                return object;
            }
            default: {
                Json::Value array(Json::arrayValue);
                for (auto count = below(5); count > 0; --count) array[array.size() + below(2)] = next(depth - 1);
                return array;
            }
        }
    }

  private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(random_()) % limit; }

    double real() {
        static const double exponents[] = {1e-310, 1e-17, 1e-6, 1e-3, 1, 10, 1e6, 1e15, 1e17, 1e300};
        return (static_cast<double>(random_()) / 65536 - 32768) * exponents[below(10)];
    }

    std::string text() {
        static const char* const characters[] = {"a",    "Z",    "0", " ",  "/",      "\"", "\\",   "\n",   "\t",
                                                 "\x1F", "\x7F", "é", "路", "\u2028", "😀",  "\xFF", "\x80", "\xE8\xB7"};
        std::string text;
        for (auto count = below(6); count > 0; --count) {
            const auto which = below(19);
            text += which == 18 ? std::string(1, '\0') : std::string(characters[which]);
        }
        return text;
    }

    std::mt19937 random_{20240105};  // NOLINT(cert-msc51-cpp): repeatable on purpose
};

TEST(parseJsonNodeToStr, RandomTreesAreByteForByteWhatTheStreamWriterWrites) {
    const Utf8Texts utf8;
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "";
    builder["emitUTF8"] = true;
    const std::unique_ptr<Json::StreamWriter> writer(builder.newStreamWriter());
    RandomTrees trees;
    std::vector<char> buffer(1 << 16);
    for (int i = 0; i < 10000; ++i) {
        Json::Value tree;
        tree["tree"] = trees.next(4);
        std::ostringstream stream;
        writer->write(tree, &stream);
        const std::string expected = stream.str();
        ASSERT_LT(expected.size(), buffer.size());
        parseJsonNodeToStr(tree, buffer.data(), static_cast<int>(buffer.size()));
        ASSERT_EQ(std::string(buffer.data()), expected);
        parseJsonNodeToStr(tree, buffer.data(), static_cast<int>(expected.size()) + 1);
        ASSERT_EQ(std::string(buffer.data()), expected);
    }
}

/// Arrays and objects in turn, one in the other. Built and taken down level by level: jsoncpp's own destructor
/// recurses.
class DeepTree {
  public:
    explicit DeepTree(int levels) {
        for (int i = 0; i < levels; ++i) {
            Json::Value outer;
            (i % 2 == 0 ? outer[0] : outer["a"]).swap(tree_);
            tree_.swap(outer);
            text_ += i % 2 == 0 ? "]" : "}";
        }
        std::string opening;
        for (int i = levels - 1; i >= 0; --i) opening += i % 2 == 0 ? "[" : "{\"a\":";
        text_ = opening + "null" + text_;
    }
    ~DeepTree() {
        while (!tree_.isNull()) {
            Json::Value inner;
            inner.swap(tree_.isArray() ? tree_[0] : tree_["a"]);
            tree_.swap(inner);
        }
    }
    DeepTree(const DeepTree&) = delete;
    DeepTree& operator=(const DeepTree&) = delete;

    const Json::Value& tree() const { return tree_; }
    const std::string& text() const { return text_; }

  private:
    Json::Value tree_;
    std::string text_;
};

TEST(parseJsonNodeToStr, ADepthOf100000LevelsDoesNotExhaustTheStack) {
    const DeepTree deep(100000);
    const std::string rendered = Rendered(deep.tree(), deep.text().size() + 1);
    EXPECT_TRUE(rendered == deep.text()) << rendered.size();
    EXPECT_EQ(Rendered(deep.tree(), 18), "{\"a\":[{\"a\":[{\"a\":");
}

}  // namespace
