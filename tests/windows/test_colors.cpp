// Colours can be told from their background, and from each other, also by people who see fewer of them.
#include "gui/common/words.h"
#include "qt/canvas_colors.h"
#include "settings/settings_keys.h"
#include "support/test.h"

namespace tickervantage {
namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

constexpr double least_contrast = 4.5; // WCAG 2.1, 1.4.3, for text; lines are held to it too

constexpr std::array series{settings::tracking_offsetColor.fallback,
                            settings::tracking_meanOffsetColor.fallback,
                            settings::tracking_rmsOffsetColor.fallback,
                            settings::tracking_frequencyColor.fallback,
                            settings::tracking_systemtimeColor.fallback,
                            settings::tracking_mean_systemtimeColor.fallback,
                            settings::tracking_rms_systemtimeColor.fallback,
                            settings::tracking_rootdispersionColor.fallback,
                            settings::sdOffsetColor};

// As the tracking graph draws a series: over its background.
QColor seen_on(const CanvasColors& colors, Color line) {
    line.alpha = 0.9;
    const Color shown = colors.readable(line);
    const auto mix = [&](double over, float under) {
        return static_cast<float>(over * line.alpha + under * (1 - line.alpha));
    };
    const QColor& background = colors.text_background;
    return QColor::fromRgbF(mix(shown.red, background.redF()), mix(shown.green, background.greenF()),
                            mix(shown.blue, background.blueF()));
}

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

Triple times(const Matrix& matrix, const Triple& value) {
    Triple result{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            result[row] += matrix[row][column] * value[column];
    return result;
}

// CIE 1976 L*a*b*, D65, from linear sRGB.
Triple lab(Triple rgb) {
    for (auto& channel : rgb)
        channel = std::clamp(channel, 0.0, 1.0);
    constexpr Matrix to_white{{{0.4124564 / 0.95047, 0.3575761 / 0.95047, 0.1804375 / 0.95047},
                               {0.2126729, 0.7151522, 0.0721750},
                               {0.0193339 / 1.08883, 0.1191920 / 1.08883, 0.9503041 / 1.08883}}};
    Triple f = times(to_white, rgb);
    for (auto& part : f)
        part = part > 0.008856 ? std::cbrt(part) : 7.787 * part + 16.0 / 116;
    return {116 * f[1] - 16, 500 * (f[0] - f[1]), 200 * (f[1] - f[2])};
}

double distance(const Triple& one, const Triple& other) {
    return std::hypot(one[0] - other[0], one[1] - other[1], one[2] - other[2]);
}

TEST(Colors, RolesCanBeReadOnLightAndDark) {
    for (const auto& colors : {CanvasColors::light(), CanvasColors::dark()})
        for (const auto& role : {colors.text, colors.blue, colors.red, colors.grey})
            EXPECT_GE(contrast_ratio(role, colors.text_background), least_contrast) << role.name().toStdString();
    for (const auto* window : {"#efefef", "#ffffff", "#2b2d30", "#1e1f22"}) {
        const QColor background(window);
        EXPECT_GE(contrast_ratio(alarm_color(QPalette(background, background)), background), least_contrast) << window;
    }
}

TEST(Colors, LinesOfAnyColorStandOutAndKeepTheirHue) {
    std::vector<Color> lines(series.begin(), series.end());
    for (const double red : {0.0, 0.5, 1.0}) // what people choose, and the colours of sensors
        for (const double blue : {0.0, 1.0})
            lines.insert(lines.end(), {{red, 0, blue, 1}, {red, 1, blue, 1}});
    for (const auto& colors : {CanvasColors::light(), CanvasColors::dark()})
        for (const auto& line : lines) {
            const QColor seen = seen_on(colors, line);
            EXPECT_GE(contrast_ratio(seen, colors.text_background), least_contrast) << seen.name().toStdString();
            const Color shown = colors.readable(line);
            EXPECT_EQ(shown.red < shown.blue, line.red < line.blue);
            EXPECT_EQ(shown.green < shown.blue, line.green < line.blue);
        }
    const Color plain{0, 0, 0.5, 1};
    EXPECT_EQ(CanvasColors::light().readable(plain), plain) << "stands out as it is";
}

// The matrices are those of Machado, Oliveira and Fernandes (2009) for a cone type that is missing altogether.
TEST(Colors, SeriesAreToldApartWhicheverConesSomebodyHas) {
    constexpr double least = 15; // CIE76; about 2.3 is just noticeable side by side
    constexpr std::array<Matrix, 4> sights{
        Matrix{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
        Matrix{{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
        Matrix{{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
        Matrix{{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}};
    for (const auto& colors : {CanvasColors::light(), CanvasColors::dark()})
        for (std::size_t sight = 0; sight < sights.size(); ++sight)
            for (std::size_t one = 0; one < series.size(); ++one)
                for (std::size_t other = 0; other < one; ++other) {
                    const auto perceived = [&](const Color& line) {
                        const QColor seen = seen_on(colors, line);
                        return lab(
                            times(sights[sight], {linear(seen.redF()), linear(seen.greenF()), linear(seen.blueF())}));
                    };
                    EXPECT_GE(distance(perceived(series[one]), perceived(series[other])), least)
                        << "series " << one << " and " << other << ", sight " << sight;
                }
}

} // namespace
} // namespace tickervantage
