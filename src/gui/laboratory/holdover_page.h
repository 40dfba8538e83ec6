// How far the clock would be off if its sources were lost now. Main thread.
#pragma once

#include "gui/laboratory/laboratory_page.h"
#include "studies/laboratory/holdover.h"

class QComboBox;
class QDoubleSpinBox;

namespace tickervantage {

class HoldoverPage : public LaboratoryPage {
    Q_OBJECT
public:
    explicit HoldoverPage(QWidget* parent, LaboratoryPageParts parts);

private:
    [[nodiscard]] QStringList headings() const override;
    void compute() override;
    [[nodiscard]] QString words_at_pointer() const override;
    [[nodiscard]] std::string csv() const override;

    void build_choices();
    void show_forecast(const HoldoverForecast& forecast);
    [[nodiscard]] LogChart chart_of() const;
    [[nodiscard]] QString headline() const;
    [[nodiscard]] QString comparison() const;
    [[nodiscard]] std::vector<QStringList> rows() const;

    QDoubleSpinBox* m_limit = nullptr; // ms
    QComboBox* m_quantile = nullptr;
    HoldoverForecast m_forecast;
};

} // namespace tickervantage
