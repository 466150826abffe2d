// Text buffers for tests: of exactly so many bytes, prefilled, guarded.
#ifndef TESTS_TESTING_BUFFER_H
#define TESTS_TESTING_BUFFER_H

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace testing_tools {

/// size bytes of kFill between guard bytes. Guards that were written fail the test.
class Buffer {
  public:
    static constexpr char kFill = '\x5A';

    explicit Buffer(std::size_t size) : bytes_(kGuard + size + kGuard, kFill), size_(size) {}
    ~Buffer() { EXPECT_EQ(bytes_.substr(0, kGuard) + bytes_.substr(kGuard + size_), std::string(2 * kGuard, kFill)); }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;

    char* get() { return bytes_.data() + kGuard; }
    /// What stands before the terminator; a buffer without one fails the test.
    std::string text() const {
        const std::string whole = all();
        EXPECT_NE(whole.find('\0'), whole.npos) << "no terminator in " << size_ << " bytes";
        return whole.substr(0, whole.find('\0'));
    }
    /// All bytes.
    std::string all() const { return bytes_.substr(kGuard, size_); }
    bool untouched() const { return all() == std::string(size_, kFill); }

  private:
    static constexpr std::size_t kGuard = 16;

    std::string bytes_;
    std::size_t size_;
};

/// What a Buffer of size bytes holds behind a copy of text and a terminator.
inline std::string Holding(std::string_view text, std::size_t size) {
    std::string all(text);
    all += '\0';
    all.resize(size, Buffer::kFill);
    return all;
}

/// text in bytes of its own, without a terminator: reading past its end is seen by the address sanitizer.
class Unterminated {
  public:
    explicit Unterminated(std::string_view text) : bytes_(new char[text.size()]) {
        text.copy(bytes_.get(), text.size());
    }
    char* get() { return bytes_.get(); }

  private:
    std::unique_ptr<char[]> bytes_;
};

}  // namespace testing_tools

#endif
