#include "vkprotocolstack/support/charset.h"

#include <iconv.h>
#include <json/value.h>
#include <langinfo.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <new>

#include "vkprotocolstack/support/thread_pointer.h"

namespace jsonparser::support {

struct LocalForm {
    char32_t code;  ///< U+0000 while this is none
    char bytes[4];
    unsigned char length;  ///< 0: the character has no local form
};

struct Conversion {
    char codeset[64];  ///< "" while nothing is open
    iconv_t toLocal;
    iconv_t toUtf8;
    bool asciiIsSame;
    LocalForm forms[509];  ///< of characters that came before: the texts of a place repeat theirs
};

namespace {

constexpr auto kFailed = static_cast<std::size_t>(-1);
constexpr char32_t kNoCharacter = 0xFFFFFFFF;

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

/// Bytes of the character that this byte begins; 1 for a byte that begins none.
std::size_t SequenceLength(char byte) {
    const auto lead = static_cast<unsigned char>(byte);
    if (lead >= 0xF0) return 4;
    if (lead >= 0xE0) return 3;
    if (lead >= 0xC0) return 2;
    return 1;
}

struct Character {
    std::size_t length;  ///< 0 when the text ends within it
    char32_t code;
};

/// Whether no character begins so: by the first two bytes of its UTF-8, without their marks.
bool IsNoCharacter(char32_t start, std::size_t length) {
    const bool overlong = start < 0x100U >> length;
    const bool surrogate = length == 3 && start >= 0xD800 >> 6 && start <= 0xDFFF >> 6;
    const bool beyondUnicode = length == 4 && start > 0x10FFFF >> 12;
    return overlong || surrogate || beyondUnicode;
}

/// What UTF-8 text, which is not empty, begins with.
Character FirstCharacter(std::string_view text) {
    constexpr Character kMalformed{1, kNoCharacter};
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) return {1, lead};
    if (lead < 0xC2 || lead > 0xF4) return kMalformed;
    const std::size_t length = SequenceLength(text[0]);
    char32_t code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if (i == text.size()) return {0, kNoCharacter};
        if (!IsContinuation(text[i])) return kMalformed;
        code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3FU);
        if (i == 1 && IsNoCharacter(code, length)) return kMalformed;
    }
    return {length, code};
}

/// Some encodings hold a character back until they see what follows, or until they are told that nothing does.
bool Flush(iconv_t converter, char*& to, std::size_t& room) {
    return iconv(converter, nullptr, nullptr, &to, &room) != kFailed;
}

void Reset(iconv_t converter) { iconv(converter, nullptr, nullptr, nullptr, nullptr); }

/// Converts text as a whole, unless that takes more than room bytes.
/// @return the length of the result, 0 for none
std::size_t ConvertWhole(iconv_t converter, std::string_view text, char* to, std::size_t room) {
    char* from = const_cast<char*>(text.data());
    std::size_t left = text.size();
    char* end = to;
    if (iconv(converter, &from, &left, &end, &room) != kFailed && Flush(converter, end, room)) {
        return static_cast<std::size_t>(end - to);
    }
    Reset(converter);
    return 0;
}

/// The local form of one character, unless that is longer or stands for another character: iconv has the nearest one
/// for some.
LocalForm FindForm(const Conversion& conversion, std::string_view character, char32_t code) {
    LocalForm form{code, {}, 0};
    const bool isTag = (code & ~char32_t{0x7F}) == 0xE0000;  // most of iconv's encodings lose these without a word
    if (code == kNoCharacter || isTag) return form;
    const std::size_t length = ConvertWhole(conversion.toLocal, character, form.bytes, character.size());
    if (length == 0) return form;
    char back[4];
    const std::size_t backLength = ConvertWhole(conversion.toUtf8, {form.bytes, length}, back, sizeof back);
    if (std::string_view(back, backLength) == character) form.length = static_cast<unsigned char>(length);
    return form;
}

std::string_view FormOf(Conversion& conversion, std::string_view character, char32_t code) {
    if (code < 0x80 && conversion.asciiIsSame) return character;
    LocalForm& form = conversion.forms[code % std::size(conversion.forms)];
    if (form.code != code) form = FindForm(conversion, character, code);
    return {form.bytes, form.length};
}

thread_local Conversion theConversion;
constinit ThreadPointer keptToLocal;
constinit ThreadPointer keptToUtf8;

/// Stands for one that there is no memory for: every text becomes empty.
constinit Conversion noMemory{};

/// False for what the C library has closed, since the thread ends: what else runs then may convert too.
bool IsKept(const ThreadPointer& kept, iconv_t converter) { return kept.isOver() || kept.get() == converter; }

bool AreKept() { return IsKept(keptToLocal, theConversion.toLocal) && IsKept(keptToUtf8, theConversion.toUtf8); }

void Close(ThreadPointer& kept, iconv_t converter) {
    if (!IsKept(kept, converter)) return;
    kept.set(nullptr);
    iconv_close(converter);
}

void Close() {
    if (theConversion.codeset[0] == '\0') return;
    Close(keptToLocal, theConversion.toLocal);
    Close(keptToUtf8, theConversion.toUtf8);
    theConversion.codeset[0] = '\0';
}

/// Both descriptors' keys. They end together, closed and forgotten on the calling thread, which may convert once more.
class Keys {
  public:
    ~Keys() { Close(); }

  private:
    using Release = void (*)(void*);
    /// In two steps, since it returns what nobody looks at.
    static Release closing() { return reinterpret_cast<Release>(reinterpret_cast<void (*)()>(iconv_close)); }

    ThreadPointer::Lifetime toLocal_{keptToLocal, closing()};
    ThreadPointer::Lifetime toUtf8_{keptToUtf8, closing()};
};

/// Has both descriptors closed when the thread ends, or neither.
bool Keep(iconv_t toLocal, iconv_t toUtf8) {
    static const Keys keys;
    if (keptToLocal.isOver()) return true;
    if (!keptToLocal.set(toLocal)) return false;
    if (keptToUtf8.set(toUtf8)) return true;
    keptToLocal.set(nullptr);
    return false;
}

bool AsciiIsSame() {
    char ascii[128];
    char converted[sizeof ascii];
    for (std::size_t i = 0; i < sizeof ascii; ++i) ascii[i] = static_cast<char>(i);
    const std::string_view all(ascii, sizeof ascii);
    for (const iconv_t converter : {theConversion.toLocal, theConversion.toUtf8}) {
        const std::size_t length = ConvertWhole(converter, all, converted, sizeof converted);
        if (std::string_view(converted, length) != all) return false;
    }
    return true;
}

bool IsOpen(iconv_t converter) { return reinterpret_cast<std::intptr_t>(converter) != -1; }

/// Opens both ways, or neither.
/// @return 0, or why not, as in errno
int Open(const char* codeset) {
    const std::size_t size = std::strlen(codeset) + 1;
    if (size > sizeof theConversion.codeset) return EINVAL;
    theConversion.toLocal = iconv_open(codeset, "UTF-8");
    if (!IsOpen(theConversion.toLocal)) return errno;
    theConversion.toUtf8 = iconv_open("UTF-8", codeset);
    if (!IsOpen(theConversion.toUtf8)) {
        const int error = errno;
        iconv_close(theConversion.toLocal);
        return error;
    }
    if (!Keep(theConversion.toLocal, theConversion.toUtf8)) {
        iconv_close(theConversion.toLocal);
        iconv_close(theConversion.toUtf8);
        return ENOMEM;
    }
    std::memcpy(theConversion.codeset, codeset, size);
    theConversion.asciiIsSame = AsciiIsSame();
    std::fill(std::begin(theConversion.forms), std::end(theConversion.forms), LocalForm{});
    return 0;
}

/// The conversion for an encoding, null where iconv does not know it, noMemory where there is none for it.
[[gnu::noinline]] Conversion* ConversionFor(const char* codeset) {
    if (std::strcmp(codeset, theConversion.codeset) != 0 || !AreKept()) {
        Close();
        if (Open(codeset) == ENOMEM) return &noMemory;
    }
    return theConversion.codeset[0] == '\0' ? nullptr : &theConversion;
}

/// The conversion for the calling thread's locale as it is now, null where bytes are copied, or noMemory. Good until
/// the next call on this thread.
Conversion* LocalConversion() {
    const char* codeset = nl_langinfo(CODESET);
    return IsUtf8OrAscii(codeset) ? nullptr : ConversionFor(codeset);
}

bool IsCopied(const Conversion* conversion, std::string_view text) {
    return conversion == nullptr || (conversion->asciiIsSame && IsAscii(text));
}

/// Converts text piece by piece around what is malformed, as far as it fits.
std::size_t Convert(iconv_t converter, std::string_view local, char* buffer, std::size_t size) {
    char* from = const_cast<char*>(local.data());
    std::size_t left = local.size();
    char* to = buffer;
    std::size_t room = size - 1;
    while (iconv(converter, &from, &left, &to, &room) == kFailed && errno == EILSEQ) {
        if (!Flush(converter, to, room) || room == 0) break;
        *to++ = '?';
        --room;
        ++from;
        --left;
    }
    Flush(converter, to, room);
    Reset(converter);
    *to = '\0';
    return static_cast<std::size_t>(to - buffer);
}

}  // namespace

std::string_view UpToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

std::size_t WholeCharacters(std::string_view text, std::size_t limit) {
    if (text.size() <= limit) return text.size();
    std::size_t begin = limit;
    while (begin > 0 && limit - begin < 3 && IsContinuation(text[begin])) --begin;
    return begin + SequenceLength(text[begin]) > limit && begin < limit ? begin : limit;
}

std::size_t CopyCut(std::string_view text, char* buffer, std::size_t size) {
    const std::size_t length = WholeCharacters(text, size - 1);
    std::copy_n(text.data(), length, buffer);
    buffer[length] = '\0';
    return length;
}

LocalText::LocalText(char* buffer, std::size_t size)
    : conversion_(LocalConversion()),
      buffer_(buffer),
      limit_(conversion_ == nullptr ? size : size - 1),
      size_(size),
      full_(conversion_ == &noMemory) {}

void LocalText::put(std::string_view text) {
    if (full_) return;
    if (pendingLength_ == 0 && IsCopied(conversion_, text)) return copy(text);
    for (std::size_t i = 0; i < text.size() && !full_; ++i) {
        pending_[pendingLength_++] = text[i];
        convertPending();
    }
}

void LocalText::terminate() {
    // Copied bytes have taken the terminator's place too: what stands there tells whether the cut splits a character,
    // of which nothing may stay.
    const std::size_t end = conversion_ == nullptr ? WholeCharacters({buffer_, length_}, size_ - 1) : length_;
    std::fill(buffer_ + end, buffer_ + std::max(length_, end + 1), '\0');
}

void LocalText::copy(std::string_view text) {
    const std::size_t length = std::min(text.size(), limit_ - length_);
    std::copy_n(text.data(), length, buffer_ + length_);
    length_ += length;
    full_ = length < text.size();
}

void LocalText::convertPending() {
    while (pendingLength_ > 0) {
        const std::string_view pending(pending_, pendingLength_);
        const Character first = FirstCharacter(pending);
        if (first.length == 0) return;
        std::string_view form = FormOf(*conversion_, pending.substr(0, first.length), first.code);
        if (form.empty()) form = FormOf(*conversion_, "?", U'?');
        if (form.size() > limit_ - length_) full_ = true;
        if (!full_) copy(form);
        pendingLength_ -= first.length;
        std::copy_n(pending_ + first.length, pendingLength_, pending_);
    }
}

namespace {

[[gnu::noinline]] void PutWhole(std::string_view utf8, char* buffer, std::size_t size) {
    LocalText text(buffer, size);
    text.put(utf8);
    text.terminate();
}

}  // namespace

void ToLocal(std::string_view utf8, char* buffer, std::size_t size) {
    if (utf8.size() < size && LocalConversion() == nullptr) {
        utf8.copy(buffer, utf8.size());
        buffer[utf8.size()] = '\0';
        return;
    }
    PutWhole(utf8, buffer, size);
}

std::size_t ToUtf8(std::string_view local, char* buffer, std::size_t size) {
    const Conversion* conversion = LocalConversion();
    if (conversion == &noMemory) return CopyCut("", buffer, size);
    return IsCopied(conversion, local) ? CopyCut(local, buffer, size)
                                       : Convert(conversion->toUtf8, local, buffer, size);
}

Json::Value Utf8Node(std::string_view local) {
    const auto node = [](const char* text, std::size_t length) { return Json::Value(text, text + length); };
    if (IsCopied(LocalConversion(), local)) return node(local.data(), local.size());
    constexpr std::size_t kMostForAByte = 12;  // TSCII has syllables of four characters
    const std::size_t size = kMostForAByte * local.size() + 1;
    const std::unique_ptr<char[]> utf8(new (std::nothrow) char[size]);
    return utf8 == nullptr ? node("", 0) : node(utf8.get(), ToUtf8(local, utf8.get(), size));
}

}  // namespace jsonparser::support
