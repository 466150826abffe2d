// The locale of a thread, for one test.
#ifndef TESTS_TESTING_LOCALE_H
#define TESTS_TESTING_LOCALE_H

#include <locale.h>

namespace testing_tools {

/// The locale, one of those in tests/locales or "C", for uselocale and freelocale; null when it does not exist.
locale_t MakeLocale(const char* name);

/// While it lives, this thread has this locale, one of those in tests/locales or "C". One that does not exist fails the
/// test.
class ThreadLocale {
  public:
    explicit ThreadLocale(const char* name);
    ~ThreadLocale();
    ThreadLocale(const ThreadLocale&) = delete;
    ThreadLocale& operator=(const ThreadLocale&) = delete;

  private:
    locale_t locale_;
    locale_t previous_;
};

}  // namespace testing_tools

#endif
