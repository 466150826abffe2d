// Conversions between number types that are defined for every input.
#ifndef VKPROTOCOLSTACK_WIRE_NUMBERS_H
#define VKPROTOCOLSTACK_WIRE_NUMBERS_H

#include <limits>

namespace jsonparser {

/// value cut toward zero; beyond the range of Integer the nearest limit; NaN gives 0.
template <class Integer>
constexpr Integer Truncate(double value) {
    using Limits = std::numeric_limits<Integer>;
    constexpr Integer half = Limits::max() / 2 + 1;
    constexpr double beyond = static_cast<double>(half) * 2.0;
    if (value != value) return 0;
    if (value >= beyond) return Limits::max();
    if (value <= static_cast<double>(Limits::min())) return Limits::min();
    return static_cast<Integer>(value);
}

}  // namespace jsonparser

#endif
