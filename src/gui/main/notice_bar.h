// A line that is set off from what is around it: a coloured edge, words, and perhaps a button. Main thread.
#pragma once

#include <QFrame>

class QHBoxLayout;

namespace tickervantage {

enum class NoticeTone : unsigned char { hint, doubt, harm };

class NoticeBar : public QFrame {
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent, NoticeTone tone = NoticeTone::hint);

    void set_tone(NoticeTone tone);

    // What is told: words first, buttons behind them.
    void add(QWidget* words);
    void add_button(QWidget* button);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    NoticeTone m_tone;
    QHBoxLayout* m_row;
};

} // namespace tickervantage
