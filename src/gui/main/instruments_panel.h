// The clock and the meter, side by side or, in a tall place, one above the other, and below them what chronyd says of
// itself. The dials use the room there is. Main thread.
#pragma once

#include "gui/main/main_window_controls.h"

#include <QWidget>

class QBoxLayout;

namespace tickervantage {

class InstrumentsPanel : public QWidget {
    Q_OBJECT

public:
    // The controls become its own.
    InstrumentsPanel(QWidget* parent, const MainWindowControls& controls);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QBoxLayout* m_dials;
    QLayout* m_words;
    std::array<QWidget*, 2> m_instruments;
};

} // namespace tickervantage
