#include "studies/freqtemp/point_list.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <limits>
#include <span>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t CELLS = 512; // on each side of the grid; a square covers one of them on any screen
constexpr std::uint8_t FULL = 3;
constexpr std::int64_t NO_TIME = std::numeric_limits<std::int64_t>::min();
constexpr double MOST_DEGREES = 10'000; // no temperature of a machine comes near: a file may hold anything

std::size_t cell_of(double value, double low, double width) {
    return std::min(CELLS - 1, static_cast<std::size_t>((value - low) / width * CELLS));
}

// A range of no length is one cell wide.
double width_of(double low, double high) {
    return high > low && std::isfinite(high - low) ? high - low : std::max(1.0, std::abs(low));
}

// From cell to cell, as they lie in memory when they are drawn.
std::vector<PointDigest::Dot> ordered(const std::vector<PointDigest::Dot>& dots,
                                      const std::vector<std::uint32_t>& cells) {
    std::vector<PointDigest::Dot> result;
    result.reserve(dots.size());
    for (const std::uint32_t cell : cells)
        if (cell != 0)
            result.push_back(dots[cell - 1]);
    return result;
}

std::vector<PointDigest::Dot> thinned(const PointList& points, const PointExtent& extent) {
    const double width = width_of(extent.min_temperature, extent.max_temperature);
    const double height = width_of(extent.min_frequency, extent.max_frequency);
    std::vector<std::uint32_t> cells(CELLS * CELLS); // number of the cell's dot, from 1
    std::vector<PointDigest::Dot> dots;
    for (const auto& part : points.spans())
        for (std::size_t i = 0; i < part.x.size(); ++i) {
            auto& cell = cells[cell_of(part.y[i], extent.min_frequency, height) * CELLS +
                               cell_of(part.x[i], extent.min_temperature, width)];
            if (cell == 0) {
                dots.push_back({.point = {part.x[i], part.y[i]}, .count = 1});
                cell = static_cast<std::uint32_t>(dots.size());
            } else if (auto& dot = dots[cell - 1]; dot.count < FULL) {
                ++dot.count;
            }
        }
    return ordered(dots, cells);
}

} // namespace

// `written` counts the points that some list has put here. A list that wants the next place takes it only when no other
// list was there before; points below are never written again.
struct PointList::Piece {
    std::array<double, POINTS_PER_PIECE> temperatures;
    std::array<double, POINTS_PER_PIECE> frequencies;
    std::array<std::int64_t, POINTS_PER_PIECE> times; // NO_TIME: not known
    std::atomic<std::size_t> written = 0;

    [[nodiscard]] bool take(std::size_t place) { return written.compare_exchange_strong(place, place + 1); }
    [[nodiscard]] freqPoint point(std::size_t place) const { return {temperatures[place], frequencies[place]}; }
};

void PointExtent::add(freqPoint point) {
    add(PointExtent(point));
}

void PointExtent::add(const PointExtent& other) {
    min_temperature = std::min(min_temperature, other.min_temperature);
    max_temperature = std::max(max_temperature, other.max_temperature);
    min_frequency = std::min(min_frequency, other.min_frequency);
    max_frequency = std::max(max_frequency, other.max_frequency);
}

bool PointExtent::is_inside(freqPoint point) const {
    return point.temperature > min_temperature && point.temperature < max_temperature &&
           point.frequency > min_frequency && point.frequency < max_frequency;
}

// The piece that holds the next place, which is now ours.
std::shared_ptr<PointList::Piece> PointList::tail_for_next() {
    const std::size_t place = (m_front + m_size) % POINTS_PER_PIECE;
    if (place == 0) {
        m_pieces.push_back(std::make_shared<Piece>());
        m_pieces.back()->written = 1;
        return m_pieces.back();
    }
    if (m_pieces.back()->take(place))
        return m_pieces.back();
    auto own = std::make_shared<Piece>(); // a copy of this list went on from here before
    std::copy_n(m_pieces.back()->temperatures.begin(), place, own->temperatures.begin());
    std::copy_n(m_pieces.back()->frequencies.begin(), place, own->frequencies.begin());
    std::copy_n(m_pieces.back()->times.begin(), place, own->times.begin());
    own->written = place + 1;
    m_pieces.back() = own;
    return own;
}

void PointList::append(freqPoint point, std::optional<std::int64_t> time) {
    const std::size_t place = (m_front + m_size) % POINTS_PER_PIECE;
    const auto piece = tail_for_next();
    piece->temperatures[place] = point.temperature;
    piece->frequencies[place] = point.frequency;
    piece->times[place] = time.value_or(NO_TIME);
    ++m_size;
    if (place == 0)
        m_extents.emplace_back(point);
    else
        m_extents.back().add(point);
}

void PointList::drop_front(std::size_t count) {
    if (count >= m_size) {
        clear();
        return;
    }
    const std::size_t place = m_front + count;
    const auto pieces = static_cast<std::ptrdiff_t>(place / POINTS_PER_PIECE);
    const bool is_inside = count == 1 && pieces == 0 && m_extents.front().is_inside((*this)[0]);
    m_pieces.erase(m_pieces.begin(), m_pieces.begin() + pieces);
    m_extents.erase(m_extents.begin(), m_extents.begin() + pieces);
    m_front = place % POINTS_PER_PIECE;
    m_size -= count;
    m_dropped += count;
    if (!is_inside && count > 0)
        measure_front();
}

void PointList::measure_front() {
    const std::size_t end = std::min(POINTS_PER_PIECE, m_front + m_size);
    PointExtent extent(m_pieces.front()->point(m_front));
    for (std::size_t place = m_front + 1; place < end; ++place)
        extent.add(m_pieces.front()->point(place));
    m_extents.front() = extent;
}

void PointList::clear() {
    *this = PointList();
}

freqPoint PointList::operator[](std::size_t index) const {
    const std::size_t place = m_front + index;
    return m_pieces[place / POINTS_PER_PIECE]->point(place % POINTS_PER_PIECE);
}

std::optional<std::int64_t> PointList::time(std::size_t index) const {
    const std::size_t place = m_front + index;
    const std::int64_t time = m_pieces[place / POINTS_PER_PIECE]->times[place % POINTS_PER_PIECE];
    return time != NO_TIME ? std::optional(time) : std::nullopt;
}

std::vector<SampleSpan> PointList::spans() const {
    std::vector<SampleSpan> result;
    std::size_t first = m_front;
    std::size_t left = m_size;
    for (const auto& piece : m_pieces) {
        const std::size_t count = std::min(left, POINTS_PER_PIECE - first);
        result.push_back({std::span(piece->temperatures).subspan(first, count),
                          std::span(piece->frequencies).subspan(first, count)});
        left -= count;
        first = 0;
    }
    return result;
}

std::optional<PointExtent> PointList::extent() const {
    if (empty())
        return std::nullopt;
    PointExtent result = m_extents.front();
    for (const auto& extent : m_extents)
        result.add(extent);
    return result;
}

// A piece has one content as far as it was written, for all lists that share it.
std::optional<PointList::Steps> PointList::since(const PointList& earlier) const {
    if (empty() || m_dropped < earlier.m_dropped || m_dropped - earlier.m_dropped >= earlier.m_size)
        return std::nullopt;
    const std::size_t dropped = m_dropped - earlier.m_dropped;
    const std::size_t kept = earlier.m_size - dropped;
    const std::size_t first = earlier.m_front + dropped;
    const auto shared = std::span(earlier.m_pieces).subspan(first / POINTS_PER_PIECE);
    if (kept > m_size || first % POINTS_PER_PIECE != m_front || shared.size() > m_pieces.size() ||
        !std::equal(shared.begin(), shared.end(), m_pieces.begin()))
        return std::nullopt;
    return Steps{.dropped = dropped, .appended = m_size - kept};
}

void PointList::set_unknown(std::map<std::uint64_t, std::string> members) {
    Unknown shifted;
    for (auto& member : members)
        shifted.emplace(m_dropped + member.first, std::move(member.second));
    m_unknown = shifted.empty() ? nullptr : std::make_shared<const Unknown>(std::move(shifted));
}

const std::string* PointList::unknown(std::size_t index) const {
    if (!m_unknown)
        return nullptr;
    const auto found = m_unknown->find(m_dropped + index);
    return found == m_unknown->end() ? nullptr : &found->second;
}

void freqStats::add(double frequency) {
    ++count;
    const double delta = frequency - mean;
    mean += delta / static_cast<double>(count);
    variance += delta * (frequency - mean);
}

std::vector<freqStats> mean_frequencies(const PointList& points, double min_temperature, std::size_t bins) {
    std::vector<freqStats> result(bins);
    const double first = min_temperature - 0.5;
    for (const auto& part : points.spans())
        for (std::size_t i = 0; i < part.x.size(); ++i)
            if (const double bin = part.x[i] - first; bin >= 0 && bin < static_cast<double>(bins))
                result[static_cast<std::size_t>(bin)].add(part.y[i]);
    return result;
}

std::optional<std::size_t> degree_bin(double temperature, double min_temperature) {
    const double bin = temperature - (min_temperature - 0.5);
    return bin >= 0 && bin < MOST_DEGREES ? std::optional(static_cast<std::size_t>(bin)) : std::nullopt;
}

std::shared_ptr<const PointDigest> make_digest(const PointList& points) {
    if (points.size() < DIGEST_FROM)
        return nullptr;
    const auto extent = *points.extent();
    auto digest = std::make_shared<PointDigest>();
    digest->dots = thinned(points, extent);
    digest->first_degree = std::floor(extent.min_temperature);
    digest->means =
        mean_frequencies(points, digest->first_degree, degree_bins(digest->first_degree, extent.max_temperature));
    digest->last = points.back();
    return digest;
}

std::size_t degree_bins(double min_temperature, double max_temperature) {
    return static_cast<std::size_t>(
               std::clamp(std::floor(max_temperature - min_temperature + 0.5), 0.0, MOST_DEGREES)) +
           1;
}

} // namespace tickervantage
