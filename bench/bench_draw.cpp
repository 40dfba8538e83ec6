// What a frame of the tracking graph costs, and one of the history window with eight sources, against the same data in
// QCustomPlot with its adaptive sampling.
//
// Nine series of a million records on 1600 x 900 pixels in memory. Prints one JSON document: medians in milliseconds of
// processor time. The contenders take turns, so that a change in the machine's speed meets all of them. Arguments: the
// rounds; a contender's name, to run that one alone under a profiler.
#undef QT_NO_KEYWORDS // the peer's header is written with them
#include <qcustomplot.h>

#include "qt/qt_canvas.h"
#include "studies/history/history_view.h"
#include "studies/tracking/tracking_view.h"
#include "support/manual_timer.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace tickervantage {
namespace {

constexpr int WIDTH = 1600;
constexpr int HEIGHT = 900;
constexpr int RECORDS = 1'000'000;
constexpr LogTime INTERVAL = 16;
constexpr LogTime NOON = 1'795'262'400; // 2026-11-21 12:00:00 UTC
constexpr double DAY = 86'400;
constexpr double PLOT_WIDTH = WIDTH - 60;

// A disciplined clock: a slow wander, noise, and now and then a delayed packet.
class LogMaker {
public:
    std::string line(LogTime time) {
        m_wander = 0.999 * m_wander + m_normal(m_random) * 1e-6;
        const double spike = m_share(m_random) < 0.0005 ? 2e-3 * m_normal(m_random) : 0;
        const double offset = m_wander + 20e-6 * m_normal(m_random) + spike;
        return fmt::format("{:%Y-%m-%d %H:%M:%S} 192.0.2.1        2 {:10.3f} {:10.3f} {:10.3e} N  4 {:10.3e} {:10.3e} "
                           "{:10.3e} {:10.3e} {:10.3e}",
                           fmt::gmtime(static_cast<std::time_t>(time)), -5.1 + m_wander * 1e5, 0.02, offset,
                           5e-6 * (1 + m_share(m_random)), m_wander + 3e-6 * m_normal(m_random), 1e-3,
                           3e-4 * (1 + m_share(m_random)), 1e-3);
    }

private:
    std::mt19937 m_random{4711};
    std::normal_distribution<double> m_normal;
    std::uniform_real_distribution<double> m_share{0, 1};
    double m_wander = 0;
};

class Graph {
public:
    Graph() {
        view.filtertimestamps = false;
        for (std::size_t i = 0; i < series_count; ++i)
            view.colors[i] = {static_cast<double>(i % 3) / 3, static_cast<double>(i % 5) / 5, 0.6, 1};
        for (int i = 0; i < RECORDS; ++i)
            add_record();
        view.awakeFromNib();
    }

    void add_record() {
        now += static_cast<double>(INTERVAL);
        static_cast<void>(view.add_line(m_maker.line(static_cast<LogTime>(now))));
    }

    // The newest part of the frame.
    void paint(double xscale) {
        view.xscale = xscale;
        const Rect frame = view.resizeFrame({0, 0, WIDTH, HEIGHT}, {0, 0, WIDTH, HEIGHT});
        QPainter painter(&image);
        QtCanvas canvas(painter, HEIGHT, CanvasColors::light(), &m_memory);
        view.drawRect(canvas, {0, 0, frame.width, frame.height},
                      {frame.width - WIDTH, std::floor((frame.height - HEIGHT) / 2), WIDTH, HEIGHT});
    }

    testing::ManualMasterTimer timer;
    double now = static_cast<double>(NOON - RECORDS * INTERVAL);
    TrackingView view{GraphParts{.master_timer = timer, .now = [this] {
                                     return now;
                                 }}};
    QImage image{WIDTH, HEIGHT, QImage::Format_RGB32};

private:
    CanvasMemory m_memory;
    LogMaker m_maker;
};

// The same points, already turned into offsets, with the same colours, over a grid as dense as ours (a line and a label
// at each decade and, for a day, at each half hour) or over its own, which is much sparser.
class Peer {
public:
    explicit Peer(const TrackingView& view) {
        const auto& records = view.records();
        for (std::size_t series = 0; series < series_count; ++series) {
            QCPGraph* graph = m_plot.addGraph();
            const Color& color = view.colors[series];
            graph->setPen(QPen(QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                                                static_cast<float>(color.blue), 0.9F)));
            QVector<double> times;
            QVector<double> values;
            for (std::size_t i = 0; i < records.size(); ++i) {
                times.append(static_cast<double>(records.time(i)));
                values.append(view.value_scale().offset(records.value(static_cast<Series>(series), i)));
            }
            graph->setData(times, values, true);
        }
        m_plot.yAxis->setRange(-HEIGHT / 2.0, HEIGHT / 2.0);
        m_own_pen = m_plot.xAxis->grid()->pen();
        m_decades->setTickStep(view.decade_scale);
        m_decades->setScaleStrategy(QCPAxisTickerFixed::ssNone);
    }

    // With about so many labels along the time axis.
    void paint(double from, double to, int labels) {
        const auto times = QSharedPointer<QCPAxisTickerDateTime>::create();
        times->setDateTimeFormat(QStringLiteral("HH:mm"));
        times->setTickCount(labels);
        QPen dashed(Qt::gray);
        dashed.setDashPattern({3, 2});
        paint(from, to, times, m_decades, dashed);
    }

    void paint_with_own_grid(double from, double to) {
        paint(from, to, QSharedPointer<QCPAxisTickerDateTime>::create(), QSharedPointer<QCPAxisTicker>::create(),
              m_own_pen);
    }

    QImage image{WIDTH, HEIGHT, QImage::Format_RGB32};

private:
    void paint(double from, double to, const QSharedPointer<QCPAxisTicker>& times,
               const QSharedPointer<QCPAxisTicker>& values, const QPen& grid) {
        m_plot.xAxis->setTicker(times);
        m_plot.yAxis->setTicker(values);
        for (QCPAxis* axis : {m_plot.xAxis, m_plot.yAxis})
            axis->grid()->setPen(grid);
        m_plot.xAxis->setRange(from, to);
        QCPPainter painter(&image);
        m_plot.toPainter(&painter, WIDTH, HEIGHT);
    }

    QCustomPlot m_plot;
    QSharedPointer<QCPAxisTickerFixed> m_decades = QSharedPointer<QCPAxisTickerFixed>::create();
    QPen m_own_pen;
};

constexpr std::size_t SOURCES = 8;

// Each source's offset, a million times.
class SourceHistory {
public:
    SourceHistory() {
        auto data = std::make_shared<HistoryData>();
        std::mt19937 random{42};
        std::normal_distribution<double> normal;
        StoredHistory stored;
        for (int at = 0; at < RECORDS; ++at) {
            const std::int64_t time = NOON + at * INTERVAL;
            for (std::size_t source = 0; source < SOURCES; ++source) {
                const double offset = (normal(random) + static_cast<double>(source) * 4) * 20e-6;
                stored.sources.push_back({.time = time,
                                          .source = std::to_string(source),
                                          .rule = SelectionRule::combined,
                                          .letter = '+',
                                          .reach = 255,
                                          .offset = Extent{offset, offset, offset}});
            }
            stored.rows.assign(1, {.time = time});
            (void)data->add(stored);
            stored.sources.clear();
        }
        m_view.options.lanes = false;
        m_view.set_data(std::move(data));
    }

    void paint(double from, double to) {
        m_view.set_range({from, to});
        QPainter painter(&image);
        QtCanvas canvas(painter, HEIGHT, CanvasColors::light(), &m_memory);
        m_view.draw(canvas, {0, 0, WIDTH, HEIGHT});
    }

    [[nodiscard]] const HistoryData& data() const { return m_view.data(); }

    QImage image{WIDTH, HEIGHT, QImage::Format_RGB32};

private:
    HistoryView m_view;
    CanvasMemory m_memory;
};

class SourcePeer {
public:
    explicit SourcePeer(const HistoryData& data) {
        for (const HistoryLane& lane : data.lanes()) {
            QVector<double> times;
            QVector<double> values;
            for (std::size_t at = 0; at < lane.offsets.size(); ++at) {
                times.append(lane.offsets.time(at));
                values.append(lane.offsets.mean(at));
            }
            QCPGraph* graph = m_plot.addGraph();
            graph->setPen(QPen(QColor::fromHsv(static_cast<int>(45 * m_plot.graphCount()) % 360, 200, 180)));
            graph->setData(times, values, true);
        }
        m_plot.xAxis->setTicker(QSharedPointer<QCPAxisTickerDateTime>::create());
        m_plot.yAxis->rescale();
    }

    void paint(double from, double to) {
        m_plot.xAxis->setRange(from, to);
        QCPPainter painter(&m_image);
        m_plot.toPainter(&painter, WIDTH, HEIGHT);
    }

private:
    QCustomPlot m_plot;
    QImage m_image{WIDTH, HEIGHT, QImage::Format_RGB32};
};

struct Contender {
    const char* name;
    std::function<void()> run;
    std::vector<double> milliseconds = {};
};

// Of all threads: blind to what else the machine does.
double processor_milliseconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// Code that leaves the upper halves of the vector registers in use makes all that comes after it several times slower,
// until somebody clears them: QCustomPlot's frames do, and it is not for others to pay for that.
void clear_vector_registers() {
#ifdef __x86_64__
    if (__builtin_cpu_supports("avx"))
        asm volatile("vzeroupper");
#endif
}

// A frame comes every 15 seconds, when its memory is long out of the processor's caches. Who follows one that used the
// same memory would be spared that.
void empty_caches() {
    static std::vector<char> others(std::size_t{64} << 20U);
    for (std::size_t at = 0; at < others.size(); at += 64)
        ++others[at];
}

void take_turns(std::vector<Contender>& contenders, int rounds) {
    for (int round = 0; round <= rounds; ++round)
        for (auto& one : contenders) {
            empty_caches();
            clear_vector_registers();
            const double start = processor_milliseconds();
            one.run();
            const double took = processor_milliseconds() - start;
            if (round > 0) // the first fills the caches
                one.milliseconds.push_back(took);
        }
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

void measure(int rounds, const char* only) {
    Graph graph;
    std::unique_ptr<Peer> peer;
    if (!only || std::string_view(only).ends_with("_peer"))
        peer = std::make_unique<Peer>(graph.view);
    const double everything = PLOT_WIDTH / (static_cast<double>(RECORDS) * INTERVAL);
    const auto all_shown = graph.view.shown;
    const double end = graph.now;
    std::vector<Contender> contenders{
        {"everything",
         [&] {
             graph.paint(everything);
         }},
        {"everything_peer",
         [&] {
             peer->paint(end - PLOT_WIDTH / everything, end, 1); // ours has none
         }},
        {"day",
         [&] {
             graph.paint(PLOT_WIDTH / DAY);
         }},
        {"day_peer",
         [&] {
             peer->paint(end - DAY, end, 48);
         }},
        {"day_own_grid_peer",
         [&] {
             peer->paint_with_own_grid(end - DAY, end);
         }},
        {"scroll_step",
         [&] {
             graph.add_record();
             graph.paint(graph.view.xscale_default);
         }},
        {"empty",
         [&] {
             graph.view.shown.fill(false);
             graph.paint(graph.view.xscale_default);
             graph.view.shown = all_shown;
         }},
    };
    SourceHistory sources;
    std::unique_ptr<SourcePeer> source_peer;
    if (!only || std::string_view(only).ends_with("_peer"))
        source_peer = std::make_unique<SourcePeer>(sources.data());
    const auto begin = static_cast<double>(NOON);
    const double source_end = begin + static_cast<double>(RECORDS) * INTERVAL;
    contenders.push_back({"sources", [&] {
                              sources.paint(begin, source_end);
                          }});
    contenders.push_back({"sources_peer", [&] {
                              source_peer->paint(begin, source_end);
                          }});
    contenders.push_back({"source_day", [&] {
                              sources.paint(source_end - DAY, source_end);
                          }});
    contenders.push_back({"source_day_peer", [&] {
                              source_peer->paint(source_end - DAY, source_end);
                          }});
    std::erase_if(contenders, [&](const Contender& one) { return only && std::string(only) != one.name; });
    take_turns(contenders, rounds);
    std::string text;
    for (const auto& one : contenders)
        text += fmt::format("{}\"{}\": {:.4f}", text.empty() ? "" : ", ", one.name, median(one.milliseconds));
    fmt::print("{{{}}}\n", text);
    const char* folder = std::getenv("TICKERVANTAGE_BENCH_PICTURES");
    if (folder && peer) {
        const QString base = QString::fromUtf8(folder);
        peer->paint(end - DAY, end, 48);
        static_cast<void>(peer->image.save(base + QStringLiteral("/day_peer.png")));
        sources.paint(begin, source_end);
        static_cast<void>(sources.image.save(base + QStringLiteral("/sources.png")));
        for (const auto& [name, xscale] : {std::pair{"/everything.png", everything},
                                           {"/day.png", PLOT_WIDTH / DAY},
                                           {"/live.png", graph.view.xscale_default}}) {
            graph.paint(xscale);
            static_cast<void>(graph.image.save(base + QLatin1String(name)));
        }
    }
}

} // namespace
} // namespace tickervantage

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    tickervantage::measure(argc > 1 ? std::max(1, std::atoi(argv[1])) : 25, argc > 2 ? argv[2] : nullptr);
    return 0;
}
