#include "places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "testing/json.h"
#include "vkprotocolstack/wire/observer.h"

namespace reliability {
namespace {

using jsonparser::Trail;

/// Readers treat elements alike, but for the first few.
constexpr Json::ArrayIndex kElementsWatched = 4;

/// No record has arrays of arrays of arrays; only the measuring of their depth has no end.
bool IsInArraysOfArrays(const Path& path) {
    const auto isElement = [](const Step& step) { return std::holds_alternative<Json::ArrayIndex>(step); };
    return path.size() >= 2 && isElement(path.back()) && isElement(path[path.size() - 2]);
}

class Watcher : public jsonparser::Observer {
  public:
    void look(const jsonparser::Look& /*look*/) override {}

    std::set<Path> paths() const {
        std::map<const Trail*, Path> paths;
        for (const Trail& trail : trails()) {
            if (trail.step() == Trail::kRoot) {
                paths[&trail];
                continue;
            }
            const auto parent = paths.find(trail.parent());
            if (parent == paths.end()) continue;
            Path path = parent->second;
            if (trail.step() == Trail::kMember) {
                path.emplace_back(trail.name());
            } else {
                const auto index = static_cast<Json::ArrayIndex>(std::stoul(trail.name()));
                if (index >= kElementsWatched || IsInArraysOfArrays(path)) continue;
                path.emplace_back(index);
            }
            paths[&trail] = path;
        }
        std::set<Path> all;
        for (const auto& [trail, path] : paths) all.insert(path);
        return all;
    }
};

/// Places as a tree.
struct Branch {
    std::map<std::string, Branch> members;
    std::map<Json::ArrayIndex, Branch> elements;
};

Branch TreeOf(const Places& places) {
    Branch root;
    for (const auto& [path, filling] : places) {
        Branch* branch = &root;
        for (const Step& step : path) {
            if (const auto* name = std::get_if<std::string>(&step)) {
                branch = &branch->members[*name];
            } else {
                branch = &branch->elements[std::get<Json::ArrayIndex>(step)];
            }
        }
    }
    return root;
}

Json::Value Built(const Branch& branch, const Filling& filling) {
    const bool isArray = !branch.elements.empty() && (branch.members.empty() || filling.preferArrays);
    if (isArray) {
        Json::Value array(Json::arrayValue);
        for (Json::ArrayIndex i = 0; i < filling.elements; ++i) {
            const auto known = branch.elements.find(std::min(i, branch.elements.rbegin()->first));
            array.append(known == branch.elements.end() ? filling.scalar : Built(known->second, filling));
        }
        return array;
    }
    if (branch.members.empty()) return filling.scalar;
    Json::Value object(Json::objectValue);
    for (const auto& [name, member] : branch.members) object[name] = Built(member, filling);
    return object;
}

/// What may stand where nothing is known yet: what readers take, of every type, and containers to look into.
std::vector<Filling> Fillings() {
    std::vector<Filling> fillings;
    const Json::Value segment = "1 08:00:00-17:30:00";
    for (const bool preferArrays : {false, true}) {
        for (const Json::Value& scalar : {Json::Value(1), segment, Json::Value(true), Json::Value(Json::objectValue)}) {
            fillings.push_back({scalar, 4, preferArrays});
        }
        for (Json::ArrayIndex size = 1; size <= 8; ++size) {
            Json::Value array(Json::arrayValue);
            for (Json::ArrayIndex i = 0; i < size; ++i) array.append(1);
            fillings.push_back({array, 4, preferArrays});
            fillings.push_back({array, size, preferArrays});
            fillings.push_back({segment, size, preferArrays});
        }
    }
    return fillings;
}

/// Adds what the reader looks at in message. @return whether there was any
bool AddLooks(const fuzz::Reader& reader, const Json::Value& message, const Filling& filling, Places& places) {
    bool found = false;
    for (const Path& path : Looks(reader, message)) found |= places.try_emplace(path, filling).second;
    return found;
}

Places FindPlaces(const fuzz::Reader& reader) {
    const std::vector<Filling> fillings = Fillings();
    Places places{
        {Path(), fillings.front()}
    };
    for (bool found = true; found;) {
        found = false;
        for (const Filling& filling : fillings) found |= AddLooks(reader, Message(places, filling), filling, places);
    }
    // What a reader looked at before all was known it may not look at now: where it does is what counts.
    Places complete;
    for (const Filling& filling : fillings) AddLooks(reader, Message(places, filling), filling, complete);
    for (const auto& [path, filling] : places) {
        EXPECT_TRUE(complete.contains(path)) << reader.name << " looks no more at " << Pointer(path);
    }
    return complete;
}

Json::Value FromFile(const std::string& file) {
    std::ifstream stream(std::string(JSONPARSER_MESSAGES) + '/' + file);
    EXPECT_TRUE(stream.is_open()) << file;
    std::ostringstream text;
    text << stream.rdbuf();
    return testing_tools::Json(text.str());
}

}  // namespace

std::string Pointer(const Path& path) {
    std::string pointer;
    for (const Step& step : path) {
        const auto* name = std::get_if<std::string>(&step);
        pointer += '/' + (name != nullptr ? *name : std::to_string(std::get<Json::ArrayIndex>(step)));
    }
    return pointer;
}

const Places& PlacesOf(const fuzz::Reader& reader) {
    static std::map<const fuzz::Reader*, Places> all;
    const auto [entry, isNew] = all.try_emplace(&reader);
    if (isNew) entry->second = FindPlaces(reader);
    return entry->second;
}

Json::Value Message(const Places& places, const Filling& filling) { return Built(TreeOf(places), filling); }

std::set<Path> Looks(const fuzz::Reader& reader, Json::Value node) {
    fuzz::Memory memory(reader.target);
    Watcher watcher;
    const jsonparser::ObserverScope scope(watcher);
    reader.value(node, memory.get());
    return watcher.paths();
}

std::vector<Json::Value> Samples(const fuzz::Reader& reader) {
    std::vector<Json::Value> samples;
    std::ifstream index(JSONPARSER_MESSAGES "/index.txt");
    EXPECT_TRUE(index.is_open());
    for (std::string line; std::getline(index, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream words(line);
        std::string file;
        std::string record;
        std::string place;
        words >> file >> record >> place;
        if (reader.target.layout == nullptr || record != reader.target.layout->name) continue;
        Json::Value message = FromFile(file);
        samples.push_back(testing_tools::At(message, place));
        EXPECT_FALSE(samples.back().isNull()) << line;
    }
    return samples;
}

std::vector<std::string> TextsFor(const fuzz::TextReader& reader) {
    std::vector<std::string> texts{std::string(reader.known)};
    for (const Json::Value& value : testing_tools::HostileValues()) {
        if (value.isString()) texts.push_back(value.asString());
    }
    return texts;
}

std::vector<long> NumbersFor(const fuzz::NumberConverter& converter) {
    std::vector<long> numbers{converter.known};
    for (const Json::Value& value : testing_tools::HostileValues()) {
        if (value.isInt64()) numbers.push_back(value.asInt64());
    }
    return numbers;
}

}  // namespace reliability
