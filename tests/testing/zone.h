// The process's time zone, for one test.
#ifndef TESTS_TESTING_ZONE_H
#define TESTS_TESTING_ZONE_H

#include <optional>
#include <string>

namespace testing_tools {

/// While it lives, TZ has this value.
class TimeZone {
  public:
    explicit TimeZone(const char* zone);
    ~TimeZone();
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

  private:
    std::optional<std::string> previous_;
};

}  // namespace testing_tools

#endif
