// What windows export: tables stay in memory, pictures are written as the program writes them.
#pragma once

#include "draw/canvases.h"
#include "gui/common/plot_export.h"
#include "support/test.h"

namespace tickervantage::testing {

class KeptPlots : public PlotWriter {
public:
    std::string path; // of the table that was written last
    std::string table;
    bool is_full = false;

    Result<> write_picture(const std::string& file, const PictureFormat& format,
                           const RecordedDrawing& drawing) override {
        const auto draw = [&drawing](Canvas& canvas, Rect) {
            drawing.replay(canvas);
        };
        return tickervantage::write_picture(file, format, draw);
    }
    Result<> write_table(const std::string& file, std::string_view csv) override {
        if (is_full)
            return tl::unexpected(said_by_others("The disk is full."));
        path = file;
        table = csv;
        return {};
    }
};

} // namespace tickervantage::testing
