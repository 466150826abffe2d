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

/// For tests with texts that are not ASCII: while it lives, this thread's texts in records are those of messages, byte
/// for byte, whatever the locale. Numbers and letters stay as the locale has them.
class Utf8Texts {
  public:
    Utf8Texts();
    ~Utf8Texts();
    Utf8Texts(const Utf8Texts&) = delete;
    Utf8Texts& operator=(const Utf8Texts&) = delete;

  private:
    locale_t locale_ = nullptr;  // null where nothing had to change
    locale_t previous_ = nullptr;
};

}  // namespace testing_tools

#endif
