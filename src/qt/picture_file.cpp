#include "qt/picture_file.h"

#include "base/failure_codes.h"
#include "qt/qt_canvas.h"

#include <QBuffer>
#include <QImage>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>

namespace tickervantage {

namespace {

constexpr int CSS_PIXELS_PER_INCH = 96;

[[nodiscard]] bool paint(QPaintDevice& device, const PictureFormat& format, const DrawPlot& draw) {
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.fillRect(0, 0, format.width, format.height, format.colors.text_background);
    painter.scale(format.scale, format.scale);
    const Rect bounds{0, 0, format.width / format.scale, format.height / format.scale};
    QtCanvas canvas(painter, bounds.height, format.colors);
    draw(canvas, bounds);
    return painter.end();
}

[[nodiscard]] bool render_png(QBuffer& buffer, const PictureFormat& format, const DrawPlot& draw) {
    QImage image(format.width, format.height, QImage::Format_RGB32);
    return !image.isNull() && paint(image, format, draw) && image.save(&buffer, "PNG");
}

[[nodiscard]] bool render_svg(QBuffer& buffer, const PictureFormat& format, const DrawPlot& draw) {
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(CSS_PIXELS_PER_INCH);
    generator.setSize({format.width, format.height});
    generator.setViewBox(QRect(0, 0, format.width, format.height));
    generator.setTitle(QStringLiteral("Tickervantage"));
    return paint(generator, format, draw);
}

// One page as large as the picture.
[[nodiscard]] bool render_pdf(QBuffer& buffer, const PictureFormat& format, const DrawPlot& draw) {
    constexpr double points_per_inch = 72;
    QPdfWriter writer(&buffer);
    writer.setCreator(QStringLiteral("Tickervantage"));
    writer.setResolution(CSS_PIXELS_PER_INCH);
    const QSizeF page = QSizeF(format.width, format.height) * points_per_inch / CSS_PIXELS_PER_INCH;
    writer.setPageSize(QPageSize(page, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setPageOrientation(QPageLayout::Portrait);
    writer.setPageMargins(QMarginsF());
    return paint(writer, format, draw);
}

using Render = bool (*)(QBuffer&, const PictureFormat&, const DrawPlot&);
Render render_of(const QString& path) {
    const auto ends_in = [&path](const char* suffix) {
        return path.endsWith(QLatin1String(suffix), Qt::CaseInsensitive);
    };
    return ends_in(".png") ? render_png : ends_in(".svg") ? render_svg : ends_in(".pdf") ? render_pdf : nullptr;
}

// A full disk shows itself at the flush: QSaveFile::commit() alone has been seen to put a file that was cut short in
// the place of a good one.
[[nodiscard]] Result<> replace_file(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() && file.commit())
        return {};
    Failure reason = said_by_others(file.errorString().toStdString());
    file.cancelWriting();
    return failed(FailureCode::picture_not_written, {path.toStdString()}, std::move(reason));
}

[[nodiscard]] bool is_sensible(const PictureFormat& format) {
    const auto fits = [](int side) {
        return side >= 1 && side <= LARGEST_PICTURE_SIDE;
    };
    return fits(format.width) && fits(format.height) && format.scale > 0;
}

} // namespace

Result<> write_picture(const std::string& path, const PictureFormat& format, const DrawPlot& draw) {
    const QString file = QString::fromStdString(path);
    const Render render = render_of(file);
    if (!render)
        return failed(FailureCode::picture_of_no_kind, {path});
    if (!is_sensible(format))
        return failed(FailureCode::picture_too_large, {std::to_string(LARGEST_PICTURE_SIDE)});
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !render(buffer, format, draw))
        return failed(FailureCode::picture_not_drawn, {path});
    buffer.close();
    return replace_file(file, bytes);
}

} // namespace tickervantage
