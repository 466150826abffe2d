// Whether a text function would do no more than copy.
#ifndef VKPROTOCOLSTACK_WIRE_COPIED_TEXT_H
#define VKPROTOCOLSTACK_WIRE_COPIED_TEXT_H

namespace jsonparser {

/// Whether no client has replaced Change_Utf8_Assic, GetJsonString or parseJsonNodeToStr, and the calling thread's
/// locale is now one in which they copy the bytes of any text that fits.
bool CopiesTexts();

}  // namespace jsonparser

#endif
