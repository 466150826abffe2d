// A road from message text to record, as the benchmark measures it.
#ifndef BENCHMARKS_TEXT_TO_RECORD_ROAD_H
#define BENCHMARKS_TEXT_TO_RECORD_ROAD_H

#include <memory>
#include <string>
#include <vector>

#include "benchmarks/text_to_record/messages.h"
#include "vkrecords/vkrecords.h"

namespace benchmarks {

using Car = tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO;
using DetectedObject = tagVK_MSG_OBJECT_EX2;
using Person = tagFACERECOGNITION_PERSON_INFOEX;
using Schedule = tagCFG_TIME_SCHEDULE;

class Road {
  public:
    enum class Kind {
        Ours,     ///< a road of this library
        Literal,  ///< literal converters, for comparison
        Debian,   ///< a program with a library that Debian 12 has
        Other     ///< a program with a library that some machines have
    };
    enum class Checks {
        Everything,  ///< text that is no JSON is refused wherever it stands
        WhatIsRead   ///< text that is passed over is not looked at
    };

    Road(std::string name, Kind kind, Checks checks) : name_(std::move(name)), kind_(kind), checks_(checks) {}
    virtual ~Road() = default;
    Road(const Road&) = delete;
    Road& operator=(const Road&) = delete;

    const std::string& name() const { return name_; }
    Kind kind() const { return kind_; }
    Checks checks() const { return checks_; }

    /// Reads a message into a record, which need not be cleared. Heap texts become the caller's.
    virtual void read(const Message& message, Car& record) = 0;
    virtual void read(const Message& message, DetectedObject& record) = 0;
    virtual void read(const Message& message, Person& record) = 0;
    virtual void read(const Message& message, Schedule& record) = 0;

  private:
    std::string name_;
    Kind kind_;
    Checks checks_;
};

using Roads = std::vector<std::unique_ptr<Road>>;

// Each adds its roads.
void AddJsoncpp(Roads& roads);
void AddText(Roads& roads);
void AddNlohmann(Roads& roads);
void AddRapidJson(Roads& roads);
void AddBoostJson(Roads& roads);
void AddSimdjson(Roads& roads);
void AddSimdjsonNative(Roads& roads);
void AddYyjson(Roads& roads);
void AddGlaze(Roads& roads);

}  // namespace benchmarks

#endif
