// What happens without memory.

#include <gtest/gtest.h>
#include <json/value.h>

#include <new>
#include <string>

#include "testing/locale.h"
#include "vkprotocolstack/support/support.h"

namespace {

thread_local bool memoryIsGone = false;

}  // namespace

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return memoryIsGone ? nullptr : ::operator new[](size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

namespace {

using testing_tools::ThreadLocale;

TEST(LocalEncoding, ATextThatThereIsNoMemoryToConvertIsStoredEmpty) {
    const ThreadLocale locale("zh_CN.GBK");
    Json::Value set = 7;
    Json::Value packed = 7;
    memoryIsGone = true;
    SetJsonString(set, "\xC2\xB7", true);
    packetStrToJsonNode(packed, "\xC2\xB7", 2);
    memoryIsGone = false;
    EXPECT_EQ(set, Json::Value(""));
    EXPECT_EQ(packed, Json::Value(""));
    SetJsonString(set, "\xC2\xB7", true);
    EXPECT_EQ(set, Json::Value("路"));
}

TEST(ParseJsonNodeToStr, NestingThatThereIsNoMemoryForIsCutWhereItBegins) {
    Json::Value root = 1;
    for (int depth = 0; depth < 40; ++depth) {
        Json::Value outer;
        outer.append(root);
        root = outer;
    }
    char buffer[100] = {};
    memoryIsGone = true;
    parseJsonNodeToStr(root, buffer, sizeof buffer);
    memoryIsGone = false;
    EXPECT_EQ(buffer, std::string(17, '['));
    parseJsonNodeToStr(root, buffer, sizeof buffer);
    EXPECT_EQ(buffer, std::string(40, '[') + '1' + std::string(40, ']'));
}

}  // namespace
