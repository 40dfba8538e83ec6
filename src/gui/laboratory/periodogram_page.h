// Which rhythms the clock has: the power spectral density of its frequency or its offset. Main thread.
#pragma once

#include "gui/laboratory/laboratory_page.h"
#include "studies/laboratory/clock_series.h"
#include "studies/laboratory/periodogram.h"

class QCheckBox;
class QComboBox;

namespace tickervantage {

class PeriodogramPage : public LaboratoryPage {
    Q_OBJECT
public:
    explicit PeriodogramPage(QWidget* parent, LaboratoryPageParts parts);

private:
    [[nodiscard]] QStringList headings() const override;
    void compute() override;
    [[nodiscard]] QString words_at_pointer() const override;
    [[nodiscard]] std::string csv() const override;

    void build_choices();
    void show_answer(const Result<Periodogram>& answer);
    [[nodiscard]] LogChart chart_of() const;
    [[nodiscard]] QString headline() const;
    [[nodiscard]] QString method() const;
    [[nodiscard]] std::vector<QStringList> rows() const;
    [[nodiscard]] QString amplitude_words(double amplitude) const;

    QComboBox* m_quantity = nullptr;
    QCheckBox* m_trend = nullptr;
    ClockQuantity m_shown = ClockQuantity::frequency;
    Periodogram m_found; // without its densities
};

} // namespace tickervantage
