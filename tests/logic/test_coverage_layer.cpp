#include "draw/coverage_layer.h"
#include "support/test.h"

namespace tickervantage {
namespace {

constexpr Color RED{1, 0, 0, 0.8};

// A layer on pixels that start out transparent.
class Picture {
public:
    Picture(int width, int height)
        : m_width(width), m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
        layer.resize(width, height);
        layer.use(RED);
    }

    CoverageLayer layer;

    void paint() { layer.paint({m_pixels.data(), m_width}); }
    [[nodiscard]] std::uint32_t pixel(int x, int y) const {
        return m_pixels[static_cast<std::size_t>(y * m_width + x)];
    }
    [[nodiscard]] int alpha(int x, int y) const { return static_cast<int>(pixel(x, y) >> 24U); }
    [[nodiscard]] double ink() const {
        double sum = 0;
        for (const std::uint32_t one : m_pixels)
            sum += static_cast<double>(one >> 24U) / 204; // full at an opacity of 0.8
        return sum;
    }

private:
    int m_width;
    std::vector<std::uint32_t> m_pixels;
};

TEST(CoverageLayer, LineInksItsLengthTimesItsWidth) {
    for (const double width : {1.0, 2.0})
        for (const Point& to : {Point{140, 10}, {10, 40}, {40, 40}, {135, 17.5}, {12, 40}, {0.5, 2.25}}) {
            Picture picture(150, 50);
            picture.layer.add_line({10, 10}, to, width);
            picture.paint();
            EXPECT_NEAR(picture.ink(), std::hypot(to.x - 10, to.y - 10) * width, 0.7) << to.x << " " << to.y;
        }
}

TEST(CoverageLayer, BoxInksItsAreaAndAPixelAtLeast) {
    struct Case {
        Rect box;
        double ink;
        int full; // row in column 60 that is covered wholly; -1: none
    };
    for (const auto& one :
         {Case{{60, 10, 1, 5}, 5, 12}, Case{{60.2, 10.25, 1, 5.5}, 5.5, 12}, Case{{59.6, 10.25, 0.1, 0.1}, 1, -1},
          Case{{20, 3, 80, 2}, 160, 4}, Case{{60, 10.25, 1, 1.5}, 1.5, -1}}) {
        Picture picture(150, 50);
        picture.layer.add_box(one.box);
        picture.paint();
        EXPECT_NEAR(picture.ink(), one.ink, 0.02) << one.box.x << " " << one.box.y;
        if (one.full >= 0) {
            EXPECT_EQ(picture.pixel(60, one.full), 0xCCCC0000U);
        }
    }
}

TEST(CoverageLayer, CrossingsOfOneColourAreNoDarkerThanTheLine) {
    Picture picture(20, 20);
    picture.layer.add_line({10.5, 0}, {10.5, 20}, 1);
    picture.layer.add_line({10.5, 20}, {10.5, 0}, 1);
    picture.paint();
    EXPECT_EQ(picture.pixel(10, 6), 0xCCCC0000U);
    EXPECT_EQ(picture.alpha(9, 6), 0);
    picture.layer.use({0, 0, 1, 0.8}); // a second colour lies over the first
    picture.layer.add_box({10, 5, 1, 3});
    picture.paint();
    EXPECT_EQ(picture.pixel(10, 6), 0xF52900CCU);
}

// Lines, boxes and columns on pixels that were white before, or on a white box that forgets what was added before it.
TEST(CoverageLayer, BackgroundOfItsOwnLooksLikeOneThatWasThere) {
    constexpr int WIDTH = 600; // several stripes
    constexpr ColumnSpan COLUMNS[] = {{-3, 0, 5}, {0, 2, 30.5}, {299, -4, -3.75}, {595, 1, 1e9}, {700, 1, 2}};
    Picture there(WIDTH, 50);
    Picture own(WIDTH, 50);
    there.layer.use({1, 1, 1, 1});
    there.layer.add_box({0, 0, WIDTH, 50});
    there.paint();
    own.layer.add_box({10, 10, 400, 3});
    own.layer.use({1, 1, 1, 1});
    own.layer.add_box({0, 0.5, WIDTH, 49});
    for (Picture* picture : {&there, &own}) {
        picture->layer.use(RED);
        picture->layer.add_line({5, -5}, {590, 40}, 1);
        picture->layer.add_columns(COLUMNS, 1, 40, 1);
        picture->paint();
    }
    Picture boxes(WIDTH, 50);
    boxes.layer.use({1, 1, 1, 1});
    boxes.layer.add_box({0, 0, WIDTH, 50});
    boxes.layer.use(RED);
    boxes.layer.add_line({5, -5}, {590, 40}, 1);
    for (const ColumnSpan& span : COLUMNS)
        boxes.layer.add_box({static_cast<double>(span.column + 1), 40 - span.high, 1, span.high - span.low});
    boxes.paint();
    EXPECT_NE(there.pixel(1, 20), there.pixel(2, 20));
    for (int y = 0; y < 50; ++y)
        for (int x = 0; x < WIDTH; ++x) {
            ASSERT_EQ(own.pixel(x, y), there.pixel(x, y)) << x << " " << y;
            ASSERT_EQ(own.pixel(x, y), boxes.pixel(x, y)) << x << " " << y;
        }
}

// Over a background of their own they are painted in memory of their own first.
TEST(CoverageLayer, BoxesLookTheSameHoweverTheyArePainted) {
    constexpr int WIDTH = 300;
    constexpr int HEIGHT = 40;
    for (const int colors : {1, 9}) {
        std::mt19937 random(7);
        std::uniform_real_distribution<double> share(0, 1);
        Picture there(WIDTH, HEIGHT);
        Picture own(WIDTH, HEIGHT);
        for (Picture* picture : {&there, &own}) {
            picture->layer.use({1, 1, 0.9, 1});
            picture->layer.add_box({0, 0, WIDTH, HEIGHT});
        }
        there.paint();
        for (int color = 0; color < colors; ++color) {
            const Color ink{share(random), share(random), share(random), color % 4 == 3 ? 1 : 0.9};
            there.layer.use(ink);
            own.layer.use(ink);
            for (int x = 0; x < WIDTH; x += color == 2 ? 20 : 1) {
                const double top = share(random) * HEIGHT - 2;
                const Rect box{static_cast<double>(x), x % 7 == 0 ? std::floor(top) : top, color == 2 ? 17.0 : 1.0,
                               x % 5 == 0 ? 3 : share(random) * (x % 3 == 0 ? HEIGHT : 3)};
                there.layer.add_box(box);
                own.layer.add_box(box);
            }
        }
        there.paint();
        own.paint();
        for (int y = 0; y < HEIGHT; ++y)
            for (int x = 0; x < WIDTH; ++x)
                ASSERT_EQ(own.pixel(x, y), there.pixel(x, y)) << colors << " colours, " << x << " " << y;
    }
}

TEST(CoverageBrush, FillsARowAndNoPixelMore) {
    for (const auto& [alpha, filled] : {std::pair{1.0, 0xFFFF0000U}, {0.8, 0xCCCC0000U}}) {
        std::array<std::uint32_t, 5> row{};
        CoverageBrush({1, 0, 0, alpha}).fill_row(row.data() + 1, 3);
        EXPECT_EQ(row, (std::array<std::uint32_t, 5>{0, filled, filled, filled, 0}));
    }
}

TEST(CoverageLayer, WhatLiesOutsideIsCutOff) {
    Picture picture(10, 8);
    for (const Point& far : {Point{-1e6, 3}, {1e6, 5}, {4, -1e6}, {4, 1e6}, {1e6, 1e6}, {-1e6, 1e6}})
        picture.layer.add_line({5, 4}, far, 1);
    picture.layer.add_line({-50, -50}, {-10, 90}, 1);
    for (const Rect& box : {Rect{20, 20, 1, 1}, {-1e12, 2, 1, 1}, {1e12, 2, 1, 1}, {3, -50, 1, 10}, {3, 1e12, 1, 1}})
        picture.layer.add_box(box);
    picture.layer.use(RED);
    picture.layer.add_box({-5, -5, 1e12, 6});
    picture.paint();
    EXPECT_GE(picture.alpha(9, 0), 204);
    EXPECT_EQ(picture.alpha(0, 2), 0);
}

} // namespace
} // namespace tickervantage
