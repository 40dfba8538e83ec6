// Averages where a tracking log lacks values, or begins without any.
#include "studies/tracking/rolling_statistics.h"
#include "support/test.h"

namespace tickervantage {
namespace {

constexpr double absent = std::numeric_limits<double>::quiet_NaN();

// A record's averages are its own values until offset and correction are both larger than values that there were.
TEST(RollingStatistics, StartOnlyWhereBothValuesHaveGrown) {
    struct Case {
        const char* what;
        double first_offset, first_rem_cor, offset, rem_cor;
        bool starts;
    };
    for (const auto& one :
         {Case{"both", 1, 1, 2, 2, true}, Case{"both, downwards", 1, -1, -2, -2, true},
          Case{"no offset so far", 0, 1, 2, 2, false}, Case{"no correction so far", 1, 0, 2, 2, false},
          Case{"offset as before", 1, 1, 1, 2, false}, Case{"correction as before", 1, 1, 2, 1, false},
          Case{"offset was absent", absent, 1, 2, 2, false}, Case{"correction is absent", 1, 1, 2, absent, false}}) {
        RollingStatistics statistics;
        (void)statistics.add(one.first_offset, one.first_rem_cor, false);
        const auto averages = statistics.add(one.offset, one.rem_cor, false);
        const auto expected = [&one](double first, double second) {
            return one.starts ? first + 0.1 * (second - first) : second;
        };
        EXPECT_DOUBLE_EQ(averages.mean_offset, expected(one.first_offset, one.offset)) << one.what;
        if (!std::isnan(one.rem_cor)) {
            EXPECT_DOUBLE_EQ(averages.mean_rem_cor, expected(one.first_rem_cor, one.rem_cor)) << one.what;
        }
    }
}

} // namespace
} // namespace tickervantage
