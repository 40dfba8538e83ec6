// The window that steps the clock by a number of seconds, said in words before it happens. Main thread only; the parts
// outlive the window.
#pragma once

#include <QDialog>

#include <functional>
#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace tickervantage {

class StepTime : public QDialog {
    Q_OBJECT
public:
    // A sheet of the parent; deletes itself when it closes. `step_by` is never called with 0.
    StepTime(std::function<void(double offset_seconds)> step_by, QWidget* parent);

    void step();
    void cancel();

private:
    [[nodiscard]] std::optional<double> offset() const;
    void show_words();

    std::function<void(double)> m_step_by;
    QLineEdit* m_offset = nullptr;
    QLabel* m_words = nullptr;
    QPushButton* m_step = nullptr;
};

// "The clock will go back 1.5 s."
[[nodiscard]] QString step_words(double offset_seconds);

} // namespace tickervantage
