// Local encodings for fuzzers.
#ifndef FUZZ_LOCALES_H
#define FUZZ_LOCALES_H

#include <locale.h>

#include <cstddef>

namespace fuzz {

/// One of five locales, of ASCII, multibyte and single-byte encodings; any number chooses one. It is made once, and
/// stays.
locale_t Locale(std::size_t number);

}  // namespace fuzz

#endif
