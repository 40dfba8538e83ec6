// A series where about as many records as columns of pixels are in sight, or a few times as many: what its line covers
// in each column.
//
// Every record is looked at. In each column the line reaches from its lowest to its highest point there, that of the
// lines to the neighbouring columns included, so that the spans meet and no spike is lost.
#pragma once

#include "graphs/series_layout.h"
#include "graphs/tracking_records.h"
#include "graphs/value_scale.h"

#include <cstdint>
#include <vector>

namespace tickervantage {

struct ColumnSpan {
    std::int64_t column = 0;
    double low = 0; // points of the frame
    double high = 0;
};

class DenseStrand {
public:
    // The strand is dense. Its values are appended to those of others; both outlive this.
    DenseStrand(const TrackingRecords& records, const Strand& strand, TrackingRecords::AllValues& values);

    // Once for each series: the values are used up. Columns without a present one are left out. `zero_line`: its height
    // in the frame.
    void add_spans(Series series, const ValueScale& scale, double zero_line, std::vector<ColumnSpan>& spans);

private:
    const Strand& m_strand;
    TrackingRecords::AllValues& m_values;
    std::size_t m_first; // of the strand's values
    std::size_t m_count;
};

} // namespace tickervantage
