// Rolling averages of the offset and the remaining correction in a tracking log: exponential, with a weight of 0.1 for
// the newest value.
//
// Until they start, each record's average is its own value. They start at a record whose offset and correction are both
// larger than the averages before it, and that record is averaged already; they start afresh where the daemon lost its
// sources. Results are finite whatever comes in.
//
// An absent value (NaN) leaves its averages absent in that record, and the next record goes on from the last averages
// that there were: a gap in the log is a gap in its averages, not a value of 0.
#pragma once

namespace tickervantage {

class RollingStatistics {
public:
    struct Averages { // seconds; NaN: absent
        double mean_offset = 0;
        double rms_offset = 0;
        double mean_rem_cor = 0;
        double rms_rem_cor = 0;
    };

    // The averages of the next record. `sources_lost`: the record says that the daemon has none.
    Averages add(double offset, double rem_cor, bool sources_lost);

private:
    bool m_rollingavg = false; // they have started
    Averages m_last;           // the last that were present; 0: none yet
};

} // namespace tickervantage
