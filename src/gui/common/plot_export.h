// The commands "Copy Picture" and "Export…" of every window with a plot, from the shortcut to the sentence at the end.
//
// A picture is the plot as the widget shows it, with a caption: what it shows, of when, and which colour is what. It
// is drawn on the main thread into a record of its lines, and a queue paints and writes it; a table is taken
// on the main thread a slice at a time, and a queue makes it into text and writes it. Neither holds up the main thread,
// however much the plot holds. The window may close meanwhile: what has left the main thread by then is still written,
// the rest is dropped and no file is touched.
//
// Main thread only. The parts outlive the window, and the main thread outlives the queue.
#pragma once

#include "base/dispatch.h"
#include "draw/canvas.h"
#include "draw/plots/plot_caption.h"
#include "qt/picture_file.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

class QAction;
class QWidget;

namespace tickervantage {

// What exports work with, the same for all windows. The two functions replace a file and are called on the queue: 0, or
// -1 and one sentence. They are handed in, because whoever links the first loads the SVG library.
struct PlotExportParts {
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    std::function<int(const std::string& path, const PictureFormat& format,
                      const std::function<void(Canvas&, Rect)>& draw, std::string& sentence)>
        write_picture;
    std::function<int(const std::string& path, std::string_view bytes, std::string& sentence)> write_text;
};

enum class Taking : unsigned char { more, all, lost }; // lost: what was being taken is no longer there

// The numbers behind a plot, on their way to a file.
struct PlotTable {
    std::function<Taking()> take_slice; // some milliseconds of work on the main thread, until it does not say `more`
    std::function<std::string()> csv;   // on the queue, afterwards; must hold all that it needs
};

// What a window says about its plot. Called while the window lives.
struct ExportedPlot {
    QWidget* widget = nullptr;                 // gives size and palette, and gets the commands as its context menu
    std::function<void(Canvas&, Rect)> draw;   // as on the screen, without what follows the pointer
    std::function<PlotCaption()> caption = {}; // makes the picture so much higher than the widget
    std::function<PlotTable()> table;          // starts anew with every call
    std::function<void(const QString&)> tell;  // one sentence for the window's status line
};

class PlotExport : public QObject {
    Q_OBJECT

public:
    // Gives the window and the plot's widget the two commands, called "copy_picture" and "export_action".
    PlotExport(QWidget* window, PlotExportParts parts, ExportedPlot plot);
    ~PlotExport() override;

    void set_enabled(bool enabled); // without a plot there is nothing to export

    void ask_for_file();
    void copy_picture();

    // By the suffix: .png and .svg the plot as it is shown, .csv its numbers.
    void export_to(const QString& path);

private:
    struct Shared;

    QAction* add_action(const char* name, const QString& text, const QKeySequence& keys, void (PlotExport::*slot)());
    struct Picture;
    [[nodiscard]] Picture picture() const;
    void export_picture(const QString& path);
    void export_table(const QString& path);
    void take(const std::shared_ptr<PlotTable>& table, const QString& path);
    void run(const QString& path, std::function<int(std::string& sentence)> write);

    QWidget* m_window;
    PlotExportParts m_parts;
    ExportedPlot m_plot;
    QAction* m_copy = nullptr;
    QAction* m_export = nullptr;
    std::shared_ptr<Shared> m_shared; // work on its way back finds out through it that the window has gone
};

} // namespace tickervantage
