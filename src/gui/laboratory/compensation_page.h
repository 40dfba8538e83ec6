// What compensating for the temperature would do for the clock, what is installed, and what that has gained. It reads
// anew each time that it comes into sight. Main thread; the parts outlive it.
#pragma once

#include "base/background.h"
#include "base/followed_file.h"
#include "gui/common/plot_surface.h"
#include "settings/default_settings.h"
#include "studies/freqtemp/freqtemp_view.h"
#include "studies/laboratory/compensation_state.h"

#include <QStringList>
#include <QWidget>

#include <cstddef>
#include <memory>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace tickervantage {

// Frequency against temperature: as measured, the curve through it, and as it would be with the compensation.
class CompensationChart : public PlotSurface {
    Q_OBJECT
public:
    explicit CompensationChart(QWidget* parent);

    void set_picture(const ScatterMap& picture);

protected:
    [[nodiscard]] bool is_empty() const override { return m_view.is_empty(); }
    void draw_plot(Canvas& canvas) const override;

private:
    FreqTempView m_view;
};

struct CompensationPageParts {
    MainThread& main_thread;
    DispatchQueueSerial& queue;
    UserFiles& files;    // on the queue
    FollowedFiles& logs; // likewise
    const DefaultSettings& settings;
    std::string map = {}; // of the frequency-temperature window
    bool can_install = false;
};

class CompensationPage : public QWidget {
    Q_OBJECT
public:
    CompensationPage(QWidget* parent, CompensationPageParts parts);

    void set_configuration(const std::string& path); // of chrony, as it is from now on
    void look();                                     // anew, where it is in sight

Q_SIGNALS:
    // For the points that are shown; their entry's name is that of the sensor.
    void install_requested(const tickervantage::ScatterMap& map);
    void take_back_requested();
    void points_requested();                       // the window that gathers them
    void more_points_requested(std::size_t count); // are to be kept of each sensor

protected:
    void showEvent(QShowEvent* event) override;

private:
    void build();
    [[nodiscard]] QWidget* build_buttons();
    void show_state(const CompensationState& state);
    void offer_more_points(std::size_t most);
    void show_picture(const ScatterMap& picture);
    void request_installation();
    [[nodiscard]] QString legend() const;

    CompensationPageParts m_parts;
    std::string m_configuration;
    CompensationState m_state;
    std::size_t m_points_needed = 0;
    QLabel* m_headline = nullptr;
    QPushButton* m_more_points = nullptr; // beside it, where it would help
    CompensationChart* m_chart = nullptr;
    QLabel* m_legend = nullptr;
    QTreeWidget* m_figures = nullptr;
    QPushButton* m_install = nullptr;
    QPushButton* m_take_back = nullptr;
    Background m_background;
};

} // namespace tickervantage
