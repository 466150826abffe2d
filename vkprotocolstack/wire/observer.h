// Watching a converter read: where each value was looked for, what was found, and what the converter took from it.
#ifndef VKPROTOCOLSTACK_WIRE_OBSERVER_H
#define VKPROTOCOLSTACK_WIRE_OBSERVER_H

#include <json/value.h>

#include <deque>
#include <string>
#include <string_view>

namespace jsonparser {

/// One look at one node.
struct Look {
    std::string path;            ///< JSON pointer from the node that the converter was given; "" is that node
    const Json::Value* value;    ///< null when the message has no such member or element
    std::string_view operation;  ///< the test or conversion, in the words of Node's operations
    std::string result;          ///< what the converter got
};

class Observer {
  public:
    virtual ~Observer();
    virtual void look(const Look& look) = 0;

  private:
    friend class ObserverScope;
    friend class Trail;
    std::deque<class Trail> trails_;
};

/// Where a node stands, as a chain up to the root. Exists only while somebody observes; the observer keeps it.
class Trail {
  public:
    Trail(Observer& observer, const Trail* parent, std::string_view step)
        : observer_(&observer), parent_(parent), step_(step) {}

    const Trail* member(std::string_view name) const;
    const Trail* element(std::size_t index) const;
    void report(const Json::Value* value, std::string_view operation, std::string result) const;
    std::string path() const;

  private:
    Observer* observer_;
    const Trail* parent_;
    std::string step_;
};

/// While it lives, the calling thread's converters report to observer. Scopes nest; the inner one wins.
class ObserverScope {
  public:
    explicit ObserverScope(Observer& observer);
    ~ObserverScope();
    ObserverScope(const ObserverScope&) = delete;
    ObserverScope& operator=(const ObserverScope&) = delete;

    /// Where the calling thread's root nodes stand: null when nobody observes.
    static const Trail* Current() { return current_; }

  private:
    const Trail* previous_;
    static constinit thread_local const Trail* current_;
};

}  // namespace jsonparser

#endif
