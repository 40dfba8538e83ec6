#include "gui/main/budget_view.h"

#include "qt/accessible_widgets.h"
#include "qt/in_words.h"
#include "qt/qt_canvas.h"

#include <QCoreApplication>
#include <QPainter>
#include <QStringList>

#include <cmath>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(budget)
};

std::string named_part(const QString& words, double seconds) {
    return words.arg(in_words(quantity::seconds(seconds))).toStdString();
}

std::vector<BarPart> parts_of(const ErrorBudget& budget) {
    constexpr Color orange{.red = 0.88, .green = 0.42, .blue = 0.02};
    constexpr Color blue{.red = 0.10, .green = 0.40, .blue = 0.80};
    constexpr Color green{.red = 0.05, .green = 0.55, .blue = 0.45};
    constexpr Color violet{.red = 0.55, .green = 0.25, .blue = 0.80};
    return {//: part of the error bound: what is being corrected now; %1 is a time such as 12 µs
            {named_part(Texts::tr("Correction %1"), budget.correction), budget.correction, orange},
            //: part of the error bound: half of the delay on the way to the reference clock; %1 is a time
            {named_part(Texts::tr("Half the delay %1"), budget.delay), budget.delay, blue},
            //: part of the error bound: what the servers and the measurements leave open; %1 is a time
            {named_part(Texts::tr("Measured %1"), budget.dispersion_measured), budget.dispersion_measured, green},
            //: part of the error bound: what was added since the last measurement; %1 is a time
            {named_part(Texts::tr("Grown since %1"), budget.dispersion_growth), budget.dispersion_growth, violet}};
}

} // namespace

BudgetView::BudgetView(QWidget* parent) : QWidget(parent) {
    announce_as(this, QAccessible::Graphic);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    hide();
}

void BudgetView::show_budget(const std::optional<ErrorBudget>& budget) {
    setVisible(budget.has_value());
    if (!budget)
        return;
    m_parts = parts_of(*budget);
    QStringList words;
    for (const BarPart& part : m_parts)
        words.append(QString::fromStdString(part.name));
    setAccessibleDescription(words.join(QStringLiteral("; ")));
    update();
}

QSize BudgetView::sizeHint() const {
    constexpr int usual_width = 400;
    return {usual_width, heightForWidth(usual_width)};
}

int BudgetView::heightForWidth(int width) const {
    const std::vector<BarPart> four(4);
    return static_cast<int>(std::ceil(stacked_bar_height(four, width)));
}

void BudgetView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    CanvasColors colors = CanvasColors::from_palette(palette());
    colors.text_background = palette().color(QPalette::Window);
    QtCanvas canvas(painter, height(), colors);
    draw_stacked_bar(canvas, {0, 0, static_cast<double>(width()), static_cast<double>(height())},
                     //: main window: title of the bar that shows what the error bound is made of
                     Texts::tr("What the error bound is made of").toStdString(), m_parts);
}

} // namespace tickervantage
