#include "vkprotocolstack/explain.h"

#include <json/writer.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <map>
#include <unordered_map>
#include <utility>

#include "vkprotocolstack/wire/nearest.h"
#include "vkprotocolstack/wire/observer.h"
#include "vkprotocolstack/wire/report.h"

namespace jsonparser {
namespace {

constexpr std::string_view kOutcomeNames[] = {"kept",       "default", "left",          "cut",      "full",
                                              "replaced",   "wrapped", "limited",       "fraction", "unknown keyword",
                                              "wrong type", "refused", "not converted", "unread"};
static_assert(std::size(kOutcomeNames) == static_cast<std::size_t>(Outcome::kUnread) + 1);

bool IsPresent(const Json::Value* value) { return value != nullptr && !value->isNull(); }

std::string_view TypeOf(const Json::Value* value) {
    if (value == nullptr) return "missing";
    switch (value->type()) {
        case Json::intValue:
        case Json::uintValue:
            return "integer";
        case Json::realValue:
            return "real";
        case Json::stringValue:
            return "text";
        case Json::booleanValue:
            return "bool";
        case Json::arrayValue:
            return "array";
        case Json::objectValue:
            return "object";
        default:
            return "null";
    }
}

/// The value in JSON; of long texts the beginning, of arrays and objects the size.
std::string Shown(const Json::Value& value) {
    constexpr std::size_t kLongest = 60;
    if (value.isArray() || value.isObject()) {
        return std::string(TypeOf(&value)) + " of " + std::to_string(value.size());
    }
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "";
    builder["emitUTF8"] = true;
    if (value.type() == Json::realValue) return Digits(value.asDouble());
    if (!value.isString()) return Json::writeString(builder, value);
    const char* begin = nullptr;
    const char* end = nullptr;
    value.getString(&begin, &end);
    const bool isLong = static_cast<std::size_t>(end - begin) > kLongest;
    if (isLong) {
        end = begin + kLongest;
        while (end != begin && (static_cast<unsigned char>(*end) & 0xC0U) == 0x80) --end;
    }
    return Json::writeString(builder, Json::Value(begin, end)) + (isLong ? "..." : "");
}

/// What a test wants.
std::string_view Wanted(std::string_view test) {
    if (test == "isInt") return "an integer of 32 bits";
    if (test == "isUInt") return "an integer of 32 bits, 0 or more";
    if (test == "isBool") return "true or false";
    if (test == "isString") return "a text";
    return "an array";
}

/// Collects what converters look for, and afterwards compares it with the message.
class Account : public Observer {
  public:
    explicit Account(const Json::Value& message) : message_(message) {}

    void look(const Look& look) override {
        addAncestors(look.trail.parent());
        const bool failed = look.kind != Look::kConversion && look.outcome == Outcome::kRefused;
        Row& row = rowFor(look, failed);
        if (look.kind == Look::kConversion) {
            Reading& reading = row.reading;
            reading.conversion = look.operation;
            reading.value = look.result;
            reading.outcome = look.outcome;
            reading.remark = look.remark;
            reading.expected = look.expected;
            return;
        }
        std::string test = (failed ? "not " : "") + std::string(look.operation);
        if (look.kind == Look::kSize) test += ' ' + look.result;
        if (failed && row.failed.empty()) row.failed = look.operation;
        row.lastFailed = failed;
        row.sized = row.sized || look.kind == Look::kSize;
        if (std::find(row.tests.begin(), row.tests.end(), test) == row.tests.end())
            row.tests.push_back(std::move(test));
    }

    /// Call it once, after the reading.
    Explanation finished() {
        followTrails();
        Explanation explanation;
        for (Row& row : rows_) {
            conclude(row);
            const bool isBareRoot = row.trail->step() == Trail::kRoot && row.tests.empty() && row.onlyPassed;
            if (isBareRoot && !IsFinding(row.reading.outcome)) continue;
            explanation.readings.push_back(std::move(row.reading));
        }
        keepWords(explanation);
        if (rows_.empty()) {
            addUnread(explanation, "", message_, "");
        } else {
            addUnreadBelow(explanation, "", message_);
        }
        return explanation;
    }

  private:
    struct Row {
        const Trail* trail;
        std::vector<std::string> tests;
        std::string failed;       ///< the first test that failed
        bool lastFailed = false;  ///< and it was the last one
        bool sized = false;       ///< asked for its number of elements
        bool onlyPassed = false;  ///< nothing was asked of the value itself
        Reading reading;
    };

    /// What converters did at a place of the message.
    struct Seen {
        bool exists = false;
        bool converted = false;          ///< read as a whole
        bool byIndex = false;            ///< elements were looked up
        std::vector<std::string> names;  ///< of members that were looked up, in order
    };

    /// The value in the message at the end of a trail; null when there is none.
    const Json::Value* valueAt(const Trail& trail) const {
        if (trail.step() == Trail::kRoot) return &message_;
        const Json::Value* parent = valueAt(*trail.parent());
        if (parent == nullptr) return nullptr;
        const std::string& name = trail.name();
        if (trail.step() == Trail::kMember) {
            return parent->isObject() ? parent->find(name.data(), name.data() + name.size()) : nullptr;
        }
        const unsigned long index = std::strtoul(name.c_str(), nullptr, 10);
        return parent->isArray() && index < parent->size() ? &(*parent)[static_cast<Json::ArrayIndex>(index)] : nullptr;
    }

    Row& addRow(const Trail& trail, const Json::Value* value) {
        Row row{&trail, {}, {}, false, false, false, {}};
        row.reading.path = trail.path();
        row.reading.type = TypeOf(value);
        if (value != nullptr) row.reading.found = Shown(*value);
        rowOfTrail_[&trail] = rows_.size();
        return rows_.emplace_back(std::move(row));
    }

    /// The row that a look goes on with. Converters may look at a value more than once: what one test refused, or one
    /// conversion took, another look has a row of its own for.
    Row& rowFor(const Look& look, bool failed) {
        const auto entry = rowOfTrail_.find(&look.trail);
        if (entry == rowOfTrail_.end()) return addRow(look.trail, look.value);
        Row& row = rows_[entry->second];
        const bool isConverted = !row.reading.conversion.empty();
        if (look.kind != Look::kConversion) return isConverted && failed ? addRow(look.trail, look.value) : row;
        if (row.lastFailed) return addRow(look.trail, look.value);
        return isConverted ? rows_.emplace_back(Row(row)) : row;
    }

    /// Rows for what converters only passed on their way down, where it is there.
    void addAncestors(const Trail* trail) {
        if (trail == nullptr || rowOfTrail_.contains(trail)) return;
        addAncestors(trail->parent());
        const Json::Value* value = valueAt(*trail);
        if (value != nullptr) addRow(*trail, value).onlyPassed = true;
    }

    void followTrails() {
        for (const Trail& trail : trails()) {
            if (!trail.used()) continue;
            Seen& seen = seen_[trail.path()];
            seen.exists = seen.exists || IsPresent(valueAt(trail));
            if (trail.parent() == nullptr) continue;
            Seen& parent = seen_[trail.parent()->path()];
            Way& way = ways_[trail.parent()];
            if (trail.step() == Trail::kElement) {
                parent.byIndex = way.byIndex = true;
                continue;
            }
            way.byName = true;
            if (std::find(parent.names.begin(), parent.names.end(), trail.name()) == parent.names.end()) {
                parent.names.push_back(trail.name());
            }
        }
        for (const Row& row : rows_) {
            if (!row.reading.conversion.empty()) seen_[row.reading.path].converted = true;
        }
    }

    /// Says what became of a value that was tested, or passed on the way down, but not converted.
    void conclude(Row& row) const {
        Reading& reading = row.reading;
        for (const std::string& test : row.tests) reading.test += (reading.test.empty() ? "" : ", ") + test;
        if (!reading.conversion.empty()) return;
        const auto become = [&reading](Outcome outcome, std::string remark, std::string_view expected) {
            reading.outcome = outcome;
            reading.remark = std::move(remark);
            reading.expected = expected;
        };
        const auto way = ways_.find(row.trail);
        const bool byIndex = way != ways_.end() && way->second.byIndex;
        const bool byName = way != ways_.end() && way->second.byName;
        if (byIndex || byName) reading.conversion = byIndex ? "elements" : "members";
        if (reading.type == "missing" || reading.type == "null") return become(Outcome::kLeft, "left as it was", "");
        if ((byIndex || row.sized) && reading.type != "array") {
            return become(Outcome::kWrongType, "wrong type, read as no elements", "an array");
        }
        if (byName && reading.type != "object") {
            return become(Outcome::kWrongType, "wrong type, read as no members", "an object");
        }
        if (byIndex || byName) return become(Outcome::kKept, "kept", "");
        if (!row.failed.empty()) {
            return become(Outcome::kRefused, "refused by " + row.failed + ", left as it was", Wanted(row.failed));
        }
        if (row.sized && reading.found == "array of 0") return become(Outcome::kLeft, "no elements", "");
        if (row.sized) {
            return become(Outcome::kRefused, "refused for its size, left as it was", "another number of elements");
        }
        become(Outcome::kLeft, "only tested", "");
    }

    /// A text that is no keyword, but that another field takes as it is, is none on purpose.
    static void keepWords(Explanation& explanation) {
        for (Reading& reading : explanation.readings) {
            if (reading.outcome != Outcome::kUnknownKeyword) continue;
            for (const Reading& other : explanation.readings) {
                if (other.outcome != Outcome::kKept || other.path != reading.path) continue;
                reading.outcome = Outcome::kDefault;
                reading.remark = "no keyword, kept as a text";
                reading.expected.clear();
                break;
            }
        }
    }

    void addUnread(Explanation& explanation, std::string path, const Json::Value& value, std::string_view hint,
                   std::string_view what = "nothing reads this") {
        std::string remark(what);
        if (!hint.empty()) (remark += "; did you mean ").append(hint) += '?';
        explanation.readings.push_back({std::move(path), std::string(TypeOf(&value)), Shown(value), "", "", "",
                                        Outcome::kUnread, std::move(remark),
                                        hint.empty() ? "nothing here" : std::string(hint)});
    }

    void addUnreadBelow(Explanation& explanation, const std::string& path, const Json::Value& value) {
        const auto found = seen_.find(path);
        if (found == seen_.end() || found->second.converted) return;
        // A container of the wrong type is one finding, not one for each of its members.
        const Seen& seen = found->second;
        if (value.isObject() && !seen.names.empty()) addUnreadMembers(explanation, path, value, seen);
        if (value.isArray() && seen.byIndex) addUnreadElements(explanation, path, value);
    }

    void addUnreadMembers(Explanation& explanation, const std::string& path, const Json::Value& object,
                          const Seen& seen) {
        std::vector<std::string> members = object.getMemberNames();
        std::stable_sort(members.begin(), members.end(), [&object](const std::string& a, const std::string& b) {
            return object[a].getOffsetStart() < object[b].getOffsetStart();
        });
        std::vector<std::string_view> missing;
        for (const std::string& name : seen.names) {
            if (!IsPresent(object.find(name.data(), name.data() + name.size()))) missing.push_back(name);
        }
        for (const std::string& name : members) {
            const std::string memberPath = path + PointerStep(name);
            if (seen_.contains(memberPath)) {
                addUnreadBelow(explanation, memberPath, object[name]);
            } else {
                std::string hint = placeOf(name);
                if (hint.empty()) hint = Nearest(name, missing).value_or("");
                addUnread(explanation, memberPath, object[name], hint);
            }
        }
    }

    /// Where a member of that name would be read and is missing; empty when nowhere.
    std::string placeOf(const std::string& name) const {
        for (const auto& [path, seen] : seen_) {
            if (!seen.exists || std::find(seen.names.begin(), seen.names.end(), name) == seen.names.end()) continue;
            const auto member = seen_.find(path + PointerStep(name));
            if (member != seen_.end() && !member->second.exists) return member->first;
        }
        return "";
    }

    void addUnreadElements(Explanation& explanation, const std::string& path, const Json::Value& array) {
        const Json::ArrayIndex size = array.size();
        const auto isRead = [&](Json::ArrayIndex i) { return seen_.contains(path + PointerStep(std::to_string(i))); };
        for (Json::ArrayIndex i = 0; i < size; ++i) {
            const std::string elementPath = path + PointerStep(std::to_string(i));
            if (isRead(i)) {
                addUnreadBelow(explanation, elementPath, array[i]);
                continue;
            }
            const Json::ArrayIndex first = i;
            while (i + 1 < size && !isRead(i + 1)) ++i;
            const std::string run = "elements " + std::to_string(first) + " to " + std::to_string(i);
            addUnread(explanation, elementPath, array[first], "",
                      first == i ? "nothing reads this" : run + ": nothing reads these");
        }
    }

    struct Way {
        bool byIndex = false;
        bool byName = false;
    };

    const Json::Value& message_;
    std::vector<Row> rows_;
    std::unordered_map<const Trail*, std::size_t> rowOfTrail_;  ///< the trail's last row
    std::unordered_map<const Trail*, Way> ways_;                ///< how converters went on from there
    std::map<std::string, Seen> seen_;                          ///< by JSON pointer
};

std::string WithoutControls(std::string_view text) {
    std::string clean;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte != 0x7F) {
            clean += c;
            continue;
        }
        char escape[8] = {};
        std::snprintf(escape, sizeof escape, "\\x%02x", byte);
        clean += escape;
    }
    return clean;
}

}  // namespace

std::string_view OutcomeName(Outcome outcome) { return kOutcomeNames[static_cast<std::size_t>(outcome)]; }

Explanation Explain(const Json::Value& message, const std::function<void()>& read) {
    Account account(message);
    {
        const ObserverScope scope(account);
        read();
    }
    return account.finished();
}

std::string LogLine(const Reading& reading) {
    std::string line = (reading.path.empty() ? "/" : reading.path) + ": ";
    line += reading.found.empty() ? reading.type : reading.found;
    if (!reading.test.empty()) line += "; " + reading.test;
    if (!reading.conversion.empty()) line += "; " + reading.conversion;
    if (!reading.value.empty()) line += ": " + reading.value;
    return WithoutControls(line + "; " + reading.remark);
}

}  // namespace jsonparser
