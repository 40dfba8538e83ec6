#include "gui/main/instruments_panel.h"

#include "gui/main/clock_widget.h"
#include "gui/main/meter_widget.h"
#include "gui/main/status_image.h"
#include "qt/text_scale.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(mainwindow)
};

constexpr int spacing = 12;
constexpr int smallest_dial = 120;
constexpr int largest_dial = 400; // beyond it nothing more can be read
constexpr double tall = 1.3;      // times the width: one above the other

QLayout* cell_of(QWidget* dial, QLayout* words) {
    dial->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding); // the panel keeps it round
    auto* cell = new QVBoxLayout;
    cell->setSpacing(4);
    cell->addStretch(1);
    cell->addWidget(dial, 1000);
    cell->addLayout(words);
    cell->addStretch(1);
    return cell;
}

QHBoxLayout* in_the_middle(QWidget* first, QWidget* second = nullptr) {
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addStretch(1);
    row->addWidget(first);
    if (second != nullptr)
        row->addWidget(second);
    row->addStretch(1);
    return row;
}

QLayout* state_row(QWidget* parent, const MainWindowControls& controls) {
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    //: main window: above the state that chronyd names, such as "Synchronised"
    row->addWidget(new QLabel(Texts::tr("chronyd says:"), parent));
    for (auto* image : controls.status_images)
        row->addWidget(image);
    row->addWidget(controls.status_words);
    row->addStretch(1);
    return row;
}

QLayout* adjusting_row(const MainWindowControls& controls) {
    auto* row = new QHBoxLayout;
    row->addWidget(controls.adjustingClock, 1);
    row->addWidget(controls.m_preferences);
    return row;
}

} // namespace

InstrumentsPanel::InstrumentsPanel(QWidget* parent, const MainWindowControls& controls)
    : QWidget(parent), m_dials(new QBoxLayout(QBoxLayout::LeftToRight)),
      m_words(new QVBoxLayout), m_instruments{controls.analogClock, controls.clockPerformance} {
    setObjectName(QStringLiteral("instruments"));
    m_dials->setSpacing(spacing);
    controls.localTime->setMinimumHeight(controls.meterSelect->sizeHint().height()); // as what stands beside it
    m_dials->addLayout(cell_of(controls.analogClock, in_the_middle(controls.localTime)), 1);
    m_dials->addLayout(cell_of(controls.clockPerformance, in_the_middle(controls.meterSelect, controls.meterValue)), 1);
    auto* words = static_cast<QVBoxLayout*>(m_words);
    words->addLayout(state_row(this, controls));
    words->addLayout(adjusting_row(controls));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addLayout(m_dials, 1);
    column->addLayout(m_words);
}

// That of two dials side by side, however they stand: what follows from the size must not change it.
QSize InstrumentsPanel::minimumSizeHint() const {
    const int line = fontMetrics().height() * 2;
    return {scaled(430, *this), smallest_dial + line + m_words->minimumSize().height() + 2 * spacing};
}

void InstrumentsPanel::resizeEvent(QResizeEvent* event) {
    const int room = height() - m_words->minimumSize().height();
    const bool is_tall = room > tall * width();
    m_dials->setDirection(is_tall ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    const int side =
        std::clamp(is_tall ? width() : (width() - spacing) / 2, smallest_dial, scaled(largest_dial, *this));
    for (auto* instrument : m_instruments)
        instrument->setMaximumHeight(side);
    QWidget::resizeEvent(event);
}

} // namespace tickervantage
