// The three images of the daemon's state: told apart by shape as well as by colour.
#pragma once

#include "chrony/status/status_values.h"

#include <QWidget>

namespace tickervantage {

class StatusImage : public QWidget {
    Q_OBJECT

public:
    explicit StatusImage(chronydStatus status, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    chronydStatus m_status;
};

// The state in words.
[[nodiscard]] QString status_words(chronydStatus status);

} // namespace tickervantage
