#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "testing/json.h"
#include "testing/locale.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::Node;
using testing_tools::HostileValues;

using Heap = std::unique_ptr<char[]>;

TEST(NodeHeapString, IsTheWholeTextWhateverItsLength) {
    for (const std::size_t length : {0U, 1U, 255U, 256U, 100000U}) {
        const std::string text(length, 'x');
        const Heap heap(Node(text).heapString());
        EXPECT_STREQ(heap.get(), text.c_str());
    }
    const testing_tools::Utf8Texts utf8;
    const Heap heap(Node(Json::Value("图片/一.jpg")).heapString());
    EXPECT_STREQ(heap.get(), "图片/一.jpg");
}

TEST(NodeHeapString, IsZeroBehindAnEmbeddedNul) {
    const Heap heap(Node(Json::Value(std::string("a\0bc", 4))).heapString());
    EXPECT_EQ(std::memcmp(heap.get(), "a\0\0\0\0", 5), 0);
}

TEST(NodeHeapString, OfAnyValueThatIsNoTextIsEmpty) {
    for (const Json::Value& value : HostileValues()) {
        const Heap heap(Node(value).heapString());
        ASSERT_NE(heap, nullptr);
        EXPECT_TRUE(value.isString() || heap[0] == '\0');
    }
    const Heap missing(Node(jsonparser::Place()).heapString());
    EXPECT_STREQ(missing.get(), "");
}

TEST(NodeHeapString, ReportsToTheObserver) {
    struct : jsonparser::Observer {
        void look(const jsonparser::Look& look) override { results.push_back(look.result); }
        std::vector<std::string> results;
    } observer;
    const jsonparser::ObserverScope scope(observer);
    const Json::Value text = "text";
    const Heap heap(Node(text).heapString());
    EXPECT_EQ(observer.results, std::vector<std::string>{R"("text")"});
}

}  // namespace
