// Every converter of the library, to be called with memory of any content.
#ifndef FUZZ_CONVERTERS_H
#define FUZZ_CONVERTERS_H

#include <json/value.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vkprotocolstack/message_text.h"
#include "vkrecords/fields.h"

namespace fuzz {

/// What a reader fills, or a writer takes.
struct Target {
    std::size_t size;
    std::size_t alignment;
    const vkrecords::RecordLayout* layout;  ///< null when it is no record
};

struct Reader {
    std::string_view name;
    std::string_view members;  ///< names that it asks for, in its order; "[]" for one that reads an array
    Target target;
    /// @return what the reader returns, 0 for nothing
    long long (*value)(Json::Value& node, void* target);
    long long (*text)(const jsonparser::MessagePlace& place, void* target);
    /// Does what the reader is to do with a message that is not accepted.
    long long (*refused)(void* target);
};

struct Writer {
    std::string_view name;
    Target source;
    /// Bytes that break the contract, such as a count beyond an array, are mended first. @return what the writer
    /// returns
    long long (*write)(Json::Value& node, void* source);
};

/// A reader of a text that is in no message.
struct TextReader {
    std::string_view name;
    std::string_view known;  ///< a text that it gives another result for than for one that it does not know
    long long (*read)(std::string text);
};

/// A converter of a number, or two of which one takes what the other gives.
struct NumberConverter {
    std::string_view name;
    long known;  ///< as for texts
    long long (*convert)(long number);
};

std::span<const Reader> Readers();
std::span<const Writer> Writers();
std::span<const TextReader> TextReaders();
std::span<const NumberConverter> NumberConverters();

/// Memory for a target between guard bytes, at an address that is placement modulo 8, filled with a pattern. Its
/// pointers are null or, where a record takes buffers of its caller, lead to buffers of the sizes that it states. What
/// it owns is released when it goes.
class Memory {
  public:
    explicit Memory(const Target& target, std::size_t placement = 0);
    ~Memory();
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    unsigned char* get() const { return bytes_.get() + kGuard + placement_; }

    /// Fills it anew, with bytes over and over; none stand for the pattern.
    void fill(std::string_view bytes);

    /// All bytes, with nulls in place of pointers, and the texts that these lead to.
    std::string contents() const;

    /// Whether nothing was written outside.
    bool guardsIntact();

  private:
    static constexpr std::size_t kGuard = 64;

    std::size_t whole() const { return kGuard + 8 + target_.size + kGuard; }
    void hideGuards(bool hidden);
    void lend(const vkrecords::RecordLayout& layout, unsigned char* record);

    Target target_;
    std::size_t placement_;
    std::unique_ptr<unsigned char[]> bytes_;
    std::vector<std::vector<char>> buffers_;
};

}  // namespace fuzz

#endif
