// The pass over a message text, written once for all forms. Each form's source file includes this with its own Blocks:
//   kWidth, kAll              bytes in a block, and a bit for each
//   Blanks(p)                 bits of a block: JSON's white space
//   Endings(p)                of 64 bytes: quotes, backslashes, control characters
//   Starts(p, quoted)         whether a text of at least 32 bytes starts with a quoted name and its colon
//   Structure(p)              of 64 bytes: quotes, backslashes, opening and closing brackets
// Everything here is in an unnamed namespace and nothing is shared with other files: a form for wider instructions is
// compiled with them, and the linker must not take its code for all.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "vkprotocolstack/wire/text_pass.h"

#define ALWAYS_INLINE [[gnu::always_inline]] inline

namespace jsonparser {
namespace {

struct StructureBits {
    std::uint64_t quotes;
    std::uint64_t backslashes;
    std::uint64_t opening;
    std::uint64_t closing;
};

inline bool IsBlank(char byte) { return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t'; }
/// Above 9 when it is none.
inline unsigned DigitOf(char byte) { return static_cast<unsigned char>(byte) - unsigned{'0'}; }

/// Tables of bytes: of a byte that is looked at several times this takes fewer steps than comparisons.
struct ByteTable {
    explicit constexpr ByteTable(std::string_view bytes) : has{} {
        for (const char byte : bytes) has[static_cast<unsigned char>(byte)] = true;
    }
    bool operator[](char byte) const { return has[static_cast<unsigned char>(byte)]; }

    bool has[256];
};
inline constexpr ByteTable kDigits("0123456789");
inline constexpr ByteTable kNumberGoesOn(".eE");  ///< what a number that is no integer has behind its first digits

inline constexpr double kPowersOfTen[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};

inline bool IsDigit(char byte) { return kDigits[byte]; }

inline bool IsContainer(char byte) { return byte == '{' || byte == '['; }

/// Bit i is set when an odd number of bits from it downward are.
inline std::uint64_t ShiftedPrefixXor(std::uint64_t bits) {
    for (unsigned shift = 1; shift < 64; shift *= 2) bits ^= bits << shift;
    return bits;
}

/// The value of four hexadecimal digits; above 0xFFFF when they are none.
inline std::uint32_t Hex4(const char* p) {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) {
        const char byte = p[i];
        const char letter = static_cast<char>(byte | 0x20);
        std::uint32_t digit = 0x10000;
        if (IsDigit(byte)) digit = static_cast<std::uint32_t>(byte - '0');
        if (letter >= 'a' && letter <= 'f') digit = static_cast<std::uint32_t>(letter - 'a' + 10);
        if (digit > 15) return 0x10000;
        value = value << 4 | digit;
    }
    return value;
}

template <class Blocks>
class Pass {
  public:
    explicit Pass(TextPass& job)
        : job_(job),
          tape_(*job.tape),
          limit_(tape_.entries + tape_.capacity),
          end_(job.end),
          maxDepth_(job.maxDepth),
          plainText_(job.plainText) {}

    bool run() {
        while (end_ != job_.begin && IsBlank(end_[-1])) --end_;
        const auto size = static_cast<std::size_t>(end_ - job_.begin);
        lastBlock_ = size >= QuotedName::kBlock ? end_ - QuotedName::kBlock : nullptr;
        const char* p = job_.begin;
        while (p != end_ && IsBlank(*p)) ++p;
        forgetPart();
        if (end_ - p < 2) return declined(p) != nullptr;
        lookAhead(p);
        // What is read from here on ends at the latest at the last byte: a bracket stops every scan but that of texts.
        const char last = end_[-1];
        const bool closes = (*p == '{' && last == '}') || (*p == '[' && last == ']') || (*p == '"' && last == '"');
        if (!closes) return declined(p) != nullptr;
        p = walk(p);
        if (p == nullptr) return false;
        return p == end_ || declined(p) != nullptr;
    }

  private:
    static constexpr std::size_t kBlock = 64;
    static constexpr std::ptrdiff_t kMostOfReal = 100;  ///< bytes; one of more may be too large or small for a double
    static constexpr std::size_t kMostAhead = 32 * kBlock;
    static constexpr std::size_t kAheadSkipping = 4 * kBlock;

    const char* declined(const char* p) {
        job_.stop = p;
        return nullptr;
    }

    ALWAYS_INLINE const char* skipBlanks(const char* p) const {
        if (static_cast<unsigned char>(*p) > ' ') [[likely]]
            return p;
        if (*p == ' ' && static_cast<unsigned char>(p[1]) > ' ') return p + 1;
        return skipManyBlanks(p);
    }

    [[gnu::noinline]] const char* skipManyBlanks(const char* p) const {
        while (static_cast<std::size_t>(end_ - p) >= Blocks::kWidth) {
            const auto others = static_cast<std::uint32_t>(~Blocks::Blanks(p) & Blocks::kAll);
            if (others != 0) return p + __builtin_ctz(others);
            p += Blocks::kWidth;
        }
        while (IsBlank(*p)) ++p;  // the last byte is none
        return p;
    }

    /// The next byte, from p on, that is no ordinary character of a text, where it is known and near; else null. What
    /// ends runs of characters is found for many blocks ahead: so a text's end is known without waiting for that of the
    /// text before, and wherever it begins.
    ALWAYS_INLINE const char* nearEnding(const char* p) const {
        if (p >= behindAhead_) [[unlikely]]
            return nullptr;
        const std::uint64_t endings = endingsFrom(p);
        if (endings == 0) [[unlikely]]
            return nullptr;
        return p + __builtin_ctzll(endings);
    }

    /// Compares two bytes at once. Within containers the last byte is a bracket, so every ending has one behind it.
    ALWAYS_INLINE static bool is(const char* p, const char (&two)[3]) { return std::memcmp(p, two, 2) == 0; }

    /// Of any text, or null where it has none.
    [[gnu::noinline]] const char* endOfText(const char* p, bool& escaped) {
        for (;;) {
            p = nextEnding(p);
            if (p == end_) [[unlikely]]
                return declined(p);
            if (*p == '"') return p;
            if (*p != '\\') return declined(p);
            escaped = true;
            p = skipEscape(p);
            if (p == nullptr) [[unlikely]]
                return nullptr;
        }
    }

    /// Of a name, which has no escapes and not too many bytes, or null.
    [[gnu::noinline]] const char* endOfName(const char* p) {
        bool escaped = false;
        const char* const end = endOfText(p, escaped);
        return end == nullptr || (!escaped && end - p <= 0xFFFF) ? end : declined(p);
    }

    /// The next byte, from p on, that is no ordinary character of a text; the end when there is none.
    const char* nextEnding(const char* p) {
        while (p < end_) {
            if (p >= behindAhead_) lookAhead(p);
            do {
                const std::uint64_t endings = endingsFrom(p);
                if (endings != 0) return p + __builtin_ctzll(endings);
                p += kBlock - reinterpret_cast<std::uintptr_t>(p) % 8;
            } while (p < behindAhead_);
            p = behindAhead_;
        }
        return end_;
    }

    /// Bits of the 57 bytes from p on, or of more. A byte of the table has the bits of eight bytes from an address that
    /// is a multiple of 8: so an address tells where they are, and the next text waits for few steps.
    ALWAYS_INLINE std::uint64_t endingsFrom(const char* p) const {
        const auto address = reinterpret_cast<std::uintptr_t>(p);
        std::uint64_t endings = 0;
        std::memcpy(&endings, reinterpret_cast<const unsigned char*>(endingsOfNull_ + address / 8), sizeof endings);
        return endings >> address % 8;
    }

    /// Finds the endings in the next blocks from p on, before which the pass never goes back. Behind the text are none.
    [[gnu::noinline]] void lookAhead(const char* p) {
        const auto add = [](std::uint64_t endings, unsigned char*& bits) {
            std::memcpy(bits, &endings, sizeof endings);
            bits += sizeof endings;
        };
        const unsigned before = reinterpret_cast<std::uintptr_t>(p) % 8;  // bits of the table before the first one's
        endingsOfNull_ = reinterpret_cast<std::uintptr_t>(endings_) - reinterpret_cast<std::uintptr_t>(p) / 8;
        const std::size_t most = job_.skipOthers ? kAheadSkipping : kMostAhead;
        const auto left = static_cast<std::size_t>(end_ - p);
        behindAhead_ = left <= most - before ? end_ : p + (most - before);
        unsigned char* bits = endings_;
        if (left < kBlock) {
            const std::uint64_t endings = endingsOfTail(p, left);
            add(endings << before, bits);
            add((endings >> 1) >> (kBlock - 1 - before), bits);
            return add(0, bits);
        }
        add(Blocks::Endings(p) << before, bits);
        p += kBlock - before;
        const char* const end = behindAhead_;
        for (; static_cast<std::size_t>(end - p) >= kBlock; p += kBlock) add(Blocks::Endings(p), bits);
        if (p != end) add(endingsOfTail(p, static_cast<std::size_t>(end - p)), bits);
        add(0, bits);
    }

    /// Of the text's last bytes, at least one and fewer than a block from p on.
    ALWAYS_INLINE std::uint64_t endingsOfTail(const char* p, std::size_t size) const {
        if (static_cast<std::size_t>(end_ - job_.begin) >= kBlock)
            return Blocks::Endings(end_ - kBlock) >> (kBlock - size);
        return EndingsOfShort(p, size);
    }
    /// Of a text shorter than a block. Apart, since it needs a frame that others need not set up.
    [[gnu::noinline]] static std::uint64_t EndingsOfShort(const char* p, std::size_t size) {
        char tail[kBlock];
        std::memset(tail, ' ', sizeof tail);
        std::memcpy(tail, p, size);
        return Blocks::Endings(tail);
    }

    const char* skipEscape(const char* p) {
        if (end_ - p < 2) return declined(p);
        switch (p[1]) {
            case '"':
            case '\\':
            case '/':
            case 'b':
            case 'f':
            case 'n':
            case 'r':
            case 't':
                return p + 2;
            case 'u':
                break;
            default:
                return declined(p);
        }
        if (end_ - p < 6) return declined(p);
        const std::uint32_t code = Hex4(p + 2);
        if (code > 0xFFFF || (code >= 0xDC00 && code <= 0xDFFF)) return declined(p);
        if (code < 0xD800 || code > 0xDFFF) return p + 6;
        if (end_ - p < 12 || p[6] != '\\' || p[7] != 'u') return declined(p);
        const std::uint32_t second = Hex4(p + 8);
        return second >= 0xDC00 && second <= 0xDFFF ? p + 12 : declined(p);
    }

    /// Reads the text whose characters begin at p, and end before close, into entry.
    ALWAYS_INLINE void shortText(const char* p, const char* close, TextEntry& entry) const {
        entry.text = p;
        entry.size = static_cast<std::uint32_t>(close - p);
        entry.type = plainText_;
    }

    /// Reads any text whose characters begin at p into entry.
    [[gnu::noinline]] const char* text(const char* p, TextEntry& entry) {
        bool escaped = false;
        const char* const close = endOfText(p, escaped);
        if (close == nullptr) return nullptr;
        shortText(p, close, entry);
        if (escaped) entry.type = TextType::EscapedText;
        return close + 1;
    }

    /// Reads what is neither a text nor a container, and begins with no digit.
    [[gnu::noinline]] const char* word(const char* p, TextEntry& entry) {
        switch (*p) {
            case 't':
                entry.type = TextType::True;
                return word(p, "true", 4);
            case 'f':
                entry.type = TextType::False;
                return word(p, "false", 5);
            case 'n':
                entry.type = TextType::Null;
                return word(p, "null", 4);
            case '-':
                return number(p, p + 1, entry);
            default:
                return declined(p);
        }
    }

    const char* word(const char* p, const char* expected, std::size_t size) {
        if (static_cast<std::size_t>(end_ - p) <= size || std::memcmp(p, expected, size) != 0) return declined(p);
        return p + size;
    }

    /// Reads the scalar at p into entry.
    const char* scalar(const char* p, TextEntry& entry) {
        if (*p == '"') return text(p + 1, entry);
        return IsDigit(*p) ? number(p, p, entry) : word(p, entry);
    }

    // Most values within containers are short, and have a comma behind them: then these are behind that, and say so.

    /// Reads the text whose characters begin at p into entry.
    ALWAYS_INLINE const char* textWithComma(const char* p, TextEntry& entry, bool& comma) {
        const char* const ending = nearEnding(p);
        if (ending == nullptr) [[unlikely]]
            return text(p, entry);
        shortText(p, ending, entry);
        comma = is(ending, "\",");
        if (comma) [[likely]]
            return ending + 2;
        return *ending == '"' ? ending + 1 : text(p, entry);
    }

    /// Reads the number that begins with the digit at p into entry.
    ALWAYS_INLINE const char* numberWithComma(const char* p, TextEntry& entry, bool& comma) {
        std::uint64_t value = 0;
        const char* const end = shortInteger(p, value);
        if (end == nullptr) [[unlikely]]
            return number(p, p, entry);
        entry.integer = static_cast<std::int64_t>(value);
        entry.type = TextType::Integer;
        comma = *end == ',';
        if (comma) [[likely]]
            return end + 1;
        return kNumberGoesOn[*end] ? real(p, p, end, value, entry) : end;
    }

    /// Behind the digits at p; null where there are more than 18, or one more behind a 0. Of few digits the end is told
    /// by jumps alone: what follows need not wait for additions.
    ALWAYS_INLINE static const char* shortInteger(const char* p, std::uint64_t& value) {
        value = DigitOf(*p);
        unsigned digit = DigitOf(p[1]);
        if (digit > 9) return p + 1;
        if (value == 0) return nullptr;
        value = value * 10 + digit;
        digit = DigitOf(p[2]);
        if (digit > 9) return p + 2;
        value = value * 10 + digit;
        digit = DigitOf(p[3]);
        if (digit > 9) return p + 3;
        value = value * 10 + digit;
        digit = DigitOf(p[4]);
        if (digit > 9) return p + 4;
        const char* const digits = p;
        for (p += 5;; p += 2) {
            value = value * 10 + digit;
            digit = DigitOf(p[0]);
            if (digit > 9) break;
            value = value * 10 + digit;
            digit = DigitOf(p[1]);
            if (digit > 9) {
                ++p;
                break;
            }
        }
        return p - digits <= 18 ? p : nullptr;
    }

    /// Reads any number that begins at begin, with its digits from p on.
    [[gnu::noinline]] const char* number(const char* begin, const char* p, TextEntry& entry) {
        const char* const digits = p;
        std::uint64_t value = 0;  // of many digits the low bits
        while (IsDigit(*p)) value = value * 10 + DigitOf(*p++);
        const auto count = static_cast<std::size_t>(p - digits);
        if (count == 0 || (count > 1 && *digits == '0')) return declined(begin);
        const bool negative = digits != begin;
        if (!kNumberGoesOn[*p] && count <= 20) {
            // Twenty digits wrap to less than the first nineteen need, or begin with a digit above 1.
            const bool fits64 = count < 20 || (*digits == '1' && value >= 10000000000000000000U);
            constexpr std::uint64_t kMinimum = std::uint64_t{1} << 63;
            if (fits64 && negative && value <= kMinimum) {
                entry.integer = static_cast<std::int64_t>(0 - value);
                entry.type = TextType::Integer;
                return p;
            }
            if (fits64 && !negative) {
                entry.unsignedInteger = value;
                entry.type = value < kMinimum ? TextType::Integer : TextType::Unsigned;
                return p;
            }
        }
        return real(begin, digits, p, value, entry);
    }

    /// Reads the number that begins at begin, has digits of this value up to point, and is no integer of 64 bits.
    [[gnu::noinline]] const char* real(const char* begin, const char* digits, const char* point, std::uint64_t value,
                                       TextEntry& entry) {
        const char* p = point;
        if (*p == '.') {
            for (unsigned digit; (digit = DigitOf(*++p)) <= 9;) value = value * 10 + digit;
        }
        entry.type = TextType::Real;
        if (isShortReal(digits, point, p)) [[likely]] {
            job_.hasReal = true;
            entry.real = static_cast<double>(static_cast<std::int64_t>(value)) / kPowersOfTen[p - point - 1];
            if (digits != begin) entry.real = -entry.real;
            return p;
        }
        p = behindReal(begin, point);
        if (p != nullptr) entry.real = RealOf(begin, p);
        return p;
    }

    /// Whether the number with these digits around its point, and with its end, is the quotient of two numbers that
    /// doubles hold exactly: that is as near as a double can be.
    ALWAYS_INLINE static bool isShortReal(const char* digits, const char* point, const char* end) {
        return end - point > 1 && end - digits <= 16 && !kNumberGoesOn[*end];
    }

    /// Behind the real number that begins at begin, with its first digits up to p.
    [[gnu::noinline]] const char* behindReal(const char* begin, const char* p) {
        if (*p == '.') {
            const char* const fraction = ++p;
            p = behindDigits(p);
            if (p == fraction) return declined(begin);
        }
        std::size_t exponentDigits = 0;
        if (*p == 'e' || *p == 'E') {
            ++p;
            if (*p == '+' || *p == '-') ++p;
            const char* const exponent = p;
            p = behindDigits(p);
            exponentDigits = static_cast<std::size_t>(p - exponent);
            if (exponentDigits == 0) return declined(begin);
        }
        if (p - begin > kMostOfReal || exponentDigits > 2) return declined(begin);
        job_.hasReal = true;
        return p;
    }

    /// Behind the digits, if any, at p. Where they end is told by jumps, which a processor foresees: it need not wait
    /// for these bytes before it reads on.
    ALWAYS_INLINE static const char* behindDigits(const char* p) {
        for (;; p += 4) {
            if (!IsDigit(p[0])) return p;
            if (!IsDigit(p[1])) return p + 1;
            if (!IsDigit(p[2])) return p + 2;
            if (!IsDigit(p[3])) return p + 3;
        }
    }

    /// Behind the text whose characters begin at p.
    [[gnu::noinline]] const char* checkText(const char* p) {
        bool escaped = false;
        p = endOfText(p, escaped);
        return p == nullptr ? p : p + 1;
    }
    ALWAYS_INLINE const char* checkTextWithComma(const char* p, bool& comma) {
        const char* const ending = nearEnding(p);
        if (ending == nullptr) [[unlikely]]
            return checkText(p);
        comma = is(ending, "\",");
        if (comma) [[likely]]
            return ending + 2;
        return *ending == '"' ? ending + 1 : checkText(p);
    }

    /// Behind the number that begins with the digit at p.
    ALWAYS_INLINE const char* checkNumberWithComma(const char* p, bool& comma) {
        // Most have few digits: how many is known by where there is no more.
        const char* const digits = p;
        if (DigitOf(p[1]) > 9) {
            p += 1;
        } else if (*digits == '0') {
            return declined(digits);
        } else if (DigitOf(p[2]) > 9) {
            p += 2;
        } else if (DigitOf(p[3]) > 9) {
            p += 3;
        } else if (DigitOf(p[4]) > 9) {
            p += 4;
        } else {
            p = behindDigits(p + 5);
            if (p - digits > 18) [[unlikely]]
                return checkScalar(digits);
        }
        comma = *p == ',';
        if (comma) [[likely]]
            return p + 1;
        if (*p == '.') {
            const char* const point = p;
            while (DigitOf(*++p) <= 9) {
            }
            if (p - point == 1 || p - digits > kMostOfReal || kNumberGoesOn[*p]) return behindReal(digits, point);
            job_.hasReal = true;
            comma = *p == ',';
            return comma ? p + 1 : p;
        }
        return kNumberGoesOn[*p] ? behindReal(digits, p) : p;
    }

    /// Behind the value at p, which is no text, no container, and begins with no digit and no blank.
    ALWAYS_INLINE const char* checkWord(const char* p) {
        if (end_ - p > 5) [[likely]] {
            if (std::memcmp(p, "true", 4) == 0 || std::memcmp(p, "null", 4) == 0) return p + 4;
            if (std::memcmp(p, "false", 5) == 0) return p + 5;
        }
        return checkScalar(p);
    }

    [[gnu::noinline]] const char* checkScalar(const char* p) {
        TextEntry entry;
        return scalar(p, entry);
    }

    /// Behind the value at p, which stands in depth containers, at least one.
    ALWAYS_INLINE const char* otherWithComma(const char* p, std::size_t depth, bool& comma) {
        if (*p == '"') return checkTextWithComma(p + 1, comma);
        if (IsDigit(*p)) return checkNumberWithComma(p, comma);
        if (!IsContainer(*p)) return checkWord(p);
        return job_.skipOthers ? skipContainer(p) : checkContainer(p, depth);
    }

    /// Behind the colon of the name whose characters begin at p.
    [[gnu::noinline]] const char* checkName(const char* p) {
        p = checkText(p);
        return p == nullptr ? p : skipColon(p);
    }

    /// Behind the container at p, which stands in outer containers.
    [[gnu::noinline]] const char* checkContainer(const char* p, std::size_t outer) {
        std::uint64_t kinds = 0;  // of the open containers, the innermost lowest: 1 is an object
        std::uint64_t outerKinds[TextPass::kMaxDepth / 64 + 1];
        std::size_t depth = 0;
    open:
        if (depth % 64 == 0) outerKinds[depth / 64] = kinds;
        ++depth;
        kinds <<= 1;
        if (*p == '[') {
            p = skipBlanks(p + 1);
            if (*p == ']') goto close;
            if (outer + depth >= maxDepth_) [[unlikely]]
                return declined(p);
            goto element;
        }
        ++kinds;
        p = skipBlanks(p + 1);
        if (*p == '}') goto close;
        if (outer + depth >= maxDepth_) [[unlikely]]
            return declined(p);
    member : {
        p = skipQuote(p);
        if (p == nullptr) [[unlikely]]
            return nullptr;
        std::uint64_t endings = 0;
        if (p < behindAhead_) [[likely]]
            endings = endingsFrom(p);
        if (endings != 0 && is(p + __builtin_ctzll(endings), "\":")) [[likely]] {
            const char* const name = p;
            p += __builtin_ctzll(endings) + 2;
            if (*p == '"') {
                // Where the text's end is at hand too, it need not wait for that of the name.
                endings &= endings - 1;  // but for the one behind the name
                endings &= endings - 1;  // and for the quote at p
                if (endings != 0 && is(name + __builtin_ctzll(endings), "\",")) [[likely]] {
                    p = name + __builtin_ctzll(endings) + 2;
                    goto member;
                }
            }
        } else {
            p = checkName(p);
            if (p == nullptr) [[unlikely]]
                return nullptr;
        }
    }
    memberValue : {
        bool comma = false;
        if (*p == '"') [[unlikely]] {  // since most texts were taken with their names
            p = checkTextWithComma(p + 1, comma);
        } else if (DigitOf(*p) <= 9) {
            p = checkNumberWithComma(p, comma);
        } else if (IsContainer(*p)) {
            goto open;
        } else if (IsBlank(*p)) [[unlikely]] {
            p = skipManyBlanks(p);
            goto memberValue;
        } else {
            p = checkWord(p);
        }
        if (comma) [[likely]]
            goto member;
        if (p == nullptr) [[unlikely]]
            return nullptr;
    }
    behindMember:
        if (*p != ',') {
            p = skipBlanks(p);
            if (*p == '}') goto close;
            if (*p != ',') [[unlikely]]
                return declined(p);
        }
        ++p;
        goto member;
    element : {
        bool comma = false;
        if (DigitOf(*p) <= 9) {
            p = checkNumberWithComma(p, comma);
        } else if (IsContainer(*p)) {
            goto open;
        } else if (*p == '"') {
            p = checkTextWithComma(p + 1, comma);
        } else if (IsBlank(*p)) [[unlikely]] {
            p = skipManyBlanks(p);
            goto element;
        } else {
            p = checkWord(p);
        }
        if (comma) [[likely]]
            goto element;
        if (p == nullptr) [[unlikely]]
            return nullptr;
    }
    behindElement:
        if (*p != ',') {
            p = skipBlanks(p);
            if (*p == ']') goto close;
            if (*p != ',') [[unlikely]]
                return declined(p);
        }
        ++p;
        goto element;
    close:
        ++p;
        if (--depth == 0) return p;
        if (p == end_) [[unlikely]]
            return declined(p);
        kinds = depth % 64 == 0 ? outerKinds[depth / 64] : kinds >> 1;
        if ((kinds & 1) != 0) goto behindMember;
        goto behindElement;
    }

    /// Behind the container at p, following only quotes and brackets.
    [[gnu::noinline]] const char* skipContainer(const char* p) {
        std::size_t depth = 0;
        std::uint64_t escapedCarry = 0;  // the block's first byte stands behind a backslash that counts
        std::uint64_t textCarry = 0;     // all ones: the block begins within a text
        char tail[64];
        while (p != end_) {
            const auto left = static_cast<std::size_t>(end_ - p);
            const char* block = p;
            if (left < 64) {
                std::memset(tail, ' ', sizeof tail);
                std::memcpy(tail, p, left);
                block = tail;
            }
            const StructureBits bits = Blocks::Structure(block);
            std::uint64_t quotes = bits.quotes;
            if (bits.backslashes != 0 || escapedCarry != 0) {
                std::uint64_t escaped = escapedCarry;
                std::uint64_t backslashes = bits.backslashes & ~escapedCarry;
                escapedCarry = 0;
                while (backslashes != 0) {
                    const std::uint64_t lowest = backslashes & (0 - backslashes);
                    const std::uint64_t next = lowest << 1;
                    if (next == 0) escapedCarry = 1;
                    escaped |= next;
                    backslashes &= ~(lowest | next);
                }
                quotes &= ~escaped;
            }
            const std::uint64_t inText = Blocks::PrefixXor(quotes) ^ textCarry;
            textCarry = 0 - (inText >> 63);
            const std::uint64_t opening = bits.opening & ~inText;
            const std::uint64_t closing = bits.closing & ~inText;
            const auto closings = static_cast<std::size_t>(__builtin_popcountll(closing));
            if (depth > closings) {
                depth += static_cast<std::size_t>(__builtin_popcountll(opening)) - closings;
            } else {
                for (std::uint64_t brackets = opening | closing; brackets != 0; brackets &= brackets - 1) {
                    const std::uint64_t lowest = brackets & (0 - brackets);
                    if ((opening & lowest) != 0) {
                        ++depth;
                    } else if (--depth == 0) {
                        return p + __builtin_ctzll(brackets) + 1;
                    }
                }
            }
            p += left < 64 ? left : 64;
        }
        return declined(p);
    }

    /// Makes room for an entry at next, behind the last one. The tape may move.
    /// @return false when there is no memory, which is the message's end
    [[gnu::noinline]] bool grow(const TextEntry* next) {
        const MarkedEntry before = Marked(tape_.entries);
        if (!tape_.grow(indexOf(next))) {
            job_.noMemory = true;
            return false;
        }
        limit_ = tape_.entries + tape_.capacity;
        const MarkedEntry moved = Marked(tape_.entries) - before;
        for (std::size_t i = 0; i < slotCount_; ++i) {
            if (slots()[i] != 0) slots()[i] += moved;
        }
        return true;
    }

    MarkedEntry* slots() const { return reinterpret_cast<MarkedEntry*>(tape_.entries); }

    /// Reads the name whose characters begin at p into entry, and its colon.
    ALWAYS_INLINE const char* nameWithColon(const char* p, TextEntry& entry) {
        entry.name = p;
        const char* const ending = nearEnding(p);
        if (ending == nullptr || !is(ending, "\":")) [[unlikely]]
            return name(p, entry);
        entry.nameSize = static_cast<std::uint16_t>(ending - p);
        return ending + 2;
    }
    /// The same of any name.
    [[gnu::noinline]] const char* name(const char* p, TextEntry& entry) {
        const char* const close = endOfName(p);
        if (close == nullptr) return nullptr;
        entry.nameSize = static_cast<std::uint16_t>(close - p);
        return skipColon(close + 1);
    }

    // Messages have few blanks or none, so what looks for a value's first byte looks for blanks last.

    /// Behind the colon between a name and its value; null where there is none.
    ALWAYS_INLINE const char* skipColon(const char* p) {
        if (*p != ':') [[unlikely]] {
            p = skipBlanks(p);
            if (*p != ':') return declined(p);
        }
        return p + 1;
    }

    /// Behind the quote of the name that is due at p; null where there is none.
    ALWAYS_INLINE const char* skipQuote(const char* p) {
        if (*p != '"') [[unlikely]] {
            p = skipBlanks(p);
            if (*p != '"') return declined(p);
        }
        return p + 1;
    }

    /// Takes down the array at p, whose entry is the tape's last. Null where its elements are not all integers of 1 to
    /// 18 digits, without signs and blanks, or the tape has no room for them: then it is as if not tried.
    [[gnu::noinline]] const char* tapeIntegers(const char* p, TextEntry& array) {
        TextEntry* entry = &array;
        do {
            if (++entry == limit_ || DigitOf(*++p) > 9) return nullptr;
            std::uint64_t value = 0;
            p = shortInteger(p, value);
            if (p == nullptr) return nullptr;
            entry->integer = static_cast<std::int64_t>(value);
            entry->type = TextType::Integer;
        } while (*p == ',');
        if (*p != ']') return nullptr;
        closeFlat(array, entry);
        return p + 1;
    }

    /// The same of an array of texts without escapes, each of up to 56 bytes or a few more, and without blanks between
    /// them. A text's end is told from that of the text before by the endings between them, as far as those are at
    /// hand.
    [[gnu::noinline]] const char* tapeTexts(const char* p, TextEntry& array) {
        TextEntry* entry = &array;
        p += 2;
        for (;;) {
            if (p >= behindAhead_) return nullptr;
            const char* const from = p;
            std::uint64_t endings = endingsFrom(from);
            if (endings == 0) return nullptr;
            do {
                if (++entry == limit_) return nullptr;
                const char* const close = from + __builtin_ctzll(endings);
                shortText(p, close, *entry);
                if (!is(close, "\",")) {
                    if (!is(close, "\"]")) return nullptr;
                    closeFlat(array, entry);
                    return close + 2;
                }
                if (close[2] != '"') return nullptr;
                p = close + 3;
                endings &= endings - 1;  // but for the one at close
                endings &= endings - 1;  // and for the quote in front of p
            } while (endings != 0);
        }
    }

    void closeFlat(TextEntry& array, TextEntry* last) {
        array.size = static_cast<std::uint32_t>(last - &array);
        next_ = last + 1;
        array.span = BytesBetween(&array, next_);
        array.type = TextType::Array;
    }

    /// tapeIntegers or tapeTexts, where it is likely, in depth containers.
    ALWAYS_INLINE const char* likelyFlat(const char* p, TextEntry& array, std::size_t depth) {
        if (*p != '[' || depth + 1 >= maxDepth_) return nullptr;
        if (DigitOf(p[1]) <= 9) return tapeIntegers(p, array);
        return p[1] == '"' ? tapeTexts(p, array) : nullptr;
    }

    /// Takes down the container at p, whose entry is the tape's last, and what is in it.
    [[gnu::noinline]] const char* tapeContainer(const char* p, std::size_t depth) {
        TextEntry* next = next_;
        TextEntry* container = next - 1;
        TextEntry* entry = nullptr;
        std::uint32_t children = 0;  // of the container so far; of those around it their entries keep it
        container->parent = 0;
        const std::size_t outermost = depth;
    open:
        ++depth;
        children = 0;
        if (*p == '[') {
            container->type = TextType::Array;
            p = skipBlanks(p + 1);
            if (*p == ']') goto close;
            if (depth >= maxDepth_) [[unlikely]]
                return declined(p);
            goto element;
        }
        container->type = TextType::Object;
        p = skipBlanks(p + 1);
        if (*p == '}') goto close;
        if (depth >= maxDepth_) [[unlikely]]
            return declined(p);
    member : {
        const char* const name = skipQuote(p);
        if (name == nullptr) [[unlikely]]
            return nullptr;
        if (next == limit_) [[unlikely]] {
            const std::size_t index = indexOf(container);
            const std::size_t used = indexOf(next);
            if (!grow(next)) return declined(name);
            container = tape_.entries + index;
            next = tape_.entries + used;
        }
        entry = next++;
        p = nameWithColon(name, *entry);
        if (p == nullptr) [[unlikely]]
            return nullptr;
        ++children;
    }
    memberValue : {
        bool comma = false;
        if (*p == '"') {
            p = textWithComma(p + 1, *entry, comma);
        } else if (DigitOf(*p) <= 9) {
            p = numberWithComma(p, *entry, comma);
        } else if (IsContainer(*p)) {
            goto nested;
        } else if (IsBlank(*p)) [[unlikely]] {
            p = skipManyBlanks(p);
            goto memberValue;
        } else {
            p = word(p, *entry);
        }
        if (comma) goto member;
        if (p == nullptr) [[unlikely]]
            return nullptr;
    }
    behindMember:
        if (*p != ',') {
            p = skipBlanks(p);
            if (*p == '}') goto close;
            if (*p != ',') [[unlikely]]
                return declined(p);
        }
        ++p;
        goto member;
    element:
        if (next == limit_) [[unlikely]] {
            const std::size_t index = indexOf(container);
            const std::size_t used = indexOf(next);
            if (!grow(next)) return declined(p);
            container = tape_.entries + index;
            next = tape_.entries + used;
        }
        entry = next++;
        ++children;
    elementValue : {
        bool comma = false;
        if (*p == '"') {
            p = textWithComma(p + 1, *entry, comma);
        } else if (DigitOf(*p) <= 9) {
            p = numberWithComma(p, *entry, comma);
        } else if (IsContainer(*p)) {
            entry->name = nullptr;  // which also says that it has no slots
            goto nested;
        } else if (IsBlank(*p)) [[unlikely]] {
            p = skipManyBlanks(p);
            goto elementValue;
        } else {
            p = word(p, *entry);
        }
        if (comma) goto element;
        if (p == nullptr) [[unlikely]]
            return nullptr;
    }
    behindElement:
        if (*p != ',') {
            p = skipBlanks(p);
            if (*p == ']') goto close;
            if (*p != ',') [[unlikely]]
                return declined(p);
        }
        ++p;
        goto element;
    nested:
        if (const char* const behind = likelyFlat(p, *entry, depth)) {
            p = behind;
            if (p == end_) [[unlikely]]
                return declined(p);
            next = next_;
            if (container->type == TextType::Array) goto behindElement;
            goto behindMember;
        }
        container->size = children;
        entry->parent = BytesBetween(container, entry);
        container = entry;
        goto open;
    close:
        ++p;
        container->size = children;
        const std::size_t parent = container->parent;
        container->span = BytesBetween(container, next);
        if (--depth == outermost) {
            next_ = next;
            return p;
        }
        if (p == end_) [[unlikely]]
            return declined(p);
        container = EntryBefore(container, parent);
        children = container->size;
        if (container->type == TextType::Array) goto behindElement;
        goto behindMember;
    }

    /// The index of the entry's name in the expected ones plus one; 0 when it is none of them.
    ALWAYS_INLINE std::size_t find(const TextEntry& entry) const {
        const NameIndex& expected = *job_.expected;
        const char* const quote = entry.name - 1;
        const bool isBlock = quote <= lastBlock_ && entry.name[entry.nameSize + 1] == ':';
        if (!isBlock) [[unlikely]]
            return expected.find(entry.name, entry.nameSize);
        std::size_t slot = HashOfName(entry.name, entry.nameSize) & expected.slotMask;
        for (; expected.slots[slot] != 0; slot = (slot + 1) & expected.slotMask) {
            const std::size_t index = expected.slots[slot];
            if (Blocks::Starts(quote, expected.quoted[index - 1])) [[likely]]
                return index;
        }
        return 0;
    }

    /// Makes room from next on, the tape's next entry, for the expected members that may follow, and one more. The tape
    /// may move, and order with it.
    /// @return false when there is no memory
    ALWAYS_INLINE bool makeRoomForExpected(TextEntry*& next, std::uint8_t*& order) {
        const std::size_t needed = (job_.expected->count + 1) * sizeof(TextEntry);
        const std::size_t room = reinterpret_cast<std::uintptr_t>(limit_) - reinterpret_cast<std::uintptr_t>(next);
        if (room >= needed) [[likely]]
            return true;
        const std::size_t used = indexOf(next);
        if (!grow(next)) return false;
        next = tape_.entries + used;
        order = orderOfExpected();
        return true;
    }

    /// By the number of an expected name, that of the one that came behind it in another message, or 0; null where the
    /// list is too long for that.
    ALWAYS_INLINE std::uint8_t* orderOfExpected() const {
        const NameIndex& expected = *job_.expected;
        return expected.count > MemberOrder::kMost ? nullptr : tape_.nextOf(expected.names);
    }

    /// Whether the text begins with the quoted name and its colon at p, which is too near its end for a block, and has
    /// a byte behind them.
    ALWAYS_INLINE bool startsNearEnd(const char* p, const QuotedName& quoted) const {
        const std::size_t size = quoted.size + QuotedName::kMarks;
        // What nothing matches has no quote.
        return *p == '"' && static_cast<std::size_t>(end_ - p) > size && std::memcmp(p, quoted.bytes, size) == 0;
    }

    /// Takes down the object at p, whose entry is the tape's last, matching its members against the expected names: the
    /// one behind the last match is tried before any search, then, but near the text's end, the one that came there in
    /// another message. Neither needs a look for the name's end.
    [[gnu::noinline]] const char* tapeExpected(const char* p, std::size_t depth) {
        const NameIndex& expected = *job_.expected;
        const QuotedName* quoted = expected.quoted;
        MarkedEntry* slot = slots();
        const char* const lastBlock = lastBlock_;
        std::size_t inMembers = 0;  // bytes of the entries of what stands in members
        TextEntry* entry = next_;   // the tape's next one: of the member that is read
        // Two bytes before a member: behind a comma that is the end of the value before, so that from a text to the
        // next one it is one addition. An address, since the first member may begin at the message's second byte.
        std::uintptr_t last = 0;
        std::uint8_t* order = orderOfExpected();
        ++depth;
        p = skipBlanks(p + 1);
        if (*p == '}') return closeExpected(p, inMembers);
        if (depth >= maxDepth_) [[unlikely]]
            return declined(p);
    behindComma:
        last = reinterpret_cast<std::uintptr_t>(p) - 2;
    member:
        p = reinterpret_cast<const char*>(last + 2);
        if (p <= lastBlock) [[likely]] {
            if (Blocks::Starts(p, *quoted)) [[likely]]
                goto matched;
            const std::size_t other = order == nullptr ? 0 : order[slot - slots()];
            if (other - 1 < expected.count && Blocks::Starts(p, expected.quoted[other - 1])) {
                if (!makeRoomForExpected(entry, order)) [[unlikely]]
                    return declined(p);
                quoted = expected.quoted + (other - 1);
                slot = slots() + (other - 1);
                goto matched;
            }
        } else if (startsNearEnd(p, *quoted)) {
            goto matched;
        }
        p = skipQuote(p);
        if (p == nullptr) [[unlikely]]
            return nullptr;
        p = nameWithColon(p, *entry);
        if (p == nullptr) [[unlikely]]
            return nullptr;
        if (const std::size_t found = find(*entry)) {
            if (order != nullptr) order[slot - slots()] = static_cast<std::uint8_t>(found);
            quoted = expected.quoted + found;
            slot = slots() + found;
            slot[-1] = Marked(entry);
        }
        if (!makeRoomForExpected(++entry, order)) [[unlikely]]
            return declined(p);
        --entry;
        slot = slots() + (quoted - expected.quoted);
        ++p;
        goto value;
    matched:
        entry->name = p + 1;
        entry->nameSize = quoted->size;
        p = reinterpret_cast<const char*>(last + quoted->toText);
        ++quoted;
        *slot++ = Marked(entry);
    value:
        if (p[-1] == '"') {
            const char* const ending = nearEnding(p);
            if (ending != nullptr && is(ending, "\",")) [[likely]] {
                shortText(p, ending, *entry++);
                last = reinterpret_cast<std::uintptr_t>(ending);
                goto member;
            }
            p = text(p, *entry++);
        } else if (DigitOf(p[-1]) <= 9) {
            bool comma = false;
            p = numberWithComma(p - 1, *entry++, comma);
            if (comma) goto behindComma;
        } else if (IsContainer(p[-1])) {
            --p;
            next_ = entry + 1;
            const MarkedEntry tape = Marked(tape_.entries);
            const auto number = static_cast<std::size_t>(slot - slots());
            const std::size_t before = BytesBetween(tape_.entries, next_);
            const char* const close = likelyFlat(p, *entry, depth);
            p = close != nullptr ? close : tapeContainer(p, depth);
            if (p == nullptr) [[unlikely]]
                return nullptr;
            entry = next_;
            inMembers += BytesBetween(tape_.entries, entry) - before;
            if (p == end_) [[unlikely]]
                return declined(p);
            if (!makeRoomForExpected(entry, order)) [[unlikely]]
                return declined(p);
            if (Marked(tape_.entries) != tape) [[unlikely]] {
                slot = slots() + number;
                order = orderOfExpected();
            }
        } else if (IsBlank(p[-1])) [[unlikely]] {
            p = skipManyBlanks(p) + 1;
            goto value;
        } else {
            p = word(p - 1, *entry++);
        }
        if (p == nullptr) [[unlikely]]
            return nullptr;
        if (*p != ',') {
            p = skipBlanks(p);
            if (*p == '}') {
                next_ = entry;
                return closeExpected(p, inMembers);
            }
            if (*p != ',') [[unlikely]]
                return declined(p);
        }
        ++p;
        goto behindComma;
    }

    const char* closeExpected(const char* p, std::size_t inMembers) {
        TextEntry* const object = part();
        object->type = TextType::Object;
        object->span = BytesBetween(object, next_);
        object->size = static_cast<std::uint32_t>((object->span - inMembers) / sizeof(TextEntry) - 1);
        object->matched = job_.expected->names;
        return p + 1;
    }

    std::size_t indexOf(const TextEntry* entry) const { return static_cast<std::size_t>(entry - tape_.entries); }

    TextEntry* part() const { return tape_.entries + SlotEntries(slotCount_); }

    /// Takes down the value at p, the part.
    const char* tapePart(const char* p, std::size_t depth) {
        const bool isExpected = job_.expected != nullptr && *p == '{';
        const std::size_t count = isExpected ? job_.expected->count : 0;
        while (tape_.capacity < SlotEntries(count) + count + 2) {
            if (!grow(tape_.entries)) return declined(p);
        }
        std::memset(slots(), 0, count * sizeof(MarkedEntry));
        slotCount_ = count;
        TextEntry* const entry = part();
        next_ = entry + 1;
        entry->matched = nullptr;
        entry->nameSize = 0;
        if (isExpected) {
            p = tapeExpected(p, depth);
        } else {
            p = IsContainer(*p) ? tapeContainer(p, depth) : scalar(p, *entry);
        }
        job_.part = part();
        return p;
    }

    void forgetPart() {
        job_.part = nullptr;
        next_ = tape_.entries;
        slotCount_ = 0;
    }

    /// Follows the steps from the value at p, the message, to the part, and checks what lies around.
    const char* walk(const char* p) {
        std::size_t indexes[TextPass::kMaxSteps];
        bool isObject[TextPass::kMaxSteps];
        std::size_t depth = 0;  // of the containers on the way, all of whose steps led here
    value:
        if (depth == job_.stepCount) {
            p = tapePart(p, depth);
        } else if (IsContainer(*p)) {
            isObject[depth] = *p == '{';
            indexes[depth] = 0;
            ++depth;
            p = skipBlanks(p + 1);
            if (*p == (isObject[depth - 1] ? '}' : ']')) goto close;
            if (depth >= maxDepth_) [[unlikely]]
                return declined(p);
            if (isObject[depth - 1]) goto member;
            goto element;
        } else {
            p = checkScalar(p);
        }
        if (p == nullptr) [[unlikely]]
            return nullptr;
    behind:
        if (depth == 0) return p;
        if (p == end_) [[unlikely]]
            return declined(p);
        p = skipBlanks(p);
        if (*p == ',') {
            ++p;
            goto next;
        }
        if (*p != (isObject[depth - 1] ? '}' : ']')) return declined(p);
    close:
        ++p;
        --depth;
        goto behind;
    next:
        p = skipBlanks(p);
        if (!isObject[depth - 1]) {
            ++indexes[depth - 1];
            goto element;
        }
    member : {
        if (*p != '"') return declined(p);
        const char* const name = p + 1;
        TextEntry entry;
        p = nameWithColon(name, entry);
        if (p == nullptr) [[unlikely]]
            return nullptr;
        const std::size_t size = entry.nameSize;
        p = skipBlanks(p);
        const TextStep& step = job_.steps[depth - 1];
        if ((step.size == size || step.escaped) && IsStepTo(step, name, size)) {
            forgetPart();  // of members with the same name the last one counts
            goto value;
        }
    }
    other : {
        bool comma = false;
        p = otherWithComma(p, depth, comma);
        if (comma) goto next;
        if (p == nullptr) [[unlikely]]
            return nullptr;
        goto behind;
    }
    element:
        if (indexes[depth - 1] == job_.steps[depth - 1].index) goto value;
        goto other;
    }

    TextPass& job_;
    TextTape& tape_;
    TextEntry* next_ = nullptr;        ///< behind the tape's last entry
    TextEntry* limit_;                 ///< behind its memory
    std::size_t slotCount_ = 0;        ///< slots at its beginning
    const char* end_;                  ///< behind the last byte that is not blank
    const char* lastBlock_ = nullptr;  ///< where a name's block may be read for the last time; null when there is none
    const std::size_t maxDepth_;
    const TextType plainText_;
    const char* behindAhead_ = nullptr;  ///< up to where endings are known
    std::uintptr_t endingsOfNull_ = 0;   ///< where their bits were if they went on down to the address 0
    /// Bits of bytes that are no ordinary characters of a text, and 64 zeroes behind them.
    unsigned char endings_[kMostAhead / 8 + sizeof(std::uint64_t)];
};

}  // namespace
}  // namespace jsonparser

#undef ALWAYS_INLINE
