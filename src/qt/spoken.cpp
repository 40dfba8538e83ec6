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
    // running a program, and reading a log
    QT_TRANSLATE_NOOP("sentences", "%1 cannot be started: %2."),
    QT_TRANSLATE_NOOP("sentences", "%1 cannot be found."),
    QT_TRANSLATE_NOOP("sentences", "%1 did not end within %2 s and was ended."),
    QT_TRANSLATE_NOOP("sentences", "%1 printed more than %2 KiB and was ended; the rest is missing."),
    QT_TRANSLATE_NOOP("sentences", "%1 was ended by signal %2 (%3)."),
    QT_TRANSLATE_NOOP("sentences", "%1 was ended because the program closes."),
    QT_TRANSLATE_NOOP("sentences", "only the first %1 lines are shown."),
    QT_TRANSLATE_NOOP("sentences", "There is no file \"%1\"."),
    QT_TRANSLATE_NOOP("sentences", "%1 cannot be read: %2."),
    QT_TRANSLATE_NOOP("sentences", "it is a folder"),
    QT_TRANSLATE_NOOP("sentences", "it is not an ordinary file"),
    QT_TRANSLATE_NOOP("sentences", "it cannot be read again"),
    QT_TRANSLATE_NOOP("sentences", "its end is missing"),
    // a report that the root helper gives
    QT_TRANSLATE_NOOP("sentences", "The root helper cannot be reached: %1."),
    QT_TRANSLATE_NOOP("sentences", "The root helper gave no authorisation."),
    QT_TRANSLATE_NOOP("sentences", "There is no root helper here."),
    QT_TRANSLATE_NOOP("sentences", "the system bus does not answer"),
    QT_TRANSLATE_NOOP("sentences", "The root helper is of another version: start this program again, or install its "
                                   "package again."),
    QT_TRANSLATE_NOOP("sentences", "The root helper is missing: install the package of this program again."),
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
