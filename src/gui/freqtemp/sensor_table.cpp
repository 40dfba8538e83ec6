#include "gui/freqtemp/sensor_table.h"

#include "qt/canvas_colors.h"

#include <QColor>
#include <QGuiApplication>
#include <QLocale>
#include <QPalette>

#include <array>
#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(sensor_inspector)
};

// Without marks between thousands: such numbers can be pasted into a spreadsheet.
QString number(double value, char format, int precision) {
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(value, format, precision);
}

QString short_number(double value) {
    constexpr int figures = 6;
    return number(value, 'g', figures);
}

QString coefficient(const InspectorSensor& sensor, std::size_t index) {
    const auto& coefficients = sensor.regression->coefficients;
    return short_number(index < coefficients.size() ? coefficients[index] : 0);
}

struct Column {
    const char* identifier;
    const char* title;
    const char* tip;
    QString (*text)(const InspectorSensor&);
};

const std::array<Column, 8> COLUMNS{
    {{"sensor",
      //: sensor inspector: heading of a column
      QT_TRANSLATE_NOOP("sensor_inspector", "Sensor"),
      //: sensor inspector: tooltip of that heading
      QT_TRANSLATE_NOOP("sensor_inspector", "The sensor"),
      [](const InspectorSensor& sensor) {
          return QString::fromStdString(sensor.name);
      }},
     {"temp",
      //: sensor inspector: heading of a column, a temperature
      QT_TRANSLATE_NOOP("sensor_inspector", "T (°C)"),
      //: sensor inspector: tooltip of that heading
      QT_TRANSLATE_NOOP("sensor_inspector", "Newest temperature, degrees Celsius"),
      [](const InspectorSensor& sensor) {
          return number(sensor.temperature, 'f', 1);
      }},
     {"freq",
      //: sensor inspector: heading of a column, a frequency
      QT_TRANSLATE_NOOP("sensor_inspector", "f (ppm)"),
      //: sensor inspector: tooltip of that heading
      QT_TRANSLATE_NOOP("sensor_inspector", "Newest frequency, parts per million"),
      [](const InspectorSensor& sensor) {
          return number(sensor.frequency, 'f', 3);
      }},
     {"r", "r",
      //: sensor inspector: tooltip of the heading r, the correlation
      QT_TRANSLATE_NOOP("sensor_inspector", "How well the curve fits the points, from 0 to 1"),
      [](const InspectorSensor& sensor) {
          return short_number(sensor.regression->r);
      }},
     {"a", "a",
      //: sensor inspector: tooltip of the heading a
      QT_TRANSLATE_NOOP("sensor_inspector", "The curve's constant term, ppm"),
      [](const InspectorSensor& sensor) {
          return coefficient(sensor, 0);
      }},
     {"b", "b",
      //: sensor inspector: tooltip of the heading b
      QT_TRANSLATE_NOOP("sensor_inspector", "The curve's coefficient of T, ppm per degree"),
      [](const InspectorSensor& sensor) {
          return coefficient(sensor, 1);
      }},
     {"c", "c",
      //: sensor inspector: tooltip of the heading c
      QT_TRANSLATE_NOOP("sensor_inspector", "The curve's coefficient of T squared, ppm per square degree"),
      [](const InspectorSensor& sensor) {
          return coefficient(sensor, 2);
      }},
     {"e", "e",
      //: sensor inspector: tooltip of the heading e
      QT_TRANSLATE_NOOP("sensor_inspector", "Standard deviation of the points from the curve, ppm"),
      [](const InspectorSensor& sensor) {
          return short_number(sensor.regression->y_stddev);
      }}}};

// As the plot shows it.
QColor color_of(const Color& sensor) {
    const Color color = CanvasColors::from_palette(QGuiApplication::palette()).readable(sensor);
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue));
}

} // namespace

void SensorTable::set_sensors(std::shared_ptr<const Sensors> sensors) {
    const bool same_count = sensors->sensors.size() == m_sensors->sensors.size();
    if (!same_count)
        beginResetModel();
    m_sensors = std::move(sensors);
    if (!same_count)
        endResetModel();
    else if (rowCount() > 0) // what is selected stays so
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

const InspectorSensor* SensorTable::sensor_at(int row) const {
    return row >= 0 && row < rowCount() ? &m_sensors->sensors[static_cast<std::size_t>(row)] : nullptr;
}

QString SensorTable::text_of(int row, const QString& identifier) const {
    const auto* sensor = sensor_at(row);
    for (const Column& column : COLUMNS)
        if (sensor != nullptr && identifier == QLatin1String(column.identifier))
            return column.text(*sensor);
    return {};
}

int SensorTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_sensors->sensors.size());
}

int SensorTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(COLUMNS.size());
}

QVariant SensorTable::data(const QModelIndex& index, int role) const {
    const auto* sensor = sensor_at(index.row());
    if (sensor == nullptr || index.column() >= columnCount())
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: // long names may be cut
        return COLUMNS[static_cast<std::size_t>(index.column())].text(*sensor);
    case Qt::DecorationRole:
        return index.column() == 0 ? QVariant(color_of(sensor->color)) : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant(index.column() == 0 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignRight | Qt::AlignVCenter);
    default:
        return {};
    }
}

QVariant SensorTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const Column& column = COLUMNS[static_cast<std::size_t>(section)];
    switch (role) {
    case Qt::DisplayRole:
        return Texts::tr(column.title);
    case Qt::ToolTipRole:
        return Texts::tr(column.tip);
    case IDENTIFIER:
        return QLatin1String(column.identifier);
    default:
        return {};
    }
}

} // namespace tickervantage
