// Walks through the program's windows and writes a picture of each: for documentation, and for machines without a
// screen. The pictures show the program as it is; nothing is drawn for them.
#pragma once

#include <QObject>
#include <QString>

#include <deque>
#include <functional>

class QWidget;

namespace tickervantage {

class AppDelegate;

class ScreenshotTour : public QObject {
    Q_OBJECT

public:
    ScreenshotTour(AppDelegate& application, QString folder); // which must exist

    // Starts when the daemon is synchronised, or goes on without it after a while and says so.
    void start();

Q_SIGNALS:
    void finished(bool complete); // whether every picture was written

private:
    struct Stop {
        QString file;
        std::function<void()> prepare;                     // a reading follows, after which the picture is taken
        QString window = {};                               // object name of the window; empty: the main window
        bool (*is_ready)(const QWidget& window) = nullptr; // until then further readings are awaited, some of them
    };

    void plan();
    void reading_applied();
    void next_stop();
    void take_picture();
    void show_dark(bool dark);
    void plan_analysis();
    void plan_editor();
    void plan_settings();
    [[nodiscard]] QWidget* window_of(const Stop& stop) const;

    AppDelegate& m_application;
    QString m_folder;
    std::deque<Stop> m_stops;
    bool m_touring = false;
    bool m_ended = false;
    bool m_complete = true;
    int m_readings = 0;
    int m_waits = 0;
};

} // namespace tickervantage
