#include "gui/common/plot_export.h"
#include "support/kept_plots.h"
#include "support/manual_dispatch.h"
#include "support/test.h"

#include <QtWidgets>

namespace tickervantage {
namespace {

// A plot whose table is taken in slices.
struct SlicedPlot : ExportedPlot {
    int slices_left = 2;
    bool data_is_there = true;

    void draw_plot(Canvas&, Rect) const override {}
    [[nodiscard]] PlotCaption plot_caption() const override { return {}; }
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
    EXPECT_TRUE(told.contains(QStringLiteral(".svg or .csv"))) << told.toStdString();
    settle();
    EXPECT_EQ(plots.path, "");
}

} // namespace
} // namespace tickervantage
