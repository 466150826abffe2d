// The pass for any machine: eight bytes at a time in a word.
#include <bit>

#include "vkprotocolstack/wire/text_pass_forms.h"

namespace jsonparser {
namespace {

static_assert(std::endian::native == std::endian::little, "the first byte of a text is a word's lowest");

struct PlainBlocks {
    static constexpr std::size_t kWidth = 8;
    static constexpr std::uint32_t kAll = 0xFF;
    static constexpr std::uint64_t kOnes = 0x0101010101010101;
    static constexpr std::uint64_t kHigh = 0x8080808080808080;

    static std::uint64_t Load(const char* p) {
        std::uint64_t word = 0;
        std::memcpy(&word, p, sizeof word);
        return word;
    }
    /// The high bit of each byte of word that is byte.
    static std::uint64_t Equal(std::uint64_t word, char byte) {
        const std::uint64_t other = word ^ (kOnes * static_cast<unsigned char>(byte));
        return ~(((other & ~kHigh) + ~kHigh) | other | ~kHigh);
    }
    /// The high bit of each byte as a bit.
    static std::uint32_t Bits(std::uint64_t high) {
        return static_cast<std::uint32_t>((high >> 7) * 0x0102040810204080 >> 56);
    }

    static std::uint64_t Endings(const char* p) {
        std::uint64_t bits = 0;
        for (std::size_t i = 0; i < 64; i += kWidth) {
            const std::uint64_t word = Load(p + i);
            const std::uint64_t controls = ~((word & ~kHigh) + kOnes * 0x60) & ~word & kHigh;
            bits |= std::uint64_t{Bits(Equal(word, '"') | Equal(word, '\\') | controls)} << i;
        }
        return bits;
    }
    static std::uint32_t Blanks(const char* p) {
        const std::uint64_t word = Load(p);
        return Bits(Equal(word, ' ') | Equal(word, '\n') | Equal(word, '\r') | Equal(word, '\t'));
    }
    static bool Starts(const char* p, const QuotedName& quoted) {
        return quoted.bits <= ~std::uint32_t{0} && std::memcmp(p, quoted.bytes, quoted.size + QuotedName::kMarks) == 0;
    }
    static StructureBits Structure(const char* p) {
        StructureBits bits{};
        for (std::size_t i = 0; i < 64; i += kWidth) {
            const std::uint64_t word = Load(p + i);
            const std::uint64_t folded = word | kOnes * 0x20;
            bits.quotes |= std::uint64_t{Bits(Equal(word, '"'))} << i;
            bits.backslashes |= std::uint64_t{Bits(Equal(word, '\\'))} << i;
            bits.opening |= std::uint64_t{Bits(Equal(folded, '{'))} << i;
            bits.closing |= std::uint64_t{Bits(Equal(folded, '}'))} << i;
        }
        return bits;
    }
    static std::uint64_t PrefixXor(std::uint64_t bits) { return ShiftedPrefixXor(bits); }
};

}  // namespace

bool RunPlainTextPass(TextPass& pass) { return Pass<PlainBlocks>(pass).run(); }

}  // namespace jsonparser
