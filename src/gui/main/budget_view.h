// What the error bound is made of: a bar of four parts with their names. Main thread.
#pragma once

#include "chrony/truth/verdict.h"
#include "draw/plots/stacked_bar.h"

#include <QWidget>

#include <optional>
#include <vector>

namespace tickervantage {

class BudgetView : public QWidget {
    Q_OBJECT

public:
    explicit BudgetView(QWidget* parent);

    // None: the widget hides, there is no bound.
    void show_budget(const std::optional<ErrorBudget>& budget);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {100, heightForWidth(400)}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<BarPart> m_parts;
};

} // namespace tickervantage
