// Whether a quantity is better since a moment: how large it was before and after. Pure functions, any thread.
#pragma once

#include "draw/plots/value_axis.h"

#include <cstddef>
#include <optional>
#include <span>

namespace tickervantage {

struct BeforeAfter {
    std::size_t count_before = 0;
    std::size_t count_after = 0;
    std::optional<double> before; // the size that 95 of 100 values did not exceed; none of too few values
    std::optional<double> after;

    enum class Change : unsigned char { unknown, same, smaller, larger };
    [[nodiscard]] Change change() const;
    // How many times smaller or larger, at least 1; infinite where one of them is 0.
    [[nodiscard]] double times() const;
};

// The first `split` values were before. Of seconds their distance from zero counts, of other units how far they spread
// about their middle: a frequency or a temperature is not better for being small.
[[nodiscard]] BeforeAfter compare_before_after(std::span<const double> values, std::size_t split, AxisUnit unit);

} // namespace tickervantage
