// The names of the members that a converter asks for, as compile-time data.
#ifndef VKPROTOCOLSTACK_WIRE_NAMES_H
#define VKPROTOCOLSTACK_WIRE_NAMES_H

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace jsonparser {

/// A name as it stands in a message without blanks: between quotes, with a colon behind, then NULs. So one comparison
/// of whole blocks finds both the name and where its value begins.
struct QuotedName {
    static constexpr std::size_t kBlock = 32;
    static constexpr std::size_t kLongest = 26;
    static constexpr std::size_t kMarks = 3;  ///< the quotes and the colon

    char bytes[kBlock - 2];
    std::uint8_t size;    ///< of the name
    std::uint8_t toText;  ///< from two bytes before the name's quote to behind the first byte of its value
    std::uint64_t bits;   ///< one for each byte of the name and its marks; one above the block matches nothing
};

/// Whether two texts of size bytes are equal. Names are short: this is faster than a call.
inline bool SameBytes(const char* a, const char* b, std::size_t size) {
    const auto same = []<class Word>(const char* x, const char* y, Word left) {
        Word right = 0;
        std::memcpy(&left, x, sizeof left);
        std::memcpy(&right, y, sizeof right);
        return left == right;
    };
    if (size >= 8) {
        if (!same(a, b, std::uint64_t{}) || !same(a + size - 8, b + size - 8, std::uint64_t{})) return false;
        for (; size > 16; size -= 8) {
            if (!same(a + size - 16, b + size - 16, std::uint64_t{})) return false;
        }
        return true;
    }
    if (size >= 4) return same(a, b, std::uint32_t{}) && same(a + size - 4, b + size - 4, std::uint32_t{});
    for (std::size_t i = 0; i < size; ++i) {
        if (a[i] != b[i]) return false;
    }
    return true;
}

/// Of a name's length, its beginning and its end; never reads outside it. Always expanded, as what the forms of the
/// pass call has to be (see text_pass_forms.h).
[[gnu::always_inline]] constexpr std::uint64_t HashOfName(const char* name, std::size_t size) {
    const auto load = [name](std::size_t at, std::size_t count) __attribute__((always_inline)) {
        std::uint64_t word = 0;
        if (__builtin_is_constant_evaluated()) {
            for (std::size_t i = 0; i < count; ++i) {
                word |= static_cast<std::uint64_t>(static_cast<unsigned char>(name[at + i])) << (8 * i);
            }
        } else {
            std::memcpy(&word, name + at, count);
        }
        return word;
    };
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    if (size >= 8) {
        first = load(0, 8);
        last = load(size - 8, 8);
    } else if (size >= 4) {
        first = load(0, 4);
        last = load(size - 4, 4);
    } else if (size > 0) {
        first = load(0, 1) | load(size / 2, 1) << 8;
        last = load(size - 1, 1);
    }
    return ((first + size) * 0x9E3779B97F4A7C15U ^ last) * 0xC2B2AE3D27D4EB4FU >> 32;
}

/// A name among those that are sorted.
struct SortedName {
    const char* text;
    std::uint8_t size;
    std::uint8_t index;  ///< into the names in processing order
};

/// A list of names, whatever its length: what looking members up needs.
struct NameIndex {
    const std::string_view* names;  ///< in processing order
    const SortedName* sorted;       ///< in the order of their bytes
    const QuotedName* quoted;       ///< in processing order, and one that nothing matches
    std::size_t count;
    const std::uint8_t* slots;  ///< a hash table of indexes into names plus one; 0 is free
    std::size_t slotMask;

    /// The index of the name plus one; 0 when it is not on the list.
    std::size_t find(const char* name, std::size_t size) const;
};

/// Member names in a converter's processing order. A name that stands twice, or has more than 26 bytes, does not
/// compile.
template <std::size_t N>
struct NameList {
    static constexpr std::size_t kSlots = std::bit_ceil(4 * N);
    static_assert(N < 255);

    std::array<std::string_view, N> names;
    std::array<SortedName, N> sorted;  ///< in the order of their bytes
    std::array<QuotedName, N + 1> quoted;
    std::array<std::uint8_t, kSlots> slots;

    template <class... Name>
    consteval explicit NameList(const Name&... name) : names{std::string_view(name)...}, sorted{}, quoted{}, slots{} {
        for (std::size_t i = 0; i < N; ++i) {
            if (names[i].size() > QuotedName::kLongest) throw "a name has more than 26 bytes";
            sorted[i] = {names[i].data(), static_cast<std::uint8_t>(names[i].size()), static_cast<std::uint8_t>(i)};
        }
        std::sort(sorted.begin(), sorted.end(),
                  [this](SortedName a, SortedName b) { return names[a.index] < names[b.index]; });
        for (std::size_t i = 1; i < N; ++i) {
            if (names[sorted[i - 1].index] == names[sorted[i].index]) throw "a name stands twice in the list";
        }
        for (std::size_t i = 0; i < N; ++i) {
            quoted[i].bytes[0] = '"';
            std::copy(names[i].begin(), names[i].end(), quoted[i].bytes + 1);
            quoted[i].bytes[names[i].size() + 1] = '"';
            quoted[i].bytes[names[i].size() + 2] = ':';
            quoted[i].size = static_cast<std::uint8_t>(names[i].size());
            quoted[i].toText = static_cast<std::uint8_t>(names[i].size() + QuotedName::kMarks + 3);
            quoted[i].bits = (std::uint64_t{1} << (names[i].size() + QuotedName::kMarks)) - 1;
            std::size_t slot = HashOfName(names[i].data(), names[i].size()) % kSlots;
            while (slots[slot] != 0) slot = (slot + 1) % kSlots;
            slots[slot] = static_cast<std::uint8_t>(i + 1);
        }
        quoted[N].bits = std::uint64_t{1} << QuotedName::kBlock;
    }

    constexpr NameIndex index() const {
        return {names.data(), sorted.data(), quoted.data(), N, slots.data(), kSlots - 1};
    }

    consteval std::size_t indexOf(std::string_view name) const {
        const auto found = std::find(names.begin(), names.end(), name);
        if (found == names.end()) throw "the name is not on the converter's list";
        return static_cast<std::size_t>(found - names.begin());
    }
};

template <class... Name>
NameList(const Name&...) -> NameList<sizeof...(Name)>;

}  // namespace jsonparser

#endif
