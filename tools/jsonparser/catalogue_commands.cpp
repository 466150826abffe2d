#include "commands.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <climits>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue.h"
#include "console.h"
#include "record_form.h"
#include "record_name.h"
#include "style.h"
#include "suggestion.h"
#include "utf8.h"
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/vocabulary.h"
#include "vkrecords/fields.h"

namespace tool {
namespace {

std::string VocabularyAsText(const jsonparser::Vocabulary& vocabulary) {
    std::string text = fmt::format("{}: {}\n", StyleOf(stdout)(Style::kHeading, vocabulary.name), vocabulary.meaning);
    for (const jsonparser::Keyword& row : vocabulary) text += fmt::format("{:6}  {}\n", row.code, QuotedText(row.text));
    return text;
}

std::string VocabularyAsJson(const jsonparser::Vocabulary& vocabulary, bool first) {
    std::string rows;
    for (const jsonparser::Keyword& row : vocabulary) {
        rows +=
            fmt::format("{}{{\"code\": {}, \"text\": {}}}", rows.empty() ? "" : ", ", row.code, QuotedJson(row.text));
    }
    return fmt::format("{}\n  {{\"name\": {}, \"meaning\": {}, \"rows\": [{}]}}", first ? "" : ",",
                       QuotedJson(vocabulary.name), QuotedJson(vocabulary.meaning), rows);
}

/// A whole number of 32 bits, signed or unsigned: decimal, or hexadecimal after 0x. Nothing for any other text.
std::optional<unsigned> NumberOf32Bits(std::string_view text) {
    const bool isHex = text.starts_with("0x") || text.starts_with("0X");
    if (isHex) text.remove_prefix(2);
    if (isHex && text.starts_with('-')) return std::nullopt;
    long long number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, isHex ? 16 : 10);
    if (error != std::errc() || stop != end || number < INT_MIN || number > UINT_MAX) return std::nullopt;
    return static_cast<unsigned>(number);
}

}  // namespace

int ListRecords(bool json) {
    const Styler style = StyleOf(stdout);
    const char* separator = "[\n";
    for (const CatalogueEntry& entry : Catalogue()) {
        const char* ways = entry.decode == nullptr ? "encode" : entry.encode == nullptr ? "decode" : "decode, encode";
        if (json) {
            Print(fmt::format(R"({}  {{"name": {}, "size": {}, "decode": {}, "encode": {}, "meaning": {}}})", separator,
                              QuotedJson(entry.name), entry.layout->size, entry.decode != nullptr,
                              entry.encode != nullptr, QuotedJson(entry.meaning)));
            separator = ",\n";
        } else {
            Print(fmt::format("{} {:6} bytes  {:14}  {}\n", style(Style::kName, fmt::format("{:38}", entry.name)),
                              entry.layout->size, ways, entry.meaning));
        }
    }
    if (json) Print("\n]\n");
    return Flushed(kGood);
}

int ListKeywords(const std::optional<std::string>& table, bool json) {
    bool found = !table;
    std::string all;
    for (const jsonparser::Vocabulary& vocabulary : jsonparser::Vocabularies()) {
        if (table && Folded(vocabulary.name) != Folded(*table)) continue;
        found = true;
        all += json ? VocabularyAsJson(vocabulary, all.empty()) : VocabularyAsText(vocabulary);
    }
    if (!found) {
        std::vector<std::string> names;
        for (const jsonparser::Vocabulary& vocabulary : jsonparser::Vocabularies()) names.emplace_back(vocabulary.name);
        Complain(fmt::format("found {}, expected the name of a vocabulary{} (see: jsonparser keywords)",
                             QuotedText(*table), DidYouMean(*table, names)));
        return kUsage;
    }
    Print(json ? fmt::format("[{}\n]\n", all) : all);
    return Flushed(kGood);
}

int ListFields(const std::string& record, bool json) {
    // By its whole name any record will do, also one that stands only in others.
    const auto& layouts = vkrecords::AllLayouts::list;
    const auto named = std::find_if(std::begin(layouts), std::end(layouts),
                                    [&](const vkrecords::RecordLayout* layout) { return layout->name == record; });
    const vkrecords::RecordLayout* layout = named == std::end(layouts) ? nullptr : *named;
    if (layout == nullptr) {
        const CatalogueEntry* entry = EntryOf(record);
        if (entry == nullptr) return kUsage;
        layout = entry->layout;
    }
    Print(json ? LayoutAsJson(*layout) : LayoutAsText(*layout));
    return Flushed(kGood);
}

int MapErrorCode(const std::string& code, bool json) {
    const std::optional<unsigned> device = NumberOf32Bits(code);
    if (!device) {
        Complain(
            fmt::format("found {}, expected a device error code: -2147483648 to 4294967295, or 0x and hexadecimal "
                        "digits up to 0xFFFFFFFF",
                        QuotedText(code)));
        return kUsage;
    }
    unsigned library = 0;
    const bool known = ParseErrorCode(*device, library);
    // Replies carry the code as a signed number.
    const int sent = static_cast<int>(*device);
    if (json) {
        Print(fmt::format(R"({{"code": {}, "device": "0x{:08X}", "library": {}}})", sent, *device,
                          known ? fmt::format(R"("0x{:08X}")", library) : "null"));
        Print("\n");
    } else if (known) {
        Print(fmt::format("0x{:08X} ({}) -> 0x{:08X}\n", *device, sent, library));
    }
    if (!known) {
        Json::Value reply;
        reply["error"]["code"] = *device;
        Complain(fmt::format("0x{:08X} ({}): no known device error code, a reply with it reads as 0x{:08X}", *device,
                             sent, ParseErrorCode(reply)));
    }
    return Flushed(known ? kGood : kFindings);
}

}  // namespace tool
