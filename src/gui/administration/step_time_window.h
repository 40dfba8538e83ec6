// The window that steps the clock by a number of seconds, said in words before it happens. Main thread only.
#pragma once

#include <QDialog>

#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace tickervantage {

class StepTime : public QDialog {
    Q_OBJECT
public:
    // A sheet of the parent; deletes itself when it closes.
    explicit StepTime(QWidget* parent);

    void step();
    void cancel();

Q_SIGNALS:
    void wanted(double offset_seconds); // never 0

private:
    [[nodiscard]] std::optional<double> offset() const;
    void show_words();

    QLineEdit* m_offset = nullptr;
    QLabel* m_words = nullptr;
    QPushButton* m_step = nullptr;
};

// "The clock will go back 1.5 s."
[[nodiscard]] QString step_words(double offset_seconds);

} // namespace tickervantage
