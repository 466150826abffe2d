#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <type_traits>

#include "testing/json.h"
#include "testing/record.h"

// Texts of its own, of the caller, and in records in it; packed, so that no pointer is aligned.
#pragma pack(push, 1)
struct TestInner {
    unsigned char byKind;
    char* pszName;
};
struct TestOuter {
    unsigned char byKind;
    char* pszTexts[2][2];
    char* pszBuffer;
    int nBufferLength;
    TestInner stuInners[3];
    char szText[5];
    unsigned char byReserved[4];
};
#pragma pack(pop)

namespace vkrecords {

template <>
struct FieldsOf<TestInner> {
    using R = TestInner;
    static constexpr const char* name = "TestInner";
    static constexpr Field list[] = {
        detail::MakeField<decltype(R::byKind), offsetof(R, byKind), 0>("byKind", "kind"),
        detail::MakeField<decltype(R::pszName), offsetof(R, pszName), 1>("pszName", "name"),
    };
};

template <>
struct FieldsOf<TestOuter> {
    using R = TestOuter;
    static constexpr const char* name = "TestOuter";
    static constexpr Field list[] = {
        detail::MakeField<decltype(R::byKind), offsetof(R, byKind), 0>("byKind", "kind"),
        detail::MakeField<decltype(R::pszTexts), offsetof(R, pszTexts), 1>("pszTexts", "texts"),
        detail::MakeCallerText<decltype(R::pszBuffer), offsetof(R, pszBuffer), 33>("pszBuffer", "nBufferLength", ""),
        detail::MakeField<decltype(R::nBufferLength), offsetof(R, nBufferLength), 41>("nBufferLength", "capacity"),
        detail::MakeField<decltype(R::stuInners), offsetof(R, stuInners), 45>("stuInners", "records in it"),
        detail::MakeField<decltype(R::szText), offsetof(R, szText), 72>("szText", "text"),
        detail::MakeReserved<decltype(R::byReserved), offsetof(R, byReserved), 77>("byReserved"),
    };
};

}  // namespace vkrecords

namespace {

thread_local int arraysAlive = 0;

}  // namespace

void* operator new[](std::size_t size) {
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    ++arraysAlive;
    return memory;
}

void operator delete[](void* memory) noexcept {
    if (memory != nullptr) --arraysAlive;
    std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept { operator delete[](memory); }

namespace {

using jsonparser::Owned;
using jsonparser::ReleaseTexts;
using testing_tools::Fields;
using testing_tools::Json;
using testing_tools::Placed;

using Car = tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO;

char* HeapText(const char* text) {
    char* copy = new char[std::strlen(text) + 1];
    std::strcpy(copy, text);
    return copy;
}

void GiveAddresses(Car& car) {
    car.pszDeviceAddress = HeapText("device");
    car.pszDetailedAddress = HeapText("detailed");
    car.pszMachineAddress = HeapText("machine");
}

TEST(ReleaseTexts, FreesEachText) {
    Placed<Car> car;
    car.clear();
    const int before = arraysAlive;
    GiveAddresses(*car);
    EXPECT_EQ(arraysAlive, before + 3);
    ReleaseTexts(*car);
    EXPECT_EQ(arraysAlive, before);
}

TEST(ReleaseTexts, FreesAndNullsTheThreeAddressesOfTheTrafficCarAndLeavesEverythingElse) {
    Placed<Car> car;
    GiveAddresses(*car);
    ReleaseTexts(*car);
    EXPECT_EQ(car->pszDeviceAddress, nullptr);
    EXPECT_EQ(car->pszDetailedAddress, nullptr);
    EXPECT_EQ(car->pszMachineAddress, nullptr);
    EXPECT_EQ(car.changedFields(), (Fields{"pszDeviceAddress", "pszMachineAddress", "pszDetailedAddress"}));
}

TEST(ReleaseTexts, MayBeCalledTwice) {
    Placed<Car> car;
    GiveAddresses(*car);
    ReleaseTexts(*car);
    ReleaseTexts(*car);
    EXPECT_EQ(car->pszDeviceAddress, nullptr);
    EXPECT_EQ(car->pszDetailedAddress, nullptr);
    EXPECT_EQ(car->pszMachineAddress, nullptr);
}

TEST(ReleaseTexts, TakesTextsThatAreNull) {
    Placed<Car> car;
    car.clear();
    car->pszDetailedAddress = HeapText("detailed");
    ReleaseTexts(*car);
    EXPECT_TRUE(std::all_of(car.bytes(), car.bytes() + sizeof(Car), [](unsigned char byte) { return byte == 0; }));
}

TEST(ReleaseTexts, FreesWhatTheConverterAllocated) {
    Placed<Car> car;
    Json::Value event = Json(R"({"DeviceAddress": "a", "DetailedAddress": "", "MachineAddress": "c"})");
    ASSERT_EQ(ParseStrtoTrafficCar(event, car.get()), 0);
    EXPECT_STREQ(car->pszDeviceAddress, "a");
    EXPECT_STREQ(car->pszDetailedAddress, "");
    EXPECT_STREQ(car->pszMachineAddress, "c");
    ReleaseTexts(*car);
    EXPECT_EQ(car->pszDeviceAddress, nullptr);
    EXPECT_EQ(car->pszDetailedAddress, nullptr);
    EXPECT_EQ(car->pszMachineAddress, nullptr);
}

TEST(ReleaseTexts, LeavesARecordWithoutTextsUntouched) {
    Placed<tagNET_TIME_EX> time;
    ReleaseTexts(*time);
    EXPECT_EQ(time.changedFields(), Fields{});
    Placed<tagRANGE> range;
    ReleaseTexts(*range);
    EXPECT_EQ(range.changedFields(), Fields{});
}

TEST(ReleaseTexts, FreesArraysOfTextsAndNestedRecordsInAPackedRecordButNoBufferOfTheCaller) {
    char buffer[8] = "caller";
    for (const std::size_t placement : {0U, 4U}) {
        Placed<TestOuter> outer(placement);
        const auto set = [&](std::size_t offset, char* text) {
            std::memcpy(outer.bytes() + offset, &text, sizeof text);
        };
        const auto get = [&](std::size_t offset) {
            char* text = nullptr;
            std::memcpy(&text, outer.bytes() + offset, sizeof text);
            return text;
        };
        const std::size_t owned[] = {1, 9, 17, 25, 46, 55, 64};
        for (const std::size_t offset : owned) set(offset, HeapText("owned"));
        set(33, buffer);
        ReleaseTexts(vkrecords::kLayout<TestOuter>, outer.get());
        for (const std::size_t offset : owned) EXPECT_EQ(get(offset), nullptr) << offset;
        EXPECT_EQ(get(33), buffer);
        EXPECT_STREQ(buffer, "caller");
        EXPECT_EQ(outer.changedFields(), (Fields{"pszTexts", "pszBuffer", "stuInners[0].pszName",
                                                 "stuInners[1].pszName", "stuInners[2].pszName"}));
    }
}

TEST(Owned, IsCleared) {
    alignas(Owned<Car>) unsigned char place[sizeof(Owned<Car>)];
    std::fill(std::begin(place), std::end(place), testing_tools::kPattern);
    auto* car = new (place) Owned<Car>;
    const auto* bytes = reinterpret_cast<const unsigned char*>(car->get());
    EXPECT_TRUE(std::all_of(bytes, bytes + sizeof(Car), [](unsigned char byte) { return byte == 0; }));
    car->~Owned<Car>();
}

TEST(Owned, ReleasesItsTextsWhenItGoes) {
    Owned<Car> car;
    GiveAddresses(*car);
    EXPECT_STREQ(car->pszDeviceAddress, "device");  // the leak checker fails the program if they stay
}

TEST(Owned, IsFilledAgainAfterItsTextsWereReleased) {
    Owned<Car> car;
    for (const char* address : {"first", "second"}) {
        car.releaseTexts();
        Json::Value event;
        event["DeviceAddress"] = address;
        ASSERT_EQ(ParseStrtoTrafficCar(event, car.get()), 0);
        EXPECT_STREQ(car->pszDeviceAddress, address);
    }
    car.releaseTexts();
    EXPECT_EQ(car->pszDeviceAddress, nullptr);
}

TEST(Owned, GivesTheSameRecordInEveryWay) {
    Owned<Car> car;
    const Owned<Car>& same = car;
    EXPECT_EQ(&*car, car.get());
    EXPECT_EQ(&car->nSpeed, &car.get()->nSpeed);
    EXPECT_EQ(&*same, car.get());
    EXPECT_EQ(same.get(), car.get());
    EXPECT_EQ(&same->nSpeed, &car->nSpeed);
}

TEST(Owned, IsNotCopied) {
    EXPECT_FALSE(std::is_copy_constructible_v<Owned<Car>>);
    EXPECT_FALSE(std::is_copy_assignable_v<Owned<Car>>);
    EXPECT_FALSE(std::is_move_constructible_v<Owned<Car>>);
}

}  // namespace
