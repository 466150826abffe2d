// JSON values for tests.
#ifndef TESTS_TESTING_JSON_H
#define TESTS_TESTING_JSON_H

#include <json/value.h>

#include <string>
#include <string_view>
#include <vector>

namespace testing_tools {

/// The value that the text stands for; a text that is no JSON fails the test and gives null.
Json::Value Json(const std::string& text);

/// value as compact JSON in UTF-8, members in the order of their names.
std::string Text(const Json::Value& value);

/// The names and indexes of a JSON pointer, its escapes resolved.
std::vector<std::string> Steps(std::string_view pointer);

/// The value to which a JSON pointer leads, for putting another there. Members that are missing are added.
Json::Value& At(Json::Value& root, std::string_view pointer);

/// Values of every JSON type, at the borders of every number type, with empty, long, badly encoded and deeply nested
/// ones among them: what a reader may be given anywhere.
const std::vector<Json::Value>& HostileValues();

}  // namespace testing_tools

#endif
