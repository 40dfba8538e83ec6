// The legend of a tracking window: which series are shown, in which colours, on which scale. It lies over the graph as
// a part of its window, so that it stands where it belongs on every kind of desktop.
#pragma once

#include "studies/tracking/tracking_settings.h"

#include <QFrame>

#include <array>

class QCheckBox;
class QGridLayout;

namespace tickervantage {

class ColorWell;

class LegendView : public QFrame {
    Q_OBJECT

public:
    explicit LegendView(QWidget* parent);

    [[nodiscard]] popover_settings settings() const;
    void set_settings(const popover_settings& settings); // without signals

    // Shows it with its upper right corner below the anchor, inside the parent.
    void show_below(const QWidget* anchor);

Q_SIGNALS:
    void changed();   // a control was used
    void closed();    // the buttons
    void cancelled(); // also by Escape
    void defaulted();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void add_series(QGridLayout* grid, std::size_t series);
    void add_buttons(QGridLayout* grid);

    std::array<QCheckBox*, series_count> m_shown{};
    std::array<ColorWell*, series_count> m_colors{};
    QCheckBox* m_use_logscale = nullptr;
};

// The series' name for people, in the interface's language.
[[nodiscard]] QString series_title(Series series);

} // namespace tickervantage
