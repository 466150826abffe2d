#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <utility>

#include "vkprotocolstack/JsonParser.h"

namespace {

std::size_t allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace {

/// A candidate whose person, pictures and scene have so many members that a copy of any of them shows.
Json::Value LargeCandidate() {
    Json::Value large;
    for (int i = 0; i < 1000; ++i) large["Other" + std::to_string(i)] = i;
    Json::Value candidate;
    candidate["Person"] = large;
    candidate["Person"]["Image"].append(large);
    candidate["Person"]["CustomPersonInfo"].append("text");
    candidate["SceneImage"] = large;
    return candidate;
}

template <class Candidate>
class CandidateCopies : public testing::Test {};

using Candidates = testing::Types<tagCANDIDATE_INFO, tagCANDIDATE_INFOEX>;
TYPED_TEST_SUITE(CandidateCopies, Candidates);

TYPED_TEST(CandidateCopies, NothingIsCopiedOfACandidateThatIsHandedOver) {
    Json::Value candidate = LargeCandidate();
    jsonparser::Owned<TypeParam> info;
    const std::size_t before = allocations;
    ParseCandidate(std::move(candidate), *info);
    EXPECT_LT(allocations - before, 100U);
}

TYPED_TEST(CandidateCopies, OnlyTheParameterIsACopyOfACandidateThatIsKept) {
    const Json::Value candidate = LargeCandidate();
    jsonparser::Owned<TypeParam> info;
    std::size_t before = allocations;
    { const Json::Value copy = candidate; }
    const std::size_t ofACopy = allocations - before;
    EXPECT_GT(ofACopy, 3000U);
    before = allocations;
    ParseCandidate(candidate, *info);
    EXPECT_LT(allocations - before, ofACopy + 100U);
}

}  // namespace
