#include "testing/zone.h"

#include <cstdlib>
#include <ctime>

namespace testing_tools {

TimeZone::TimeZone(const char* zone) {
    if (const char* previous = std::getenv("TZ")) previous_ = previous;
    setenv("TZ", zone, 1);
    tzset();
}

TimeZone::~TimeZone() {
    if (previous_) {
        setenv("TZ", previous_->c_str(), 1);
    } else {
        unsetenv("TZ");
    }
    tzset();
}

}  // namespace testing_tools
