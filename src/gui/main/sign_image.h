// A disc with a sign on it: told apart by shape as well as by colour. Main thread.
#pragma once

#include <QColor>
#include <QPainterPath>
#include <QWidget>

class QPainter;

namespace tickervantage {

struct DiscSign {
    QColor disc;
    QColor ink;
    QPainterPath path; // in a square of side 32 with y down
};

namespace disc_signs {
[[nodiscard]] DiscSign tick();
[[nodiscard]] DiscSign wave(); // that has not settled
[[nodiscard]] DiscSign cross();
[[nodiscard]] DiscSign pause();
[[nodiscard]] DiscSign arrow();
[[nodiscard]] DiscSign clock();
[[nodiscard]] DiscSign plus_minus();
} // namespace disc_signs

// Into a square of that side, whose corner lies at the painter's origin.
void paint_sign(QPainter& painter, const DiscSign& sign, double side);

class SignImage : public QWidget {
    Q_OBJECT

public:
    // `lines`: its height in lines of text.
    SignImage(QWidget* parent, double lines);

    void show_sign(const DiscSign& sign, const QString& meaning);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    DiscSign m_sign;
    double m_lines;
};

} // namespace tickervantage
