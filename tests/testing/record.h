// Records for tests: placed, prefilled, guarded.
#ifndef TESTS_TESTING_RECORD_H
#define TESTS_TESTING_RECORD_H

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "vkprotocolstack/JsonParser.h"
#include "vkrecords/fields.h"

namespace testing_tools {

/// What a prefilled record is filled with.
inline constexpr unsigned char kPattern = 0xA5;

/// Names of the fields in which a record differs from the pattern, "nested.field" in nested records, "field[i]" in
/// arrays of records, "(padding)" for bytes of no field.
std::vector<std::string> ChangedFields(const vkrecords::RecordLayout& layout, const void* record);

/// A record between guard bytes, filled with the pattern, at an address that is placement modulo 8. Test packed records
/// at 0 and at 4: either alone hides what the other shows. Guards that were written fail the test.
template <class Record>
class Placed {
  public:
    explicit Placed(std::size_t placement = 0)
        : bytes_(new unsigned char[kGuard + 8 + sizeof(Record) + kGuard]), offset_(kGuard + placement) {
        std::memset(bytes_.get(), kPattern, size());
    }
    ~Placed() { EXPECT_TRUE(guardsIntact()) << "written outside " << vkrecords::kLayout<Record>.name; }
    Placed(const Placed&) = delete;
    Placed& operator=(const Placed&) = delete;

    Record& operator*() { return *get(); }
    Record* operator->() { return get(); }
    Record* get() { return reinterpret_cast<Record*>(bytes_.get() + offset_); }
    unsigned char* bytes() { return bytes_.get() + offset_; }

    /// Sets every byte of the record to zero.
    void clear() { std::memset(bytes(), 0, sizeof(Record)); }
    std::vector<std::string> changedFields() { return ChangedFields(vkrecords::kLayout<Record>, bytes()); }

  private:
    static constexpr std::size_t kGuard = 64;

    std::size_t size() const { return kGuard + 8 + sizeof(Record) + kGuard; }
    bool guardsIntact() const {
        for (std::size_t i = 0; i < size(); ++i) {
            const bool inside = i >= offset_ && i < offset_ + sizeof(Record);
            if (!inside && bytes_[i] != kPattern) return false;
        }
        return true;
    }

    std::unique_ptr<unsigned char[]> bytes_;  // new aligns it for any record
    std::size_t offset_;
};

/// Names of fields, for comparing with changedFields.
using Fields = std::vector<std::string>;

}  // namespace testing_tools

#endif
