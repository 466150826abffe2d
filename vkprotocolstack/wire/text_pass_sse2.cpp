// The pass for every x86-64 machine.
#if defined(__x86_64__)
#include <emmintrin.h>

#include "vkprotocolstack/wire/text_pass_forms.h"

namespace jsonparser {
namespace {

struct Sse2Blocks {
    static constexpr std::size_t kWidth = 16;
    static constexpr std::uint32_t kAll = 0xFFFF;

    static __m128i Load(const char* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
    static __m128i Equal(__m128i block, char byte) { return _mm_cmpeq_epi8(block, _mm_set1_epi8(byte)); }
    static std::uint32_t Bits(__m128i block) { return static_cast<std::uint32_t>(_mm_movemask_epi8(block)); }

    static std::uint64_t Endings(const char* p) {
        std::uint64_t bits = 0;
        for (std::size_t i = 0; i < 64; i += kWidth) {
            const __m128i block = Load(p + i);
            const __m128i controls = _mm_subs_epu8(_mm_set1_epi8(static_cast<char>(0x9F)), block);  // the high bit
            const __m128i texts = _mm_or_si128(Equal(block, '"'), Equal(block, '\\'));
            bits |= std::uint64_t{Bits(_mm_or_si128(texts, controls))} << i;
        }
        return bits;
    }
    static std::uint32_t Blanks(const char* p) {
        const __m128i block = Load(p);
        return Bits(_mm_or_si128(_mm_or_si128(Equal(block, ' '), Equal(block, '\n')),
                                 _mm_or_si128(Equal(block, '\r'), Equal(block, '\t'))));
    }
    static bool Starts(const char* p, const QuotedName& quoted) {
        std::uint64_t same = Bits(_mm_cmpeq_epi8(Load(p), Load(quoted.bytes)));
        if (quoted.bits > kAll) same |= Bits(_mm_cmpeq_epi8(Load(p + kWidth), Load(quoted.bytes + kWidth))) << kWidth;
        return (~same & quoted.bits) == 0;
    }
    static StructureBits Structure(const char* p) {
        StructureBits bits{};
        for (std::size_t i = 0; i < 64; i += kWidth) {
            const __m128i block = Load(p + i);
            const __m128i folded = _mm_or_si128(block, _mm_set1_epi8(0x20));
            bits.quotes |= std::uint64_t{Bits(Equal(block, '"'))} << i;
            bits.backslashes |= std::uint64_t{Bits(Equal(block, '\\'))} << i;
            bits.opening |= std::uint64_t{Bits(Equal(folded, '{'))} << i;
            bits.closing |= std::uint64_t{Bits(Equal(folded, '}'))} << i;
        }
        return bits;
    }
    static std::uint64_t PrefixXor(std::uint64_t bits) { return ShiftedPrefixXor(bits); }
};

}  // namespace

bool RunSse2TextPass(TextPass& pass) { return Pass<Sse2Blocks>(pass).run(); }

}  // namespace jsonparser
#endif
