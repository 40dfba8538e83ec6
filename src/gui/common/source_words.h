// What windows say and show of a source. Main thread.
#pragma once

#include "chrony/truth/source_standing.h"

#include <QIcon>
#include <QPalette>
#include <QString>

#include <array>

namespace tickervantage {

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
