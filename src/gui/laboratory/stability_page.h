// How steady the clock is, over which time: several measures over the averaging time, with their limits. Main thread.
#pragma once

#include "chrony/configuration/poll_limits.h"
#include "gui/laboratory/laboratory_page.h"
#include "studies/laboratory/stability.h"

#include <array>
#include <vector>

class QCheckBox;
class QComboBox;
class QSpinBox;

namespace tickervantage {

class StabilityPage : public LaboratoryPage {
    Q_OBJECT
public:
    explicit StabilityPage(QWidget* parent, LaboratoryPageParts parts);

    // What the advice is held against, until somebody types something else.
    void set_poll_limits(const PollLimits& limits);

private:
    struct Answer;

    [[nodiscard]] QStringList headings() const override;
    void compute() override;
    [[nodiscard]] QString words_at_pointer() const override;
    [[nodiscard]] std::string csv() const override;

    void build_choices();
    void build_poll();
    [[nodiscard]] StabilityQuestion question() const;
    void show_answer(const Answer& answer);
    [[nodiscard]] LogChart chart_of(const Answer& answer) const;
    [[nodiscard]] std::vector<QStringList> rows() const;
    void show_advice();

    std::array<QCheckBox*, stability_measures.size()> m_measures{};
    QComboBox* m_confidence = nullptr;
    QComboBox* m_spacing = nullptr;
    QSpinBox* m_minpoll = nullptr;
    QSpinBox* m_maxpoll = nullptr;
    std::vector<StabilityCurve> m_curves;
    double m_shown_confidence = 0;
    std::optional<double> m_best_interval; // s
    std::optional<double> m_floor;         // at 1 s
};

} // namespace tickervantage
