// A series where about as many records as columns of pixels are in sight, or a few times as many: what its line covers
// in each column.
//
// Every record is looked at. In each column the line reaches from its lowest to its highest point there, that of the
// lines to the neighbouring columns included, so that the spans meet and no spike is lost.
#pragma once

#include "draw/canvas.h"
#include "draw/plots/value_scale.h"
#include "studies/tracking/series_layout.h"
#include "studies/tracking/tracking_records.h"

#include <vector>

namespace tickervantage {

class DenseStrand {
public:
    // The strand is dense. Its values are appended to those of others; both outlive this.
    DenseStrand(const TrackingRecords& records, const Strand& strand, TrackingRecords::AllValues& values);

    // `spans` holds nothing else afterwards. Columns without a present value are left out. Heights in points from the
    // zero line.
    void find_spans(Series series, const ValueScale& scale, std::vector<ColumnSpan>& spans) const;

private:
    const Strand& m_strand;
    const TrackingRecords::AllValues& m_values;
    std::size_t m_first; // of the strand's values
};

} // namespace tickervantage
