// A button that shows a colour and lets the user choose another.
#pragma once

#include "base/color.h"

#include <QPushButton>

namespace tickervantage {

class ColorWell : public QPushButton {
    Q_OBJECT

public:
    explicit ColorWell(QWidget* parent = nullptr);

    [[nodiscard]] Color color() const { return m_color; }
    void set_color(const Color& color); // without the signal

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void color_chosen(); // by the user

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void choose();

    Color m_color;
};

} // namespace tickervantage
