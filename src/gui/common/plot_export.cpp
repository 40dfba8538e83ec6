#include "gui/common/plot_export.h"

#include "draw/canvases.h"
#include "qt/in_words.h"
#include "qt/qt_canvas.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QClipboard>
#include <QCoreApplication>
#include <QFileDialog>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>

#include <cmath>
#include <utility>

namespace tickervantage {
namespace {

class DrawingInColors : public RecordedDrawing {
public:
    explicit DrawingInColors(const PictureFormat& format) : RecordedDrawing(format.scale), m_colors(format.colors) {}
    [[nodiscard]] Color readable(const Color& line) const override { return m_colors.readable(line); }

private:
    CanvasColors m_colors;
};

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(plot_export)
};

// A scroll area shows its plot on its viewport.
const QWidget* surface_of(const QWidget* widget) {
    const auto* area = qobject_cast<const QAbstractScrollArea*>(widget);
    return area != nullptr ? area->viewport() : widget;
}

// The title in the letters that any file system and any shell takes; of a path the name, without its kind.
QString name_from(const std::string& title) {
    static const QRegularExpression others(QStringLiteral("[^\\w]+"), QRegularExpression::UseUnicodePropertiesOption);
    QString name = QString::fromStdString(title);
    name.remove(0, name.lastIndexOf(QLatin1Char('/')) + 1);
    if (name.endsWith(QLatin1String(".log")))
        name.chop(4);
    name.replace(others, QStringLiteral("-"));
    while (name.endsWith(QLatin1Char('-')))
        name.chop(1);
    return name;
}

bool ends_in(const QString& path, const char* suffix) {
    return path.endsWith(QLatin1String(suffix), Qt::CaseInsensitive);
}

} // namespace

PlotExport::PlotExport(QWidget* window, QWidget* widget, ExportedPlot& plot, const PlotExportParts& parts)
    : m_window(window), m_widget(widget), m_plot(plot), m_parts(parts), m_background(parts.main_thread) {
    m_widget->setContextMenuPolicy(Qt::ActionsContextMenu);
    //: plot windows: menu item, the plot goes to the clipboard
    m_copy = add_action("copy_picture", Texts::tr("&Copy Picture"), QKeySequence::Copy, &PlotExport::copy_picture);
    m_copy->setIcon(QIcon::fromTheme(QStringLiteral("edit-copy")));
    //: plot windows: menu item, the plot or its numbers go to a file
    m_export = add_action("export_action", Texts::tr("E&xport…"), QKeySequence::Save, &PlotExport::ask_for_file);
    m_export->setIcon(QIcon::fromTheme(QStringLiteral("document-save-as")));
}

QAction* PlotExport::add_action(const char* name, const QString& text, const QKeySequence& keys,
                                void (PlotExport::*slot)()) {
    auto* action = new QAction(text, m_window);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    action->setShortcutVisibleInContextMenu(true);
    connect(action, &QAction::triggered, this, slot);
    m_window->addAction(action);
    m_widget->addAction(action);
    return action;
}

void PlotExport::set_enabled(bool enabled) {
    m_copy->setEnabled(enabled);
    m_export->setEnabled(enabled);
}

struct PlotExport::Picture {
    QSize size; // points
    CanvasColors colors;
    std::function<void(Canvas&)> draw;
};

PlotExport::Picture PlotExport::picture() const {
    const QSize plot = surface_of(m_widget)->size();
    const PlotCaption caption = m_plot.plot_caption();
    const QSize all(plot.width(), plot.height() + static_cast<int>(std::ceil(caption_height(caption, plot.width()))));
    const Rect bounds{0, 0, static_cast<double>(all.width()), static_cast<double>(all.height())};
    return {all, CanvasColors::from_palette(m_widget->palette()), [this, caption, bounds](Canvas& canvas) {
                draw_captioned(canvas, bounds, caption,
                               [this](Canvas& plain, Rect area) { m_plot.draw_plot(plain, area); });
            }};
}

void PlotExport::copy_picture() {
    const double scale = m_widget->devicePixelRatioF();
    const Picture wanted = picture();
    QImage image(wanted.size * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(wanted.colors.text_background);
    QPainter painter(&image);
    QtCanvas canvas(painter, wanted.size.height(), wanted.colors);
    wanted.draw(canvas);
    painter.end();
    QGuiApplication::clipboard()->setImage(image);
    //: plot windows: said after the plot was copied
    Q_EMIT said(Texts::tr("The picture is on the clipboard."));
}

void PlotExport::ask_for_file() {
    //: plot windows: title of the dialog that asks for a file
    auto* dialog = new QFileDialog(m_window, Texts::tr("Export"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    //: plot windows: kinds of file
    dialog->setNameFilters({Texts::tr("Picture (*.png)"),
                            //: file dialog: kind of file; the part in brackets stays
                            Texts::tr("Vector picture (*.svg)"),
                            //: file dialog: kind of file; the part in brackets stays
                            Texts::tr("Document (*.pdf)"),
                            //: file dialog: kind of file; the part in brackets stays
                            Texts::tr("Table (*.csv)")});
    dialog->setDefaultSuffix(QStringLiteral("png"));
    dialog->selectFile(name_from(m_plot.plot_caption().title)); // without an ending, which the kind of file gives it
    connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString& filter) {
        dialog->setDefaultSuffix(filter.section(QStringLiteral("*."), 1).chopped(1));
    });
    connect(dialog, &QFileDialog::fileSelected, this, &PlotExport::export_to);
    dialog->open();
}

void PlotExport::export_to(const QString& path) {
    if (ends_in(path, ".csv"))
        export_table(path);
    else if (ends_in(path, ".png") || ends_in(path, ".svg") || ends_in(path, ".pdf"))
        export_picture(path);
    else
        //: plot windows: said when the chosen file's name says nothing about its kind
        Q_EMIT said(Texts::tr("The file's name must end in .png, .svg, .pdf or .csv."));
}

template <class Write>
void PlotExport::run(const QString& path, Write write) {
    //: plot windows: said while an export is under way
    Q_EMIT said(Texts::tr("Exporting…"));
    m_background.start(m_parts.queue, std::move(write), [this, path](const Result<>& done) {
        //: plot windows: said after an export; %1 is a file
        Q_EMIT said(done ? Texts::tr("Exported to %1.").arg(path) : in_words(done.error()));
    });
}

void PlotExport::export_picture(const QString& path) {
    const Picture wanted = picture();
    const PictureFormat format{.width = wanted.size.width(), .height = wanted.size.height(), .colors = wanted.colors};
    const auto drawing = std::make_shared<DrawingInColors>(format);
    wanted.draw(*drawing);
    run(path, [&writer = m_parts.writer, file = path.toStdString(), format, drawing] {
        return writer.write_picture(file, format, *drawing);
    });
}

void PlotExport::export_table(const QString& path) {
    take(m_plot.plot_table(), path);
}

void PlotExport::take(const std::shared_ptr<PlotTable>& table, const QString& path) {
    switch (table->take_slice()) {
    case Taking::more:
        //: plot windows: said while an export is under way
        Q_EMIT said(Texts::tr("Exporting…"));
        m_parts.main_thread.main_async(m_background.if_alive([this, table, path] { take(table, path); }));
        return;
    case Taking::all:
        run(path, [&writer = m_parts.writer, file = path.toStdString(), table] {
            return writer.write_table(file, table->csv());
        });
        return;
    case Taking::lost:
        //: plot windows: said when the data changed from under an export
        Q_EMIT said(Texts::tr("The data changed meanwhile; export again."));
    }
}

} // namespace tickervantage
