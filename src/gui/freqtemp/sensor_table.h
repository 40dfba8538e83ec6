// The inspector's table of sensors. Main thread.
#pragma once

#include "studies/freqtemp/sensor_menu.h"

#include <QAbstractTableModel>
#include <QString>

#include <memory>

namespace tickervantage {

// One row a sensor. Numbers are shown as the user's locale writes them.
class SensorTable : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int IDENTIFIER = Qt::UserRole; // role of a column's header: "sensor", "temp", "freq" and so on

    using QAbstractTableModel::QAbstractTableModel;

    // All rows at once, so that no half-replaced list is ever seen.
    void set_sensors(std::shared_ptr<const Sensors> sensors);

    // A cell's text by the identifier of its column; none where there is no such column or row.
    [[nodiscard]] QString text_of(int row, const QString& identifier) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] const InspectorSensor* sensor_at(int row) const;

    std::shared_ptr<const Sensors> m_sensors = std::make_shared<Sensors>();
};

} // namespace tickervantage
