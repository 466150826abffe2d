#include "lines.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <malloc.h>
#include <poll.h>
#include <tbb/global_control.h>
#include <tbb/info.h>
#include <tbb/parallel_pipeline.h>
#include <tbb/task_arena.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <utility>

#include "commands.h"
#include "console.h"
#include "finding.h"
#include "input.h"
#include "progress.h"

namespace tool {
namespace {

std::string_view WithoutReturn(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

bool IsBlank(std::string_view line) { return line.find_first_not_of(" \t\r") == line.npos; }

}  // namespace

LineReader::LineReader(std::vector<std::string> files, std::size_t maximumLine, BatchLimits limits)
    : files_(std::move(files)), maximumLine_(maximumLine), limits_(limits) {}

LineReader::~LineReader() { close(); }

std::unique_ptr<Batch> LineReader::next() {
    for (; file_ < files_.size(); close(), ++file_) {
        if (!isOpen_) open();
        std::size_t count = 0;     // lines of the batch
        std::size_t bytes = 0;     // of these lines
        std::size_t searched = 0;  // bytes without a line end, behind these lines
        bool isLong = false;
        while (true) {
            const std::string_view rest = pending().substr(bytes);
            const std::size_t end = rest.find('\n', searched);
            const bool isWhole = end != rest.npos;
            searched = isWhole ? end : rest.size();
            const bool hasReturn = rest.substr(0, searched).ends_with('\r');  // its line end may come next
            if (searched > maximumLine_ + (hasReturn ? 1 : 0)) {
                if (count > 0) break;
                return withoutLine();
            }
            if (isWhole || (hasEnded_ && !rest.empty())) {
                if (searched > limits_.longLine && count > 0) break;
                isLong = searched > limits_.longLine;
                ++count;
                bytes += isWhole ? end + 1 : rest.size();
                searched = 0;
                if (count == limits_.lines || bytes >= limits_.bytes || isLong) break;
                continue;
            }
            if (hasEnded_ || (count > 0 && !inputIsReady())) break;
            fill();
        }
        const std::string_view encoding = line_ == 1 ? ForeignEncoding(pending().substr(0, 4)) : "";
        if (!encoding.empty()) return foreign(encoding);
        if (count > 0) {
            std::unique_ptr<Batch> batch = lines(count, bytes);
            batch->isLong = isLong;
            return batch;
        }
        if (error_ != 0) return unreadable();
    }
    return nullptr;
}

void LineReader::open() {
    const std::string& file = files_[file_];
    descriptor_ = file == "-" ? STDIN_FILENO : ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    error_ = descriptor_ < 0 ? errno : 0;
    hasEnded_ = error_ != 0;
    isOpen_ = true;
    buffer_.clear();
    begin_ = 0;
    line_ = 1;
}

void LineReader::close() {
    if (isOpen_ && descriptor_ > STDIN_FILENO) ::close(descriptor_);
    isOpen_ = false;
}

/// Whether a read would not wait.
bool LineReader::inputIsReady() const {
    pollfd descriptor = {.fd = descriptor_, .events = POLLIN, .revents = 0};
    return poll(&descriptor, 1, 0) > 0;
}

/// Reads what there is, at least a byte unless the file ends.
void LineReader::fill() {
    buffer_.erase(0, std::exchange(begin_, 0));
    const std::size_t before = buffer_.size();
    buffer_.resize(before + limits_.readBytes);
    ssize_t got = 0;
    do {
        got = read(descriptor_, buffer_.data() + before, limits_.readBytes);
    } while (got < 0 && errno == EINTR);
    error_ = got < 0 ? errno : 0;
    hasEnded_ = got <= 0;
    buffer_.resize(before + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
}

std::unique_ptr<Batch> LineReader::batch() const {
    auto batch = std::make_unique<Batch>();
    batch->file = files_[file_];
    batch->firstLine = line_;
    return batch;
}

/// The next lines, which are in the buffer.
std::unique_ptr<Batch> LineReader::lines(std::size_t count, std::size_t bytes) {
    std::unique_ptr<Batch> taken = batch();
    taken->text = pending().substr(0, bytes);
    taken->bytes = bytes;
    begin_ += bytes;
    line_ += count;
    return taken;
}

/// Passes over a line that is too long, which need not be in the buffer as a whole.
std::unique_ptr<Batch> LineReader::withoutLine() {
    std::unique_ptr<Batch> passed = batch();
    passed->lines = passed->bad = 1;
    passed->findings =
        Complaint(fmt::format("{}:{}: found a line of more than {} bytes, expected at most that many (see --max-size)",
                              FileName(passed->file), line_, maximumLine_));
    std::size_t end = 0;
    while ((end = pending().find('\n')) == std::string_view::npos && !hasEnded_) {
        passed->bytes += pending().size();
        begin_ = buffer_.size();
        fill();
    }
    end = std::min(end, pending().size() - 1) + 1;
    passed->bytes += end;
    begin_ += end;
    ++line_;
    return passed;
}

/// Leaves a file that cannot be read, or not on from here.
std::unique_ptr<Batch> LineReader::unreadable() {
    std::unique_ptr<Batch> failed = batch();
    failed->isUnreadable = true;
    failed->findings = Complaint(fmt::format("{}: cannot be read: {}", FileName(failed->file), std::strerror(error_)));
    close();
    ++file_;
    return failed;
}

/// Leaves a file that is not UTF-8, of which no line would be one.
std::unique_ptr<Batch> LineReader::foreign(std::string_view encoding) {
    std::unique_ptr<Batch> passed = batch();
    passed->lines = passed->bad = 1;
    passed->findings = Complaint(fmt::format("{}: found {}, expected UTF-8", FileName(passed->file), encoding));
    close();
    ++file_;
    return passed;
}

void Convert(Batch& batch, const LineFunction& function) {
    std::string_view rest = batch.text;
    for (LinePlace place = {batch.file, batch.firstLine}; !rest.empty(); ++place.number) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = WithoutReturn(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (IsBlank(line)) continue;
        ++batch.lines;
        if (function.attempt && function.attempt(line, batch.output)) continue;
        batch.isLeft = batch.isLong;
        if (!batch.isLeft && !function.convert(place, line, batch.output, batch.findings)) ++batch.bad;
    }
}

void ConvertLeft(Batch& batch, const LineFunction& function) {
    if (!std::exchange(batch.isLeft, false)) return;
    std::string_view line = batch.text;
    if (line.ends_with('\n')) line.remove_suffix(1);
    const LinePlace place = {batch.file, batch.firstLine};
    if (!function.convert(place, WithoutReturn(line), batch.output, batch.findings)) ++batch.bad;
}

void ConvertBatches(LineReader& reader, unsigned jobs, const LineFunction& function,
                    const std::function<bool(const Batch& batch)>& use) {
    std::atomic<bool> wantsMore = true;
    const auto cut = [&](tbb::flow_control& control) -> std::shared_ptr<Batch> {
        std::shared_ptr<Batch> batch = wantsMore ? reader.next() : nullptr;
        if (batch == nullptr) control.stop();
        return batch;
    };
    const auto convert = [&](std::shared_ptr<Batch> batch) {
        Convert(*batch, function);
        return batch;
    };
    const auto give = [&](const std::shared_ptr<Batch>& batch) {
        if (!wantsMore) return;
        const bool isLarge = batch->isLeft;
        ConvertLeft(*batch, function);
        wantsMore = use(*batch);
        // Else each thread would keep what the largest tree that it ever had took.
        if (isLarge) malloc_trim(0);
    };
    const std::size_t threads = jobs > 0 ? jobs : static_cast<unsigned>(tbb::info::default_concurrency());
    const tbb::global_control control(tbb::global_control::max_allowed_parallelism, threads);
    constexpr auto kOrdered = tbb::filter_mode::serial_in_order;
    // An arena of its own, since the common one has no place for more threads than cores.
    tbb::task_arena arena(static_cast<int>(threads));
    arena.execute([&] {
        tbb::parallel_pipeline(2 * threads, tbb::make_filter<void, std::shared_ptr<Batch>>(kOrdered, cut) &
                                                tbb::make_filter<std::shared_ptr<Batch>, std::shared_ptr<Batch>>(
                                                    tbb::filter_mode::parallel, convert) &
                                                tbb::make_filter<std::shared_ptr<Batch>, void>(kOrdered, give));
    });
}

int ConvertLines(const std::vector<std::string>& files, std::size_t maximumLine, unsigned jobs,
                 const LineFunction& function) {
    LineReader reader(files, maximumLine);
    Progress progress("lines", TotalBytes(files));
    std::size_t lines = 0;
    std::size_t bad = 0;
    int code = kGood;
    ConvertBatches(reader, jobs, function, [&](const Batch& batch) {
        Print(batch.output);
        const bool isWritable = Flush();
        PrintError(batch.findings);
        lines += batch.lines;
        bad += batch.bad;
        if (batch.isUnreadable) code = kCannotReadOrWrite;
        progress.advance(batch.bytes, batch.lines);
        return isWritable;
    });
    if (bad > 0) Complain(fmt::format("{} of {} lines are bad", bad, lines));
    return Flushed(std::max(code, bad > 0 ? int{kFindings} : int{kGood}));
}

}  // namespace tool
