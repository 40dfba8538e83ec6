#include "gui/spectrum/spectrum_controls.h"

#include "gui/spectrum/spectrum_chart.h"
#include "qt/named_widget.h"
#include "qt/text_scale.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tickervantage {
namespace {

constexpr int FIELD_FIGURES = 9;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(spectrum)
};

QLineEdit* number_field(QWidget* parent, const char* object_name, const QString& accessible_name,
                        const QString& tooltip) {
    auto* field = named(new QLineEdit(parent), object_name, accessible_name, tooltip);
    field->setAlignment(Qt::AlignRight);
    const QString widest(FIELD_FIGURES, QLatin1Char('0'));
    field->setMaximumWidth(2 * field->fontMetrics().horizontalAdvance(widest));
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(widest));
    return field;
}

void build_fields(QWidget* parent, SpectrumControls& controls) {
    //: spectrum window: name of the menu that chooses the series, and its tooltip
    controls.m_selector = named(new QComboBox(parent), "m_selector", Texts::tr("Series"),
                                //: spectrum window: tooltip of the menu of series
                                Texts::tr("The series of the tracking log whose spectrum is shown"));
    //: spectrum window: the series of the tracking log
    controls.m_selector->addItems({Texts::tr("Offset"),
                                   //: spectrum window: a series
                                   Texts::tr("Remaining correction"),
                                   //: spectrum window: a series
                                   Texts::tr("RMS offset")});
    fit_entries(controls.m_selector);
    //: spectrum window: name of the field with the seconds between two samples, and its tooltip
    controls.m_sampleinterval = number_field(parent, "m_sampleinterval", Texts::tr("Sampling interval"),
                                             //: spectrum window: tooltip of the interval
                                             Texts::tr("Seconds between two samples; Return computes anew"));
    //: spectrum window: name of the field with the seconds analysed, and its tooltip
    controls.m_sampleduration =
        number_field(parent, "m_sampleduration", Texts::tr("Analysed duration"),
                     //: spectrum window: tooltip of the duration
                     Texts::tr("Seconds analysed, up to the newest record; Return computes anew"));
    //: spectrum window: button, computes the spectrum from the log as it is now
    controls.compute = named(new QPushButton(Texts::tr("&Compute"), parent), "compute",
                             //: spectrum window: name of the button that computes
                             Texts::tr("Compute"),
                             //: spectrum window: tooltip of that button
                             Texts::tr("Compute the spectrum from the tracking log as it is now"));
    //: spectrum window: button, saves the chart as a picture or its numbers as a table
    controls.export_button = named(new QPushButton(Texts::tr("E&xport…"), parent), "export",
                                   //: spectrum window: name of the button that exports
                                   Texts::tr("Export"),
                                   //: spectrum window: tooltip of that button
                                   Texts::tr("Save the chart as a picture, or its numbers as CSV (Ctrl+S)"));
    controls.export_button->setIcon(QIcon::fromTheme(QStringLiteral("document-save-as")));
    controls.export_button->setEnabled(false);
}

void build_chart(QWidget* parent, SpectrumControls& controls) {
    //: spectrum window: name of the chart, and its tooltip
    controls.m_spectrum = named(new SpectrumChart(parent), "m_spectrum", Texts::tr("Spectrum"), QString());
    //: spectrum window: name of the line below the chart
    controls.status = named(new QLabel(parent), "status", Texts::tr("Reading"), QString());
    controls.status->setTextFormat(Qt::PlainText);
    controls.status->setTextInteractionFlags(Qt::TextSelectableByMouse);
    controls.status->setWordWrap(true);
    controls.status->setMinimumHeight(controls.status->fontMetrics().lineSpacing());
}

void add_labelled(QHBoxLayout* row, const QString& text, QWidget* field) {
    auto* label = new QLabel(text, field->parentWidget());
    label->setBuddy(field);
    row->addWidget(label);
    row->addWidget(field);
}

// Two rows: one would be wider than a small screen.
QLayout* rows_above(const SpectrumControls& controls) {
    auto* what = new QHBoxLayout;
    //: spectrum window: label of the series menu
    add_labelled(what, Texts::tr("&Series:"), controls.m_selector);
    what->addStretch(1);
    what->addWidget(controls.export_button);
    auto* samples = new QHBoxLayout;
    //: spectrum window: label of the field with the seconds between two samples
    add_labelled(samples, Texts::tr("A sample &every (s):"), controls.m_sampleinterval);
    samples->addSpacing(6);
    //: spectrum window: label of the field with the seconds analysed, up to the newest record
    add_labelled(samples, Texts::tr("Of the &last (s):"), controls.m_sampleduration);
    samples->addStretch(1);
    samples->addWidget(controls.compute);
    auto* rows = new QVBoxLayout;
    rows->addLayout(what);
    rows->addLayout(samples);
    return rows;
}

} // namespace

SpectrumControls build_spectrum_controls(QWidget* parent) {
    SpectrumControls controls;
    build_fields(parent, controls);
    build_chart(parent, controls);
    auto* column = new QVBoxLayout(parent);
    column->addLayout(rows_above(controls));
    column->addWidget(controls.m_spectrum, 1);
    column->addWidget(controls.status);
    return controls;
}

} // namespace tickervantage
