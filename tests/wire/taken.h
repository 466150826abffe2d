// What the pass over a text takes down of it.
#ifndef TESTS_WIRE_TAKEN_H
#define TESTS_WIRE_TAKEN_H

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "vkprotocolstack/wire/text_pass.h"

namespace testing_tools {

/// The whole of a text.
class Taken {
  public:
    explicit Taken(std::string text, std::size_t maxDepth = 128,
                   jsonparser::TextType plainText = jsonparser::TextType::Text,
                   const jsonparser::NameIndex* expected = nullptr)
        : text_(std::move(text)) {
        pass_.begin = pass_.stop = text_.data();
        pass_.end = pass_.begin + text_.size();
        pass_.maxDepth = maxDepth;
        pass_.plainText = plainText;
        pass_.expected = expected;
        pass_.tape = &tape_;
        accepted_ = jsonparser::RunTextPass(pass_);
    }

    bool accepted() const { return accepted_; }
    const jsonparser::TextPass& pass() const { return pass_; }
    /// Of a text that is accepted. A number, a word or null by itself is not.
    const jsonparser::TextEntry& root() const {
        EXPECT_TRUE(accepted_ && pass_.part != nullptr) << text_;
        return *pass_.part;
    }

    /// The first element of a text that is an array.
    const jsonparser::TextEntry& first() const { return *root().first(); }

  private:
    std::string text_;
    jsonparser::TextTape tape_{nullptr, 0};
    jsonparser::TextPass pass_{};
    bool accepted_;
};

}  // namespace testing_tools

#endif
