// The main window below its toolbar: scrolls where the window is too small, and sets its parts side by side where it is
// wide enough. Main thread.
#pragma once

#include <QScrollArea>

class QBoxLayout;
class QSplitter;

namespace tickervantage {

class VerdictPanel;

class MainArea : public QScrollArea {
    Q_OBJECT

public:
    explicit MainArea(QWidget* parent);

    // All are in the area's widget.
    void adapt(QSplitter* halves, VerdictPanel* verdict, QBoxLayout* report_row);

    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void set_out(int width);

    bool m_is_set_out = false;
    QSplitter* m_halves = nullptr;
    VerdictPanel* m_verdict = nullptr;
    QBoxLayout* m_report_row = nullptr;
};

} // namespace tickervantage
