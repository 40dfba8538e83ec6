#include "qt/canvas_colors.h"

#include <QPalette>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tickervantage {

namespace {

constexpr double READABLE = 4.5; // WCAG 2, level AA for text; lines get the same

struct Hues {
    QColor blue;
    QColor red;
    QColor grey;
};

const Hues ON_LIGHT{QColor(0, 98, 204), QColor(208, 0, 24), QColor(104, 104, 110)};
const Hues ON_DARK{QColor(64, 156, 255), QColor(255, 99, 92), QColor(152, 152, 157)};

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

bool is_dark(const QColor& background) {
    return contrast_ratio(Qt::white, background) > contrast_ratio(Qt::black, background);
}

QColor mixed(const QColor& from, const QColor& to, float share) {
    const auto mix = [share](float a, float b) {
        return a + (b - a) * share;
    };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()));
}

// As little lighter or darker as will do.
QColor readable_on(const QColor& background, const QColor& hue, float opacity = 1) {
    constexpr int halvings = 8; // to within a step of eight-bit colours
    const QColor extreme = is_dark(background) ? Qt::white : Qt::black;
    const auto stands_out = [&](const QColor& color) {
        return contrast_ratio(mixed(background, color, opacity), background) >= READABLE;
    };
    if (stands_out(hue))
        return hue;
    float too_little = 0;
    float enough = 1;
    for (int halving = 0; halving < halvings; ++halving) {
        const float share = std::midpoint(too_little, enough);
        (stands_out(mixed(hue, extreme, share)) ? enough : too_little) = share;
    }
    return mixed(hue, extreme, enough);
}

CanvasColors colors_on(const QColor& text, const QColor& background) {
    const Hues& hues = is_dark(background) ? ON_DARK : ON_LIGHT;
    return {text,
            background,
            readable_on(background, hues.blue),
            readable_on(background, hues.red),
            readable_on(background, hues.grey),
            QColor(0, 0, 0, 26)};
}

} // namespace

double contrast_ratio(const QColor& one, const QColor& other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

const QColor& CanvasColors::of(ColorRole role) const {
    switch (role) {
    case ColorRole::text_background:
        return text_background;
    case ColorRole::blue:
        return blue;
    case ColorRole::red:
        return red;
    case ColorRole::grey:
        return grey;
    case ColorRole::text:
        break;
    }
    return text;
}

Color CanvasColors::readable(const Color& line) const {
    const auto channel = [](double value) {
        return static_cast<float>(std::clamp(value, 0.0, 1.0));
    };
    const QColor own = QColor::fromRgbF(channel(line.red), channel(line.green), channel(line.blue));
    const QColor shown = readable_on(text_background, own, channel(line.alpha));
    if (shown == own)
        return line;
    return {shown.redF(), shown.greenF(), shown.blueF(), line.alpha};
}

CanvasColors CanvasColors::from_palette(const QPalette& palette) {
    return colors_on(palette.color(QPalette::Active, QPalette::WindowText),
                     palette.color(QPalette::Active, QPalette::Base));
}

CanvasColors CanvasColors::light() {
    return colors_on(Qt::black, Qt::white);
}

CanvasColors CanvasColors::dark() {
    return colors_on(QColor(235, 235, 235), QColor(30, 30, 30));
}

} // namespace tickervantage
