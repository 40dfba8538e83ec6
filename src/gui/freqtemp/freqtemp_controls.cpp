#include "gui/freqtemp/freqtemp_controls.h"

#include "gui/freqtemp/freqtemp_plot.h"
#include "qt/named_widget.h"
#include "qt/text_scale.h"
#include "settings/settings_keys.h"
#include "studies/freqtemp/freqtemp_settings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <array>
#include <initializer_list>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(freqtemp)
};

void build_sensor_menu(QWidget* parent, FreqTempControls& controls) {
    auto* button = new QPushButton(parent);
    //: frequency and temperature window: button with the menu of sensors, its name and its tooltip
    controls.m_select_sensor = named(button, "m_select_sensor", Texts::tr("Sensors"),
                                     //: frequency and temperature window: tooltip of the menu of sensors
                                     Texts::tr("The sensors whose points are shown"));
    //: frequency and temperature window: text of that button
    button->setText(Texts::tr("&Sensors"));
    button->setMenu(new QMenu(button));
}

void explain_orders(QComboBox* box) {
    //: frequency and temperature window: tooltip of the fitted curves above degree 2
    const QString why = Texts::tr("Above degree 2 the curve is fitted with 1, x, x², x⁴, x⁸ and so on, but evaluated "
                                  "with ordinary powers 1, x, x², x³, x⁴: it need not follow the points.");
    for (int item = 2; item < box->count(); ++item)
        box->setItemData(item, why, Qt::ToolTipRole);
    box->setToolTip(box->toolTip() + QStringLiteral(".\n") + why);
}

// As many degrees as the setting allows.
void build_order(QWidget* parent, FreqTempControls& controls) {
    //: frequency and temperature window: name of the menu that chooses the fitted curve, and its tooltip
    controls.m_order = named(new QComboBox(parent), "m_order", Texts::tr("Order of the fit"),
                             //: frequency and temperature window: tooltip of the menu of fitted curves
                             Texts::tr("The curve that is fitted through the points"));
    //: frequency and temperature window: fitted curves
    const std::initializer_list<QString> words{Texts::tr("Straight line"),
                                               //: frequency and temperature window: fitted curve
                                               Texts::tr("Parabola (degree 2)"),
                                               //: frequency and temperature window: fitted curve; its terms are fitted
                                               //: as 1, x, x², x⁴, but evaluated as 1, x, x², x³
                                               Texts::tr("Cubic (degree 3), ordinary powers"),
                                               //: frequency and temperature window: fitted curve, see degree 3
                                               Texts::tr("Quartic (degree 4), ordinary powers")};
    controls.m_order->addItems(words);
    for (auto degree = controls.m_order->count() + 1; degree <= settings::regression_order.maximum + 1; ++degree)
        //: frequency and temperature window: fitted curve; %1 is a number above four; see degree 3
        controls.m_order->addItem(Texts::tr("Degree %1, ordinary powers").arg(QLocale().toString(degree)));
    explain_orders(controls.m_order);
    fit_entries(controls.m_order);
}

void build_check_boxes(QWidget* parent, FreqTempControls& controls) {
    const auto box = [parent](const char* object_name, const QString& text, const QString& tooltip) {
        auto* made = new QCheckBox(text, parent);
        return named(made, object_name, QString(text).remove(QLatin1Char('&')), tooltip);
    };
    //: frequency and temperature window: check box and its tooltip
    controls.m_show_scatter_points = box("m_show_scatter_points", Texts::tr("&Points"),
                                         //: frequency and temperature window: tooltip of “Points”
                                         Texts::tr("Show every point that was measured"));
    //: frequency and temperature window: check box and its tooltip
    controls.m_show_mean_frequency = box("m_show_mean_frequency", Texts::tr("&Mean per degree"),
                                         //: frequency and temperature window: tooltip of “Mean”
                                         Texts::tr("Show the mean frequency at each degree"));
    //: frequency and temperature window: check box and its tooltip
    controls.m_show_freq_bounds = box("m_show_freq_bounds", Texts::tr("Curve's sp&read"),
                                      //: frequency and temperature window: tooltip of “Bounds”
                                      Texts::tr("Show one standard deviation above and below the fitted curve"));
    //: frequency and temperature window: check box and its tooltip
    controls.m_show_last_record = box("m_show_last_record", Texts::tr("&Newest point"),
                                      //: frequency and temperature window: tooltip of “Newest”
                                      Texts::tr("Mark each sensor's newest point"));
}

void build_buttons(QWidget* parent, FreqTempControls& controls) {
    //: frequency and temperature window: button, its name and tooltip
    controls.clear = named(new QPushButton(Texts::tr("&Clear…"), parent), "clear",
                           //: frequency and temperature window: name of the button that deletes all points
                           Texts::tr("Clear"),
                           //: frequency and temperature window: tooltip of that button
                           Texts::tr("Delete all points and begin anew"));
    //: frequency and temperature window: button, its name and tooltip
    controls.compensate = named(new QPushButton(Texts::tr("Use for Compensat&ion…"), parent), "compensate",
                                //: frequency and temperature window: name of the button that offers a compensation
                                Texts::tr("Use for Compensation"),
                                //: frequency and temperature window: tooltip of that button
                                Texts::tr("Look whether chronyd would keep the clock steadier by compensating for the "
                                          "temperature of the sensors shown, and install that"));
    //: frequency and temperature window: button, its name and tooltip
    controls.export_button = named(new QPushButton(Texts::tr("E&xport…"), parent), "export",
                                   //: frequency and temperature window: name of the button that exports
                                   Texts::tr("Export"),
                                   //: frequency and temperature window: tooltip of that button
                                   Texts::tr("Save the plot as a picture, or the points shown as CSV (Ctrl+S)"));
    controls.export_button->setIcon(QIcon::fromTheme(QStringLiteral("document-save-as")));
}

void build_texts(QWidget* parent, FreqTempControls& controls) {
    const auto label = [parent](const char* object_name, const QString& name) {
        auto* made = named(new QLabel(parent), object_name, name, QString());
        made->setTextInteractionFlags(Qt::TextSelectableByMouse);
        return made;
    };
    //: frequency and temperature window: which colour is which sensor
    controls.legend = label("legend", Texts::tr("Legend"));
    controls.legend->setTextFormat(Qt::RichText);
    controls.legend->setWordWrap(true);
    //: frequency and temperature window: name of the line that tells what is under the pointer
    controls.reading = label("reading", Texts::tr("Reading"));
    controls.reading->setTextFormat(Qt::PlainText);
    controls.reading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    controls.reading->setMinimumHeight(controls.reading->fontMetrics().lineSpacing());
    //: frequency and temperature window: name of the number of points
    controls.m_samples = label("m_samples", Texts::tr("Samples"));
    controls.m_samples->setToolTip(
        //: frequency and temperature window: tooltip of the number of points
        Texts::tr("The largest number of points of any sensor"));
    controls.m_samples->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    controls.m_samples->setFixedWidth(controls.m_samples->fontMetrics().horizontalAdvance(QStringLiteral("00000000")));
}

void build_max_samples(QWidget* parent, FreqTempControls& controls) {
    controls.m_ph_maxsamples = new QWidget(parent);
    controls.m_ph_maxsamples->setObjectName(QStringLiteral("m_ph_maxsamples"));
    auto* row = new QHBoxLayout(controls.m_ph_maxsamples);
    row->setContentsMargins(0, 0, 0, 0);
    //: frequency and temperature window: name and tooltip of the field with the most points that are kept
    controls.m_maxsamples = named(new QSpinBox(controls.m_ph_maxsamples), "m_maxsamples", Texts::tr("Most points"),
                                  //: frequency and temperature window: tooltip of the field with the most points
                                  Texts::tr("The most points kept for a sensor; the oldest go first"));
    controls.m_maxsamples->setRange(static_cast<int>(settings::max_samples.minimum),
                                    static_cast<int>(settings::max_samples.maximum));
    controls.m_maxsamples->setKeyboardTracking(false); // half a number would drop points for good
    row->addWidget(controls.m_maxsamples);
}

// Two rows: one would be wider than a small screen.
QLayout* rows_above(QWidget* parent, const FreqTempControls& controls) {
    auto* what = new QHBoxLayout;
    what->addWidget(controls.m_select_sensor);
    //: frequency and temperature window: label of the menu that chooses the fitted curve
    auto* label = new QLabel(Texts::tr("C&urve:"), parent);
    label->setBuddy(controls.m_order);
    what->addWidget(label);
    what->addWidget(controls.m_order);
    what->addStretch(1);
    what->addWidget(controls.clear);
    what->addWidget(controls.export_button);
    auto* shown = new QHBoxLayout;
    for (auto* box : {controls.m_show_scatter_points, controls.m_show_mean_frequency, controls.m_show_freq_bounds,
                      controls.m_show_last_record})
        shown->addWidget(box);
    shown->addStretch(1);
    auto* rows = new QVBoxLayout;
    rows->addLayout(what);
    rows->addLayout(shown);
    return rows;
}

// Which sensors are shown, and what can be done with them.
QLayout* legend_row(const FreqTempControls& controls) {
    auto* row = new QHBoxLayout;
    row->addWidget(controls.legend, 1);
    row->addStretch();
    row->addWidget(controls.compensate, 0, Qt::AlignTop);
    return row;
}

QLayout* bottom_row(QWidget* parent, const FreqTempControls& controls) {
    auto* row = new QHBoxLayout;
    row->addWidget(controls.reading, 1);
    //: frequency and temperature window: label of the number of points
    row->addWidget(new QLabel(Texts::tr("Points:"), parent));
    row->addWidget(controls.m_samples);
    //: frequency and temperature window: label of the field behind the number of points
    auto* label = new QLabel(Texts::tr("of at m&ost"), parent);
    label->setBuddy(controls.m_maxsamples);
    row->addWidget(label);
    row->addWidget(controls.m_ph_maxsamples);
    return row;
}

} // namespace

FreqTempControls build_freqtemp_controls(QWidget* parent) {
    FreqTempControls controls;
    build_sensor_menu(parent, controls);
    build_order(parent, controls);
    build_check_boxes(parent, controls);
    build_buttons(parent, controls);
    //: frequency and temperature window: name of the plot
    controls.m_scatterplot =
        named(new FreqTempPlot(parent), "m_scatterplot", Texts::tr("Frequency against temperature"), QString());
    build_texts(parent, controls);
    build_max_samples(parent, controls);
    const std::array<QWidget*, 10> as_seen{controls.m_select_sensor,
                                           controls.m_order,
                                           controls.clear,
                                           controls.export_button,
                                           controls.m_show_scatter_points,
                                           controls.m_show_mean_frequency,
                                           controls.m_show_freq_bounds,
                                           controls.m_show_last_record,
                                           controls.m_scatterplot,
                                           controls.compensate};
    for (std::size_t i = 1; i < as_seen.size(); ++i)
        QWidget::setTabOrder(as_seen[i - 1], as_seen[i]);
    auto* column = new QVBoxLayout(parent);
    column->addLayout(rows_above(parent, controls));
    column->addWidget(controls.m_scatterplot, 1);
    column->addLayout(legend_row(controls));
    column->addLayout(bottom_row(parent, controls));
    return controls;
}

} // namespace tickervantage
