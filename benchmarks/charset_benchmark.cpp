// What texts of records cost, between UTF-8 and the local encoding.

#include <benchmark/benchmark.h>
#include <json/value.h>
#include <locale.h>

#include <cstdlib>
#include <cstring>
#include <vector>

#include "vkprotocolstack/JsonParser.h"

namespace {

constexpr const char* kTexts[] = {"AD12345", "京A·D12345", "中山路与解放路交叉口"};

/// The locale that a benchmark's second argument stands for, on its thread.
class Locale {
  public:
    explicit Locale(benchmark::State& state) {
        setenv("LOCPATH", JSONPARSER_LOCALES, 1);
        locale_ = newlocale(LC_ALL_MASK, state.range(1) == 0 ? "de_DE.UTF-8" : "zh_CN.GBK", nullptr);
        previous_ = uselocale(locale_);
        if (locale_ == nullptr) state.SkipWithError("the locale is missing");
        state.SetLabel(std::string(kTexts[state.range(0)]) + (state.range(1) == 0 ? ", UTF-8" : ", GBK"));
    }
    ~Locale() {
        uselocale(previous_);
        if (locale_ != nullptr) freelocale(locale_);
    }

  private:
    locale_t locale_;
    locale_t previous_;
};

void ReadField(benchmark::State& state) {
    const Locale locale(state);
    const Json::Value value = kTexts[state.range(0)];
    char field[64];
    for (auto _ : state) {
        GetJsonString(value, field, sizeof field, true);
        benchmark::DoNotOptimize(field);
    }
}

void ReadThroughTemporary(benchmark::State& state) {
    const Locale locale(state);
    const Json::Value value = kTexts[state.range(0)];
    char field[65];
    for (auto _ : state) {
        parseUtf8JasonToAssic(value, field, 64);
        benchmark::DoNotOptimize(field);
    }
}

void WriteField(benchmark::State& state) {
    const Locale locale(state);
    std::vector<char> text(std::strlen(kTexts[state.range(0)]) + 1);
    GetJsonString(kTexts[state.range(0)], text.data(), static_cast<int>(text.size()), true);
    Json::Value value;
    for (auto _ : state) {
        SetJsonString(value, text.data(), true);
        benchmark::DoNotOptimize(value);
    }
}

BENCHMARK(ReadField)->ArgsProduct({
    {0, 1, 2},
    {0, 1 }
});
BENCHMARK(ReadThroughTemporary)
    ->ArgsProduct({
        {0, 1, 2},
        {0, 1 }
});
BENCHMARK(WriteField)
    ->ArgsProduct({
        {0, 1, 2},
        {0, 1 }
});

}  // namespace
