// Memory for a record of any layout.
#ifndef TOOLS_JSONPARSER_RECORD_BUFFER_H
#define TOOLS_JSONPARSER_RECORD_BUFFER_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string_view>
#include <vector>

#include "vkrecords/fields.h"

namespace tool {

/// The most that the length field of a caller's buffer can say.
inline constexpr std::size_t kMaximumLength = 255;

/// The field with the size of a caller's buffer.
const vkrecords::Field& LengthField(const vkrecords::RecordLayout& layout, const vkrecords::Field& field);

/// A cleared record that releases its heap texts when it goes, and keeps the buffers that a record's caller lends it.
class RecordBuffer {
  public:
    explicit RecordBuffer(const vkrecords::RecordLayout& layout);
    ~RecordBuffer();
    RecordBuffer(const RecordBuffer&) = delete;
    RecordBuffer& operator=(const RecordBuffer&) = delete;

    const vkrecords::RecordLayout& layout() const { return layout_; }
    unsigned char* bytes() { return reinterpret_cast<unsigned char*>(words_.data()); }

    /// Lends a zeroed buffer to every field of the record that takes one, as large as its length field can say.
    void lendBuffers();

    /// Lends the text, zeros behind it as far as any length field can say, to a field of the record of that layout at
    /// bytes. States in the length field the size of the text with a terminator, as far as that can say.
    void lendText(const vkrecords::RecordLayout& layout, unsigned char* bytes, const vkrecords::Field& field,
                  std::string_view text);

  private:
    void lendBuffers(const vkrecords::RecordLayout& layout, unsigned char* bytes);

    const vkrecords::RecordLayout& layout_;
    std::vector<std::uint64_t> words_;  // aligned for any record
    std::deque<std::vector<char>> lent_;
};

}  // namespace tool

#endif
