// How far a long run is, for people at a terminal.
#ifndef TOOLS_JSONPARSER_PROGRESS_H
#define TOOLS_JSONPARSER_PROGRESS_H

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// One line on standard error: share, rate and time left. It comes after a second, and only where standard error is a
/// terminal and standard output is not: there, results would run through it.
class Progress {
  public:
    /// @param unit what is counted beside bytes, in the plural; stays where it is
    /// @param total bytes of input; nothing when that is not known
    Progress(const char* unit, std::optional<std::uint64_t> total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void advance(std::uint64_t bytes, std::uint64_t count);

  private:
    using Clock = std::chrono::steady_clock;

    const char* const unit_;
    const std::optional<std::uint64_t> total_;
    const bool isWanted_;
    const Clock::time_point begin_ = Clock::now();
    Clock::time_point due_;
    std::uint64_t bytes_ = 0;
    std::uint64_t count_ = 0;
};

/// Clears the line of a progress that is shown, for something else to be printed; the next advance may bring it back.
void HideProgress();

/// The line that Progress shows, seconds (more than 0) after the beginning.
/// @param counted the number of units done, and the unit
std::string ProgressText(std::uint64_t bytes, std::string_view counted, double seconds,
                         std::optional<std::uint64_t> total);

/// Bytes of input that the files have left; nothing when one of them is no regular file. "-" is standard input.
std::optional<std::uint64_t> TotalBytes(const std::vector<std::string>& files);

}  // namespace tool

#endif
