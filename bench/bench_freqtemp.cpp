// What the plot of frequency against temperature costs, beside the least that any program has to do for it:
//   update  10 sensors of 2000 points: append, refit all, trim, ranges, and bring the picture of 800x450 pixels up to
//           date; beside the bare normal equations of the same fits in Eigen, in turns. And the picture painted whole,
//           and what it takes to clear and to copy one.
//   map     a file of 1,000,000 points, read and written; beside the JSON library into and out of the same columns
//   large   10 sensors of 1,000,000 points: what an update costs the main thread
// Processor time of the process, medians. Prints one line of figures a case: name, our milliseconds, the other's. A
// case's name as argument runs that one alone, under a profiler.
#include "qt/qt_canvas.h"
#include "studies/freqtemp/freqtemp_view.h"
#include "studies/freqtemp/kept_plot.h"
#include "studies/freqtemp/scatter_json.h"

#include <Eigen/Dense>
#include <nlohmann/json.hpp>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <functional>
#include <random>
#include <string>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t SENSORS = 10;

double processor_milliseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

using Work = std::function<void()>;

// The median of each, done in turns.
std::vector<double> milliseconds(int rounds, const std::vector<Work>& works) {
    std::vector<std::vector<double>> taken(works.size());
    for (int i = 0; i < rounds; ++i)
        for (std::size_t k = 0; k < works.size(); ++k) {
            const double start = processor_milliseconds();
            works[k]();
            taken[k].push_back(processor_milliseconds() - start);
        }
    std::vector<double> medians;
    for (auto& times : taken) {
        std::ranges::nth_element(times, times.begin() + rounds / 2);
        medians.push_back(times[static_cast<std::size_t>(rounds / 2)]);
    }
    return medians;
}

double milliseconds(int rounds, const Work& work) {
    return milliseconds(rounds, std::vector{work}).front();
}

// Temperatures wander, frequencies follow them with noise.
ScatterMap map_of(std::size_t sensors, std::size_t points) {
    std::mt19937 random(3);
    std::normal_distribution<double> step(0, 0.3);
    std::normal_distribution<double> noise(0, 0.02);
    ScatterMap map;
    for (std::size_t s = 0; s < sensors; ++s) {
        auto& entry = map["sensor" + std::to_string(s)];
        entry.color = {0.1 * static_cast<double>(s), 0.5, 0.9, 0.75};
        double temperature = 47;
        for (std::size_t i = 0; i < points; ++i) {
            temperature = std::clamp(temperature + step(random), 40.0, 55.0);
            const double away = temperature - 45;
            entry.points.append(
                {temperature, -12 + 0.1 * static_cast<double>(s) + 0.02 * away + 0.003 * away * away + noise(random)});
        }
    }
    return map;
}

// All that a repaint of the window's plot takes but showing the picture: background, axes, labels, everything of every
// sensor. With `kept` no more than has changed.
void draw(const FreqTempView& view, QImage& image, KeptPlot* kept) {
    static CanvasMemory memory; // as the window keeps one
    const Rect all{0, 0, static_cast<double>(image.width()), static_cast<double>(image.height())};
    QPainter painter(&image);
    QtCanvas canvas(painter, image.height(), CanvasColors::light(), &memory);
    if (kept && view.update(canvas, all, *kept))
        return;
    painter.fillRect(image.rect(), Qt::white);
    view.draw(canvas, all, kept);
}

void append_and_trim(ScatterMap& map) {
    for (auto& [name, entry] : map) {
        entry.points.append(entry.points[0]);
        entry.points.drop_front(1);
    }
}

void fit_with_one_more(ScatterMap& map, int order) {
    for (auto& [name, entry] : map) {
        entry.points.append(entry.points[0]);
        (void)entry.quadRegression->fit(entry.points.spans(), order);
        entry.points.drop_front(1);
    }
}

double bare_fit(const std::vector<double>& x, const std::vector<double>& y, int order) {
    const auto rows = static_cast<Eigen::Index>(x.size());
    Eigen::MatrixXd design(rows, order + 1);
    Eigen::VectorXd values(rows);
    for (Eigen::Index i = 0; i < rows; ++i) {
        design(i, 0) = 1;
        design(i, 1) = x[static_cast<std::size_t>(i)];
        for (Eigen::Index k = 2; k <= order; ++k)
            design(i, k) = design(i, k - 1) * design(i, k - 1);
        values(i) = y[static_cast<std::size_t>(i)];
    }
    const Eigen::MatrixXd normal = design.transpose() * design;
    const Eigen::MatrixXd inverse = normal.inverse();
    const Eigen::VectorXd b = (inverse * design.transpose()) * values;
    return b(0);
}

void bench_update() {
    QImage image(800, 450, QImage::Format_ARGB32_Premultiplied);
    QImage whole = image;
    QImage copy = image;
    for (const int order : {1, 2, 4}) {
        ScatterMap map = map_of(SENSORS, 2000);
        std::vector<std::vector<double>> x;
        std::vector<std::vector<double>> y;
        for (const auto& [name, entry] : map) {
            auto& temperatures = x.emplace_back();
            auto& frequencies = y.emplace_back();
            for (std::size_t i = 0; i < entry.points.size(); ++i) {
                temperatures.push_back(entry.points[i].temperature);
                frequencies.push_back(entry.points[i].frequency);
            }
        }
        FreqTempView view;
        KeptPlot kept;
        double sink = 0;
        ScatterMap fitted = snapshot(map);
        const auto took = milliseconds(401, {[&] {
                                                 fit_with_one_more(map, order);
                                                 view.set_scatter(map);
                                                 draw(view, image, &kept);
                                             },
                                             [&] { fit_with_one_more(fitted, order); },
                                             [&] {
                                                 for (std::size_t s = 0; s < SENSORS; ++s)
                                                     sink += bare_fit(x[s], y[s], order);
                                             },
                                             [&] { draw(view, whole, nullptr); }, [&] { whole.fill(Qt::white); },
                                             [&] {
                                                 std::memcpy(copy.bits(), image.constBits(),
                                                             static_cast<std::size_t>(copy.sizeInBytes()));
                                             }});
        std::printf("update_order_%d %.4f %.4f\n", order, took[0], took[2]);
        std::printf("update_without_drawing_order_%d %.4f %.4f\n", order, took[1], took[2]);
        std::printf("whole_picture_order_%d %.4f %.4f\n", order, took[3], took[4] + took[5]);
        if (sink == 0.125)
            std::puts("");
    }
}

void bench_map() {
    const ScatterMap map = map_of(1, 1'000'000);
    std::string text;
    const auto write = [&](std::string& to) {
        to.clear();
        (void)write_scatter_json(map, [&to](std::string_view piece) {
            to += piece;
            return 0;
        });
    };
    write(text);
    const double saving = milliseconds(3, [&] { write(text); });
    const double loading = milliseconds(3, [&] { (void)read_scatter_json(text); });
    nlohmann::json tree;
    const double parsing = milliseconds(2, [&] { tree = nlohmann::json::parse(text); });
    std::size_t length = 0;
    const double dumping = milliseconds(2, [&] { length += tree.dump(2).size(); });
    std::printf("map_load %.1f %.1f\nmap_save %.1f %.1f\n", loading, parsing, saving, length > 0 ? dumping : 0);
}

void bench_large() {
    QImage image(1600, 900, QImage::Format_ARGB32_Premultiplied);
    ScatterMap map = map_of(SENSORS, 1'000'000);
    const double fitting = milliseconds(1, [&] {
        for (auto& [name, entry] : map) {
            (void)entry.quadRegression->fit(entry.points.spans(), 2);
            entry.digest = make_digest(entry.points);
        }
    });
    FreqTempView view;
    const double main_thread = milliseconds(5, [&] {
        append_and_trim(map);
        view.set_scatter(map);
        draw(view, image, nullptr);
    });
    const double saving = milliseconds(5, [&] { (void)snapshot(map); });
    std::printf("large_main_thread %.3f 50\nlarge_snapshot_for_saving %.3f 50\nlarge_on_the_queue %.1f 0\n",
                main_thread, saving, fitting);
}

} // namespace
} // namespace tickervantage

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const std::string only = argc > 1 ? argv[1] : "";
    const std::pair<const char*, void (*)()> cases[] = {{"update", tickervantage::bench_update},
                                                        {"map", tickervantage::bench_map},
                                                        {"large", tickervantage::bench_large}};
    for (const auto& [name, run] : cases)
        if (only.empty() || only == name)
            run();
}
