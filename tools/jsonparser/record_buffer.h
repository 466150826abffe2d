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

    /// Lends the text, terminated, to a field of the record of that layout at bytes, and states its size in the length
    /// field, as far as that can say.
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
