// What temperature compensation would do for the clock. Main thread.
#pragma once

#include <QWidget>

namespace tickervantage {

class CompensationPage : public QWidget {
    Q_OBJECT
public:
    explicit CompensationPage(QWidget* parent = nullptr);
};

} // namespace tickervantage
