#include "gui/main/explanation_text.h"

#include "chrony/truth/headline.h"
#include "gui/common/source_words.h"
#include "qt/in_words.h"
#include "qt/named_widget.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(explanation)
};

constexpr std::size_t most_sources = 40; // of a whole explanation: more would not be read

QString paragraph(const QString& text) {
    return QStringLiteral("<p style='margin-top:4px;margin-bottom:4px'>") + text + QStringLiteral("</p>");
}

QString joined(const std::vector<Sentence>& sentences) {
    QString text;
    for (const Sentence& sentence : sentences)
        text += (text.isEmpty() ? QString() : QStringLiteral(" ")) + in_words(sentence).toHtmlEscaped();
    return text;
}

QString heading(const Explanation& explanation) {
    QString host = from_std(explanation.name.value_or(explanation.source));
    if (explanation.name && *explanation.name != explanation.source && !explanation.source.starts_with("ID#"))
        host += QStringLiteral(" (") + from_std(explanation.source) + QStringLiteral(")");
    return QStringLiteral("<b>") + host.toHtmlEscaped() + QStringLiteral(": ") +
           words_of(explanation.rule).toHtmlEscaped() + QStringLiteral("</b>");
}

// Of a file in the program's temporary folder, a demonstration's, the name: the folder's tells nobody anything.
QString shown_path(const QString& path) {
    return path.startsWith(QDir::tempPath() + QLatin1Char('/')) ? QFileInfo(path).fileName() : path;
}

QString line_of(const SourceLine& line) {
    const QString path = shown_path(from_std(line.path));
    //: explanation of a source: %1 is a file, %2 the number of a line in it, which follows
    return Texts::tr("From %1, line %2:").arg(path.toHtmlEscaped(), QString::number(line.line)) +
           QStringLiteral(" <code>") + from_std(line.text).trimmed().toHtmlEscaped() + QStringLiteral("</code>");
}

} // namespace

QString explanation_text(const Explanation& explanation) {
    QString text = paragraph(heading(explanation)) + paragraph(joined(explanation.sentences));
    if (!explanation.remedies.empty())
        //: explanation of a source, before what its user can do about it
        text += paragraph(QStringLiteral("<i>") + Texts::tr("What would change it:") + QStringLiteral("</i> ") +
                          joined(explanation.remedies));
    return explanation.line ? text + paragraph(line_of(*explanation.line)) : text;
}

QString whole_explanation(const ClockTruth& truth) {
    const Headline words = headline(truth.reports, truth.budget, truth.expected);
    QString first = in_words(words.name);
    if (words.reason)
        first += QStringLiteral(": ") + in_words(*words.reason);
    QString text = paragraph(QStringLiteral("<b>") + first.toHtmlEscaped() + QStringLiteral("</b>")) +
                   paragraph(in_words(words.error).toHtmlEscaped());
    if (truth.verdict == Verdict::unavailable)
        //: explanation of the clock where chronyd does not answer
        text += paragraph(Texts::tr("No chronyd answers, so nothing is known of its sources. What would help stands at "
                                    "the top of the window, where the program can see it. A daemon that has just been "
                                    "started needs some seconds."));
    if (truth.reports.sources && truth.explanations.empty())
        //: explanation of the clock where chronyd has no source
        text += paragraph(Texts::tr("Lines such as “pool 2.debian.pool.ntp.org iburst” in the configuration bring "
                                    "sources."));
    for (std::size_t i = 0; i < std::min(truth.explanations.size(), most_sources); ++i)
        text += QStringLiteral("<hr>") + explanation_text(truth.explanations[i]);
    if (truth.explanations.size() > most_sources)
        //: explanation of the clock: %1 is a number of sources that are left out
        text += QStringLiteral("<hr>") + paragraph(Texts::tr("%1 more sources are left out: choose them in the table.")
                                                       .arg(truth.explanations.size() - most_sources));
    return text;
}

} // namespace tickervantage
