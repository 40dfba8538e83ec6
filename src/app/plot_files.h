// What people export, as files that others may read like any they save. Any thread.
#pragma once

#include "gui/common/plot_export.h"

namespace tickervantage {

class PlotFiles : public PlotWriter {
public:
    [[nodiscard]] Result<> write_picture(const std::string& path, const PictureFormat& format,
                                         const RecordedDrawing& drawing) override;
    [[nodiscard]] Result<> write_table(const std::string& path, std::string_view csv) override;
};

} // namespace tickervantage
