#include "draw/plots/interval_picture.h"
#include "draw/plots/stacked_bar.h"
#include "support/recording_canvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

using testing::RecordingCanvas;

constexpr double left = 10;
constexpr double right = 410;

TEST(IntervalScale, ShowsWideAndNarrowIntervalsTogether) {
    struct Case {
        const char* name;
        std::vector<TimeInterval> intervals;
        bool is_even;
    };
    const std::vector<Case> cases{
        {"none", {}, true},
        {"alike", {{-1e-3, 2e-3}, {0, 1e-3}}, true},
        {"far from zero", {{0.4, 0.5}}, true},
        {"one is half a second off", {{-2e-6, 2.1e-6}, {-0.5003, -0.4998}}, false},
        {"no width", {{1e-3, 1e-3}}, false},
    };
    for (const Case& one : cases) {
        const IntervalScale scale(one.intervals, left, right);
        EXPECT_EQ(scale.is_even(), one.is_even) << one.name;
        std::vector<double> values{0};
        for (const auto& [low, high] : one.intervals)
            values.insert(values.end(), {low, high});
        std::ranges::sort(values);
        double before = left;
        for (const double value : values) {
            const double place = scale.place_of(value);
            EXPECT_TRUE(place >= before && place <= right) << one.name << ' ' << value;
            before = place;
        }
    }
    const std::vector<TimeInterval> far{{-2e-6, 2e-6}, {-0.5003, -0.4998}};
    const IntervalScale scale(far, left, right);
    EXPECT_GT(scale.place_of(2e-6) - scale.place_of(-2e-6), 20) << "the narrow one can be seen";
}

TEST(IntervalScale, MarksAreRoundAndApart) {
    struct Case {
        std::vector<TimeInterval> intervals;
        std::vector<std::string> marks;
    };
    const std::vector<Case> cases{
        {{{-1e-3, 2e-3}}, {"−1 ms", "−0.5 ms", "0", "+0.5 ms", "+1 ms", "+1.5 ms", "+2 ms"}},
        {{{0, 1.2e-6}}, {"0", "+0.2 µs", "+0.4 µs", "+0.6 µs", "+0.8 µs", "+1 µs", "+1.2 µs"}},
        {{{-2e-6, 2e-6}, {-0.5, -0.4}}, {"−100 ms", "−10 ms", "−1 ms", "−100 µs", "−10 µs", "0"}},
    };
    for (const Case& one : cases) {
        const IntervalScale scale(one.intervals, left, right);
        std::vector<std::string> texts;
        double before = -1e9;
        for (const auto& mark : scale.marks(50, ".")) {
            EXPECT_GE(scale.place_of(mark.value) - before, 49.99);
            before = scale.place_of(mark.value);
            texts.push_back(mark.text);
        }
        EXPECT_EQ(texts, one.marks);
    }
    const std::vector<TimeInterval> some{{-0.0025, 0}};
    EXPECT_EQ(IntervalScale(some, left, right).marks(50, ",").front().text, "−2,5 ms");
    const std::vector<TimeInterval> even{{-4.9e-6, 4.8e-6}};
    EXPECT_EQ(IntervalScale(even, 0, 170).marks(50, ".").size(), 3U) << "where only 0 would be left of steps of 5";
}

class Picture : public ::testing::Test {
protected:
    Picture() {
        picture.bounds = {0, 0, 400, 200};
        picture.axis_height = 20;
        picture.foot_height = 10;
        picture.row_height = 20;
        picture.shared = TimeInterval{-1e-6, 1e-6};
        picture.below = "behind";
        picture.above = "ahead";
    }
    void draw() {
        std::vector<TimeInterval> intervals;
        for (const IntervalRow& row : picture.rows)
            if (row.interval)
                intervals.push_back(*row.interval);
        scale = IntervalScale(intervals, 0, 400);
        draw_intervals(canvas, picture, scale);
    }
    [[nodiscard]] std::vector<std::vector<Rect>> boxes_of(const Ink& ink) const {
        std::vector<std::vector<Rect>> found;
        for (const auto& group : canvas.boxes)
            if (group.ink == ink)
                found.push_back(group.boxes);
        return found;
    }

    RecordingCanvas canvas;
    IntervalPicture picture;
    IntervalScale scale{{}, 0, 1};
};

TEST_F(Picture, FillsWhatIsUsedAndOutlinesTheRest) {
    using Kind = IntervalRow::Kind;
    picture.rows = {{.middle = 160, .interval = TimeInterval{-2e-6, 2e-6}, .kind = Kind::used},
                    {.middle = 140, .interval = TimeInterval{-1e-6, 3e-6}, .kind = Kind::unused},
                    {.middle = 120, .interval = TimeInterval{5e-6, 7e-6}, .kind = Kind::refused, .is_chosen = true},
                    {.middle = 100}};
    draw();
    const auto used = boxes_of(ColorRole::blue);
    ASSERT_EQ(used.size(), 1U);
    ASSERT_EQ(used[0].size(), 1U);
    EXPECT_NEAR(used[0][0].x, scale.place_of(-2e-6), 1e-9);
    EXPECT_NEAR(used[0][0].x + used[0][0].width, scale.place_of(2e-6), 1e-9);
    EXPECT_NEAR(used[0][0].center().y, 160, 1e-9);
    const auto refused = boxes_of(ColorRole::red);
    ASSERT_EQ(refused.size(), 1U);
    EXPECT_EQ(refused[0].size(), 4U) << "the edges";
    EXPECT_EQ(boxes_of(Ink(ColorRole::blue, 0.2)).at(0).at(0).width,
              scale.place_of(1e-6) - scale.place_of(-1e-6)); // shared, over all rows
    EXPECT_EQ(boxes_of(Ink(ColorRole::blue, 0.2))[0][0].height, 170);
    EXPECT_EQ(boxes_of(Ink(ColorRole::blue, 0.14)).at(0).at(0), (Rect{0, 110, 400, 20})); // the chosen row
}

TEST_F(Picture, CutsRowsThatAreHalfInSight) {
    picture.rows = {{.middle = 182, .interval = TimeInterval{-1e-6, 1e-6}, .kind = IntervalRow::Kind::used},
                    {.middle = 5, .interval = TimeInterval{-1e-6, 1e-6}, .kind = IntervalRow::Kind::used}};
    draw();
    for (const auto& group : boxes_of(ColorRole::blue))
        for (const Rect& box : group)
            EXPECT_TRUE(box.y >= 10 && box.y + box.height <= 180);
    EXPECT_EQ(boxes_of(ColorRole::blue).size(), 1U) << "the one below is out of sight";
}

TEST(StackedBar, PartsAreAsLongAsTheyAreLarge) {
    const Color color{.red = 1};
    const std::vector<BarPart> parts{{"a", 1, color}, {"nothing", 0, color}, {"b", 3, color}};
    RecordingCanvas canvas;
    draw_stacked_bar(canvas, {0, 0, 400, stacked_bar_height(parts, 400)}, "title", parts);
    std::vector<double> lengths;
    for (const auto& group : canvas.boxes)
        if (group.ink == Ink(color) && group.boxes[0].height > 10)
            lengths.push_back(group.boxes[0].width);
    EXPECT_EQ(lengths, (std::vector<double>{100, 300}));
    EXPECT_EQ(canvas.texts.size(), 4U);
    for (const auto& text : canvas.texts)
        EXPECT_GE(text.box.y, 0) << text.text;
    EXPECT_GT(stacked_bar_height(parts, 150), stacked_bar_height(parts, 1000)) << "names below each other";
}

} // namespace
} // namespace tickervantage
