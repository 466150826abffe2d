// The pass for x86-64 machines with AVX2. The build gives this file the options that it needs.
#if defined(__AVX2__)
#include <immintrin.h>

#include "vkprotocolstack/wire/text_pass_forms.h"

namespace jsonparser {
namespace {

struct Avx2Blocks {
    static constexpr std::size_t kWidth = 32;
    static constexpr std::uint32_t kAll = 0xFFFFFFFF;

    static __m256i Load(const char* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
    static __m256i Equal(__m256i block, char byte) { return _mm256_cmpeq_epi8(block, _mm256_set1_epi8(byte)); }
    static std::uint32_t Bits(__m256i block) { return static_cast<std::uint32_t>(_mm256_movemask_epi8(block)); }

    static std::uint64_t Endings(const char* p) {
        const auto endingsOf = [](__m256i block) {
            // By a character's lower half what it is compared with: but for the two only NUL equals that, a control.
            const __m256i texts = _mm256_setr_epi8(0, 0, '"', 0, 0, 0, 0, 0, 0, 0, 0, 0, '\\', 0, 0, 0,  //
                                                   0, 0, '"', 0, 0, 0, 0, 0, 0, 0, 0, 0, '\\', 0, 0, 0);
            const __m256i inTexts = _mm256_cmpeq_epi8(_mm256_shuffle_epi8(texts, block), block);
            const __m256i controls =
                _mm256_subs_epu8(_mm256_set1_epi8(static_cast<char>(0x9F)), block);  // the high bit
            return Bits(_mm256_or_si256(inTexts, controls));
        };
        return endingsOf(Load(p)) | std::uint64_t{endingsOf(Load(p + kWidth))} << kWidth;
    }
    static std::uint32_t Blanks(const char* p) {
        const __m256i block = Load(p);
        return Bits(_mm256_or_si256(_mm256_or_si256(Equal(block, ' '), Equal(block, '\n')),
                                    _mm256_or_si256(Equal(block, '\r'), Equal(block, '\t'))));
    }
    static bool Starts(const char* p, const QuotedName& quoted) {
        const std::uint64_t same = Bits(_mm256_cmpeq_epi8(Load(p), Load(quoted.bytes)));
        return (~same & quoted.bits) == 0;
    }
    static StructureBits Structure(const char* p) {
        const __m256i low = Load(p);
        const __m256i high = Load(p + kWidth);
        const __m256i foldedLow = _mm256_or_si256(low, _mm256_set1_epi8(0x20));
        const __m256i foldedHigh = _mm256_or_si256(high, _mm256_set1_epi8(0x20));
        const auto both = [](__m256i first, __m256i second, char byte) {
            return Bits(Equal(first, byte)) | std::uint64_t{Bits(Equal(second, byte))} << kWidth;
        };
        return {both(low, high, '"'), both(low, high, '\\'), both(foldedLow, foldedHigh, '{'),
                both(foldedLow, foldedHigh, '}')};
    }
    /// Bit i is set when an odd number of bits from it downward are: a product without carries with all ones.
    static std::uint64_t PrefixXor(std::uint64_t bits) {
        const __m128i product = _mm_clmulepi64_si128(_mm_set_epi64x(0, static_cast<long long>(bits)),
                                                     _mm_set1_epi8(static_cast<char>(0xFF)), 0);
        return static_cast<std::uint64_t>(_mm_cvtsi128_si64(product));
    }
};

}  // namespace

bool RunAvx2TextPass(TextPass& pass) { return Pass<Avx2Blocks>(pass).run(); }

}  // namespace jsonparser
#endif
