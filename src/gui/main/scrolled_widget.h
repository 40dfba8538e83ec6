// What a scroll area shows: as high as the area, unless that is less than it needs. Left to itself, one with texts that
// wrap would be as high as it would like to be. Main thread.
#pragma once

#include <QLayout>
#include <QWidget>

namespace tickervantage {

class ScrolledWidget : public QWidget {
public:
    using QWidget::QWidget;

    [[nodiscard]] int heightForWidth(int width) const override { return layout()->minimumHeightForWidth(width); }
};

} // namespace tickervantage
