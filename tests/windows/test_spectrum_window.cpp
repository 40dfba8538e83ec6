#include "base/failure_codes.h"
#include "gui/spectrum/spectrum_chart.h"
#include "gui/spectrum/spectrum_window.h"
#include "gui/spectrum/spectrum_words.h"
#include "qt/picture_file.h"
#include "settings/settings_catalogue.h"
#include "support/kept_plots.h"
#include "support/memory_stores.h"
#include "support/test.h"
#include "support/window_test.h"

namespace tickervantage {
namespace {

struct SpectrumWindowTest : testing::WindowTest<SpectrumWindow> {
    testing::MemorySettingsStore store;
    DefaultSettings settings{store};
    TrackingRecords records;
    testing::KeptPlots plots;
    QTemporaryDir folder;

    void SetUp() override {
        for (const char* line : {"2026-11-21 02:15:03 192.0.2.1 2 -10.5 0.1 1e-6 N 1 1e-6 2e-6 1e-3 1e-3",
                                 "2026-11-21 02:15:07 192.0.2.1 2 -10.5 0.1 2e-6 N 1 1e-6 - 1e-3 1e-3",
                                 "2026-11-21 02:45:07 192.0.2.1 2 -10.5 0.1 -1e-6 N 1 1e-6 2e-6 1e-3 1e-3"})
            ASSERT_EQ(records.add_line(line), TrackingRecords::Added::record);
        open();
    }

    void open() {
        window = std::make_unique<SpectrumWindow>(
            SpectrumWindowParts{.settings = settings,
                                .queue = queue,
                                .main_thread = main_thread,
                                .exports = {.queue = queue, .main_thread = main_thread, .writer = plots}});
        window->set_records(&records);
        window->windowDidLoad();
        window->show();
    }

    SpectrumChart* chart() { return find<SpectrumChart>("m_spectrum"); }
    QString status() { return find<QLabel>("status")->text(); }

    void choose(int index) {
        auto* selector = find<QComboBox>("m_selector");
        selector->setCurrentIndex(index);
        Q_EMIT selector->activated(index);
    }

    void compute() {
        find<QPushButton>("compute")->click();
        settle();
    }

    // The number of bins shown; 0: no spectrum.
    std::size_t bins() { return chart()->view().spectrum() ? chart()->view().spectrum()->length : 0; }
};

TEST_F(SpectrumWindowTest, LoadsItsSettingsAndSavesThemWhenItCloses) {
    EXPECT_EQ(find<QLineEdit>("m_sampleinterval")->text(), QStringLiteral("4"));
    EXPECT_EQ(find<QLineEdit>("m_sampleduration")->text(), QStringLiteral("1024"));
    find<QLineEdit>("m_sampleinterval")->setText(QStringLiteral("0.25"));
    find<QLineEdit>("m_sampleduration")->setText(QStringLiteral("nonsense"));
    EXPECT_EQ(store.writes, 0);
    window->close();
    EXPECT_EQ(load(settings, settings::SPECTRUM_interval), 0.25);
    EXPECT_EQ(load(settings, settings::SPECTRUM_duration), 1024);
    open();
    EXPECT_EQ(find<QLineEdit>("m_sampleinterval")->text(), QStringLiteral("0.25"));
}

TEST_F(SpectrumWindowTest, EveryControlComputes) {
    EXPECT_EQ(bins(), 0U);
    compute();
    EXPECT_EQ(bins(), 256U);
    find<QLineEdit>("m_sampleduration")->setText(QStringLiteral("512"));
    EXPECT_EQ(queue.waiting(), 0U); // not with every key
    Q_EMIT find<QLineEdit>("m_sampleduration")->returnPressed();
    settle();
    EXPECT_EQ(bins(), 128U);
    find<QLineEdit>("m_sampleinterval")->setText(QStringLiteral("8"));
    Q_EMIT find<QLineEdit>("m_sampleinterval")->returnPressed();
    settle();
    EXPECT_EQ(bins(), 64U);
    const auto before = chart()->view().spectrum();
    choose(2);
    settle();
    EXPECT_NE(chart()->view().spectrum(), before);
    EXPECT_TRUE(status().startsWith(QStringLiteral("RMS offset"))) << status().toStdString();
}

TEST_F(SpectrumWindowTest, WithoutALogItSaysWhatToDoAndKeepsWhatItShows) {
    window->set_records(nullptr);
    compute();
    EXPECT_EQ(queue.waiting(), 0U);
    EXPECT_TRUE(chart()->accessibleDescription().contains(QStringLiteral("“Open Tracking Log…”")));
    window->set_records(&records);
    compute();
    const auto shown = chart()->view().spectrum();
    window->set_records(nullptr);
    compute();
    EXPECT_EQ(chart()->view().spectrum(), shown);
    EXPECT_TRUE(status().contains(QStringLiteral("No tracking log is open"))) << status().toStdString();
}

TEST_F(SpectrumWindowTest, WhatCannotBeComputedIsSaidAndLeavesTheChart) {
    compute();
    const auto shown = chart()->view().spectrum();
    const auto expect_words = [&](const char* words) {
        EXPECT_EQ(chart()->view().spectrum(), shown);
        EXPECT_TRUE(status().contains(QLatin1String(words))) << status().toStdString();
    };
    for (const auto& [interval, words] : {std::pair{"0", "more than 0"},
                                          {"-4", "more than 0"},
                                          {"x", "not a number"},
                                          {"5000", "half an interval"},
                                          {"1e-9", "at most"}}) {
        find<QLineEdit>("m_sampleinterval")->setText(QLatin1String(interval));
        compute();
        expect_words(words);
    }
    find<QLineEdit>("m_sampleinterval")->setText(QStringLiteral("40"));
    find<QLineEdit>("m_sampleduration")->setText(QStringLiteral("4000"));
    choose(1);
    settle();
    expect_words("Remaining correction");
}

TEST_F(SpectrumWindowTest, OnlyTheNewestAnswerIsShown) {
    find<QPushButton>("compute")->click();
    queue.turn(); // the answer for 256 bins is on its way
    find<QLineEdit>("m_sampleduration")->setText(QStringLiteral("64"));
    find<QPushButton>("compute")->click();
    main_thread.turn();
    EXPECT_EQ(bins(), 0U);
    settle();
    EXPECT_EQ(bins(), 16U);
}

TEST_F(SpectrumWindowTest, ALongLogIsReadInSlices) {
    for (int i = 0; i < 120'000; ++i)
        records.add_line(
            QString::asprintf("2026-11-%02d %02d:%02d:%02d 192.0.2.1 2 -10.5 0.1 1e-6 N 1 1e-6 2e-6 1e-3 1e-3",
                              22 + i / 86400, i / 3600 % 24, i / 60 % 60, i % 60)
                .toStdString());
    find<QLineEdit>("m_sampleinterval")->setText(QStringLiteral("1"));
    find<QLineEdit>("m_sampleduration")->setText(QStringLiteral("120000"));
    find<QPushButton>("compute")->click();
    EXPECT_EQ(queue.waiting(), 0U);
    settle();
    EXPECT_EQ(bins(), 131072U);
    const auto shown = chart()->view().spectrum();
    find<QPushButton>("compute")->click();
    records.clear();
    settle();
    EXPECT_EQ(chart()->view().spectrum(), shown);
    EXPECT_TRUE(status().contains(QStringLiteral("changed"))) << status().toStdString();
}

TEST_F(SpectrumWindowTest, AnAnswerMayOutliveTheWindow) {
    find<QPushButton>("compute")->click();
    queue.turn();
    window.reset();
    settle();
}

TEST_F(SpectrumWindowTest, TheBarPointedAtIsRead) {
    find<QLineEdit>("m_sampleduration")->setText(QStringLiteral("16"));
    compute();
    const QString standing = status();
    const auto bounds = QPointF(chart()->width() - 1.0, 50);
    QMouseEvent move(QEvent::MouseMove, bounds, chart()->mapToGlobal(bounds), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(chart(), &move);
    EXPECT_TRUE(status().startsWith(QStringLiteral("Bar 3: repeats every 16 s (0.0625 Hz)"))) << status().toStdString();
    EXPECT_TRUE(status().endsWith(QStringLiteral("(mirror image)"))) << status().toStdString();
    const auto status_after = [this](int key) {
        testing::press_key(chart(), key);
        return status();
    };
    EXPECT_TRUE(status_after(Qt::Key_Home).startsWith(QStringLiteral("Bar 0, the mean:")));
    const QString first = status_after(Qt::Key_Right);
    EXPECT_TRUE(first.startsWith(QStringLiteral("Bar 1: repeats every 16 s")) && !first.contains(u"mirror"))
        << first.toStdString();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(chart(), &leave);
    EXPECT_EQ(status(), standing);
}

TEST_F(SpectrumWindowTest, ExportsPicturesAndTheTable) {
    EXPECT_FALSE(find<QPushButton>("export")->isEnabled());
    compute();
    EXPECT_TRUE(find<QPushButton>("export")->isEnabled());
    const auto export_to = [this](const char* name) {
        window->exports().export_to(folder.filePath(QLatin1String(name)));
        settle();
    };
    export_to("a.png");
    const QImage picture(folder.filePath(QStringLiteral("a.png")));
    EXPECT_EQ(picture.width(), chart()->width());
    EXPECT_GT(picture.height(), chart()->height()) << "with a caption";
    export_to("a.csv");
    EXPECT_EQ(std::ranges::count(plots.table, '\n'), 257);
    EXPECT_TRUE(status().startsWith(QStringLiteral("Exported"))) << status().toStdString();
    plots.is_full = true;
    export_to("b.csv");
    EXPECT_EQ(status(), QStringLiteral("The disk is full."));
    window->findChild<QAction*>(QStringLiteral("copy_picture"))->trigger();
    EXPECT_EQ(QApplication::clipboard()->image().convertToFormat(picture.format()), picture) << "one and the same";
}

TEST_F(SpectrumWindowTest, TellsHowManySamplesAreNotMeasured) {
    find<QLineEdit>("m_sampleinterval")->setText(QStringLiteral("900"));
    find<QLineEdit>("m_sampleduration")->setText(QStringLiteral("9000"));
    compute();
    EXPECT_TRUE(status().contains(QStringLiteral("5 of 10 samples are older than the records")))
        << status().toStdString();
    const PlotCaption caption = caption_of(*chart()->view().spectrum(), QStringLiteral("Offset"));
    EXPECT_EQ(caption.title, "Spectrum: Offset");
    ASSERT_EQ(caption.lines.size(), 4U);
    EXPECT_NE(caption.lines[0].find(" s up to 2026-11-2"), std::string::npos) << caption.lines[0];
    EXPECT_NE(caption.lines[3].find("5 of 10"), std::string::npos) << caption.lines[3];
}

TEST_F(SpectrumWindowTest, EveryControlHasANameAndATooltip) {
    for (const char* name : {"m_selector", "m_sampleinterval", "m_sampleduration", "compute", "export"}) {
        EXPECT_FALSE(find<QWidget>(name)->accessibleName().isEmpty()) << name;
        EXPECT_FALSE(find<QWidget>(name)->toolTip().isEmpty()) << name;
    }
    EXPECT_FALSE(chart()->accessibleName().isEmpty());
    EXPECT_EQ(find<QComboBox>("m_selector")->count(), 3);
}

} // namespace
} // namespace tickervantage
