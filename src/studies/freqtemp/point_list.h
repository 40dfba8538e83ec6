// The points of one sensor, oldest first: very many of them, cheap to copy, to add at the end and to drop in front.
//
// Points lie in pieces that copies share. A copy is a snapshot: it may be read on another thread while the original
// goes on growing, without a lock, because a piece is written only behind what any copy can see. A single list is used
// by one thread at a time.
#pragma once

#include "studies/freqtemp/quad_regression.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct freqPoint {
    double temperature = 0; // degrees Celsius
    double frequency = 0;   // ppm, positive: the clock runs fast
    friend bool operator==(const freqPoint&, const freqPoint&) = default;
};

struct PointExtent {
    double min_temperature = 0;
    double max_temperature = 0;
    double min_frequency = 0;
    double max_frequency = 0;

    explicit PointExtent(freqPoint point)
        : min_temperature(point.temperature), max_temperature(point.temperature), min_frequency(point.frequency),
          max_frequency(point.frequency) {}
    void add(freqPoint point);
    void add(const PointExtent& other);
    [[nodiscard]] bool is_inside(freqPoint point) const; // away from all four edges
};

class PointList {
public:
    static constexpr std::size_t POINTS_PER_PIECE = 4096;

    // `time` is when it was read, s since 1970; none: that is not known, as of points of earlier versions.
    void append(freqPoint point, std::optional<std::int64_t> time = std::nullopt);
    void drop_front(std::size_t count); // all of them when there are fewer
    void clear();

    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] bool empty() const { return m_size == 0; }
    [[nodiscard]] freqPoint operator[](std::size_t index) const;
    [[nodiscard]] std::optional<std::int64_t> time(std::size_t index) const;
    [[nodiscard]] freqPoint back() const { return (*this)[m_size - 1]; }

    // The points in order, as columns of temperatures (x) and frequencies (y). Valid until the list is changed.
    [[nodiscard]] std::vector<SampleSpan> spans() const;

    // The smallest box around all points; none without points. Quick.
    [[nodiscard]] std::optional<PointExtent> extent() const;

    // How this list came of an earlier state of it, or of what it is a copy of. None where that is not known, and where
    // nothing of the earlier one is left.
    struct Steps {
        std::size_t dropped = 0;  // of the earlier one's points, in front
        std::size_t appended = 0; // of this one's, at the end
    };
    [[nodiscard]] std::optional<Steps> since(const PointList& earlier) const;

    // Members of stored points that this program does not know, by index, as texts of JSON objects; they go with their
    // point.
    void set_unknown(std::map<std::uint64_t, std::string> members);
    [[nodiscard]] const std::string* unknown(std::size_t index) const; // null: none

private:
    struct Piece;
    using Unknown = std::map<std::uint64_t, std::string>;

    [[nodiscard]] std::shared_ptr<Piece> tail_for_next();
    void measure_front();

    std::vector<std::shared_ptr<Piece>> m_pieces; // all full but the last
    std::vector<PointExtent> m_extents;           // of the points in them, by piece
    std::size_t m_front = 0;                      // points dropped from the first piece
    std::size_t m_size = 0;
    std::uint64_t m_dropped = 0;              // points ever dropped
    std::shared_ptr<const Unknown> m_unknown; // by number since the list began; null: none
};

// Very many points brought down to what can be seen of them, so that drawing them does not take long.
//
// Points that share a cell of a fine grid are drawn as one. Made off the main thread, then shared as const.

// The frequencies at one temperature, to the degree. By Welford's method: no sum of squares that cancels.
struct freqStats {
    double mean = 0;
    double variance = 0; // the sum of squared deviations, not divided by the count
    std::int64_t count = 0;

    void add(double frequency);
};

struct PointDigest {
    struct Dot {
        freqPoint point;        // the first in its cell
        std::uint8_t count = 1; // points in the cell; 3: or more
    };
    std::vector<Dot> dots;
    double first_degree = 0;      // of `means`
    std::vector<freqStats> means; // one a degree
    freqPoint last;
};

// Fewer points are drawn one by one.
inline constexpr std::size_t DIGEST_FROM = 20'000;

// Null where there are fewer than DIGEST_FROM.
[[nodiscard]] std::shared_ptr<const PointDigest> make_digest(const PointList& points);

// How many bins of one degree there are from the lower temperature to the upper one, a sane number in any case.
[[nodiscard]] std::size_t degree_bins(double min_temperature, double max_temperature);

// The means of the degrees min_temperature, min_temperature + 1 and so on; points beyond the last are left out.
[[nodiscard]] std::vector<freqStats> mean_frequencies(const PointList& points, double min_temperature,
                                                      std::size_t bins);

// The bin of that temperature; none below the first. It may lie beyond the last.
[[nodiscard]] std::optional<std::size_t> degree_bin(double temperature, double min_temperature);

} // namespace tickervantage
