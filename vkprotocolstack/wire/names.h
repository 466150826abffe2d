// The names of the members that a converter asks for, as compile-time data.
#ifndef VKPROTOCOLSTACK_WIRE_NAMES_H
#define VKPROTOCOLSTACK_WIRE_NAMES_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace jsonparser {

/// Member names in a converter's processing order. A name that stands twice does not compile.
template <std::size_t N>
struct NameList {
    std::array<std::string_view, N> names;
    std::array<std::size_t, N> sorted;  ///< indexes into names, in the order of the names' bytes

    template <class... Name>
    consteval explicit NameList(const Name&... name) : names{std::string_view(name)...}, sorted{} {
        for (std::size_t i = 0; i < N; ++i) sorted[i] = i;
        std::sort(sorted.begin(), sorted.end(), [this](std::size_t a, std::size_t b) { return names[a] < names[b]; });
        for (std::size_t i = 1; i < N; ++i) {
            if (names[sorted[i - 1]] == names[sorted[i]]) throw "a name stands twice in the list";
        }
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
