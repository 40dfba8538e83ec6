// chronyc's report with the controls that steer it: in the main window, in a window of its own, or hidden. Main thread.
#pragma once

#include "gui/main/main_window_controls.h"

#include <QPointer>
#include <QWidget>

class QBoxLayout;
class QToolButton;

namespace tickervantage {

class ReportPane : public QWidget {
    Q_OBJECT

public:
    enum class Place : unsigned char { docked, apart, hidden };

    // The controls become its own.
    ReportPane(QWidget* parent, const MainWindowControls& controls);

    // A window of its own goes with the main window, and is hidden when it is closed.
    void set_place(Place place);
    [[nodiscard]] Place place() const { return m_place; }

    // With the main window, while the report stands apart.
    void show_apart(bool shown);

    // The window of its own, remembered.
    void set_apart_geometry(const QByteArray& geometry) { m_apart_geometry = geometry; }
    [[nodiscard]] QByteArray apart_geometry() const;

Q_SIGNALS:
    void place_changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void build_head(const MainWindowControls& controls);
    void build_buttons();
    void open_apart();
    void close_apart();
    void set_out();

    Place m_place = Place::docked;
    QWidget* m_content; // here or in the window of its own
    QBoxLayout* m_row;  // what is asked, and how: two rows where it is narrow
    QToolButton* m_move = nullptr;
    QPointer<QWidget> m_apart; // null: there is none
    QByteArray m_apart_geometry;
};

} // namespace tickervantage
