#include "gui/freqtemp/freqtemp_plot.h"
#include "qt/qt_canvas.h"
#include "support/test.h"

#include <QPainter>

#include <random>

namespace tickervantage {
namespace {

// A plot that is kept from frame to frame, and everything that may happen to it.
class KeptFrames {
public:
    explicit KeptFrames(unsigned seed) : m_random(seed) {
        for (const char* name : {"a", "b", "c"}) {
            auto& entry = m_map[name];
            entry.color = {0.2 + 0.3 * static_cast<double>(m_map.size()), 0.5, 0.9, 0.75};
            for (int i = 0; i < 150; ++i)
                append(entry);
        }
        fit();
    }

    // Whether the change left the plot where it was, so that no more than the change is to be painted.
    bool change() {
        switch (below(14)) {
        case 0:
            m_size = QSize(300 + below(60), 200 + below(40));
            return false;
        case 1:
            m_colors = below(2) == 0 ? CanvasColors::light() : CanvasColors::dark();
            return false;
        case 2:
            m_density = std::vector{1.0, 1.25, 2.0}[static_cast<std::size_t>(below(3))];
            return false;
        case 3:
            some().selected = below(4) != 0;
            return false;
        case 4:
            append(some(), below(9) * 5); // the range may grow
            return false;
        case 5:
            some().points.drop_front(static_cast<std::size_t>(below(140)));
            return false;
        case 6:
            (below(2) == 0 ? m_view.m_show_freq_bounds : m_view.m_show_mean_frequency) ^= true;
            return false;
        case 7:
            (below(2) == 0 ? m_view.m_show_last_record : m_view.m_show_scatter_points) ^= true;
            return false;
        case 8:
            m_order = 1 + below(4);
            fit();
            return true;
        case 9:
            return true; // nothing
        default:
            for (auto& [name, entry] : m_map) {
                append(entry);
                if (below(3) == 0 || entry.points.size() > 170)
                    entry.points.drop_front(static_cast<std::size_t>(below(3)));
            }
            fit();
            return true;
        }
    }

    void draw() {
        m_view.set_scatter(m_map);
        const QSize pixels = m_size * m_density;
        if (m_image.size() != pixels || m_image.devicePixelRatio() != m_density) {
            m_image = QImage(pixels, QImage::Format_RGB32); // with rubbish in it, as a new picture has
            m_image.setDevicePixelRatio(m_density);
        }
        m_steps += paint(m_image, &m_kept, true) ? 1 : 0;
    }
    [[nodiscard]] const QImage& image() const { return m_image; }
    [[nodiscard]] QImage painted_anew() {
        QImage image(m_image.size(), QImage::Format_RGB32);
        image.setDevicePixelRatio(m_density);
        (void)paint(image, nullptr, false);
        return image;
    }
    [[nodiscard]] int steps() const { return m_steps; }

private:
    int below(int end) { return std::uniform_int_distribution(0, end - 1)(m_random); }
    scatterEntry& some() { return std::next(m_map.begin(), below(3))->second; }

    void append(scatterEntry& entry, double away = 0) {
        const double temperature = below(5) == 0 ? 40 + below(11) : 40 + below(1000) * 0.01; // some to the degree
        entry.points.append({temperature + away, below(2000) * 0.001 + (temperature - 45) * 0.05});
    }
    void fit() {
        for (auto& [name, entry] : m_map)
            (void)entry.quadRegression->fit(entry.points.spans(), m_order);
    }
    bool paint(QImage& image, KeptPlot* kept, bool may_update) {
        const Rect all{0, 0, static_cast<double>(m_size.width()), static_cast<double>(m_size.height())};
        QPainter painter(&image);
        QtCanvas canvas(painter, m_size.height(), m_colors);
        if (may_update && m_view.update(canvas, all, *kept))
            return true;
        image.fill(m_colors.grey);
        m_view.draw(canvas, all, kept);
        return false;
    }

    std::mt19937 m_random;
    ScatterMap m_map;
    FreqTempView m_view;
    KeptPlot m_kept;
    QImage m_image;
    QSize m_size{330, 220};
    CanvasColors m_colors = CanvasColors::light();
    double m_density = 1;
    int m_order = 2;
    int m_steps = 0;
};

int different_pixels(const QImage& one, const QImage& other) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            count += one.pixel(x, y) != other.pixel(x, y) ? 1 : 0;
    return count;
}

TEST(KeptPlot, IsToThePixelWhatIsPaintedFromNothing) {
    for (unsigned seed = 1; seed <= 6; ++seed) {
        KeptFrames frames(seed);
        int small_changes = 0;
        for (int step = 0; step < 80; ++step) {
            small_changes += frames.change() ? 1 : 0;
            frames.draw();
            ASSERT_EQ(different_pixels(frames.image(), frames.painted_anew()), 0) << seed << ", step " << step;
        }
        EXPECT_GE(frames.steps(), small_changes / 2) << "else nothing was kept";
    }
}

// As a saved map may hold them.
TEST(KeptPlot, PointsAtTheEndsOfTheNumbersArePaintedLikeAnyOthers) {
    for (const double end : {1e15, 1e300, 1.7e308}) {
        ScatterMap map;
        auto& entry = map["a"];
        for (const double at : {-end, 1.0, 2.0, 3.0, end})
            entry.points.append({at, -at});
        *entry.quadRegression = {};
        entry.quadRegression->coefficients = {1, end, -end};
        entry.quadRegression->x_min = -end;
        entry.quadRegression->x_max = end;
        entry.quadRegression->y_stddev = end;
        entry.quadRegression->valid = true;
        FreqTempPlot plot;
        plot.resize(400, 260);
        plot.change([&map](FreqTempView& view) { view.set_scatter(map); });
        (void)plot.grab();
        entry.points.append({2.5, -2.5});
        plot.change([&map](FreqTempView& view) { view.set_scatter(map); });
        FreqTempPlot fresh;
        fresh.resize(plot.size());
        fresh.change([&map](FreqTempView& view) { view.set_scatter(map); });
        EXPECT_EQ(different_pixels(plot.grab().toImage(), fresh.grab().toImage()), 0) << end;
    }
}

// The same by way of the widget, which also has to notice when its picture is no good any more.
TEST(KeptPlot, AWidgetThatGoesOnLooksLikeANewOne) {
    ScatterMap map;
    auto& entry = map["a"];
    entry.color = {0.2, 0.4, 0.9, 0.75};
    for (int i = 0; i < 200; ++i)
        entry.points.append({40 + (i * 7 % 100) * 0.1, std::sin(i)});
    (void)entry.quadRegression->fit(entry.points.spans(), 2);
    FreqTempPlot plot;
    plot.resize(400, 260);
    for (int step = 0; step < 12; ++step) {
        entry.points.append({41 + step * 0.5, std::cos(step)});
        entry.points.drop_front(1);
        (void)entry.quadRegression->fit(entry.points.spans(), 2);
        if (step == 4)
            plot.resize(420, 240);
        if (step == 8) {
            QPalette dark = plot.palette();
            dark.setColor(QPalette::Base, Qt::black);
            dark.setColor(QPalette::Text, Qt::white);
            plot.setPalette(dark);
        }
        plot.change([&map](FreqTempView& view) { view.set_scatter(map); });
        FreqTempPlot fresh;
        fresh.setPalette(plot.palette());
        fresh.resize(plot.size());
        fresh.change([&map](FreqTempView& view) { view.set_scatter(map); });
        EXPECT_EQ(different_pixels(plot.grab().toImage(), fresh.grab().toImage()), 0) << step;
    }
}

} // namespace
} // namespace tickervantage
