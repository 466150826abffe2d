#include "vkprotocolstack/wire/text_pass.h"

#include <atomic>
#include <charconv>

namespace jsonparser {
namespace {

using Run = bool (*)(TextPass& pass);

Run RunnerOf(TextPassForm form) {
    switch (form) {
        case TextPassForm::Plain:
            return RunPlainTextPass;
#if defined(__x86_64__)
        case TextPassForm::Sse2:
            return RunSse2TextPass;
        case TextPassForm::Avx2:
            if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2") &&
                __builtin_cpu_supports("pclmul")) {
                return RunAvx2TextPass;
            }
            return nullptr;
#endif
        default:
            return nullptr;
    }
}

bool ChooseAndRun(TextPass& pass);

constinit std::atomic<Run> runner = ChooseAndRun;

bool ChooseAndRun(TextPass& pass) {
    if (!UseTextPassForm(TextPassForm::Avx2) && !UseTextPassForm(TextPassForm::Sse2)) {
        UseTextPassForm(TextPassForm::Plain);
    }
    return RunTextPass(pass);
}

}  // namespace

TextStep TakeStep(std::string_view& pointer) {
    pointer.remove_prefix(1);
    const std::string_view name = pointer.substr(0, pointer.find('/'));
    pointer.remove_prefix(name.size());
    TextStep step{name.data(), name.size(), name.find('~') != name.npos, TextStep::kNoIndex};
    const bool isIndex = !name.empty() && name.size() < 10 && (name.front() != '0' || name.size() == 1);
    if (!isIndex || name.find_first_not_of("0123456789") != name.npos) return step;
    step.index = 0;
    for (const char digit : name) step.index = step.index * 10 + static_cast<std::size_t>(digit - '0');
    return step;
}

bool IsStepTo(const TextStep& step, const char* name, std::size_t size) {
    if (!step.escaped) return std::string_view(step.name, step.size) == std::string_view(name, size);
    std::size_t i = 0;
    for (std::size_t j = 0; j < step.size; ++j, ++i) {
        char byte = step.name[j];
        if (byte == '~' && j + 1 < step.size && (step.name[j + 1] == '0' || step.name[j + 1] == '1')) {
            byte = step.name[++j] == '0' ? '~' : '/';
        }
        if (i == size || name[i] != byte) return false;
    }
    return i == size;
}

double RealOf(const char* begin, const char* end) {
    double value = 0;
    std::from_chars(begin, end, value);
    return value;
}

bool RunTextPass(TextPass& pass) { return runner.load(std::memory_order_relaxed)(pass); }

bool UseTextPassForm(TextPassForm form) {
    const Run run = RunnerOf(form);
    if (run != nullptr) runner.store(run, std::memory_order_relaxed);
    return run != nullptr;
}

void UseBestTextPassForm() { runner.store(ChooseAndRun, std::memory_order_relaxed); }

}  // namespace jsonparser
