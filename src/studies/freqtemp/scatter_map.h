// What is known of frequency against temperature: for every sensor its points, their fit, and how it is shown.
//
// Copying a map is cheap, for points are shared (see point_list.h) and so are the fits; snapshot() gives a map with
// fits of its own, which another thread may read while the original's are made anew.
#pragma once

#include "base/color.h"
#include "studies/freqtemp/point_list.h"
#include "studies/freqtemp/quad_regression.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tickervantage {

// Each from 0 to 1.
struct colorType {
    double r = 0;
    double g = 0;
    double b = 0;
    double a = 1;
    friend bool operator==(const colorType&, const colorType&) = default;

    [[nodiscard]] Color color() const { return {r, g, b, a}; }
};

struct scatterEntry {
    bool selected = true; // the sensor's data are drawn
    colorType color;
    std::shared_ptr<QuadRegression> quadRegression = std::make_shared<QuadRegression>(); // never null
    PointList points;                                                                    // oldest first

    // What a stored entry holds beside this, as texts of JSON objects; empty: nothing.
    struct Unknown {
        std::string entry;
        std::string color;
        std::string quadRegression;
    } unknown = {};

    // Of very many points, what a plot needs of them; null: the plot takes the points. Not stored.
    std::shared_ptr<const PointDigest> digest = nullptr;
};

// By sensor name.
using ScatterMap = std::map<std::string, scatterEntry>;

struct tempSensor {
    std::string name;        // also the key of its entry
    std::string description; // for people
    friend bool operator==(const tempSensor&, const tempSensor&) = default;
};

[[nodiscard]] ScatterMap snapshot(const ScatterMap& map);

// The largest number of points that a sensor has.
[[nodiscard]] std::size_t largest_count(const ScatterMap& map);

// One entry without points for every sensor, each in a colour of its own, once round the circle of hues.
[[nodiscard]] ScatterMap fresh_map(const std::vector<tempSensor>& sensors);

// The map to go on with when there is a stored one: the stored one, in which sensors that are there now have the
// colours just given to them. Entries of absent sensors stay. A sensor that the stored map does not know gets no entry.
[[nodiscard]] ScatterMap merged(const ScatterMap& fresh, ScatterMap stored);

} // namespace tickervantage
