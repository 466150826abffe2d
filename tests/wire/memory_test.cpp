// What happens without memory.

#include <gtest/gtest.h>
#include <json/value.h>

#include <cstdlib>
#include <new>
#include <string>

#include "testing/buffer.h"
#include "vkprotocolstack/message_text.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/observer.h"

namespace {

thread_local bool memoryIsGone = false;      ///< for new that throws
thread_local bool textMemoryIsGone = false;  ///< for new[] that does not

}  // namespace

void* operator new(std::size_t size) {
    void* const memory = memoryIsGone ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    try {
        return textMemoryIsGone ? nullptr : ::operator new[](size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace {

using jsonparser::MessageText;
using jsonparser::Node;
using jsonparser::NodeAt;
using testing_tools::Buffer;

TEST(Node, Utf8ToLeavesTheFieldAsItWasWithoutMemoryForALongText) {
    const Json::Value value = std::string(600, 'x');
    Buffer field(601);
    textMemoryIsGone = true;
    Node(value).utf8To(field.get(), 600);
    textMemoryIsGone = false;
    EXPECT_TRUE(field.untouched());
}

TEST(Node, Utf8ToNeedsNoMemoryForAShortText) {
    const Json::Value value = "text";
    Buffer field(8);
    textMemoryIsGone = true;
    Node(value).utf8To(field.get(), 8);
    textMemoryIsGone = false;
    EXPECT_EQ(field.text(), "text");
}

TEST(Node, HeapUtf8GivesNullWithoutMemory) {
    const Json::Value value = "text";
    textMemoryIsGone = true;
    const char* const heap = Node(value).heapUtf8();
    textMemoryIsGone = false;
    EXPECT_EQ(heap, nullptr);
}

TEST(MessageText, WithoutMemoryForItIsRefusedAndSaysSo) {
    const std::string text = R"([1] // for jsoncpp's reader)";
    MessageText message(text);
    memoryIsGone = true;
    const bool accepted = message.accepted();
    const jsonparser::MessageTextError* const error = message.error();
    memoryIsGone = false;
    EXPECT_FALSE(accepted);
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->what, "out of memory");
    EXPECT_EQ(message.error(), error);
    EXPECT_FALSE(NodeAt(message.at("")).isAccepted);
    EXPECT_TRUE(MessageText(text).accepted());
}

TEST(MessageText, ATreeThatThereIsNoMemoryForIsRenderedAsNothing) {
    const std::string text = R"({"a": [1, 2, 3]})";
    MessageText message(text);
    const auto node = NodeAt(message.at("/a"));
    ASSERT_TRUE(node.isAccepted);
    char field[20] = "before";
    memoryIsGone = true;
    node->renderTo(field, sizeof field);
    memoryIsGone = false;
    EXPECT_STREQ(field, "");
    node->renderTo(field, sizeof field);
    EXPECT_STREQ(field, "[1,2,3]");
}

TEST(MessageText, AnEscapedTextThatThereIsNoMemoryForIsEmpty) {
    const std::string text = "[\"\\u0041" + std::string(100, 'x') + "\"]";
    MessageText message(text);
    const auto node = NodeAt(message.at("/0"));
    ASSERT_TRUE(node.isAccepted);
    char field[200] = "before";
    memoryIsGone = true;
    node->rawTo(field, sizeof field - 1);
    memoryIsGone = false;
    EXPECT_STREQ(field, "");
    node->rawTo(field, sizeof field - 1);
    EXPECT_EQ(field, 'A' + std::string(100, 'x'));
}

TEST(MessageText, ALongTextThatThereIsNoMemoryForIsEmptyInItsField) {
    const std::string longText(5000, 'x');
    const std::string text = "[\"" + longText + "\",\"\\u0041" + longText + "\"]";
    MessageText message(text);
    for (const char* pointer : {"/0", "/1"}) {
        const auto node = NodeAt(message.at(pointer));
        ASSERT_TRUE(node.isAccepted);
        char field[3000] = "before";
        textMemoryIsGone = true;
        EXPECT_TRUE(node->stringTo(field, sizeof field));
        textMemoryIsGone = false;
        EXPECT_STREQ(field, "") << pointer;
        node->stringTo(field, sizeof field);
        EXPECT_EQ(std::string(field).size(), sizeof field - 1) << pointer;
        node->renderTo(field, sizeof field);
        EXPECT_EQ(std::string(field).size(), sizeof field - 1) << pointer;
    }
}

TEST(Observer, SeesThatThereIsNoMemoryForAText) {
    class Listing : public jsonparser::Observer {
      public:
        void look(const jsonparser::Look& look) override {
            text += std::string(look.operation) + ": " + look.result + ", " + look.remark + '\n';
        }
        std::string text;
    };
    const Json::Value value = "text";
    Listing listing;
    const jsonparser::ObserverScope scope(listing);
    const Node node(value);
    for (char* (Node::*read)() const : {&Node::heapUtf8, &Node::heapString}) {
        textMemoryIsGone = true;
        char* const text = (node.*read)();
        textMemoryIsGone = false;
        EXPECT_EQ(text, nullptr);
        delete[] text;
    }
    EXPECT_EQ(listing.text,
              "text from UTF-8, of any length: null, no memory for it\n"
              "string, of any length: null, no memory for it\n");
}

}  // namespace
