// The texts of the history window that say something about data. Main thread.
#pragma once

#include "chrony/truth/source_standing.h"
#include "draw/plots/plot_caption.h"
#include "studies/history/before_after.h"
#include "studies/history/cause.h"
#include "studies/history/history_files.h"
#include "studies/history/history_statistics.h"
#include "studies/history/history_view.h"
#include "studies/history/limit_share.h"
#include "studies/history/pointer_notes.h"

#include <QString>

namespace tickervantage {

// "Offset", "Offset, compared", a source's address.
[[nodiscard]] QString curve_words(const std::string& key);
[[nodiscard]] HistoryWords panel_words();

// What a lane's colour means.
[[nodiscard]] QString standing_words(SourceStanding standing);

// The kind in a word or two, as the filter has it; and what happened as a sentence.
[[nodiscard]] QString kind_words(MarkKind kind);
[[nodiscard]] QString mark_words(const HistoryMark& mark);

// Whose doing it was, in a word or two, and why; "–" where that is not known.
struct CauseWords {
    QString who;
    QString why;
};
[[nodiscard]] CauseWords cause_words(const Cause& cause);

// Whose curves are laid over.
[[nodiscard]] QString compared_words(const QString& path);

// How long the error was certainly within the limit.
[[nodiscard]] QString share_words(const LimitShare& share, double limit);

// "3.1 times smaller"
[[nodiscard]] QString change_words(const BeforeAfter& change);

// What stands beside the crosshair; of events the nearest one not further than `near` seconds.
[[nodiscard]] PointerNotes notes_at(const HistoryView& view, double time, double near);

// With three digits, in the unit that suits it, and the language's decimal point.
[[nodiscard]] QString value_words(double value, AxisUnit unit);
// "2026-11-21 14:05:33 CET"
[[nodiscard]] QString moment_words(double time);
// "2 h 4 min"
[[nodiscard]] QString duration_words(double seconds);

// Which data come from where, and what could not be read.
[[nodiscard]] QString origin_words(const HistoryData& data, const LoadedHistory& loaded);
// What to do when nothing is there.
[[nodiscard]] QString empty_words(const LoadedHistory& loaded);

// What the store has of a source at a time; with what it does not have.
[[nodiscard]] QString lane_words(const HistoryLane& lane, double time);

[[nodiscard]] PlotCaption caption_of(const HistoryView& view, const QString& title);

} // namespace tickervantage
