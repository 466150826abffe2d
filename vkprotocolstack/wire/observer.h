// Watching a converter read: where each value was looked for, what was found, and what the converter took from it.
#ifndef VKPROTOCOLSTACK_WIRE_OBSERVER_H
#define VKPROTOCOLSTACK_WIRE_OBSERVER_H

#include <json/value.h>

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

#include "vkprotocolstack/explain.h"
#include "vkprotocolstack/wire/place.h"

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

    /// The place of a value that a converter was called with, watched from here on.
    [[gnu::cold]] Place watch(Place root);

  protected:
    /// All ways down that converters could take, parents before children.
    const std::deque<Trail>& trails() const { return trails_; }

  private:
    friend class Trail;
    std::deque<Trail> trails_;
};

/// Where a watched value stands, as a chain up to the root. Exists only while somebody observes; the observer keeps it.
/// A place of its entry is the watched value's place, so that reading what nobody watches asks for no trail.
class Trail {
  public:
    enum Step { kRoot, kMember, kElement };

    Trail(Observer& observer, const Trail* parent, Step step, std::string_view name, Place value);
    Trail(const Trail&) = delete;
    Trail& operator=(const Trail&) = delete;

    /// The places of what stands in the value, or is missing there: watched too.
    Place member(std::string_view name) const;
    Place element(std::size_t index) const;

    Observer& observer() const { return *observer_; }
    const Trail* parent() const { return parent_; }
    /// The last step, and the member's name or the element's index in digits.
    Step step() const { return step_; }
    const std::string& name() const { return name_; }
    std::string path() const;

    /// The value's place in the tree.
    Place value() const { return value_; }
    /// Whether a converter did anything with the value; of those that it could ask for, it leaves some.
    bool used() const { return used_; }
    void use() const { used_ = true; }

  private:
    friend class Observer;
    Place next(Step step, std::string_view name, Place value) const;

    Observer* observer_;
    const Trail* parent_;
    Step step_;
    mutable bool used_ = false;
    std::string name_;
    Place value_;
    TextEntry entry_;
};

/// A member's name or an element's index, in digits, as a step of a JSON pointer.
std::string PointerStep(std::string_view name);

/// While it lives, the calling thread's converters report to observer. Scopes nest; the inner one wins.
class ObserverScope {
  public:
    explicit ObserverScope(Observer& observer);
    ~ObserverScope();
    ObserverScope(const ObserverScope&) = delete;
    ObserverScope& operator=(const ObserverScope&) = delete;

    /// The calling thread's observer: null when nobody observes.
    static Observer* Current() { return kWithObservers ? current_ : nullptr; }

  private:
    Observer* previous_;
    static constinit thread_local Observer* current_;
};

}  // namespace jsonparser

#endif
