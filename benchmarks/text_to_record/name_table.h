// Which of an object's known names a name is: a perfect hash that the compiler finds, for switching over names.
#ifndef BENCHMARKS_TEXT_TO_RECORD_NAME_TABLE_H
#define BENCHMARKS_TEXT_TO_RECORD_NAME_TABLE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace benchmarks {

template <std::size_t N>
class NameTable {
  public:
    template <class... Name>
    consteval explicit NameTable(const Name&... names) : names_{std::string_view(names)...} {
        while (!placeAll()) multiplier_ = multiplier_ * 6364136223846793005 | 1;
    }

    /// The name's place on the list; N when it is not there. An empty name is only a gap in the list.
    constexpr std::size_t find(std::string_view name) const {
        if (name.empty()) return N;
        const std::size_t place = slots_[slotOf(name)];
        return place < N && names_[place] == name ? place : N;
    }

    /// The same for a case label: a name that is not on the list does not compile.
    consteval std::size_t operator[](std::string_view name) const {
        return find(name) < N ? find(name) : throw "the name is not on the list";
    }

  private:
    static_assert(N < 255);

    constexpr std::size_t slotOf(std::string_view name) const {
        const auto byte = [name](std::size_t i) {
            return static_cast<std::uint64_t>(static_cast<unsigned char>(name[i]));
        };
        const std::size_t last = name.size() - 1;
        const std::uint64_t key = name.size() ^ byte(0) << 8 ^ byte(name.size() / 2) << 16 ^
                                  byte(name.size() / 4) << 24 ^ byte(last == 0 ? 0 : last - 1) << 32 ^ byte(last) << 40;
        return key * multiplier_ >> 55;
    }

    consteval bool placeAll() {
        slots_.fill(N);
        for (std::size_t i = 0; i < N; ++i) {
            if (names_[i].empty()) continue;
            if (slots_[slotOf(names_[i])] != N) return false;
            slots_[slotOf(names_[i])] = static_cast<unsigned char>(i);
        }
        return true;
    }

    std::array<std::string_view, N> names_;
    std::array<unsigned char, 512> slots_{};
    std::uint64_t multiplier_ = 0x9E3779B97F4A7C15;
};

template <class... Name>
NameTable(const Name&...) -> NameTable<sizeof...(Name)>;

}  // namespace benchmarks

#endif
