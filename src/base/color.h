// A colour with opacity, each part from 0 to 1.
#pragma once

namespace tickervantage {

struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
    friend bool operator==(const Color&, const Color&) = default;
};

} // namespace tickervantage
