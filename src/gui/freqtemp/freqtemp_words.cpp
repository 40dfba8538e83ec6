#include "gui/freqtemp/freqtemp_words.h"

#include "base/local_clock.h"
#include "qt/named_widget.h"

#include <QColor>
#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

#include <algorithm>

namespace tickervantage {
namespace {

constexpr qsizetype LONGEST_NAME = 28; // letters, in the legend
constexpr int MOST_IN_LEGEND = 16;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(freqtemp)
};

QString degrees(double temperature) {
    return QLocale().toString(temperature, 'f', 1);
}

QString ppm(double frequency) {
    return QLocale().toString(frequency, 'f', 3);
}

QString shortened(const QString& name) {
    return name.size() <= LONGEST_NAME ? name : name.left(LONGEST_NAME - 1) + QStringLiteral("…");
}

// A name stays in one line with its square.
QString legend_item(const Color& color, const QString& name) {
    const QString square =
        QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green), static_cast<float>(color.blue))
            .name();
    QString text = shortened(name).toHtmlEscaped();
    text.replace(QLatin1Char(' '), QStringLiteral("&nbsp;"));
    return QStringLiteral("<span style=\"color:%1\">■</span>&nbsp;%2").arg(square, text);
}

bool is_shown(const scatterEntry& entry) {
    return entry.selected && !entry.points.empty();
}

} // namespace

QString SensorNames::operator()(std::string_view name) const {
    const auto found = std::ranges::find(m_sensors, name, &tempSensor::name);
    return from_std(found != m_sensors.end() ? found->description : name);
}

QString words_of(const FreqTempReading& reading, const SensorNames& names) {
    //: frequency and temperature window: what is under the pointer; %1 degrees Celsius, %2 a frequency
    QString text = Texts::tr("%1 °C, %2 ppm").arg(degrees(reading.temperature), ppm(reading.frequency));
    if (reading.near)
        //: frequency and temperature window: the point under the pointer; %1 a sensor, %2 degrees Celsius, %3 a
        //: frequency
        text += QStringLiteral("   ") + Texts::tr("Point of %1: %2 °C, %3 ppm")
                                            .arg(names(reading.near->sensor), degrees(reading.near->point.temperature),
                                                 ppm(reading.near->point.frequency));
    auto fits = reading.fits; // that of the point's sensor first: of many, the line has no room for all
    if (reading.near)
        std::stable_partition(fits.begin(), fits.end(),
                              [&](const auto& fit) { return fit.sensor == reading.near->sensor; });
    for (const auto& fit : fits)
        //: frequency and temperature window: the curve at that temperature; %1 a sensor, %2 a frequency, %3 its
        //: deviation
        text += QStringLiteral("   ") +
                Texts::tr("Fit of %1: %2 ± %3 ppm").arg(names(fit.sensor), ppm(fit.frequency), ppm(fit.y_stddev));
    return text;
}

QString legend_of(const ScatterMap& map, const SensorNames& names, const CanvasColors& plot) {
    QStringList items;
    int left_out = 0;
    for (const auto& [name, entry] : map) {
        if (!is_shown(entry))
            continue;
        if (items.size() < MOST_IN_LEGEND)
            items.push_back(legend_item(plot.readable(entry.color.color()), names(name)));
        else
            ++left_out;
    }
    if (left_out > 0)
        //: frequency and temperature window: end of a long legend
        items.push_back(Texts::tr("and %n more", nullptr, left_out));
    return items.join(QStringLiteral("&nbsp;&nbsp; "));
}

QString description_of(const ScatterMap& map, const SensorNames& names) {
    QStringList items;
    for (const auto& [name, entry] : map)
        if (is_shown(entry))
            //: frequency and temperature window: read out by screen readers; %1 is a sensor
            items.push_back(
                Texts::tr("%n point(s) of %1", nullptr, static_cast<int>(entry.points.size())).arg(names(name)));
    return items.join(QStringLiteral("; "));
}

QString empty_words(bool is_ready, const std::vector<tempSensor>& sensors, const ScatterMap& map,
                    const std::string& path) {
    if (!is_ready)
        //: frequency and temperature window: shown in place of the points
        return Texts::tr("Looking for temperature sensors…");
    if (sensors.empty() && map.empty())
        //: frequency and temperature window: shown in place of the points
        return Texts::tr("This machine shows no temperature sensor, so there is nothing to collect.\n"
                         "Virtual machines rarely have one. On a real machine, install the package lm-sensors, run "
                         "sensors-detect as root, and open this window again.");
    if (!sensors.empty() && map.empty())
        //: frequency and temperature window: shown in place of the points; %1 is a file
        return Texts::tr("The saved file %1 names no sensor, and sensors are not added to a saved file.\n"
                         "Close this window, which removes that file, and open it again to collect points.")
            .arg(from_std(path));
    const auto has_entry = [&map](const tempSensor& sensor) {
        return map.contains(sensor.name);
    };
    if (!sensors.empty() && std::ranges::none_of(sensors, has_entry))
        //: frequency and temperature window: shown in place of the points; %1 is a file
        return Texts::tr("The saved points in %1 belong to other sensors, and sensors are not added to a saved file.\n"
                         "Close this window and move the file away to collect points of the sensors that are here.")
            .arg(from_std(path));
    if (std::ranges::none_of(map, [](const auto& one) { return one.second.selected; }))
        //: frequency and temperature window: shown in place of the points
        return Texts::tr("No sensor is selected. Choose some from the menu “Sensors”.");
    if (std::ranges::any_of(map, [](const auto& one) { return !one.second.points.empty(); }))
        //: frequency and temperature window: shown in place of the points
        return Texts::tr("The selected sensors have no points yet. Others have: see the menu “Sensors”.");
    //: frequency and temperature window: shown in place of the points
    return Texts::tr("Collecting: the first point comes with the next reading of the clock's frequency.");
}

PlotCaption caption_of(const FreqTempView& view, const SensorNames& names, const QString& fit) {
    //: exported plot: its title
    PlotCaption caption{.title = Texts::tr("Frequency against temperature").toStdString(), .lines = {}, .legend = {}};
    //: exported plot: %1 the kind of curve, %2 a date with time and zone
    caption.lines.push_back(Texts::tr("%1; drawn %2")
                                .arg(fit, from_std(local_date_time(QDateTime::currentSecsSinceEpoch())))
                                .toStdString());
    for (const auto& [sensor, color] : view.shown())
        if (caption.legend.size() < static_cast<std::size_t>(MOST_IN_LEGEND))
            caption.legend.push_back({color, shortened(names(sensor)).toStdString()});
    return caption;
}

} // namespace tickervantage
