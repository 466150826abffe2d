// Telling an observer what an operation of a node did. All of it is off the unobserved road.
#ifndef VKPROTOCOLSTACK_WIRE_REPORT_H
#define VKPROTOCOLSTACK_WIRE_REPORT_H

#include <json/value.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "vkprotocolstack/wire/keywords.h"
#include "vkprotocolstack/wire/observer.h"

namespace jsonparser {

/// What became of a value.
struct Became {
    Outcome outcome;
    std::string remark;
    std::string expected;
};

/// One operation on one node.
class Report {
  public:
    explicit Report(const Trail& trail) : trail_(trail), value_(trail.value().address()) { trail.use(); }

    [[gnu::cold]] void test(std::string_view operation, bool passed) const;
    [[gnu::cold]] void size(std::size_t size) const;
    /// The bytes that a text was said to take.
    [[gnu::cold]] void textSize(int limit, int size) const;

    /// A number that was read, plus added. Its type is that of the conversion: narrow ones keep low bits.
    template <class Number>
    [[gnu::cold]] void number(std::string_view operation, Number result, int added = 0) const;

    // ---- what became of texts; fields hold local text
    [[gnu::cold]] void rawText(std::size_t count, const char* field) const;
    /// field is null when nothing was written.
    [[gnu::cold]] void utf8Text(int limit, const char* field) const;
    [[gnu::cold]] void string(int size, const char* field) const;
    [[gnu::cold]] void rendered(int size, const char* field) const;
    /// The same in memory of as many bytes as it takes; buffer is null when that could not be had.
    [[gnu::cold]] void heapUtf8(const char* buffer) const;
    [[gnu::cold]] void heapString(const char* buffer) const;

    [[gnu::cold]] void scan(std::string_view format, std::size_t converted, std::size_t wanted) const;

    // ---- tables; isText says that only texts are looked up
    [[gnu::cold]] void keyword(std::string_view operation, bool isText, Keywords table, const Keyword* row,
                               int code) const;
    [[gnu::cold]] void place(std::string_view operation, std::span<const std::string> table, int place,
                             bool found) const;
    [[gnu::cold]] void place(std::string_view operation, std::span<const unsigned> table, int place, bool found) const;
    /// A device's code as the library's; known says that the device's is in the table.
    [[gnu::cold]] void errorCode(unsigned code, bool known) const;

  private:
    void converted(std::string_view operation, std::string result, Became became) const;
    bool isNull() const { return value_ == nullptr || value_->isNull(); }
    bool isContainer() const { return value_ != nullptr && (value_->isArray() || value_->isObject()); }
    std::string text() const;
    Became textBecame(bool onlyTexts, std::size_t taken, std::size_t whole, std::size_t limit) const;
    std::size_t replacedIn(std::string_view local) const;

    const Trail& trail_;
    const Json::Value* value_;  ///< null when it is missing
};

/// The shortest digits that read back as the same number, with a point or an exponent.
std::string Digits(double number);
std::string Digits(float number);

/// Local text as a JSON text in UTF-8.
std::string QuotedLocal(const char* text);

}  // namespace jsonparser

#endif
