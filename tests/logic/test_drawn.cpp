// What each kind of drawing consists of, to the tenth of a point: see support/kept_text.h.
#include "draw/canvases.h"
#include "draw/instruments/analog_clock_view.h"
#include "draw/instruments/clock_performance.h"
#include "draw/plots/plot_caption.h"
#include "studies/freqtemp/freqtemp_view.h"
#include "studies/spectrum/spectrum_view.h"
#include "studies/tracking/tracking_view.h"
#include "support/kept_text.h"
#include "support/manual_timer.h"
#include "support/test.h"
#include "support/told_canvas.h"

namespace tickervantage::testing {
namespace {

constexpr double NOON = 1'795'262'400; // 2026-11-21 12:00:00 UTC

void draw_meter(ToldCanvas& canvas) {
    int redraws = 0;
    ClockPerformance meter([&redraws] { ++redraws; });
    meter.setValue(-250, true);
    meter.draw(canvas, {0, 0, 200, 200});
    meter.setValue(2e15, false);
    meter.draw(canvas, {10, 0, 480, 500});
    constexpr double infinite = std::numeric_limits<double>::infinity();
    for (const double value : {0.0, 100.0, -100.0, std::nextafter(100, 101), 101.0, 999.9, 1000.0, 1001.0, 99'999.0,
                               1e6, 1.2e7, 1e9, -5e13, 1e15, 2e15, -1e300, infinite, -infinite, std::nan("")}) {
        meter.setValue(value, value == 1001);
        canvas.tell("{}: {} {} {} {:.4f}", value, meter.full_scale_text(), meter.scale(), meter.scale_exp(),
                    meter.deflection());
        ToldCanvas marks;
        meter.draw(marks, {0, 0, 200, 200});
        for (std::size_t at = marks.told.find("text \""); at != std::string::npos;
             at = marks.told.find("text \"", at + 1))
            canvas.told += marks.told.substr(at + 5, marks.told.find('"', at + 6) - at - 4);
        canvas.tell("");
    }
    canvas.tell("{} redraws", redraws);
}

void draw_clock(ToldCanvas& canvas) {
    ClockTime time{10, 9, 36};
    AnalogClockView clock([&time] { return time; });
    for (const ClockTime next : {ClockTime{15, 30, 0}, {23, 59, 60}, {0, 0, 0}}) {
        clock.draw(canvas, {0, 0, 200, 200});
        time = next;
    }
}

// An hour of records, one a minute; half an hour ago one alone between two without an offset.
void fill(TrackingView& view, int records = 60) {
    view.filtertimestamps = false;
    for (int i = 0; i < records; ++i) {
        const int second = 43'200 + (i - records) * 60;
        view.add_line(
            fmt::format("2026-11-21 {:02}:{:02}:{:02} 192.0.2.1 2 {} 0.010 {} N 1 3.0e-6 {:.3e} 1e-3 4e-4 5e-4",
                        second / 3600, second / 60 % 60, second % 60, -5.123 + i * 0.01,
                        i == 30 || i == 32 ? "-" : fmt::format("{:.3e}", (i % 7 - 3) * 1e-5), i * 1e-6));
    }
}

// The records in sight.
std::string description(const TrackingView& view, Rect bounds, Rect visible) {
    std::string spans;
    for (const RecordSpan& span : view.in_sight(bounds, visible))
        spans += fmt::format("records {} to {} ", span.first, span.end);
    return spans;
}

template <class Prepare>
void draw_graph(ToldCanvas& canvas, Rect visible, Prepare prepare) {
    ManualMasterTimer timer;
    TrackingView view{{.master_timer = timer,
                       .now = [] { return NOON; },
                       .redraw = {},
                       .zone =
                           [](auto) {
                               return std::int64_t{3600};
                           }}};
    view.awakeFromNib();
    prepare(view);
    const Rect frame = view.resizeFrame({0, 0, 600, 400}, {0, 0, 600, 400});
    canvas.tell("frame {}", ToldCanvas::box(frame));
    const Rect bounds{0, 0, frame.width, frame.height};
    view.drawRect(canvas, bounds, visible);
    if (const auto fit = view.fit(bounds, visible))
        canvas.tell("fit {} {:.3f}", fit->vertical_scale, fit->vertical_zoom);
    for (const double x : {-100.0, 300.0, 301.5, 403.9, 404.1, 405.0, 600.0})
        if (const auto found = view.readout(x, bounds)) {
            canvas.tell("at {}: record {} at {} {}", x, found->record, found->time - static_cast<LogTime>(NOON),
                        ToldCanvas::number(found->x));
            for (const double value : found->values)
                canvas.tell("  {:.4e}", value);
        }
    canvas.tell("{}", description(view, bounds, visible));
}

void draw_tracking(ToldCanvas& canvas) {
    draw_graph(canvas, {0, 0, 600, 400}, [](auto& view) { fill(view); });
}

void draw_linear_tracking(ToldCanvas& canvas) {
    draw_graph(canvas, {40, 30, 400, 300}, [](auto& view) {
        fill(view);
        view.use_logscale = false;
        view.set_vertical_zoom(1.5);
        view.set_vertical_scale(1);
        view.set_horizontal_zoom(2);
    });
}

void draw_packed_tracking(ToldCanvas& canvas) {
    draw_graph(canvas, {0, 0, 600, 400}, [](auto& view) {
        fill(view, 700);
        view.set_horizontal_zoom(-5);
    });
}

void draw_dense_tracking(ToldCanvas& canvas) {
    draw_graph(canvas, {0, 0, 600, 400}, [](auto& view) {
        fill(view, 300);
        view.set_horizontal_zoom(-2.5);
    });
}

// So far out that no tick has room, and right of the origin, where there is nothing.
void draw_far_tracking(ToldCanvas& canvas) {
    draw_graph(canvas, {0, 0, 600, 400}, [](auto& view) { view.set_horizontal_zoom(-60); });
    draw_graph(canvas, {560, 0, 40, 400}, [](auto& view) { fill(view); });
}

std::shared_ptr<ComputedSpectrum> spectrum_of(std::size_t bins) {
    auto spectrum = std::make_shared<ComputedSpectrum>();
    spectrum->samplefreq = 0.125;
    spectrum->count = spectrum->length = bins;
    spectrum->phases.resize(bins);
    for (std::size_t i = 0; i < bins; ++i)
        spectrum->magnitudes.push_back(1.0 / static_cast<double>(1 + i * 16 / bins));
    return spectrum;
}

void draw_spectrum(ToldCanvas& canvas) {
    SpectrumView view;
    view.draw(canvas, {0, 0, 600, 400});
    view.set_spectrum(spectrum_of(16));
    view.draw(canvas, {0, 0, 600, 400});
    view.draw_marker(canvas, {0, 0, 600, 400}, 3);
    view.set_spectrum(spectrum_of(4096));
    view.draw(canvas, {0, 0, 300, 100});
}

scatterEntry entry_of(int count, double base, colorType color) {
    scatterEntry entry;
    entry.color = color;
    for (int i = 0; i < count; ++i)
        entry.points.append({base + i % 9, std::sin(i) + i % 9 * 0.2});
    (void)entry.quadRegression->fit(entry.points.spans(), 2);
    return entry;
}

void draw_freqtemp(ToldCanvas& canvas) {
    ScatterMap map{{"cpu", entry_of(20, 40.5, {1, 0.9, 0, 0.75})}, {"disk", entry_of(2, 30, {0, 0, 1, 0.5})}};
    map["hidden"] = entry_of(9, 0, {});
    map["hidden"].selected = false;
    FreqTempView view;
    view.set_scatter(map);
    constexpr Rect visible{0, 0, 470, 338};
    view.draw(canvas, visible);
    for (const auto& [name, color] : view.shown())
        canvas.tell("{} {:.2f}", name, color.green);
    for (const Point at : {Point{270, 109}, {263, 103}, {290, 132}, {70, 110}, {53.9, 100}, {446, 334}, {447, 334}})
        if (const auto found = view.reading_at(at, visible)) {
            canvas.tell("at {}: {:.3f} {:.3f}", ToldCanvas::place(at), found->temperature, found->frequency);
            if (found->near) {
                canvas.tell("  near {} {:.3f} {:.3f}", found->near->sensor, found->near->point.temperature,
                            found->near->point.frequency);
                view.draw_marker(canvas, visible, *found->near);
            }
            for (const auto& fit : found->fits)
                canvas.tell("  fit {} {:.4f} {:.4f}", fit.sensor, fit.frequency, fit.y_stddev);
        }
    view.m_show_last_record = view.m_show_freq_bounds = view.m_show_scatter_points = view.m_show_mean_frequency = false;
    view.draw(canvas, {20, 10, 300, 200});
    view.set_scatter({});
    view.draw(canvas, {0, 0, 470, 338});
}

// Points that lie over each other, singly, as a cloud, and put together in a digest.
void draw_clouds(ToldCanvas& canvas) {
    for (const int count : {3000, 12'000, 30'000}) {
        scatterEntry entry;
        for (int i = 0; i < count; ++i)
            entry.points.append({20 + i * 37 % 1009 * 0.01, i * 61 % 997 * 0.002 - 1});
        entry.digest = make_digest(entry.points);
        FreqTempView view;
        view.set_scatter({{"a", entry}});
        canvas.tell("{} points, {} dots", count, entry.digest ? entry.digest->dots.size() : 0);
        view.draw(canvas, {0, 0, 470, 338});
    }
}

void draw_caption(ToldCanvas& canvas) {
    PlotCaption caption{.title = "Chrony Tracking", .lines = {"a.log", "2026-11-21 to 2026-11-22"}, .legend = {}};
    for (const auto* name : {"Offset", "RMS offset", "Frequency", "Root dispersion"})
        caption.legend.push_back({{1, 0, 0, 0.5}, name});
    for (const double width : {150.0, 600.0}) {
        canvas.tell("height {}", ToldCanvas::number(caption_height(caption, width)));
        draw_captioned(canvas, {5, 7, width, 300}, caption,
                       [&](Canvas&, Rect room) { canvas.tell("room {}", ToldCanvas::box(room)); });
    }
    canvas.tell("height {}", ToldCanvas::number(caption_height({}, 600)));
}

void draw_every_kind(Canvas& canvas) {
    Path path;
    path.add_line({1, 2}, {30, 4});
    path.add_ellipse({5, 60, 7, 8});
    path.add_rounded_rect({-9, 10, 11, 12}, 2, 3);
    canvas.fill(path, ColorRole::blue, FillRule::even_odd);
    canvas.stroke(path, ColorRole::red, 6, Shadow::soft);
    canvas.stroke(path, LineStyle{.ink = ColorRole::grey, .width = 4, .dash = {3, 2}});
    const std::vector<Point> points{{0, -3}, {70, 5}, {2, 90}};
    canvas.begin_layer({0, 0, 50, 40});
    canvas.polyline(points, Ink(ColorRole::text, 0.5), 2);
    canvas.fill_rects(std::vector<Rect>{{1, 2, 3, 4}, {-20, 6, 7, 8}}, Color{0.1, 0.2, 0.3, 0.4});
    canvas.fill_columns({3, 4}, 2, std::vector<ColumnSpan>{{5, -6, 7}}, ColorRole::blue);
    canvas.end_layer();
    canvas.fill_polygon(points, ColorRole::red);
    canvas.text("text", {100, 20, 30, 40}, {.size = 12, .color = ColorRole::red, .align = TextAlign::right});
}

void draw_elsewhere(ToldCanvas& canvas) {
    ShiftedCanvas shifted(canvas, {100, 20});
    RecordedDrawing recorded(shifted.pixel());
    draw_every_kind(recorded);
    recorded.replay(shifted);
    BoundsCanvas bounds;
    canvas.tell("bounds {}", ToldCanvas::box(bounds.bounds(5)));
    draw_every_kind(bounds);
    canvas.tell("bounds {}", ToldCanvas::box(bounds.bounds(5)));
}

// Each kind alone, as together one hides the other.
void draw_bounds(ToldCanvas& canvas) {
    Path line;
    line.add_line({1, 2}, {30, 4});
    Path ellipse;
    ellipse.add_ellipse({5, 60, 7, 8});
    const std::vector<Point> points{{0, -3}, {70, 5}, {2, 90}};
    const std::vector<Rect> boxes{{1, 2, 3, 4}, {-20, 6, 7, 8}};
    const auto tell = [&canvas](const char* what, auto draw) {
        BoundsCanvas bounds;
        draw(bounds);
        canvas.tell("{} {}", what, ToldCanvas::box(bounds.bounds(0)));
    };
    tell("fill", [&](Canvas& to) { to.fill(line, ColorRole::red, FillRule::even_odd); });
    tell("stroke", [&](Canvas& to) { to.stroke(line, ColorRole::red, 6, Shadow::soft); });
    tell("dashed stroke", [&](Canvas& to) {
        to.stroke(ellipse, LineStyle{.ink = ColorRole::grey, .width = 4, .dash = {3, 2}});
    });
    tell("polyline", [&](Canvas& to) { to.polyline(points, ColorRole::red, 2); });
    tell("boxes", [&](Canvas& to) { to.fill_rects(boxes, ColorRole::red); });
    tell("polygon", [&](Canvas& to) { to.fill_polygon(points, ColorRole::red); });
    tell("text", [](Canvas& to) { to.text("text", {100, 20, 30, 40}, {}); });
}

struct Drawing {
    const char* name;
    void (*draw)(ToldCanvas&);
};

class Drawn : public ::testing::TestWithParam<Drawing> {};

TEST_P(Drawn, IsAsItWasApproved) {
    ToldCanvas canvas;
    GetParam().draw(canvas);
    expect_as_kept(canvas.told, GetParam().name, 0.11);
}

INSTANTIATE_TEST_SUITE_P(All, Drawn,
                         ::testing::Values(Drawing{"meter", draw_meter}, Drawing{"clock", draw_clock},
                                           Drawing{"tracking", draw_tracking},
                                           Drawing{"linear_tracking", draw_linear_tracking},
                                           Drawing{"packed_tracking", draw_packed_tracking},
                                           Drawing{"dense_tracking", draw_dense_tracking},
                                           Drawing{"far_tracking", draw_far_tracking},
                                           Drawing{"spectrum", draw_spectrum}, Drawing{"freqtemp", draw_freqtemp},
                                           Drawing{"clouds", draw_clouds}, Drawing{"caption", draw_caption},
                                           Drawing{"elsewhere", draw_elsewhere}, Drawing{"bounds", draw_bounds}),
                         [](const auto& instance) { return std::string(instance.param.name); });

} // namespace
} // namespace tickervantage::testing
