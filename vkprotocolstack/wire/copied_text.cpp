#include "vkprotocolstack/wire/copied_text.h"

#include <langinfo.h>

#include "vkprotocolstack/support/charset.h"
#include "vkprotocolstack/support/defaults.h"
#include "vkprotocolstack/support/support.h"

namespace jsonparser {

bool CopiesTexts() {
    return Change_Utf8_Assic == support::DefaultChangeUtf8Assic && GetJsonString == support::DefaultGetJsonString &&
           parseJsonNodeToStr == support::DefaultParseJsonNodeToStr && support::IsUtf8OrAscii(nl_langinfo(CODESET));
}

}  // namespace jsonparser
