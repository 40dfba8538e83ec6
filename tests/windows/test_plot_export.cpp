#include "app/plot_files.h"
#include "draw/canvases.h"
#include "gui/common/plot_export.h"
#include "support/child_program.h"
#include "support/kept_plots.h"
#include "support/manual_dispatch.h"
#include "support/test.h"

#include <QtWidgets>

#include <sys/stat.h>

namespace tickervantage {
namespace {

// A plot whose table is taken in slices.
struct SlicedPlot : ExportedPlot {
    std::string title;
    int slices_left = 2;
    bool data_is_there = true;

    void draw_plot(Canvas&, Rect) const override {}
    [[nodiscard]] PlotCaption plot_caption() const override { return {.title = title, .lines = {}, .legend = {}}; }
    [[nodiscard]] std::shared_ptr<PlotTable> plot_table() override {
        struct Table : PlotTable {
            SlicedPlot& plot;
            explicit Table(SlicedPlot& of) : plot(of) {}
            Taking take_slice() override {
                if (!plot.data_is_there)
                    return Taking::lost;
                return --plot.slices_left > 0 ? Taking::more : Taking::all;
            }
            [[nodiscard]] std::string csv() const override { return "rows"; }
        };
        return std::make_shared<Table>(*this);
    }
};

struct PlotExportTest : ::testing::Test {
    testing::ManualQueue queue;
    testing::ManualMainThread main_thread;
    testing::KeptPlots plots;
    SlicedPlot plot;
    QWidget window;
    QString told;
    std::optional<PlotExport> exports;

    void SetUp() override {
        exports.emplace(&window, &window, plot,
                        PlotExportParts{.queue = queue, .main_thread = main_thread, .writer = plots});
        QObject::connect(&*exports, &PlotExport::said, &window, [this](const QString& sentence) { told = sentence; });
    }

    void settle() {
        while (queue.turn() || main_thread.turn()) {
        }
    }
};

TEST_F(PlotExportTest, ATableIsTakenInSlicesAndWrittenOnTheQueue) {
    exports->export_to(QStringLiteral("a.CSV"));
    EXPECT_EQ(plot.slices_left, 1);
    main_thread.turn();
    EXPECT_EQ(plot.slices_left, 0);
    EXPECT_EQ(plots.path, "");
    EXPECT_EQ(told, QStringLiteral("Exporting…"));
    settle();
    EXPECT_EQ(plots.path, "a.CSV");
    EXPECT_EQ(plots.table, "rows");
    EXPECT_EQ(told, QStringLiteral("Exported to a.CSV."));
}

TEST_F(PlotExportTest, AWindowThatClosesLeavesOnlyWhatWasAllTaken) {
    exports->export_to(QStringLiteral("a.csv"));
    exports.reset();
    settle();
    EXPECT_EQ(plots.path, "") << "half a table is worse than none";
    SetUp();
    exports->export_to(QStringLiteral("b.csv"));
    exports.reset();
    settle();
    EXPECT_EQ(plots.path, "b.csv");
}

TEST_F(PlotExportTest, WhatCannotBeExportedIsSaid) {
    exports->export_to(QStringLiteral("a.csv"));
    plot.data_is_there = false;
    settle();
    EXPECT_TRUE(told.contains(QStringLiteral("changed"))) << told.toStdString();
    exports->export_to(QStringLiteral("a.bmp"));
    EXPECT_TRUE(told.contains(QStringLiteral(".pdf or .csv"))) << told.toStdString();
    settle();
    EXPECT_EQ(plots.path, "");
}

TEST_F(PlotExportTest, ANameIsProposed) {
    for (const auto& [title, name] : {std::pair{"/var/log/chrony/tracking.log", "tracking"},
                                      {"/logs/tracking.log.1", "tracking-log-1"},
                                      {"Spektrum: Größe (µs)", "Spektrum-Größe-µs"}}) {
        plot.title = title;
        exports->ask_for_file();
        auto* dialog = window.findChild<QFileDialog*>();
        ASSERT_NE(dialog, nullptr);
        const QStringList chosen = dialog->selectedFiles();
        EXPECT_EQ(QFileInfo(chosen.value(0)).completeBaseName(), QString::fromUtf8(name));
        EXPECT_TRUE(chosen.value(0).endsWith(QStringLiteral(".png"))) << chosen.value(0).toStdString();
        delete dialog;
    }
}

TEST(PlotFiles, MayBeReadByOthersLikeAnyFile) {
    const QTemporaryDir folder;
    const auto former = ::umask(022);
    PlotFiles files;
    const PictureFormat format{.width = 40, .height = 30};
    for (const char* name : {"a.csv", "a.png", "a.svg"}) {
        const std::string path = folder.filePath(QLatin1String(name)).toStdString();
        const auto written = path.ends_with(".csv") ? files.write_table(path, "rows")
                                                    : files.write_picture(path, format, RecordedDrawing(1));
        EXPECT_TRUE(written);
        EXPECT_EQ(testing::mode_of(path), 0644U) << name;
    }
    const std::string kept = folder.filePath(QStringLiteral("a.csv")).toStdString();
    EXPECT_EQ(::chmod(kept.c_str(), 0640), 0);
    EXPECT_TRUE(files.write_table(kept, "more"));
    EXPECT_EQ(testing::mode_of(kept), 0640U) << "as its owner had it";
    ::umask(former);
}

} // namespace
} // namespace tickervantage
