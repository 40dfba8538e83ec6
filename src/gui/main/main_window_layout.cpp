#include "gui/main/main_window_layout.h"

#include "gui/main/clock_widget.h"
#include "gui/main/command_output.h"
#include "gui/main/main_area.h"
#include "gui/main/meter_widget.h"
#include "gui/main/sources_panel.h"
#include "gui/main/status_image.h"
#include "gui/main/verdict_panel.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>

#include <initializer_list>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(mainwindow)
};

QWidget* build_interval_holder(QWidget* central, QSpinBox* interval) {
    auto* holder = new QWidget(central);
    holder->setObjectName(QStringLiteral("ph_interval"));
    //: main window: label of the interval
    auto* label = new QLabel(Texts::tr("&Every"), holder);
    label->setBuddy(interval);
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label);
    row->addWidget(interval);
    return holder;
}

QLayout* meter_row(const MainWindowControls& controls) {
    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    row->addWidget(controls.meterSelect);
    row->addWidget(controls.meterValue, 1, Qt::AlignVCenter);
    return row;
}

QLayout* status_column(QWidget* central, const MainWindowControls& controls) {
    auto* state = new QHBoxLayout;
    state->setSpacing(6);
    for (auto* image : controls.status_images)
        state->addWidget(image);
    state->addWidget(controls.status_words, 1);
    auto* column = new QVBoxLayout;
    //: main window: above the state that chronyd names, such as "Synchronised"
    column->addWidget(new QLabel(Texts::tr("chronyd says:"), central));
    column->addLayout(state);
    column->addSpacing(6);
    column->addWidget(controls.adjustingClock);
    column->addWidget(controls.m_preferences, 0, Qt::AlignLeft);
    column->addStretch(1);
    column->addWidget(controls.chronycversion);
    column->addWidget(controls.chronydversion);
    return column;
}

QLayout* dashboard(QWidget* central, const MainWindowControls& controls) {
    // Beyond this the room is better used by the report below.
    const int largest_dial = controls.localTime->fontMetrics().height() * 18;
    auto* grid = new QGridLayout;
    int column = 0;
    for (auto* instrument : std::initializer_list<QWidget*>{controls.analogClock, controls.clockPerformance}) {
        instrument->setMaximumSize(largest_dial, largest_dial);
        grid->addWidget(instrument, 0, column);
        grid->setColumnStretch(column++, 2);
    }
    grid->addWidget(controls.localTime, 1, 0, Qt::AlignCenter);
    grid->addLayout(meter_row(controls), 1, 1);
    grid->addLayout(status_column(central, controls), 0, 2, 2, 1);
    grid->setColumnStretch(2, 3);
    grid->setHorizontalSpacing(12);
    return grid;
}

// What is asked, and how: two rows where the window is narrow.
QBoxLayout* command_row(QWidget* central, const MainWindowControls& controls) {
    //: main window: label of the command menu
    auto* label = new QLabel(Texts::tr("&Report:"), central);
    label->setBuddy(controls.commandMenu);
    auto* what = new QHBoxLayout;
    what->addWidget(label);
    what->addWidget(controls.commandMenu);
    what->addWidget(controls.m_server_label);
    what->addWidget(controls.m_server);
    what->addStretch(1);
    auto* how = new QHBoxLayout;
    how->addWidget(controls.showIPaddress);
    how->addWidget(controls.showOriginalName);
    how->addStretch(1);
    how->addWidget(build_interval_holder(central, controls.m_interval));
    auto* row = new QBoxLayout(QBoxLayout::LeftToRight);
    row->addLayout(what, 1);
    row->addLayout(how);
    return row;
}

QWidget* instruments_and_report(QWidget* central, const MainWindowControls& controls, QBoxLayout* report_row) {
    auto* half = new QWidget(central);
    auto* column = new QVBoxLayout(half);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(dashboard(half, controls));
    column->addSpacing(4);
    column->addLayout(report_row);
    column->addWidget(controls.m_textscroll, 1);
    return half;
}

} // namespace

void lay_out_main_window(MainArea& area, QWidget* central, const MainWindowControls& controls) {
    auto* halves = new QSplitter(central);
    halves->setObjectName(QStringLiteral("halves"));
    halves->setChildrenCollapsible(false);
    auto* report_row = command_row(central, controls);
    halves->addWidget(instruments_and_report(central, controls, report_row));
    halves->addWidget(controls.sources);
    halves->setStretchFactor(1, 1); // the instruments keep the width they have
    auto* column = new QVBoxLayout(central);
    column->addWidget(controls.standing_notice);
    column->addWidget(controls.wrong_program);
    column->addWidget(controls.verdict);
    column->addSpacing(4);
    column->addWidget(halves, 1);
    column->addWidget(controls.m_status);
    area.setWidget(central);
    area.adapt(halves, controls.verdict, report_row);
}

} // namespace tickervantage
