// What Explain says, held against what the readers do, for every record of the catalogue.
#include <gtest/gtest.h>
#include <json/reader.h>
#include <json/value.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "testing/json.h"
#include "tools/jsonparser/catalogue.h"
#include "tools/jsonparser/record_buffer.h"
#include "tools/jsonparser/record_form.h"
#include "vkprotocolstack/explain.h"

namespace {

using jsonparser::Explain;
using jsonparser::Explanation;
using jsonparser::Outcome;
using jsonparser::Reading;
using testing_tools::At;
using testing_tools::HostileValues;
using testing_tools::Steps;
using testing_tools::Text;
using tool::CatalogueEntry;

std::string Contents(const std::string& file) {
    std::ifstream stream(std::string(JSONPARSER_MESSAGES) + '/' + file);
    EXPECT_TRUE(stream.is_open()) << file;
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

std::string Parent(const std::string& pointer) { return pointer.substr(0, pointer.rfind('/')); }

struct Sample {
    const CatalogueEntry* entry;
    Json::Value message;
};

/// The sample messages, each with every record that it is a sample of.
const std::vector<Sample>& Samples() {
    static const std::vector<Sample> samples = [] {
        std::vector<Sample> all;
        std::istringstream index(Contents("index.txt"));
        for (std::string line; std::getline(index, line);) {
            if (line.empty() || line[0] == '#') continue;
            std::istringstream words(line);
            std::string file;
            std::string record;
            std::string place;
            words >> file >> record >> place;
            std::vector<std::string> alternatives;
            Json::Value document = testing_tools::Json(Contents(file));
            all.push_back({tool::FindEntry(record, alternatives), At(document, place)});
        }
        return all;
    }();
    return samples;
}

std::string Decoded(const CatalogueEntry& entry, Json::Value message) {
    tool::RecordBuffer record(*entry.layout);
    record.lendBuffers();
    const bool whole = entry.decode(message, record.bytes());
    return (whole ? "whole " : "not whole ") + tool::RecordAsJson(*entry.layout, record.bytes());
}

struct Watched {
    Explanation explanation;
    std::string record;
};

Watched DecodedWatched(const CatalogueEntry& entry, Json::Value message) {
    Watched watched;
    const Json::Value before = message;
    watched.explanation = Explain(before, [&] { watched.record = Decoded(entry, message); });
    return watched;
}

/// The pointers of all members and elements below value.
void AddPointers(const Json::Value& value, const std::string& path, std::vector<std::string>& pointers) {
    if (value.isObject()) {
        for (const std::string& name : value.getMemberNames()) {
            std::string step;
            for (const char c : name) step += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
            pointers.push_back(path + '/' + step);
            AddPointers(value[name], std::string(pointers.back()), pointers);
        }
    }
    if (value.isArray()) {
        for (Json::ArrayIndex i = 0; i < value.size(); ++i) {
            pointers.push_back(path + '/' + std::to_string(i));
            AddPointers(value[i], std::string(pointers.back()), pointers);
        }
    }
}

std::vector<std::string> PointersOf(const Json::Value& message) {
    std::vector<std::string> pointers;
    AddPointers(message, "", pointers);
    return pointers;
}

/// Pointers of what nothing reads, each element of a run for itself.
std::set<std::string> UnreadIn(const Explanation& explanation) {
    std::set<std::string> unread;
    for (const Reading& reading : explanation.readings) {
        if (reading.outcome != Outcome::kUnread) continue;
        unread.insert(reading.path);
        unsigned first = 0;
        unsigned last = 0;
        if (std::sscanf(reading.remark.c_str(), "elements %u to %u:", &first, &last) != 2) continue;
        for (unsigned i = first; i <= last; ++i) unread.insert(Parent(reading.path) + '/' + std::to_string(i));
    }
    return unread;
}

std::set<std::string> ReadIn(const Explanation& explanation) {
    std::set<std::string> read;
    for (const Reading& reading : explanation.readings) {
        if (reading.outcome != Outcome::kUnread) read.insert(reading.path);
    }
    return read;
}

TEST(EveryRecord, HasASample) {
    std::set<std::string> sampled;
    for (const Sample& sample : Samples()) {
        ASSERT_NE(sample.entry, nullptr);
        sampled.insert(sample.entry->layout->name);
    }
    EXPECT_GE(sampled.size(), 25U);
}

TEST(EveryRecord, IsTheSameWhetherSomebodyWatchesOrNot) {
    for (const Sample& sample : Samples()) {
        EXPECT_EQ(DecodedWatched(*sample.entry, sample.message).record, Decoded(*sample.entry, sample.message))
            << sample.entry->name;
    }
    for (const CatalogueEntry& entry : tool::Catalogue()) {
        if (entry.decode == nullptr) continue;
        for (const Json::Value& value : HostileValues()) {
            EXPECT_EQ(DecodedWatched(entry, value).record, Decoded(entry, value)) << entry.name;
        }
    }
}

/// Every sample with every value in it replaced by hostile ones, in turn. Calls use with each.
template <class Use>
void ForEachSpoilt(const Sample& sample, std::size_t stride, Use use) {
    const std::vector<std::string> pointers = PointersOf(sample.message);
    const std::vector<Json::Value>& hostile = HostileValues();
    std::size_t next = 0;
    for (const std::string& pointer : pointers) {
        for (std::size_t i = next++ % stride; i < hostile.size(); i += stride) {
            Json::Value message = sample.message;
            At(message, pointer) = hostile[i];
            use(message, pointer);
        }
    }
}

TEST(EveryRecord, IsTheSameWhetherSomebodyWatchesOrNotAlsoOfSpoiltMessages) {
    for (const Sample& sample : Samples()) {
        ForEachSpoilt(sample, 31, [&](const Json::Value& message, const std::string& pointer) {
            ASSERT_EQ(DecodedWatched(*sample.entry, message).record, Decoded(*sample.entry, message))
                << sample.entry->name << ' ' << pointer;
        });
    }
}

TEST(EveryRecord, DoesNotChangeWithWhatIsSaidToBeUnread) {
    std::size_t changed = 0;
    for (const Sample& sample : Samples()) {
        const Watched watched = DecodedWatched(*sample.entry, sample.message);
        for (const std::string& pointer : UnreadIn(watched.explanation)) {
            for (const Json::Value& value : HostileValues()) {
                Json::Value message = sample.message;
                At(message, pointer) = value;
                ASSERT_EQ(Decoded(*sample.entry, message), watched.record) << sample.entry->name << ' ' << pointer;
                ++changed;
            }
            Json::Value message = sample.message;
            Json::Value& parent = At(message, Parent(pointer));
            if (!parent.isObject()) continue;
            parent.removeMember(Steps(pointer).back());
            ASSERT_EQ(Decoded(*sample.entry, message), watched.record) << sample.entry->name << ' ' << pointer;
        }
    }
    EXPECT_GT(changed, 1000U);
}

TEST(EveryRecord, DoesNotChangeWithAnAddedMemberWhichIsUnread) {
    for (const Sample& sample : Samples()) {
        const Watched watched = DecodedWatched(*sample.entry, sample.message);
        for (const Reading& reading : watched.explanation.readings) {
            if (reading.type != "object" || reading.conversion != "members") continue;
            Json::Value message = sample.message;
            At(message, reading.path)["NobodyAsksForThis"] = 7;
            const Watched more = DecodedWatched(*sample.entry, message);
            EXPECT_EQ(more.record, watched.record);
            EXPECT_TRUE(UnreadIn(more.explanation).contains(reading.path + "/NobodyAsksForThis"))
                << sample.entry->name << ' ' << reading.path;
        }
    }
}

/// All of a message is accounted for: each value has a reading, or stands in one that was taken or refused as a whole,
/// or in one that nothing reads.
void ExpectComplete(const Explanation& explanation, const Json::Value& message, std::string_view name) {
    const std::set<std::string> unread = UnreadIn(explanation);
    const std::set<std::string> read = ReadIn(explanation);
    std::set<std::string> passed;  // whose members or elements have readings of their own
    for (const Reading& reading : explanation.readings) {
        const bool further = reading.conversion == "members" || reading.conversion == "elements";
        if (further && reading.outcome == Outcome::kKept) passed.insert(reading.path);
    }
    for (const std::string& pointer : PointersOf(message)) {
        const bool hasReading = read.contains(pointer);
        const bool isUnread = unread.contains(pointer);
        EXPECT_FALSE(hasReading && isUnread) << name << ' ' << pointer;
        bool inside = false;
        for (std::string above = Parent(pointer); !inside; above = Parent(above)) {
            inside = unread.contains(above) || (read.contains(above) && !passed.contains(above));
            if (above.empty()) break;
        }
        EXPECT_TRUE(hasReading || isUnread || inside) << name << ' ' << pointer;
    }
}

TEST(EveryRecord, AccountsForAllOfItsSample) {
    for (const Sample& sample : Samples()) {
        ExpectComplete(DecodedWatched(*sample.entry, sample.message).explanation, sample.message, sample.entry->name);
    }
}

TEST(EveryRecord, AccountsForAllOfSpoiltMessages) {
    for (const Sample& sample : Samples()) {
        ForEachSpoilt(sample, 61, [&](const Json::Value& message, const std::string&) {
            ExpectComplete(DecodedWatched(*sample.entry, message).explanation, message, sample.entry->name);
        });
    }
}

TEST(EveryRecord, MissesAMemberThatItReads) {
    for (const Sample& sample : Samples()) {
        const Explanation before = DecodedWatched(*sample.entry, sample.message).explanation;
        for (const std::string& pointer : ReadIn(before)) {
            if (pointer.empty()) continue;
            Json::Value message = sample.message;
            if (!At(message, Parent(pointer)).isObject()) continue;
            if (!At(message, Parent(pointer)).isMember(Steps(pointer).back())) continue;
            At(message, Parent(pointer)).removeMember(Steps(pointer).back());
            bool missed = false;
            for (const Reading& reading : DecodedWatched(*sample.entry, message).explanation.readings) {
                missed = missed || (reading.path == pointer && reading.type == "missing");
                // What is only passed on the way down has no reading where it is missing.
                missed = missed || (reading.path.starts_with(pointer + '/') && reading.type == "missing");
            }
            EXPECT_TRUE(missed) << sample.entry->name << ' ' << pointer;
        }
    }
}

/// What a record gets is in the account: of a message that gives another record, the account is another one.
TEST(EveryRecord, ChangesOnlyTogetherWithItsAccount) {
    const auto account = [](const Explanation& explanation) {
        std::string text;
        for (const Reading& reading : explanation.readings) {
            if (reading.outcome == Outcome::kUnread) continue;
            text += reading.path + '|' + reading.type + '|' + reading.test + '|' + reading.conversion + '|' +
                    reading.value + '\n';
        }
        return text;
    };
    for (const Sample& sample : Samples()) {
        const Watched before = DecodedWatched(*sample.entry, sample.message);
        const std::string beforeAccount = account(before.explanation);
        ForEachSpoilt(sample, 37, [&](const Json::Value& message, const std::string& pointer) {
            const Watched after = DecodedWatched(*sample.entry, message);
            if (account(after.explanation) != beforeAccount) return;
            EXPECT_EQ(after.record, before.record) << sample.entry->name << ' ' << pointer << ' ' << Text(message);
        });
    }
}

}  // namespace
