#include "gui/tracking/tracking_controls.h"

#include "gui/tracking/graph_scroll_area.h"
#include "gui/tracking/legend.h"
#include "gui/tracking/readout_label.h"
#include "qt/text_scale.h"
#include "settings/settings_keys.h"
#include "studies/tracking/tracking_settings.h"

#include <QAction>
#include <QButtonGroup>
#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(tracking)
};

template <typename Widget>
Widget* named(Widget* widget, const char* object_name, const QString& name) {
    widget->setObjectName(QLatin1String(object_name));
    widget->setAccessibleName(name);
    widget->setToolTip(name);
    return widget;
}

QSlider* slider(QWidget* parent, const char* object_name, const QString& name, const DoubleKey& key) {
    auto* made = named(new QSlider(Qt::Horizontal, parent), object_name, name);
    made->setRange(static_cast<int>(std::lround(key.minimum * slider_steps)),
                   static_cast<int>(std::lround(key.maximum * slider_steps)));
    made->setPageStep(static_cast<int>(slider_steps));
    made->setSingleStep(static_cast<int>(slider_steps / 10));
    return made;
}

// At whole decades alone: the axis's numbers are whole ones, and would not be those of their places in between.
QSlider* unit_slider(QWidget* parent) {
    const DoubleKey& key = settings::tracking_vScale;
    //: tracking window: tooltip of a slider
    auto* made = named(new QSlider(Qt::Horizontal, parent), "vScale", Texts::tr("Unit: seconds to nanoseconds"));
    made->setRange(static_cast<int>(key.minimum), static_cast<int>(key.maximum));
    made->setPageStep(1);
    made->setTickInterval(1);
    made->setTickPosition(QSlider::TicksBothSides);
    return made;
}

QAction* graph_action(QWidget* graph, const char* object_name, const QString& text, int key) {
    auto* made = new QAction(text, graph);
    made->setObjectName(QLatin1String(object_name));
    made->setShortcut(QKeySequence(key));
    made->setShortcutContext(Qt::WidgetShortcut);
    made->setShortcutVisibleInContextMenu(true);
    graph->addAction(made);
    return made;
}

void build_fit(QWidget* central, TrackingControls& controls) {
    //: tracking window: button that chooses height and unit
    controls.fit = named(new QPushButton(Texts::tr("&Fit"), central), "fit",
                         //: tracking window: tooltip of that button
                         Texts::tr("Choose the height and the unit that suit the values in sight (F or double click)"));
    controls.fit->setIcon(QIcon::fromTheme(QStringLiteral("zoom-fit-best")));
    //: tracking window: name of that button
    controls.fit->setAccessibleName(Texts::tr("Fit"));
    //: tracking window: menu item of the graph, chooses height and unit
    controls.fit_action = graph_action(controls.trackingView, "fit_action", Texts::tr("&Fit"), Qt::Key_F);
    //: tracking window: menu item of the graph, time and height as they are at first
    controls.reset_action = graph_action(controls.trackingView, "reset_action", Texts::tr("&Reset Zoom"), Qt::Key_0);
}

void build_range(QWidget* central, TrackingControls& controls) {
    //: tracking window: menu that chooses how much of the log is shown
    controls.dataTimeRange = named(new QComboBox(central), "dataTimeRange", Texts::tr("Time range"));
    //: tracking window: time range
    controls.dataTimeRange->addItem(Texts::tr("Whole log"));
    controls.dataTimeRange->insertSeparator(1);
    for (int index = 2; index < range_count; ++index)
        //: tracking window: time range
        controls.dataTimeRange->addItem(Texts::tr("%n hour(s)", nullptr, range_hours(index)));
    fit_entries(controls.dataTimeRange);
}

void build_buttons(QWidget* central, TrackingControls& controls) {
    //: tracking window: button that opens the legend
    controls.showLegend = named(new QPushButton(Texts::tr("&Legend"), central), "showLegend",
                                //: tracking window: tooltip of the legend's button
                                Texts::tr("Series, colours and scale"));
    //: tracking window: button that opens the spectrum of the shown data
    controls.showSpectrum = named(new QPushButton(Texts::tr("&Spectrum"), central), "showSpectrum",
                                  //: tracking window: tooltip of the spectrum's button
                                  Texts::tr("Spectrum of this log"));
    //: tracking window: button, saves the graph as a picture or its records as a table
    controls.export_button = named(new QPushButton(Texts::tr("E&xport…"), central), "export",
                                   //: tracking window: tooltip of that button
                                   Texts::tr("Save the graph as a picture, or its records as CSV (Ctrl+S)"));
    controls.export_button->setIcon(QIcon::fromTheme(QStringLiteral("document-save-as")));
    //: tracking window: name of the button that exports
    controls.export_button->setAccessibleName(Texts::tr("Export"));
    //: tracking window: name of the pair of buttons that stop and resume a live graph
    controls.pauseplay = named(new QWidget(central), "pauseplay", Texts::tr("Pause or resume"));
    const auto button = [&controls](const char* icon, const QString& text, const QString& tip) {
        auto* made = new QToolButton(controls.pauseplay);
        made->setIcon(QIcon::fromTheme(QLatin1String(icon)));
        made->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        made->setText(text);
        made->setToolTip(tip);
        made->setAccessibleName(tip);
        made->setCheckable(true);
        return made;
    };
    //: tracking window: button and its tooltip
    controls.pause = button("media-playback-pause", Texts::tr("Pause"),
                            //: tracking window: tooltip of the button Pause
                            Texts::tr("Stop the graph at this moment"));
    //: tracking window: button and its tooltip
    controls.play = button("media-playback-start", Texts::tr("Play"),
                           //: tracking window: tooltip of the button Play
                           Texts::tr("Let the graph run"));
    auto* group = new QButtonGroup(controls.pauseplay);
    auto* row = new QHBoxLayout(controls.pauseplay);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (auto* one : {controls.pause, controls.play}) {
        group->addButton(one);
        row->addWidget(one);
    }
    controls.play->setChecked(true);
}

QLabel* date_label(QWidget* central, const char* object_name, const QString& name) {
    auto* label = named(new QLabel(central), object_name, name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

void build_texts(QWidget* central, TrackingControls& controls) {
    //: tracking window: name of the text with the log's path
    controls.titleView = named(new QLabel(central), "titleView", Texts::tr("Log"));
    controls.titleView->setTextFormat(Qt::PlainText);
    controls.titleView->setAlignment(Qt::AlignCenter);
    //: tracking window: times of the first and the last record
    controls.startDate = date_label(central, "startDate", Texts::tr("First record"));
    controls.endDate = date_label(central, "endDate",
                                  //: tracking window: time of the last record
                                  Texts::tr("Last record"));
    //: tracking window: values of the record under the pointer
    controls.readout = named(new ReadoutLabel(central), "readout", Texts::tr("Under the pointer"));
    controls.readout->setTextInteractionFlags(Qt::TextSelectableByMouse);
    //: tracking window: button, shown where the log may be read by chronyd alone
    controls.makeReadable = named(new QPushButton(Texts::tr("&Make Readable"), central), "makeReadable",
                                  //: tracking window: tooltip of that button
                                  Texts::tr("Let everybody on this computer read chrony's tracking log, from now on"));
    controls.makeReadable->hide();
    //: tracking window: sign that a log is being read
    controls.loadingLog = named(new QProgressBar(central), "loadingLog", Texts::tr("Reading the log"));
    controls.loadingLog->setRange(0, 0);
    controls.loadingLog->setTextVisible(false);
    controls.loadingLog->setMaximumWidth(scaled(90, *central));
    controls.loadingLog->hide();
}

QLayout* top_row(const TrackingControls& controls) {
    auto* row = new QHBoxLayout;
    row->addWidget(controls.dataTimeRange);
    row->addWidget(controls.pauseplay);
    row->addWidget(controls.loadingLog);
    row->addStretch(1);
    row->addWidget(controls.showSpectrum);
    row->addWidget(controls.showLegend);
    row->addWidget(controls.export_button);
    return row;
}

QLayout* date_row(const TrackingControls& controls) {
    auto* row = new QHBoxLayout;
    row->addWidget(controls.startDate);
    row->addStretch(1);
    row->addWidget(controls.makeReadable); // under the words that say why there is nothing to see
    row->addStretch(1);
    row->addWidget(controls.endDate);
    return row;
}

QLayout* slider_row(QWidget* central, const TrackingControls& controls) {
    auto* row = new QHBoxLayout;
    const auto add = [row, central](const QString& text, QSlider* one) {
        auto* label = new QLabel(text, central);
        label->setBuddy(one);
        row->addWidget(label);
        row->addWidget(one, 1);
    };
    //: tracking window: labels of the three sliders
    add(Texts::tr("&Time"), controls.hZoom);
    //: tracking window: label of a slider
    add(Texts::tr("&Height"), controls.vZoom);
    //: tracking window: label of a slider
    add(Texts::tr("&Unit"), controls.vScale);
    row->addWidget(controls.fit);
    return row;
}

void build_empty(TrackingControls& controls) {
    QWidget* graph = controls.trackingView->viewport();
    controls.empty = new QLabel(graph);
    controls.empty->setObjectName(QStringLiteral("empty"));
    controls.empty->setTextFormat(Qt::PlainText);
    controls.empty->setAlignment(Qt::AlignCenter);
    controls.empty->setWordWrap(true);
    controls.empty->setMargin(10);
    controls.empty->setForegroundRole(QPalette::Text);
    controls.empty->setBackgroundRole(QPalette::Base);
    controls.empty->setAutoFillBackground(true); // the zero line would run through the words
    controls.empty->setAttribute(Qt::WA_TransparentForMouseEvents);
    controls.empty->hide();
    controls.empty->setMaximumWidth(scaled(520, *graph));
    auto* middle = new QHBoxLayout(graph);
    middle->addStretch(1);
    middle->addWidget(controls.empty, 8, Qt::AlignVCenter);
    middle->addStretch(1);
}

} // namespace

TrackingControls build_tracking_controls(QWidget* central, PerformanceGraph& graph) {
    TrackingControls controls;
    build_texts(central, controls);
    build_range(central, controls);
    build_buttons(central, controls);
    controls.trackingView = new GraphScrollArea(graph, central);
    controls.trackingView->setObjectName(QStringLiteral("trackingView"));
    //: tracking window: name of the graph
    controls.trackingView->setAccessibleName(Texts::tr("Tracking graph"));
    build_empty(controls);
    //: tracking window: tooltips of the three sliders
    controls.hZoom = slider(central, "hZoom", Texts::tr("Zoom in on a shorter time"), settings::tracking_hZoom);
    //: tracking window: tooltip of a slider
    controls.vZoom = slider(central, "vZoom", Texts::tr("Zoom in on smaller values"), settings::tracking_vZoom);
    controls.vScale = unit_slider(central);
    build_fit(central, controls);
    controls.legend = new LegendView(central);

    auto* column = new QVBoxLayout(central);
    column->addLayout(top_row(controls));
    column->addWidget(controls.titleView);
    column->addWidget(controls.trackingView, 1);
    column->addLayout(date_row(controls));
    column->addWidget(controls.readout); // of all series it is as long as the window is wide
    column->addLayout(slider_row(central, controls));
    return controls;
}

} // namespace tickervantage
