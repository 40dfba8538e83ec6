#include "app/plot_files.h"

#include "draw/canvases.h"
#include "linux/small_file.h"
#include "qt/picture_file.h"

namespace tickervantage {

Result<> PlotFiles::write_picture(const std::string& path, const PictureFormat& format,
                                  const RecordedDrawing& drawing) {
    const auto draw = [&drawing](Canvas& canvas, Rect) {
        drawing.replay(canvas);
    };
    return tickervantage::write_picture(path, format, draw);
}

Result<> PlotFiles::write_table(const std::string& path, std::string_view csv) {
    return replace_small_file(path, csv, ORDINARY_FILE);
}

} // namespace tickervantage
