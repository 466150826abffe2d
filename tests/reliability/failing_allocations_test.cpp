// The n-th allocation fails, for every n: in the library, in jsoncpp and, but for sanitizers' own allocators, below.

#include <dlfcn.h>
#include <execinfo.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <json/writer.h>
#include <pthread.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "fuzz/converters.h"
#include "places.h"
#include "testing/json.h"
#include "testing/zone.h"
#include "vkprotocolstack/JsonParser.h"

#ifndef __has_feature
#define __has_feature(feature) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || __has_feature(address_sanitizer) || \
    __has_feature(thread_sanitizer)
#define HAS_OWN_MALLOC 0
#else
#define HAS_OWN_MALLOC 1
#endif

namespace {

/// The blocks that a conversion took and has not given back. It needs no memory of its own.
class Blocks {
  public:
    void add(const void* block) {
        const void** slot = find(nullptr, block);
        if (slot == nullptr) std::abort();
        *slot = block;
        ++count_;
    }
    void remove(const void* block) {
        const void** slot = find(block, block);
        if (slot == nullptr) return;
        *slot = &kGone;
        --count_;
    }
    std::size_t count() const { return count_; }

  private:
    static constexpr std::size_t kSlots = 1 << 14;
    static constexpr char kGone = 0;

    /// The first slot with wanted in it, from block's own place on.
    const void** find(const void* wanted, const void* block) {
        std::size_t i = reinterpret_cast<std::uintptr_t>(block) / 16 * 0x9E3779B1U;
        for (std::size_t tried = 0; tried < kSlots; ++tried, ++i) {
            const void*& slot = slots_[i % kSlots];
            if (slot == wanted) return &slot;
            if (slot == nullptr) return nullptr;
        }
        return nullptr;
    }

    const void* slots_[kSlots] = {};
    std::size_t count_ = 0;
};

/// A conversion that is under way: its allocation number `failing`, counted from 1, fails; 0 fails none.
struct Attempt {
    explicit Attempt(long number) : failing(number) {}

    long failing;
    long made = 0;
    bool failed = false;
    bool failedInJsoncpp = false;
    Blocks alive;
};

Attempt* attempt = nullptr;              ///< whose blocks are counted
thread_local bool isConverting = false;  ///< whether this thread's allocations are the attempt's

/// Whether any of the callers is so.
template <class Is>
bool IsCalledBy(Is is) {
    void* frames[64];
    const int depth = backtrace(frames, static_cast<int>(std::size(frames)));
    return std::any_of(frames, frames + depth, [is](const void* frame) {
        Dl_info info;
        return dladdr(frame, &info) != 0 && is(info);
    });
}

/// jsoncpp calls nothing of ours.
bool IsJsoncpp(const Dl_info& info) { return std::strstr(info.dli_fname, "libjsoncpp") != nullptr; }

bool Fails() {
    if (attempt == nullptr || !isConverting || ++attempt->made != attempt->failing) return false;
    isConverting = false;
    attempt->failed = true;
    attempt->failedInJsoncpp = IsCalledBy(IsJsoncpp);
    isConverting = true;
    errno = ENOMEM;
    return true;
}

void* Added(void* block) {
    if (attempt != nullptr && isConverting && block != nullptr) attempt->alive.add(block);
    return block;
}

void Removed(const void* block) {
    if (attempt != nullptr && block != nullptr) attempt->alive.remove(block);
}

}  // namespace

#if HAS_OWN_MALLOC

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size) { return Fails() ? nullptr : Added(__libc_malloc(size)); }
void* calloc(std::size_t count, std::size_t size) { return Fails() ? nullptr : Added(__libc_calloc(count, size)); }
void* realloc(void* block, std::size_t size) {
    if (Fails()) return nullptr;
    void* const moved = __libc_realloc(block, size);
    if (moved == nullptr) return nullptr;
    Removed(block);
    return Added(moved);
}
void free(void* block) {
    Removed(block);
    __libc_free(block);
}
}

#else

void* operator new(std::size_t size) {
    if (Fails()) throw std::bad_alloc();
    if (void* block = std::malloc(size == 0 ? 1 : size)) return Added(block);
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Fails() ? nullptr : Added(std::malloc(size == 0 ? 1 : size));
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }
void operator delete(void* block) noexcept {
    Removed(block);
    std::free(block);
}
void operator delete[](void* block) noexcept { operator delete(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { operator delete(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { operator delete(block); }

#endif

namespace reliability {
namespace {

using fuzz::Memory;
using fuzz::Reader;
using fuzz::Writer;
using vkrecords::Field;
using vkrecords::FieldKind;
using vkrecords::RecordLayout;

/// How a conversion ended.
enum class End { kWhole, kFailedSoftly, kThrew };

/// Runs convert on a thread of its own, so that it finds nothing that an earlier one kept.
void OnNewThread(std::function<void()> convert) {
    const auto run = [](void* function) -> void* {
        (*static_cast<std::function<void()>*>(function))();
        return nullptr;
    };
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, nullptr, run, &convert), 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
}

/// Converts with the allocation of that number failing. What the thread keeps counts until it has ended.
End Convert(Attempt& current, const std::function<void()>& convert) {
    attempt = &current;
    bool threw = false;
    OnNewThread([&] {
        try {
            isConverting = true;
            convert();
        } catch (const std::bad_alloc&) {
            threw = true;
        } catch (const Json::Exception&) {  // of jsoncpp's texts
            threw = true;
        }
    });
    if (threw) return End::kThrew;
    return current.failed ? End::kFailedSoftly : End::kWhole;
}

/// Has one allocation after the other fail until there is none left to fail.
/// @param check is called after each conversion
/// @param release gives back all that the conversion left
/// @return how many failed
long FailEach(std::string_view name, const std::function<void()>& convert, const std::function<void(End)>& check,
              const std::function<void()>& release) {
    for (long n = 1;; ++n) {
        Attempt current(n);
        const End end = Convert(current, convert);
        check(end);
        release();
        attempt = nullptr;
        EXPECT_TRUE(end != End::kThrew || current.failedInJsoncpp) << name << " throws by itself, allocation " << n;
        EXPECT_EQ(current.alive.count(), 0U) << name << " leaks when allocation " << n << " fails";
        if (!current.failed || testing::Test::HasFailure()) return n - 1;
    }
}

/// One element of a field, or all bytes of a target that is no record.
struct Part {
    std::string name;
    bool isText;
    std::string value;
};

std::string TextOr(const char* text, const char* otherwise) { return text == nullptr ? otherwise : text; }

void AddParts(const RecordLayout& layout, const unsigned char* record, const std::string& prefix,
              std::vector<Part>& parts) {
    for (const Field& field : layout) {
        const unsigned char* element = record + field.offset;
        for (std::size_t i = 0; i < field.count(); ++i, element += field.elementSize) {
            const std::string name = prefix + field.name + (field.rank == 0 ? "" : '[' + std::to_string(i) + ']');
            if (field.kind == FieldKind::Record) {
                AddParts(*field.record, element, name + '.', parts);
                continue;
            }
            std::string value(reinterpret_cast<const char*>(element), field.elementSize);
            if (field.kind == FieldKind::HeapText || field.kind == FieldKind::CallerText) {
                const char* text = nullptr;
                std::memcpy(&text, element, sizeof text);
                value = field.kind == FieldKind::HeapText ? TextOr(text, "") : std::string(text, 100);
                parts.push_back({name, true, value});
            } else {
                parts.push_back({name, field.kind == FieldKind::Text, value});
            }
        }
    }
}

std::vector<Part> PartsOf(const fuzz::Target& target, const Memory& memory) {
    std::vector<Part> parts;
    if (target.layout != nullptr) {
        AddParts(*target.layout, memory.get(), "", parts);
    } else {
        parts.push_back({"value", false, memory.contents()});
    }
    return parts;
}

bool IsEmpty(const std::string& text) { return text.empty() || text[0] == '\0'; }

/// What the record holds beside a text that could not be had is what it always holds; the text is empty, or left.
void ExpectSoftFailure(const std::string& name, const std::vector<Part>& now, const std::vector<Part>& whole,
                       const std::vector<Part>& before) {
    for (std::size_t i = 0; i < now.size(); ++i) {
        const bool isWhole = now[i].value == whole[i].value;
        const bool isLeft = now[i].isText && (IsEmpty(now[i].value) || now[i].value == before[i].value);
        EXPECT_TRUE(isWhole || isLeft) << name << ' ' << now[i].name << ": " << testing::PrintToString(now[i].value)
                                       << " instead of " << testing::PrintToString(whole[i].value);
    }
}

std::vector<Json::Value> MessagesFor(const Reader& reader) {
    const Places& places = PlacesOf(reader);
    std::vector<Json::Value> messages = Samples(reader);
    for (const Json::ArrayIndex elements : {2U, 4U}) {
        messages.push_back(Message(places, {"路口的名字, longer than a string keeps within", elements, true}));
        messages.push_back(Message(places, {"1 08:00:00-17:30:00", elements, false}));
    }
    return messages;
}

/// Reads with each allocation failing. Where the library's own fails, the record is whole but for a text, or as of a
/// message that is not accepted.
long FailEachOf(const Reader& reader, const std::function<long long(Memory&)>& read) {
    const std::string name(reader.name);
    Memory memory(reader.target);
    const std::vector<Part> before = PartsOf(reader.target, memory);
    const long long refusal = reader.refused(memory.get());
    const std::string refused = memory.contents();
    memory.fill("");
    long long result = 0;
    OnNewThread([&] { result = read(memory); });
    const long long wholeResult = result;
    const std::vector<Part> whole = PartsOf(reader.target, memory);
    memory.fill("");
    return FailEach(
        name, [&] { result = read(memory); },
        [&](End end) {
            EXPECT_TRUE(memory.guardsIntact()) << name;
            if (end == End::kThrew || (result == refusal && memory.contents() == refused)) return;
            EXPECT_EQ(result, wholeResult) << name;
            ExpectSoftFailure(name, PartsOf(reader.target, memory), whole, before);
        },
        [&] { memory.fill(""); });
}

/// In the "C" locale bytes are copied, in the other one they are converted.
class FailingAllocations : public testing::TestWithParam<const char*> {
  protected:
    FailingAllocations() {
        EXPECT_NE(std::setlocale(LC_ALL, GetParam()), nullptr) << GetParam();
        // Of other libraries, before ours: a thread has room for 32, and must allocate more for each one behind them.
        static const bool others = [] {
            pthread_key_t key;
            for (int i = 0; i < 32; ++i) EXPECT_EQ(pthread_key_create(&key, nullptr), 0);
            return true;
        }();
        EXPECT_TRUE(others);
        // What is loaded with a first use stays.
        IsCalledBy(IsJsoncpp);
        char buffer[8];
        GetJsonString(Json::Value("路"), buffer, sizeof buffer, true);
    }
    ~FailingAllocations() override { std::setlocale(LC_ALL, "C"); }
};

INSTANTIATE_TEST_SUITE_P(In, FailingAllocations, testing::Values("C", "zh_CN.GBK"),
                         [](const auto& locale) { return std::string(locale.param[0] == 'C' ? "C" : "GBK"); });

TEST_P(FailingAllocations, OfReadersOfValuesAreSoftAndLeakNothing) {
    long failures = 0;
    for (const Reader& reader : fuzz::Readers()) {
        for (const Json::Value& message : MessagesFor(reader)) {
            failures += FailEachOf(reader, [&](Memory& memory) {
                isConverting = false;
                Json::Value node = message;
                isConverting = true;
                return reader.value(node, memory.get());
            });
            if (HasFailure()) FAIL() << testing_tools::Text(message);
        }
    }
    std::printf("%ld allocations failed, one at a time\n", failures);
    EXPECT_GT(failures, 1000);
}

TEST_P(FailingAllocations, OfReadersOfTextsAreSoftAndLeakNothing) {
    long failures = 0;
    for (const Reader& reader : fuzz::Readers()) {
        for (const Json::Value& message : MessagesFor(reader)) {
            const std::string text = testing_tools::Text(message);
            // What the pass over the text declines goes to jsoncpp's reader.
            for (const std::string& sent : {text, text + " // declined"}) {
                failures += FailEachOf(reader, [&](Memory& memory) {
                    jsonparser::MessageText source(sent);
                    return reader.text(source.at(""), memory.get());
                });
                if (HasFailure()) FAIL() << sent;
            }
        }
    }
    std::printf("%ld allocations failed, one at a time\n", failures);
    EXPECT_GT(failures, 1000);
}

TEST_P(FailingAllocations, OfATextsReaderAreNoFaultOfTheText) {
    const std::string nested =
        std::string(20, '[') + R"({"Name": "longer than a string keeps within", "B": ""})" + std::string(20, ']');
    jsonparser::MessageTextOptions lenient;
    lenient.maxDepth = 30;
    jsonparser::MessageTextOptions strict = lenient;
    strict.strictOnly = true;
    const struct {
        std::string sent;
        jsonparser::MessageTextOptions options;
    } rows[] = {
        {nested,                  lenient},
        {nested + " // declined", lenient},
        {nested,                  strict },
    };
    for (const auto& row : rows) {
        const std::string& sent = row.sent;
        bool isAccepted = false;
        std::string what;
        const long failures = FailEach(
            sent,
            [&] {
                jsonparser::MessageText source(sent, row.options);
                isAccepted = source.accepted();
                isConverting = false;
                what = isAccepted ? "" : source.error()->what;
                isConverting = true;
            },
            [&](End end) {
                EXPECT_NE(end, End::kThrew) << sent;
                EXPECT_EQ(what, isAccepted ? "" : "out of memory") << sent;
            },
            [] {});
        EXPECT_TRUE(isAccepted) << what;
        const bool takesMemory = HAS_OWN_MALLOC != 0 || sent != nested;
        EXPECT_EQ(failures > 0, takesMemory) << sent;
    }
}

TEST_P(FailingAllocations, OfMessagesThatGrowAreSoftAndLeakNothing) {
    std::string members = R"("Lane":1)";
    std::string elements = "1";
    for (int i = 0; i < 600; ++i) {
        members += ",\"m" + std::to_string(i) + "\":1";
        elements += ",1";
    }
    const auto reader = std::find_if(fuzz::Readers().begin(), fuzz::Readers().end(),
                                     [](const Reader& one) { return one.name == "ParseStrtoTrafficCar"; });
    ASSERT_NE(reader, fuzz::Readers().end());
    // The last one leaves too little room for the members that are read.
    const std::string few = elements.substr(0, 2 * 220 - 1);
    for (const std::string& sent : {'{' + members + '}', "{\"Other\":{" + members + "}}",
                                    "{\"Other\":[" + elements + "]}", "{\"Other\":[" + few + "],\"Lane\":1}"}) {
        const long failures = FailEachOf(*reader, [&](Memory& memory) {
            jsonparser::MessageText source(sent);
            return reader->text(source.at(""), memory.get());
        });
        EXPECT_GE(failures, HAS_OWN_MALLOC != 0 ? 2 : 0) << sent.substr(0, 20);
    }
}

TEST_P(FailingAllocations, OfWritersAreSoftAndLeakNothing) {
    long failures = 0;
    for (const Writer& writer : fuzz::Writers()) {
        for (const char* bytes : {"\1", "x", "\xC2\xB7\1"}) {
            Memory memory(writer.source);
            memory.fill(bytes);
            failures += FailEach(
                writer.name,
                [&] {
                    Json::Value written;
                    writer.write(written, memory.get());
                },
                [](End) {}, [] {});
        }
    }
    std::printf("%ld allocations failed, one at a time\n", failures);
    EXPECT_GT(failures, 100);
}

TEST_P(FailingAllocations, OfConvertersThatTakeNoMessageAreNone) {
    // The C library takes memory for a zone that is new to it, and for one that TZ does not name at every call.
    const testing_tools::TimeZone zone("Asia/Shanghai");
    tzset();
    std::size_t conversions = 0;
    const auto expectNone = [&](std::string_view name, const std::function<void()>& convert) {
        const auto nothing = [](auto...) {};
        EXPECT_EQ(FailEach(name, convert, nothing, nothing), 0) << name;
        ++conversions;
    };
    for (const fuzz::TextReader& reader : fuzz::TextReaders()) {
        for (const std::string& text : TextsFor(reader)) {
            expectNone(reader.name, [&] {
                isConverting = false;
                std::string given = text;
                isConverting = true;
                reader.read(std::move(given));
            });
        }
    }
    for (const fuzz::NumberConverter& converter : fuzz::NumberConverters()) {
        for (const long number : NumbersFor(converter)) {
            expectNone(converter.name, [&] { converter.convert(number); });
        }
    }
    std::printf("%zu conversions without an allocation\n", conversions);
    EXPECT_GT(conversions, 100U);
}

// ---- the test itself

TEST(FailingAllocationsTest, SeesWhatThrowsByItselfAndWhatStays) {
    IsCalledBy(IsJsoncpp);
    const auto nothing = [](auto...) {};
    EXPECT_NONFATAL_FAILURE(FailEach(
                                "own", [] { const std::vector<int> own(4); }, nothing, nothing),
                            "throws by itself");
    int* block = nullptr;
    const auto leak = [&block] { block = new (std::nothrow) int; };
    EXPECT_NONFATAL_FAILURE(FailEach("block", leak, nothing, nothing), "leaks");
    delete block;
}

}  // namespace
}  // namespace reliability
