#include "qt/spoken.h"

#include <QCoreApplication>
#include <QStringList>

#include <array>
#include <optional>

namespace tickervantage {
namespace {

/* TRANSLATOR sentences
   What the program says of its work, in alerts and in status lines. A placeholder stands for a path, a number, words of
   chrony or of the system, or another of these sentences; sentences that begin in lower case follow a colon. */
constexpr auto sentences = std::to_array<const char*>({
    // running a program
    QT_TRANSLATE_NOOP("sentences", "%1 cannot be started: %2."),
    QT_TRANSLATE_NOOP("sentences", "%1 cannot be found."),
    QT_TRANSLATE_NOOP("sentences", "%1 did not end within %2 s and was ended."),
    QT_TRANSLATE_NOOP("sentences", "%1 printed more than %2 KiB and was ended; the rest is missing."),
    QT_TRANSLATE_NOOP("sentences", "%1 was ended by signal %2 (%3)."),
    QT_TRANSLATE_NOOP("sentences", "%1 was ended because the program closes."),
    QT_TRANSLATE_NOOP("sentences", "only the first %1 lines are shown."),
    // files
    QT_TRANSLATE_NOOP("sentences", "Cannot read %1: %2."),
    QT_TRANSLATE_NOOP("sentences", "Cannot write %1: %2."),
    QT_TRANSLATE_NOOP("sentences", "Cannot rename %1: %2."),
    QT_TRANSLATE_NOOP("sentences", "Cannot lock %1: %2."),
    QT_TRANSLATE_NOOP("sentences", "Cannot remove %1: %2."),
    QT_TRANSLATE_NOOP("sentences", "Cannot make the folder %1: %2."),
    QT_TRANSLATE_NOOP("sentences", "Cannot flush the folder of %1: %2."),
    QT_TRANSLATE_NOOP("sentences", "There is no file \"%1\"."),
    QT_TRANSLATE_NOOP("sentences", "%1 cannot be read: %2."),
    QT_TRANSLATE_NOOP("sentences", "it is a folder"),
    QT_TRANSLATE_NOOP("sentences", "it is not an ordinary file"),
    QT_TRANSLATE_NOOP("sentences", "it is larger than %1 bytes"),
    QT_TRANSLATE_NOOP("sentences", "it is no text in UTF-8"),
    QT_TRANSLATE_NOOP("sentences", "it cannot be read again"),
    QT_TRANSLATE_NOOP("sentences", "its end is missing"),
    QT_TRANSLATE_NOOP("sentences", "The picture %1 could not be written: %2."),
    QT_TRANSLATE_NOOP("sentences", "The picture %1 must end in .png or .svg."),
    QT_TRANSLATE_NOOP("sentences", "The picture %1 could not be drawn."),
    // settings
    QT_TRANSLATE_NOOP("sentences", "The settings file %1 is damaged (%2). %3"),
    QT_TRANSLATE_NOOP("sentences", "The settings file %1 cannot be read (%2)."),
    QT_TRANSLATE_NOOP("sentences", "%1 The defaults are used."),
    QT_TRANSLATE_NOOP("sentences", "It is kept as %1."),
    QT_TRANSLATE_NOOP("sentences", "it has lines that are no settings"),
    QT_TRANSLATE_NOOP("sentences", "a value does not read back"),
    // the configuration
    QT_TRANSLATE_NOOP("sentences", "%1 cannot be opened. %2"),
    QT_TRANSLATE_NOOP("sentences", "It is no text in UTF-8."),
    QT_TRANSLATE_NOOP("sentences", "Line %1 holds a zero byte, which no configuration may."),
    QT_TRANSLATE_NOOP("sentences", "chronyd did not end in time, so the syntax is not known to be right."),
    QT_TRANSLATE_NOOP("sentences", "chronyd could not be run."),
    QT_TRANSLATE_NOOP("sentences", "chronyd refuses this configuration."),
    QT_TRANSLATE_NOOP("sentences", "chronyd refuses this configuration: %1."),
    QT_TRANSLATE_NOOP("sentences", "chronyd was not found on this machine, so the syntax was not checked."),
    QT_TRANSLATE_NOOP("sentences", "%1 is no longer supported and has no effect."),
    QT_TRANSLATE_NOOP("sentences",
                      "%1 has no effect in a file of a sourcedir, which holds server, pool and peer only."),
    QT_TRANSLATE_NOOP("sentences", "%1: there is no user %2, so chronyd would not start."),
    QT_TRANSLATE_NOOP("sentences",
                      "%1: there is no driver %2 (PPS, SHM, SOCK and PHC there are), so chronyd would not start."),
    QT_TRANSLATE_NOOP("sentences", "%1: minpoll %2 asks %3 too often; outside the local network 6, a request every 64 "
                                   "seconds, is the least."),
    QT_TRANSLATE_NOOP("sentences", "%1: %2 does not exist."),
    QT_TRANSLATE_NOOP("sentences", "%1: %2 is no file."),
    QT_TRANSLATE_NOOP("sentences", "%1: %2 is no device."),
    QT_TRANSLATE_NOOP("sentences", "%1: %2 is no folder."),
    QT_TRANSLATE_NOOP("sentences", "%1: the user %2, as whom chronyd runs, cannot read %3."),
    QT_TRANSLATE_NOOP("sentences", "%1: the user %2, as whom chronyd runs, cannot write in the folder %3."),
    // jobs that need administrator rights
    QT_TRANSLATE_NOOP("sentences", "The root helper cannot be reached: %1."),
    QT_TRANSLATE_NOOP("sentences", "The root helper was not installed."),
    QT_TRANSLATE_NOOP("sentences", "The root helper was not installed: %1"),
    QT_TRANSLATE_NOOP("sentences", "The root helper gave no authorisation."),
    QT_TRANSLATE_NOOP("sentences", "There is no root helper here."),
    QT_TRANSLATE_NOOP("sentences", "the system bus does not answer"),
    QT_TRANSLATE_NOOP("sentences", "Another administrative job is under way."),
    QT_TRANSLATE_NOOP("sentences", "The files to be installed cannot be written to %1."),
    QT_TRANSLATE_NOOP("sentences", "The preferences point to the distribution's chrony, which is installed already."),
    QT_TRANSLATE_NOOP("sentences",
                      "The preferences point to the distribution's chrony, which its package manager removes."),
    QT_TRANSLATE_NOOP("sentences", "%1 was not installed."),
    QT_TRANSLATE_NOOP("sentences", "There is no chronywake in the folders of programs."),
    QT_TRANSLATE_NOOP("sentences", "The configuration names no folder of logs."),
    QT_TRANSLATE_NOOP("sentences", "The logs of the distribution's chrony are rotated by the distribution."),
    QT_TRANSLATE_NOOP("sentences",
                      "Nothing was changed: %1 reads %2, while the preferences name %3 as the configuration."),
    QT_TRANSLATE_NOOP("sentences", "The configuration was not installed."),
    QT_TRANSLATE_NOOP("sentences", "The configuration was not installed: %1."),
    QT_TRANSLATE_NOOP("sentences", "%1 The former configuration is back, and chronyd runs with it again."),
    QT_TRANSLATE_NOOP("sentences", "%1 The former configuration did not come back."),
    QT_TRANSLATE_NOOP("sentences", "%1 The former configuration did not come back: %2."),
    QT_TRANSLATE_NOOP("sentences",
                      "%1 There was no configuration before it that could be put back: chronyd does not run."),
    QT_TRANSLATE_NOOP("sentences", "%1 The former configuration is back, but chronyd does not run with it either."),
    QT_TRANSLATE_NOOP("sentences", "%1 The former configuration is back, but chronyd does not run with it either: %2."),
    QT_TRANSLATE_NOOP("sentences", "chrony was not installed."),
    QT_TRANSLATE_NOOP("sentences", "chrony was not installed: %1."),
    QT_TRANSLATE_NOOP("sentences", "chronyd was not started."),
    QT_TRANSLATE_NOOP("sentences", "chronyd was not started: %1."),
    QT_TRANSLATE_NOOP("sentences", "chronyd was not stopped."),
    QT_TRANSLATE_NOOP("sentences", "chronyd was not stopped: %1."),
    QT_TRANSLATE_NOOP("sentences", "chrony was not removed as a whole."),
    QT_TRANSLATE_NOOP("sentences", "chrony was not removed as a whole: %1."),
    QT_TRANSLATE_NOOP("sentences", "The older installation was not removed as a whole."),
    QT_TRANSLATE_NOOP("sentences", "The older installation was not removed as a whole: %1."),
    QT_TRANSLATE_NOOP("sentences", "The processes could not be listed."),
    QT_TRANSLATE_NOOP("sentences", "The processes could not be listed: %1."),
    QT_TRANSLATE_NOOP("sentences", "chronyd still treats the clock as before: %1"),
    QT_TRANSLATE_NOOP("sentences", "The root helper is of another version: start this program again, or install its "
                                   "package again."),
    QT_TRANSLATE_NOOP("sentences", "The root helper is missing: install the package of this program again."),
    QT_TRANSLATE_NOOP("sentences", "chronywake was not installed."),
    QT_TRANSLATE_NOOP("sentences", "chronywake was not installed: %1."),
    QT_TRANSLATE_NOOP("sentences", "chronywake was not removed."),
    QT_TRANSLATE_NOOP("sentences", "chronywake was not removed: %1."),
    QT_TRANSLATE_NOOP("sentences", "chronywake did not correct the clock."),
    QT_TRANSLATE_NOOP("sentences", "chronywake did not correct the clock: %1."),
    QT_TRANSLATE_NOOP("sentences", "The logs were not rotated."),
    QT_TRANSLATE_NOOP("sentences", "The logs were not rotated: %1."),
    QT_TRANSLATE_NOOP("sentences", "The tracking log was not made readable."),
    QT_TRANSLATE_NOOP("sentences", "The tracking log was not made readable: %1."),
    QT_TRANSLATE_NOOP("sentences", "The GPS daemon was not restarted."),
    QT_TRANSLATE_NOOP("sentences", "The GPS daemon was not restarted: %1."),
    QT_TRANSLATE_NOOP("sentences", "The clock was not stepped."),
    QT_TRANSLATE_NOOP("sentences", "The clock was not stepped: %1."),
    QT_TRANSLATE_NOOP("sentences", "The configuration is installed, but chronyd was not started."),
    QT_TRANSLATE_NOOP("sentences", "The configuration is installed, but chronyd was not started: %1."),
    QT_TRANSLATE_NOOP("sentences", "There is no service of a GPS daemon on this machine."),
    QT_TRANSLATE_NOOP("sentences", "The clock was not synchronised."),
    QT_TRANSLATE_NOOP("sentences", "There is no configuration to be installed: %1 cannot be read."),
    QT_TRANSLATE_NOOP("sentences", "A server has a name or an address, without quotes or signs."),
    QT_TRANSLATE_NOOP("sentences", "chronyd ended soon after it was started with this configuration."),
    QT_TRANSLATE_NOOP("sentences", "chronyd ended soon after it was started with this configuration: %1."),
});

constexpr int PLACEHOLDER = 2; // a percent sign and a digit

// The words of a pattern around its placeholders, which come in order.
QStringList fixed_words(const QString& pattern) {
    QStringList words{QString()};
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == QLatin1Char('%'))
            words.append(QString()), i += PLACEHOLDER - 1;
        else
            words.back() += pattern[i];
    }
    return words;
}

// What stands in the place of each placeholder; none where the sentence does not have those words.
std::optional<QStringList> values_in(const QString& sentence, const QStringList& words) {
    QStringList values;
    if (words.size() == 1)
        return sentence == words.front() ? std::optional(values) : std::nullopt;
    if (!sentence.startsWith(words.front()) || !sentence.endsWith(words.back()))
        return std::nullopt;
    const auto end = sentence.size() - words.back().size();
    auto start = words.front().size();
    for (qsizetype i = 1; i < words.size(); ++i) {
        const auto stop = i + 1 == words.size() ? end : sentence.indexOf(words[i], start);
        if (stop <= start || stop > end)
            return std::nullopt;
        values.append(sentence.mid(start, stop - start));
        start = stop + words[i].size();
    }
    return values;
}

QString in_own_language(const QString& sentence);

QString filled(QString text, const QStringList& values) {
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool is_placeholder = text[i] == QLatin1Char('%') && i + 1 < text.size() && text[i + 1].isDigit();
        const auto value = is_placeholder ? text[i + 1].digitValue() - 1 : -1;
        if (value >= 0 && value < values.size())
            result += in_own_language(values[value]), ++i;
        else
            result += text[i];
    }
    return result;
}

// The pattern with the most words of its own: of two that fit it is the one that was meant.
QString in_own_language(const QString& sentence) {
    const char* meant = nullptr;
    QStringList values;
    qsizetype most = 0;
    for (const char* pattern : sentences) {
        const QStringList words = fixed_words(QString::fromUtf8(pattern));
        const auto length = words.join(QString()).size();
        if (length <= most)
            continue;
        if (auto found = values_in(sentence, words)) {
            meant = pattern;
            most = length;
            values = *std::move(found);
        }
    }
    return meant == nullptr ? sentence : filled(QCoreApplication::translate("sentences", meant), values);
}

} // namespace

QString spoken(std::string_view sentence) {
    return in_own_language(QString::fromUtf8(sentence.data(), static_cast<qsizetype>(sentence.size())).trimmed());
}

} // namespace tickervantage
