#include "gui/common/source_words.h"

#include "gui/common/words.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLocale>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <bitset>
#include <cmath>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(sources)
};

constexpr int mark_side = 14; // points

bool is_dark(const QPalette& palette) {
    constexpr int half = 128;
    return palette.color(QPalette::Base).lightness() < half;
}

QColor color_of(SourceStanding standing, const QPalette& palette) {
    const bool dark = is_dark(palette);
    switch (standing) {
    case SourceStanding::best:
    case SourceStanding::combined:
        return dark ? QColor(0x57, 0xc4, 0x77) : QColor(0x1e, 0x8e, 0x3e);
    case SourceStanding::spare:
        return dark ? QColor(0x6f, 0xb1, 0xff) : QColor(0x1a, 0x62, 0xc6);
    case SourceStanding::waiting:
        return dark ? QColor(0xf2, 0xb8, 0x4b) : QColor(0x9a, 0x63, 0x00);
    case SourceStanding::refused:
        return alarm_color(palette);
    case SourceStanding::silent:
        break;
    }
    return dark ? QColor(0xa8, 0xa8, 0xae) : QColor(0x66, 0x66, 0x6c);
}

// In a square of side 14, y down.
QPainterPath shape_of(SourceStanding standing) {
    QPainterPath path;
    switch (standing) {
    case SourceStanding::best: // a disc
    case SourceStanding::spare:
        path.addEllipse(QRectF(2, 2, 10, 10));
        break;
    case SourceStanding::combined: // a diamond
        path.addPolygon(QList<QPointF>{{7, 1}, {13, 7}, {7, 13}, {1, 7}, {7, 1}});
        break;
    case SourceStanding::waiting: // a triangle
        path.addPolygon(QList<QPointF>{{7, 2}, {12.5, 12}, {1.5, 12}, {7, 2}});
        break;
    case SourceStanding::refused: // a cross
        path.addPolygon(QList<QPointF>{{3, 3}, {11, 11}});
        path.addPolygon(QList<QPointF>{{11, 3}, {3, 11}});
        break;
    case SourceStanding::silent: // a dash
        path.addPolygon(QList<QPointF>{{2, 7}, {12, 7}});
        break;
    }
    return path;
}

QPixmap mark_of(SourceStanding standing, const QColor& color) {
    const qreal density = qGuiApp->devicePixelRatio();
    QPixmap picture(QSize(mark_side, mark_side) * density);
    picture.setDevicePixelRatio(density);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (standing == SourceStanding::best || standing == SourceStanding::combined)
        painter.setBrush(color);
    painter.drawPath(shape_of(standing));
    return picture;
}

} // namespace

QString words_of(SelectionRule rule) {
    using enum SelectionRule;
    switch (rule) {
    case best:
        //: table of sources: state of a source that chronyd follows before all others
        return Texts::tr("Followed");
    case combined:
        //: table of sources: state of a source that is used together with the best one
        return Texts::tr("Used as well");
    case noselect:
        //: table of sources: state of a source with the option noselect
        return Texts::tr("Measured only");
    case unresolved:
        //: table of sources: state of a source whose name has no address
        return Texts::tr("Name not found");
    case unanswered:
        //: table of sources: state of a source that never answered
        return Texts::tr("No answer");
    case unsynchronised:
        //: table of sources: state of a source that says it is not synchronised
        return Texts::tr("Has no time");
    case few_measurements:
        //: table of sources: state of a source
        return Texts::tr("Too few measurements");
    case unreachable:
        //: table of sources: state of a source that answered once, but not lately
        return Texts::tr("Silent");
    case distant:
        //: table of sources: state of a source beyond maxdistance
        return Texts::tr("Too distant");
    case jittery:
        //: table of sources: state of a source beyond maxjitter
        return Texts::tr("Too unsteady");
    case waiting:
        //: table of sources: state of a source
        return Texts::tr("Waits for others");
    case falseticker:
        //: table of sources: state of a source that contradicts the majority
        return Texts::tr("Wrong time");
    case no_majority:
        //: table of sources: state of a source where no majority tells who is right
        return Texts::tr("No majority");
    case required:
        //: table of sources: state of a source that may be used once enough others can be
        return Texts::tr("Too few sources");
    case not_preferred:
        //: table of sources: state of a source beside one with the option prefer
        return Texts::tr("Another is preferred");
    case new_measurement:
        //: table of sources: state of a source
        return Texts::tr("Needs a measurement");
    case not_combined:
        //: table of sources: state of a source too far from the best one to be combined with it
        return Texts::tr("Not combined");
    case outlier:
        //: table of sources: state of a source at the edge of those that agree
        return Texts::tr("Outlier");
    case stratum:
        //: table of sources: state of a source of a higher stratum than another
        return Texts::tr("Higher stratum");
    case stale:
        //: table of sources: state of a source whose measurements are old
        return Texts::tr("Out of date");
    case orphan:
        //: table of sources: state of a source whose stratum is that of this machine's own orphan mode
        return Texts::tr("Orphan");
    case untrusted:
        //: table of sources: state of a source that contradicts those with the option trust
        return Texts::tr("Not trusted");
    case unknown:
        break;
    }
    //: table of sources: state of a source that is not used, without the reports that would tell why
    return Texts::tr("Not used");
}

StandingMarks::StandingMarks(const QPalette& palette) {
    for (std::size_t i = 0; i < source_standings; ++i) {
        const auto standing = static_cast<SourceStanding>(i);
        m_marks[i].addPixmap(mark_of(standing, color_of(standing, palette)));
        m_marks[i].addPixmap(mark_of(standing, palette.color(QPalette::HighlightedText)), QIcon::Selected);
    }
}

QString reach_dots(unsigned reach) {
    constexpr std::size_t polls = 8;
    const std::bitset<polls> answered(reach);
    QString dots;
    for (std::size_t poll = polls; poll-- > 0;)
        dots += answered[poll] ? QChar(0x25cf) : QChar(0x25cb);
    return dots;
}

QString poll_words(int log2_seconds) {
    constexpr int seconds_of_figures = 6;
    //: table of sources: %1 is a number of seconds between two polls
    return Texts::tr("%1 s").arg(QLocale().toString(std::exp2(log2_seconds), 'g', seconds_of_figures));
}

} // namespace tickervantage
