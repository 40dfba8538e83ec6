#include "gui/tracking/legend.h"

#include "gui/tracking/color_well.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>

#include <algorithm>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(legend)
};

// The controls' object names, by Series.
struct OutletNames {
    const char* shown;
    const char* color;
};
constexpr std::array<OutletNames, series_count> outlets{{{"offsetShow", "offsetColor"},
                                                         {"meanOffsetShow", "meanOffsetColor"},
                                                         {"rmsOffsetShow", "rmsOffsetColor"},
                                                         {"sdOffsetShow", "sdOffsetColor"},
                                                         {"systemtimeShow", "systemtimeColor"},
                                                         {"mean_systemtimeShow", "mean_systemtimeColor"},
                                                         {"rms_systemtimeShow", "rms_systemtimeColor"},
                                                         {"rootdispersionShow", "rootdispersionColor"},
                                                         {"frequencyShow", "frequencyColor"}}};

} // namespace

QString series_title(Series series) {
    switch (series) {
    case Series::offset:
        //: tracking graph: a series
        return Texts::tr("Offset");
    case Series::mean_offset:
        //: tracking graph: a series
        return Texts::tr("Mean offset");
    case Series::rms_offset:
        //: tracking graph: a series
        return Texts::tr("RMS offset");
    case Series::offset_sd:
        //: tracking graph: a series
        return Texts::tr("Offset's standard deviation");
    case Series::rem_cor:
        //: tracking graph: a series
        return Texts::tr("Remaining correction");
    case Series::mean_rem_cor:
        //: tracking graph: a series
        return Texts::tr("Mean remaining correction");
    case Series::rms_rem_cor:
        //: tracking graph: a series
        return Texts::tr("RMS remaining correction");
    case Series::rootdispersion:
        //: tracking graph: a series
        return Texts::tr("Root dispersion");
    case Series::frequency:
        //: tracking graph: a series
        return Texts::tr("Frequency");
    }
    return {};
}

LegendView::LegendView(QWidget* parent) : QFrame(parent) {
    setObjectName(QStringLiteral("legend"));
    //: tracking graph: name of the panel with the series, their colours and the scale
    setAccessibleName(Texts::tr("Legend"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    auto* grid = new QGridLayout(this);
    for (std::size_t i = 0; i < series_count; ++i)
        add_series(grid, i);
    //: tracking graph: checkbox, the value axis is logarithmic
    m_use_logscale = new QCheckBox(Texts::tr("&Logarithmic scale"), this);
    m_use_logscale->setObjectName(QStringLiteral("use_logscale"));
    m_use_logscale->setAccessibleName(
        //: tracking graph: name of that checkbox
        Texts::tr("Logarithmic scale"));
    connect(m_use_logscale, &QCheckBox::clicked, this, &LegendView::changed);
    grid->addWidget(m_use_logscale, static_cast<int>(series_count), 0, 1, 2);
    add_buttons(grid);
    hide();
}

void LegendView::add_series(QGridLayout* grid, std::size_t series) {
    const QString title = series_title(static_cast<Series>(series));
    auto* shown = new QCheckBox(title, this);
    shown->setObjectName(QLatin1String(outlets[series].shown));
    shown->setAccessibleName(title);
    auto* color = new ColorWell(this);
    color->setObjectName(QLatin1String(outlets[series].color));
    //: tracking graph: name of a colour button; %1 is a series
    color->setAccessibleName(Texts::tr("Colour of “%1”").arg(title));
    color->setToolTip(color->accessibleName());
    connect(shown, &QCheckBox::clicked, this, &LegendView::changed);
    connect(color, &ColorWell::color_chosen, this, &LegendView::changed);
    grid->addWidget(shown, static_cast<int>(series), 0);
    grid->addWidget(color, static_cast<int>(series), 1);
    m_shown[series] = shown;
    m_colors[series] = color;
}

void LegendView::add_buttons(QGridLayout* grid) {
    auto* row = new QHBoxLayout;
    const auto add = [this, row](const char* name, const QString& text, void (LegendView::*signal)()) {
        auto* button = new QPushButton(text, this);
        button->setObjectName(QLatin1String(name));
        connect(button, &QPushButton::clicked, this, signal);
        row->addWidget(button);
        return button;
    };
    //: tracking graph: legend's buttons
    add("defaultLegend", Texts::tr("&Default"), &LegendView::defaulted);
    row->addStretch(1);
    //: tracking graph: legend's button that takes the changes back
    add("cancelLegend", Texts::tr("&Cancel"), &LegendView::cancelled);
    //: tracking graph: legend's button that keeps the changes
    add("closeLegend", Texts::tr("Cl&ose"), &LegendView::closed)->setDefault(true);
    grid->addLayout(row, static_cast<int>(series_count) + 1, 0, 1, 2);
}

popover_settings LegendView::settings() const {
    popover_settings result;
    for (std::size_t i = 0; i < series_count; ++i) {
        result.shown[i] = m_shown[i]->isChecked();
        result.colors[i] = m_colors[i]->color();
    }
    result.use_logscale = m_use_logscale->isChecked();
    return result;
}

void LegendView::set_settings(const popover_settings& settings) {
    for (std::size_t i = 0; i < series_count; ++i) {
        m_shown[i]->setChecked(settings.shown[i]);
        m_colors[i]->set_color(settings.colors[i]);
    }
    m_use_logscale->setChecked(settings.use_logscale);
}

void LegendView::show_below(const QWidget* anchor) {
    adjustSize();
    const QPoint corner = anchor->mapTo(parentWidget(), QPoint(anchor->width(), anchor->height() + 4));
    const int x = std::clamp(corner.x() - width(), 0, std::max(0, parentWidget()->width() - width()));
    const int y = std::clamp(corner.y(), 0, std::max(0, parentWidget()->height() - height()));
    move(x, y);
    show();
    raise();
    m_shown.front()->setFocus();
}

void LegendView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Q_EMIT cancelled();
    else
        QFrame::keyPressEvent(event);
}

} // namespace tickervantage
