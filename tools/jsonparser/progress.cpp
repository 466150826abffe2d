#include "progress.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "style.h"

namespace tool {
namespace {

constexpr std::chrono::milliseconds kDelay(1000);
constexpr std::chrono::milliseconds kInterval(100);

bool isShown = false;

/// Bytes with three digits or so: 1.50 GB.
std::string Size(double bytes) {
    static constexpr const char* kUnits[] = {"B", "kB", "MB", "GB", "TB", "PB", "EB"};
    std::size_t unit = 0;
    for (; bytes >= 999.5 && unit + 1 < std::size(kUnits); ++unit) bytes /= 1000;
    const int decimals = unit == 0 || bytes >= 99.95 ? 0 : bytes >= 9.995 ? 1 : 2;
    return fmt::format("{:.{}f} {}", bytes, decimals, kUnits[unit]);
}

std::string Duration(double seconds) {
    const auto whole = static_cast<std::uint64_t>(std::llround(seconds));
    if (whole < 3600) return fmt::format("{}:{:02}", whole / 60, whole % 60);
    return fmt::format("{}:{:02}:{:02}", whole / 3600, whole / 60 % 60, whole % 60);
}

}  // namespace

Progress::Progress(const char* unit, std::optional<std::uint64_t> total)
    : unit_(unit), total_(total), isWanted_(IsTerminal(stderr) && isatty(STDOUT_FILENO) == 0), due_(begin_ + kDelay) {}

Progress::~Progress() { HideProgress(); }

void Progress::advance(std::uint64_t bytes, std::uint64_t count) {
    bytes_ += bytes;
    count_ += count;
    if (!isWanted_) return;
    const Clock::time_point now = Clock::now();
    if (now < due_) return;
    due_ = now + kInterval;
    const double seconds = std::chrono::duration<double>(now - begin_).count();
    // From the line's beginning; what was there before is cleared to its end.
    const std::string counted = fmt::format("{} {}", count_, unit_);
    std::fprintf(stderr, "\r%s\x1b[K", ProgressText(bytes_, counted, seconds, total_).c_str());
    isShown = true;
}

void HideProgress() {
    if (isShown) std::fputs("\r\x1b[K", stderr);
    isShown = false;
}

std::string ProgressText(std::uint64_t bytes, std::string_view counted, double seconds,
                         std::optional<std::uint64_t> total) {
    const double done = static_cast<double>(bytes);
    const double rate = done / seconds;
    std::string text = fmt::format("{}, {}, {}/s", counted, Size(done), Size(rate));
    if (!total || bytes == 0) return text;
    // A file may grow while it is read.
    const double all = static_cast<double>(std::max(bytes, *total));
    return fmt::format("{:3.0f} %  {}, {} left", 100 * done / all, text, Duration((all - done) / rate));
}

std::optional<std::uint64_t> TotalBytes(const std::vector<std::string>& files) {
    std::uint64_t total = 0;
    for (const std::string& file : files) {
        struct stat status = {};
        const bool isInput = file == "-";
        if ((isInput ? fstat(STDIN_FILENO, &status) : stat(file.c_str(), &status)) != 0 || !S_ISREG(status.st_mode)) {
            return std::nullopt;
        }
        const off_t behind = isInput ? std::max<off_t>(lseek(STDIN_FILENO, 0, SEEK_CUR), 0) : 0;
        total += static_cast<std::uint64_t>(std::max<off_t>(status.st_size - behind, 0));
    }
    return total;
}

}  // namespace tool
