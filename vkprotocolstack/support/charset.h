// What the default text functions share: the local encoding, and cuts at whole characters.
//
// The local encoding is that of the calling thread's locale, asked for at every call. Where it is UTF-8, ASCII or one
// that iconv does not know, converting copies the bytes; a text of ASCII characters is copied wherever these are the
// same bytes locally. A text that there is no memory to convert becomes empty.
#ifndef VKPROTOCOLSTACK_SUPPORT_CHARSET_H
#define VKPROTOCOLSTACK_SUPPORT_CHARSET_H

#include <json/forwards.h>

#include <cstddef>
#include <string_view>

namespace jsonparser::support {

/// Whether an encoding, as nl_langinfo names it, is UTF-8 or the "C" locale's: texts are copied. Both are found without
/// a call, since every text may ask.
inline bool IsUtf8OrAscii(const char* codeset) {
    const auto is = [codeset](const auto& name) {
        for (std::size_t i = 0; i < sizeof name; ++i) {
            if (codeset[i] != name[i]) return false;
        }
        return true;
    };
    return is("UTF-8") || is("ANSI_X3.4-1968");
}

/// The part of text before its first NUL.
std::string_view UpToNul(std::string_view text);

/// The longest length of at most limit bytes at which UTF-8 text can be cut without leaving half of a character.
std::size_t WholeCharacters(std::string_view text, std::size_t limit);

/// Copies the whole characters of UTF-8 text that fit into size bytes (at least 1) with a terminator.
/// @return their length
std::size_t CopyCut(std::string_view text, char* buffer, std::size_t size);

/// Between UTF-8 and an encoding that is not copied, both ways.
struct Conversion;

/// Takes UTF-8, piece by piece, and writes it into a buffer as local text, as far as whole characters fit. A character
/// that has no local form, or a longer one than in UTF-8, and each byte that is part of none become "?"; so what is
/// written is never longer than what was taken. A character that is not complete at the end is left out.
class LocalText {
  public:
    /// size is at least 1.
    LocalText(char* buffer, std::size_t size);

    /// Whether something did not fit; what comes then is left out.
    bool full() const { return full_; }
    void put(char byte) { put(std::string_view(&byte, 1)); }
    void put(std::string_view text);
    /// To be called once, last.
    void terminate();

  private:
    void copy(std::string_view text);
    void convertPending();

    Conversion* conversion_;  // null: bytes are copied
    char* buffer_;
    std::size_t limit_;
    std::size_t size_;
    std::size_t length_ = 0;
    bool full_;        // from the beginning, where there is no memory to convert
    char pending_[4];  // the beginning of a character
    std::size_t pendingLength_ = 0;
};

/// Converts UTF-8 to local text within size bytes (at least 1), as LocalText does.
void ToLocal(std::string_view utf8, char* buffer, std::size_t size);

/// Converts local text to UTF-8, as far as whole characters fit into size bytes (at least 1) with a terminator. A byte
/// that is part of no character becomes "?"; a character that is not complete at the end is left out.
/// @return the length of what was written, without the terminator
std::size_t ToUtf8(std::string_view local, char* buffer, std::size_t size);

/// Local text as a text node in UTF-8.
Json::Value Utf8Node(std::string_view local);

}  // namespace jsonparser::support

#endif
