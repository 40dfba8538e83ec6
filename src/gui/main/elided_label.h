// One line of text that ends in an ellipsis where there is no room for all of it. Main thread.
#pragma once

#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace tickervantage {

class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent) : QLabel(parent) {
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(),
                              fontMetrics().elidedText(text(), Qt::ElideRight, width()), foregroundRole());
    }
};

} // namespace tickervantage
