// Must compile as it is, and not with any of the macros.

#include "vkprotocolstack/wire/number_format.h"

#if defined(TOO_FEW_NUMBERS)
#define FORMAT "%d"
#elif defined(TOO_MANY_NUMBERS)
#define FORMAT "%d:%d:%d"
#elif defined(TWO_CHARACTERS)
#define FORMAT "%d, %d"
#elif defined(WIDTH_WITHOUT_0)
#define FORMAT "%d:%2d"
#elif defined(WIDTH_OF_TWO_DIGITS)
#define FORMAT "%d:%010d"
#elif defined(ANOTHER_CONVERSION)
#define FORMAT "%d:%x"
#elif defined(TEXT_BEHIND)
#define FORMAT "%d:%d."
#else
#define FORMAT "%d:%02u"
#endif

constexpr jsonparser::NumberFormat<2> kFormat = FORMAT;
