#include "platform/coverage_layer.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tickervantage {
namespace {

constexpr Color RED{1, 0, 0, 0.8};

int alpha_at(const CoverageLayer& layer, int x, int y) {
    return static_cast<int>(layer.pixels()[y * layer.width() + x] >> 24U);
}

double ink(const CoverageLayer& layer) {
    double sum = 0;
    for (int y = 0; y < layer.height(); ++y)
        for (int x = 0; x < layer.width(); ++x)
            sum += alpha_at(layer, x, y) / 204.0; // full at an opacity of 0.8
    return sum;
}

TEST(CoverageLayer, LineInksItsLengthTimesItsWidth) {
    for (const double width : {1.0, 2.0})
        for (const Point& to : {Point{40, 10}, {10, 40}, {40, 40}, {35, 17.5}, {12, 40}, {0.5, 2.25}}) {
            CoverageLayer layer(50, 50);
            layer.add_line({10, 10}, to, width);
            layer.paint(RED);
            EXPECT_NEAR(ink(layer), std::hypot(to.x - 10, to.y - 10) * width, 0.6) << to.x << " " << to.y;
        }
}

TEST(CoverageLayer, CrossingsOfOneColourAreNoDarkerThanTheLine) {
    CoverageLayer layer(20, 20);
    layer.add_line({10.5, 0}, {10.5, 20}, 1);
    layer.add_line({10.5, 20}, {10.5, 0}, 1);
    layer.add_box({10, 5, 1, 3});
    layer.paint(RED);
    EXPECT_EQ(alpha_at(layer, 10, 6), 204);
    EXPECT_EQ(layer.pixels()[6 * 20 + 10], 0xCCCC0000U);
    EXPECT_EQ(alpha_at(layer, 9, 6), 0);
    layer.add_box({10, 5, 1, 3});
    layer.paint({0, 0, 1, 0.8}); // a second colour lies over the first
    EXPECT_EQ(layer.pixels()[6 * 20 + 10], 0xF52900CCU);
}

TEST(CoverageLayer, WhatLiesOutsideIsCutOff) {
    CoverageLayer layer(10, 8);
    for (const Point& far : {Point{-1e6, 3}, {1e6, 5}, {4, -1e6}, {4, 1e6}, {1e6, 1e6}, {-1e6, 1e6}})
        layer.add_line({5, 4}, far, 1);
    layer.add_line({-50, -50}, {-10, 90}, 1);
    layer.add_box({-5, -5, 100, 6});
    layer.add_box({20, 20, 1, 1});
    layer.paint(RED);
    EXPECT_EQ(alpha_at(layer, 9, 0), 204);
    EXPECT_EQ(layer.first_row(), 0);
    EXPECT_LE(layer.end_row(), 8);
}

} // namespace
} // namespace tickervantage
