// What converters of this folder do when there is no memory for a text.
#include <gtest/gtest.h>

#include <new>
#include <string>

#include "testing/json.h"
#include "testing/record.h"

namespace {

using testing_tools::Json;
using testing_tools::Placed;

thread_local bool outOfMemory = false;

/// While it lives, arrays cannot be had by the allocation that does not throw.
class OutOfMemory {
  public:
    OutOfMemory() { outOfMemory = true; }
    ~OutOfMemory() { outOfMemory = false; }
    OutOfMemory(const OutOfMemory&) = delete;
    OutOfMemory& operator=(const OutOfMemory&) = delete;
};

}  // namespace

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    if (outOfMemory) return nullptr;
    try {
        return ::operator new[](size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

namespace {

template <class Record>
class ParseStrtoObjectWithoutMemory : public testing::Test {};

using Generations = testing::Types<VK_MSG_OBJECT, tagVK_MSG_OBJECT_EX, tagVK_MSG_OBJECT_EX2>;
TYPED_TEST_SUITE(ParseStrtoObjectWithoutMemory, Generations);

TYPED_TEST(ParseStrtoObjectWithoutMemory, LeavesThePathNullAndReadsTheRest) {
    const Json::Value node = Json(R"({"ObjectType": "type", "Category": "category", "Text": "text", "SubText": "sub",
                                      "Image": {"FilePath": "/record/1.jpg", "Width": 41}, "RelativeID": 102})");
    Placed<TypeParam> object(4);
    {
        const OutOfMemory scope;
        ParseStrtoObject(node, object.get());
    }
    EXPECT_STREQ(object->szObjectType, "type");
    EXPECT_STREQ(object->szObjectCategory, "category");
    EXPECT_STREQ(object->szText, "text");
    EXPECT_STREQ(object->szSubText, "sub");
    EXPECT_EQ(object->bPicEnable, 1);
    EXPECT_STREQ(object->pszFilePath, nullptr);
    EXPECT_EQ(object->wWidth, 41);
    EXPECT_EQ(object->nRelativeID, 102);
}

TEST(ParseBulletHolesInfoWithoutMemory, ReadsAll) {
    const Json::Value node = Json(R"({"ObjectType": "type", "Score": 13})");
    Placed<tagNET_BULLET_HOLES_INFO> hole;
    {
        const OutOfMemory scope;
        EXPECT_EQ(ParseBulletHolesInfo(node, hole.get()), 1);
    }
    EXPECT_STREQ(hole->szObjectType, "type");
    EXPECT_EQ(hole->nScore, 13);
}

}  // namespace
