// The commands "Copy Picture" and "Export…" of every window with a plot, from the shortcut to the sentence at the end.
//
// A picture is the plot as the widget shows it, with a caption: what it shows, of when, and which colour is what. It
// is drawn on the main thread into a record of its lines, and a queue paints and writes it; a table is taken
// on the main thread a slice at a time, and a queue makes it into text and writes it. Neither holds up the main thread,
// however much the plot holds. The window may close meanwhile: what has left the main thread by then is still written,
// the rest is dropped and no file is touched.
//
// Main thread only. The parts outlive the window, and the main thread and the writer outlive the queue.
#pragma once

#include "base/background.h"
#include "base/failure.h"
#include "draw/canvas.h"
#include "draw/plots/plot_caption.h"
#include "qt/picture_file.h"

#include <QObject>
#include <QString>

#include <memory>
#include <string>
#include <string_view>

class QAction;
class QWidget;

namespace tickervantage {

class RecordedDrawing;

// Replaces files, on the queue. Handed in, because whoever links what writes pictures loads the SVG library.
class PlotWriter {
public:
    virtual ~PlotWriter() = default;
    [[nodiscard]] virtual Result<> write_picture(const std::string& path, const PictureFormat& format,
                                                 const RecordedDrawing& drawing) = 0;
    [[nodiscard]] virtual Result<> write_table(const std::string& path, std::string_view csv) = 0;
};

// What exports work with, the same for all windows.
struct PlotExportParts {
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    PlotWriter& writer;
};

enum class Taking : unsigned char { more, all, lost }; // lost: what was being taken is no longer there

// The numbers behind a plot, on their way to a file.
class PlotTable {
public:
    virtual ~PlotTable() = default;
    // Some milliseconds of work on the main thread, until it does not say `more`.
    [[nodiscard]] virtual Taking take_slice() { return Taking::all; }
    // On the queue, afterwards: from what this object holds.
    [[nodiscard]] virtual std::string csv() const = 0;
};

// What a window says about its plot; called while the window lives.
class ExportedPlot {
public:
    virtual ~ExportedPlot() = default;
    // As on the screen, without what follows the pointer.
    virtual void draw_plot(Canvas& canvas, Rect bounds) const = 0;
    // Makes the picture so much higher than the widget.
    [[nodiscard]] virtual PlotCaption plot_caption() const = 0;
    [[nodiscard]] virtual std::shared_ptr<PlotTable> plot_table() = 0;
};

class PlotExport : public QObject {
    Q_OBJECT

public:
    // Gives the window and the plot's widget the two commands, called "copy_picture" and "export_action". The widget
    // gives size and palette, and gets the commands as its context menu.
    PlotExport(QWidget* window, QWidget* widget, ExportedPlot& plot, const PlotExportParts& parts);

    void set_enabled(bool enabled); // without a plot there is nothing to export

    void ask_for_file();
    void copy_picture();

    // By the suffix: .png, .svg and .pdf the plot as it is shown, .csv its numbers.
    void export_to(const QString& path);

Q_SIGNALS:
    void said(const QString& sentence); // for the window's status line

private:
    QAction* add_action(const char* name, const QString& text, const QKeySequence& keys, void (PlotExport::*slot)());
    struct Picture;
    [[nodiscard]] Picture picture() const;
    void export_picture(const QString& path);
    void export_table(const QString& path);
    void take(const std::shared_ptr<PlotTable>& table, const QString& path);
    template <class Write>
    void run(const QString& path, Write write);

    QWidget* m_window;
    QWidget* m_widget;
    ExportedPlot& m_plot;
    PlotExportParts m_parts;
    QAction* m_copy = nullptr;
    QAction* m_export = nullptr;
    Background m_background;
};

} // namespace tickervantage
