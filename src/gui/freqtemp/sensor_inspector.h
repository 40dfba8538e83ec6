// The sensors of the frequency-temperature window in numbers: newest point, and the fit's coefficients.
//
// Shows what that window tells with the notice "sensor.inspector.update" while it is open itself; it reads no sensors.
// Main thread only.
#pragma once

#include "base/background.h"

#include <QMainWindow>

#include <memory>
#include <string>

class QLabel;
class QTableView;

namespace tickervantage {

class Broadcast;
class SensorTable;
class UserFiles;

// All of it outlives the window.
struct SensorInspectorParts {
    Broadcast& broadcast;
    UserFiles& files; // used on the queue
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    std::string equation; // path of the text in Rich Text Format above the table
};

class SensorInspector : public QMainWindow {
    Q_OBJECT

public:
    explicit SensorInspector(SensorInspectorParts parts);
    ~SensorInspector() override;

    void windowDidLoad(); // before the window is shown, also after it was closed

    void copy_rows() const; // those selected, or all, with a heading; tabs between the cells

Q_SIGNALS:
    void sensors_requested(); // a notice soon: of what was known before the window opened

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void build();
    void build_table();
    void load_equation();
    void rows_changed();

    SensorInspectorParts m_parts;
    SensorTable* m_sensors = nullptr;
    QLabel* m_equation = nullptr;
    QTableView* m_sensors_table = nullptr;
    QLabel* m_empty = nullptr;   // stands in for the table while that has no rows
    bool m_is_listening = false; // open
    Background m_background;
};

} // namespace tickervantage
