// What the table of sources says and shows of a source. Main thread.
#pragma once

#include "chrony/truth/judged_source.h"

#include <QIcon>
#include <QPalette>
#include <QString>

#include <array>

namespace tickervantage {

// How a source stands to the clock, in few enough kinds to be told apart at a glance.
enum class SourceStanding : unsigned char {
    best,
    combined,
    spare,   // could be used
    waiting, // cannot be judged yet
    refused, // is not believed, or not good enough
    silent,  // has no address, does not answer, or has no time
};

inline constexpr std::size_t source_standings = 6;

[[nodiscard]] SourceStanding standing_of(SelectionRule rule);

// The state in a few words.
[[nodiscard]] QString words_of(SelectionRule rule);

// A mark for each standing, by colour and shape, on a surrounding of these colours.
class StandingMarks {
public:
    explicit StandingMarks(const QPalette& palette);
    [[nodiscard]] const QIcon& of(SourceStanding standing) const { return m_marks[static_cast<std::size_t>(standing)]; }

private:
    std::array<QIcon, source_standings> m_marks;
};

// The last eight polls, the newest at the right: a full dot for each that was answered.
[[nodiscard]] QString reach_dots(unsigned reach);

[[nodiscard]] QString poll_words(int log2_seconds);

} // namespace tickervantage
