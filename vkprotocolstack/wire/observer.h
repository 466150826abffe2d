// Watching a converter read: where each value was looked for, what was found, and what the converter took from it.
#ifndef VKPROTOCOLSTACK_WIRE_OBSERVER_H
#define VKPROTOCOLSTACK_WIRE_OBSERVER_H

#include <json/value.h>

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

#include "vkprotocolstack/explain.h"

namespace jsonparser {

class Trail;

/// One look at one node.
struct Look {
    enum Kind {
        kTest,       ///< what it says decides whether something is taken
        kSize,       ///< how many elements there are
        kConversion  ///< what is taken
    };

    const Trail& trail;        ///< of the node; each way down to a value has a trail of its own
    std::string path;          ///< JSON pointer from the node that the converter was given; "" is that node
    const Json::Value* value;  ///< null when the message has no such member or element; alive during the look
    Kind kind;
    std::string_view operation;  ///< the test or conversion, in the words of Node's operations
    std::string result;          ///< what the converter got; texts as JSON
    Outcome outcome;             ///< of a conversion; a test that failed is kRefused
    std::string remark;          ///< what became of the value, in words
    std::string expected;        ///< of findings
};

class Observer {
  public:
    virtual ~Observer();
    virtual void look(const Look& look) = 0;

  protected:
    /// All ways down that converters took, parents before children.
    const std::deque<Trail>& trails() const { return trails_; }

  private:
    friend class ObserverScope;
    friend class Trail;
    std::deque<Trail> trails_;
};

/// Where a node stands, as a chain up to the root. Exists only while somebody observes; the observer keeps it.
class Trail {
  public:
    enum Step { kRoot, kMember, kElement };

    Trail(Observer& observer, const Trail* parent, Step step, std::string_view name)
        : observer_(&observer), parent_(parent), step_(step), name_(name) {}

    [[gnu::cold]] const Trail* member(std::string_view name) const;
    [[gnu::cold]] const Trail* element(std::size_t index) const;

    Observer& observer() const { return *observer_; }
    const Trail* parent() const { return parent_; }
    /// The last step, and the member's name or the element's index in digits.
    Step step() const { return step_; }
    const std::string& name() const { return name_; }
    std::string path() const;

  private:
    Observer* observer_;
    const Trail* parent_;
    Step step_;
    std::string name_;
};

/// A member's name or an element's index, in digits, as a step of a JSON pointer.
std::string PointerStep(std::string_view name);

#ifdef JSONPARSER_WITHOUT_OBSERVER
/// A pointer to no trail, known at compile time: for measuring what the tests of the other one cost.
struct TrailPointer {
    constexpr TrailPointer(const Trail*) {}
    constexpr operator const Trail*() const { return nullptr; }
    constexpr const Trail* operator->() const { return nullptr; }
};
#else
using TrailPointer = const Trail*;
#endif

/// While it lives, the calling thread's converters report to observer. Scopes nest; the inner one wins.
class ObserverScope {
  public:
    explicit ObserverScope(Observer& observer);
    ~ObserverScope();
    ObserverScope(const ObserverScope&) = delete;
    ObserverScope& operator=(const ObserverScope&) = delete;

    /// Where the calling thread's root nodes stand: null when nobody observes.
#ifdef JSONPARSER_WITHOUT_OBSERVER
    static const Trail* Current() { return nullptr; }
#else
    static const Trail* Current() { return current_; }
#endif

  private:
    const Trail* previous_;
    static constinit thread_local const Trail* current_;
};

}  // namespace jsonparser

#endif
