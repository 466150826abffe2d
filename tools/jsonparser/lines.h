// One message a line (NDJSON): converted on all cores, in the order of the lines, in constant memory.
#ifndef TOOLS_JSONPARSER_LINES_H
#define TOOLS_JSONPARSER_LINES_H

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// How input is cut into what one thread converts at one go.
struct BatchLimits {
    std::size_t lines = 64;                          ///< of a batch, at most
    std::size_t bytes = std::size_t{64} << 10U;      ///< that end a batch behind the line that reaches them
    std::size_t longLine = std::size_t{16} << 10U;   ///< a line of more bytes is a batch of its own, and only one at a
                                                     ///< time is converted at any cost
    std::size_t readBytes = std::size_t{64} << 10U;  ///< that are read at one go
};

/// The most threads that can be asked for.
inline constexpr unsigned kMostJobs = 256;

/// Where a line is.
struct LinePlace {
    const std::string& file;
    std::size_t number;  ///< from 1
};

/// Converts one line, which has no line end and is not blank. Called on many threads at once.
struct LineFunction {
    /// The way of sound lines, which takes memory of a few times the line at most: appends a line to output. False,
    /// with nothing appended, when the line is for convert. May be null.
    std::function<bool(std::string_view line, std::string& output)> attempt;

    /// The way of all lines, which may take a hundred times the line: appends a line to output, or lines that say why
    /// not to findings.
    /// @return whether there was nothing to find
    std::function<bool(LinePlace place, std::string_view line, std::string& output, std::string& findings)> convert;
};

/// Consecutive lines of a file, and what became of them.
struct Batch {
    std::string file;  ///< "-" is standard input
    std::size_t firstLine = 0;
    std::string text;       ///< whole lines with their ends, which the last line of a file may lack
    std::size_t bytes = 0;  ///< of input that this batch accounts for
    bool isLong = false;    ///< one line of more than BatchLimits::longLine bytes

    std::string output;         ///< for standard output
    std::string findings;       ///< for standard error
    std::size_t lines = 0;      ///< that are not blank
    std::size_t bad = 0;        ///< of these
    bool isLeft = false;        ///< long, and still to be converted
    bool isUnreadable = false;  ///< the file cannot be read, or not on from here; findings has the reason
};

/// Cuts files into batches. A batch ends where no more input is ready, so that nobody waits for lines to come.
class LineReader {
  public:
    LineReader(std::vector<std::string> files, std::size_t maximumLine, BatchLimits limits = {});
    ~LineReader();
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    /// The next lines; null behind the last file.
    std::unique_ptr<Batch> next();

  private:
    void open();
    void close();
    bool inputIsReady() const;
    void fill();
    std::unique_ptr<Batch> batch() const;
    std::unique_ptr<Batch> lines(std::size_t count, std::size_t bytes);
    std::unique_ptr<Batch> withoutLine();
    std::unique_ptr<Batch> unreadable();
    std::unique_ptr<Batch> foreign(std::string_view encoding);
    std::string_view pending() const { return std::string_view(buffer_).substr(begin_); }

    const std::vector<std::string> files_;
    const std::size_t maximumLine_;
    const BatchLimits limits_;
    std::size_t file_ = 0;  ///< that is read, or opened next
    int descriptor_ = -1;
    bool isOpen_ = false;
    bool hasEnded_ = false;
    int error_ = 0;  ///< that ended the file before its end
    std::string buffer_;
    std::size_t begin_ = 0;  ///< of what is not yet taken from the buffer
    std::size_t line_ = 1;   ///< number of the line that begins there
};

/// Converts the lines of a batch, on the calling thread. A long one that cannot be attempted is left.
void Convert(Batch& batch, const LineFunction& function);

/// Converts the line that Convert left. Where this is called one batch at a time, long lines take no more memory on
/// many threads than on one.
void ConvertLeft(Batch& batch, const LineFunction& function);

/// Converts all that reader gives. Every batch goes to use with what became of it, in their order; use says whether it
/// wants more.
/// @param jobs threads, kMostJobs at most; 0 is one for each core
void ConvertBatches(LineReader& reader, unsigned jobs, const LineFunction& function,
                    const std::function<bool(const Batch& batch)>& use);

/// Converts all lines of the files ("-" is standard input), prints what they become to standard output, and complains
/// about the bad ones, in their order.
/// @param maximumLine bytes of a line, without its end
/// @param jobs threads, kMostJobs at most; 0 is one for each core
/// @return the exit code
int ConvertLines(const std::vector<std::string>& files, std::size_t maximumLine, unsigned jobs,
                 const LineFunction& function);

}  // namespace tool

#endif
