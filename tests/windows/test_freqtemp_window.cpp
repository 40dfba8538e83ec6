#include "gui/freqtemp/freqtemp_plot.h"
#include "gui/freqtemp/freqtemp_window.h"
#include "gui/freqtemp/freqtemp_words.h"
#include "gui/freqtemp/rtf_html.h"
#include "gui/freqtemp/sensor_inspector.h"
#include "gui/freqtemp/sensor_table.h"
#include "qt/picture_file.h"
#include "qt/qt_canvas.h"
#include "settings/settings_catalogue.h"
#include "support/freqtemp_parts.h"
#include "support/kept_plots.h"
#include "support/keyboard.h"
#include "support/test.h"
#include "support/window_test.h"

namespace tickervantage {
namespace {

constexpr const char* MAP = "/data/Tickervantage/scattermap.json";
constexpr const char* EQUATION = "/bundle/freqtemp.rtf";

struct FreqTempWindowTest : testing::WindowControls<FreqTempWindow> {
    testing::MemorySettingsStore store;
    DefaultSettings settings{store};
    testing::FreqTempFakes fakes;
    testing::KeptPlots plots;
    std::unique_ptr<SensorInspector> inspector;

    void SetUp() override { fakes.sensors.readings = {{"cpu", "Package & cores", 45}, {"disk", "", 30}}; }

    void open() {
        window = std::make_unique<FreqTempWindow>(
            FreqTempWindowParts{.session = fakes.parts(),
                                .settings = settings,
                                .exports = {.queue = fakes.queue, .main_thread = fakes.main_thread, .writer = plots}});
        window->windowDidLoad();
        window->show();
    }
    void open_and_settle() {
        open();
        fakes.settle();
        fakes.tick(); // the first temperatures
    }

    void open_inspector() {
        inspector = std::make_unique<SensorInspector>(
            SensorInspectorParts{fakes.broadcast, fakes.files, fakes.queue, fakes.main_thread, EQUATION});
        QObject::connect(inspector.get(), &SensorInspector::sensors_requested, inspector.get(), [this] {
            if (window)
                window->tell_inspector();
        });
        inspector->windowDidLoad();
        inspector->show();
        fakes.settle();
    }

    FreqTempPlot* plot() { return find<FreqTempPlot>("m_scatterplot"); }
    QAction* item(int index) { return find<QPushButton>("m_select_sensor")->menu()->actions().at(index); }
    QString samples() { return find<QLabel>("m_samples")->text(); }
    QString cell(const char* identifier) {
        return inspector->findChild<SensorTable*>()->text_of(0, QLatin1String(identifier));
    }
};

TEST_F(FreqTempWindowTest, SaysWhyThereIsNothingToSee) {
    const auto says = [this](const char* words) {
        EXPECT_TRUE(plot()->empty_text().contains(QLatin1String(words))) << plot()->empty_text().toStdString();
    };
    open();
    says("Looking");
    fakes.settle();
    says("Collecting");
    item(1)->trigger();
    says("No sensor is selected");
    window->close();
    fakes.settle();
    ASSERT_TRUE(fakes.files.texts.contains(MAP));
    fakes.sensors.readings.clear();
    fakes.files.texts.clear();
    open_and_settle();
    says("lm-sensors");
    fakes.sensors.readings = {{"new", "", 20}};
    window->close(); // which removes a map without entries
    fakes.settle();
    for (const auto& [map, words] : {std::pair{"{}", "which removes that file"},
                                     {R"({"gone": {"selected": true, "color": {"r":0,"g":0,"b":0,"a":0}, "points": [],
        "quadRegression": {"r":0,"y_stddev":0,"x_min":0,"x_max":0,"coefficients":[],"valid":false}}})",
                                      "belong to other sensors"}}) {
        fakes.files.texts[MAP] = map;
        open_and_settle();
        says(MAP);
        says(words);
        window->close();
        fakes.settle();
    }
}

TEST_F(FreqTempWindowTest, ControlsReachTheSessionAndAreSavedOnClosing) {
    open_and_settle();
    fakes.sample(-10);
    EXPECT_EQ(samples(), QStringLiteral("1"));
    EXPECT_EQ(find<QComboBox>("m_order")->count(), settings::regression_order.maximum + 1);
    find<QComboBox>("m_order")->setCurrentIndex(3);
    Q_EMIT find<QComboBox>("m_order")->activated(3);
    find<QCheckBox>("m_show_mean_frequency")->click();
    EXPECT_FALSE(plot()->view().m_show_mean_frequency);
    EXPECT_TRUE(plot()->view().m_show_last_record);
    fakes.sample(-11);
    find<QSpinBox>("m_maxsamples")->setValue(1);
    EXPECT_EQ(load(settings, settings::max_samples), 1) << "at once";
    fakes.settle();
    EXPECT_EQ(samples(), QStringLiteral("1"));
    window->close();
    EXPECT_EQ(load(settings, settings::regression_order), 3);
    EXPECT_FALSE(load(settings, settings::show_mean_frequency));
    EXPECT_EQ(window->session(), nullptr);
    window->windowDidLoad();
    fakes.settle();
    EXPECT_EQ(samples(), QStringLiteral("1")) << "from the stored map";
    EXPECT_EQ(find<QComboBox>("m_order")->currentIndex(), 3);
}

TEST_F(FreqTempWindowTest, MenuShowsWhatIsDrawn) {
    open_and_settle();
    fakes.sample(-10);
    EXPECT_EQ(item(3)->text(), QStringLiteral("Package && cores"));
    EXPECT_EQ(item(4)->text(), QStringLiteral("disk"));
    EXPECT_TRUE(item(3)->isChecked() && item(4)->isChecked());
    EXPECT_TRUE(find<QLabel>("legend")->text().contains(QStringLiteral("Package&nbsp;&amp;&nbsp;cores")));
    item(1)->trigger();
    EXPECT_TRUE(item(1)->isChecked());
    EXPECT_FALSE(item(3)->isChecked() || item(4)->isChecked());
    EXPECT_TRUE(plot()->view().is_empty());
    item(4)->trigger();
    EXPECT_FALSE(item(1)->isChecked());
    EXPECT_EQ(plot()->view().min_temp(), 30);
    EXPECT_FALSE(find<QLabel>("legend")->text().contains(QStringLiteral("cores")));
    window->exports().export_to(QStringLiteral("a.csv"));
    fakes.settle();
    EXPECT_EQ(plots.table, "temperature,frequency,sensor\n30,-10,disk\n") << "what is shown";
}

TEST_F(FreqTempWindowTest, ClearAsksFirst) {
    open_and_settle();
    fakes.sample(-10);
    const auto answer = [this](const char* button) {
        find<QPushButton>("clear")->click();
        auto* box = window->findChild<QMessageBox*>();
        ASSERT_NE(box, nullptr);
        testing::press_button(*box, button);
        QCoreApplication::sendPostedEvents(box, QEvent::DeferredDelete);
        fakes.settle();
    };
    answer("Cancel");
    EXPECT_EQ(samples(), QStringLiteral("1"));
    answer("Delete Points");
    EXPECT_EQ(samples(), QStringLiteral("0"));
    EXPECT_FALSE(find<QPushButton>("clear")->isEnabled());
}

TEST_F(FreqTempWindowTest, KeysMoveAReadingOverThePlot) {
    open_and_settle();
    for (const double frequency : {-10.5, -11.5})
        fakes.sample(frequency);
    const auto reading_after = [this](int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        testing::press_key(plot(), key, modifiers);
        return find<QLabel>("reading")->text();
    };
    EXPECT_TRUE(reading_after(Qt::Key_Home).startsWith(QStringLiteral("30.0 °C, -11.000 ppm")))
        << find<QLabel>("reading")->text().toStdString();
    EXPECT_TRUE(reading_after(Qt::Key_Right, Qt::ShiftModifier).startsWith(QStringLiteral("31.5 °C")));
    const auto end_text = reading_after(Qt::Key_End);
    EXPECT_TRUE(end_text.startsWith(QStringLiteral("45.0 °C"))) << end_text.toStdString();
    EXPECT_EQ(reading_after(Qt::Key_Escape), QString());
}

TEST(FreqTempReading, BeginsWithTheCurveOfThePointMeant) {
    const FreqTempReading reading{.temperature = 40,
                                  .frequency = -11,
                                  .near = FreqTempReading::NearPoint{"b", {40, -11}},
                                  .fits = {{"a", -10, 0.1}, {"b", -11, 0.1}, {"c", -12, 0.1}}};
    const QString text = words_of(reading, SensorNames({{"a", "first"}, {"b", "second"}, {"c", "third"}}));
    EXPECT_LT(text.indexOf(QStringLiteral("Fit of second")), text.indexOf(QStringLiteral("Fit of first")))
        << text.toStdString();
    EXPECT_LT(text.indexOf(QStringLiteral("Fit of first")), text.indexOf(QStringLiteral("Fit of third")));
}

TEST_F(FreqTempWindowTest, WorkUnderWayMayOutliveTheWindow) {
    open_and_settle();
    fakes.broadcast.post(current_frequency_key, current_frequency{-10}, Delivery::now);
    window->close();
    fakes.settle();
    EXPECT_EQ(samples(), QStringLiteral("0")) << "of a closed session nothing more is shown";
    window->windowDidLoad();
    fakes.queue.turn();
    window.reset();
    fakes.settle();
    EXPECT_NE(fakes.files.texts[MAP].find("-10"), std::string::npos);
}

TEST_F(FreqTempWindowTest, InspectorShowsWhatTheWindowTells) {
    open_inspector();
    auto* table = inspector->findChild<QTableView*>(QStringLiteral("m_sensors_table"));
    EXPECT_FALSE(table->isVisible());
    EXPECT_EQ(cell("temp"), QString());
    save(settings, settings::regression_order, 0);
    open_and_settle();
    for (int i = 0; i < 4; ++i) {
        fakes.sensors.readings[0].temperature = 40 + i;
        fakes.tick();
        fakes.sample(-10 - 0.5 * i);
    }
    EXPECT_TRUE(table->isVisible());
    for (const auto& [identifier, text] : {std::pair{"sensor", "Package & cores"},
                                           {"temp", "43.0"},
                                           {"freq", "-11.500"},
                                           {"r", "1"},
                                           {"a", "10"},
                                           {"b", "-0.5"},
                                           {"c", "0"},
                                           {"d", ""}})
        EXPECT_EQ(cell(identifier), QLatin1String(text)) << identifier;
    inspector->copy_rows();
    EXPECT_TRUE(QApplication::clipboard()->text().contains(QStringLiteral("Package & cores\t43.0\t-11.500\t1\t10")));
    inspector->close();
    fakes.sample(-12);
    EXPECT_EQ(cell("freq"), QStringLiteral("-11.500"));
    inspector->windowDidLoad();
    fakes.settle();
    EXPECT_EQ(cell("freq"), QStringLiteral("-12.000")) << "without waiting for the next frequency";
}

// The most corners that a line of the picture has.
int longest_line(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    const QRegularExpression line(QStringLiteral("<polyline[^>]* points=\"([^\"]*)\""));
    qsizetype longest = 0;
    for (auto found = line.globalMatch(QString::fromUtf8(file.readAll())); found.hasNext();)
        longest = std::max(longest, found.next().captured(1).split(QLatin1Char(' '), Qt::SkipEmptyParts).size());
    return static_cast<int>(longest);
}

TEST_F(FreqTempWindowTest, AnExportedDrawingHasTheCurveOnceThereIsOne) {
    const QTemporaryDir folder;
    save(settings, settings::regression_order, 1);
    open_and_settle();
    const auto exported_with = [&](int points) {
        for (int i = 0; i < points; ++i) {
            fakes.sensors.readings[0].temperature += 1;
            fakes.tick();
            fakes.sample(-10 - 0.1 * i * i);
        }
        const QString path = folder.filePath(QStringLiteral("%1.svg").arg(points));
        window->exports().export_to(path);
        fakes.settle();
        return longest_line(path);
    };
    EXPECT_LT(exported_with(2), 10) << "too few points for a parabola";
    EXPECT_GT(exported_with(4), 30);
}

// A picture of a cloud of points in that colour, all over the plot.
QImage cloud(const Color& color, const CanvasColors& colors, bool with_fit, bool with_newest) {
    scatterEntry entry;
    entry.color = {color.red, color.green, color.blue, color.alpha};
    for (int i = 0; i < 6000; ++i)
        entry.points.append({20 + (i % 100) * 0.1, (i / 100) / 30.0 - 1});
    entry.points.append({25, 0.1});
    entry.quadRegression->coefficients = {-1, 0.04};
    entry.quadRegression->x_min = 20;
    entry.quadRegression->x_max = 30;
    entry.quadRegression->valid = with_fit;
    FreqTempView view;
    view.m_show_last_record = with_newest;
    view.m_show_mean_frequency = view.m_show_freq_bounds = false;
    view.set_scatter({{"a", entry}});
    QImage image(470, 338, QImage::Format_RGB32);
    image.fill(colors.text_background);
    QPainter painter(&image);
    QtCanvas canvas(painter, image.height(), colors);
    view.draw(canvas, {0, 0, 470, 338});
    return image;
}

int pixels_that_stand_out(const QImage& one, const QImage& other) {
    constexpr double ENOUGH = 3; // WCAG 2, for what is no text
    int count = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (one.pixel(x, y) != other.pixel(x, y) &&
                contrast_ratio(one.pixelColor(x, y), other.pixelColor(x, y)) >= ENOUGH)
                ++count;
    return count;
}

TEST(FreqTempPlotColors, CurveAndNewestPointStandOutOfACloudOfAnyColour) {
    for (const auto& colors : {CanvasColors::light(), CanvasColors::dark()})
        for (const Color& color : {Color{0, 0, 0, 1}, {1, 1, 1, 1}, {0.1, 0.3, 0.9, 0.5}, {1, 0.9, 0.3, 0.8}}) {
            const QImage without = cloud(color, colors, false, false);
            EXPECT_GE(pixels_that_stand_out(cloud(color, colors, false, true), without), 40) << color.blue;
            EXPECT_GE(pixels_that_stand_out(cloud(color, colors, true, false), without), 390) << color.blue;
        }
}

TEST_F(FreqTempWindowTest, MenuTellsHowCurvesAboveDegreeTwoAreEvaluated) {
    open_and_settle();
    auto* order = find<QComboBox>("m_order");
    for (int degree = 1; degree <= order->count(); ++degree)
        EXPECT_EQ(order->itemText(degree - 1).contains(QStringLiteral("ordinary powers")), degree > 2) << degree;
    EXPECT_TRUE(order->itemData(2, Qt::ToolTipRole).toString().contains(QStringLiteral("need not follow")));
}

TEST_F(FreqTempWindowTest, SensorsAreChosenAndReadWithKeys) {
    open_inspector();
    open_and_settle();
    fakes.sample(-10);
    const auto press = [](QWidget* on, int key) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QApplication::sendEvent(on, &event);
        }
    };
    auto* table = inspector->findChild<QTableView*>(QStringLiteral("m_sensors_table"));
    for (QWidget* reached : std::initializer_list<QWidget*>{window.get(), inspector.get()})
        EXPECT_EQ(testing::out_of_reach(*reached), std::vector<std::string>()) << testing::name_of(reached);
    for (const auto& [key, row] : {std::pair{Qt::Key_Down, 1}, {Qt::Key_Up, 0}}) {
        press(table, key);
        EXPECT_EQ(table->currentIndex().row(), row);
    }
    const bool was_shown = item(4)->isChecked();
    auto* button = find<QPushButton>("m_select_sensor");
    QTimer::singleShot(0, button, [&, menu = button->menu()] { // while it is open, an event loop of its own runs
        EXPECT_TRUE(menu->isVisible());
        for (int steps = 0; menu->activeAction() != item(4) && steps < 10; ++steps)
            press(menu, Qt::Key_Down);
        press(menu, Qt::Key_Return);
        menu->close();
    });
    press(button, Qt::Key_Space);
    QCoreApplication::processEvents();
    EXPECT_NE(item(4)->isChecked(), was_shown);
}

TEST_F(FreqTempWindowTest, EquationIsShownOrItsFailureToldOnStandardOutput) {
    const auto equation = [this] {
        return inspector->findChild<QLabel*>(QStringLiteral("m_equation"))->text();
    };
    ::testing::internal::CaptureStdout();
    open_inspector();
    EXPECT_EQ(equation(), QString());
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "") << "a missing text is no fault";
    ::testing::internal::CaptureStdout();
    fakes.files.texts[EQUATION] = "plain text";
    open_inspector();
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Got an error it is not in the Rich Text Format\n");
    fakes.files.texts[EQUATION] = "{\\rtf1 f < {\\i T\\super 2}}";
    open_inspector();
    EXPECT_TRUE(equation().contains(QStringLiteral("f &lt; <i>T</i><sup><i>2</i></sup>"))) << equation().toStdString();
}

TEST(RtfHtml, HasTheParagraphsAndStylesOfTheRichText) {
    const auto bodies = [](const std::string& rtf) {
        auto html = html_of_rtf(rtf);
        if (!html)
            return english(html.error());
        return html->replace(QStringLiteral("<p style=\"margin-top:2px; margin-bottom:2px\">"), QStringLiteral("["))
            .replace(QStringLiteral("</p>"), QStringLiteral("]"))
            .toStdString();
    };
    for (const auto& [rtf, expected] :
         {std::pair{R"({\rtf1\ansi one\par two})", "[one][two]"},
          {R"({\rtf1{\fonttbl{\f0 Arial;}}{\*\generator X;}{\info{\title T\par}}\f0 shown\par})", "[shown]"},
          {R"({\rtf1 a{\b b{\i c}d}e\b f\b0 g\b\i\plain h})", "[a<b>b</b><i><b>c</b></i><b>d</b>e<b>f</b>gh]"},
          {R"({\rtf1 T\super 2\nosupersub  x{\sub i}\par\par y})", "[T<sup>2</sup> x<sub>i</sub>][][y]"},
          {R"({\rtf1 \'b0C \{\}\\ <})", "[°C {}\\ &lt;]"},
          {R"({\rtf1 \u183 ?\u176?C \u-10179 ?\u-8704 ?.})", "[·°C 😀.]"},
          {R"({\rtf1\uc2 \u955 ab{\uc0\u955 c}\u955\'41\'42d})", "[λλcλd]"},
          {"{\\rtf1 split\r\n line}", "[split line]"},
          {"{\\rtf1}", ""},
          {"", "it is not in the Rich Text Format"},
          {"{\\rtf1 open", "it ends in the middle"},
          {"{\\rtf1 \\", "it ends in the middle"}})
        EXPECT_EQ(bodies(rtf), expected) << rtf;
}

} // namespace
} // namespace tickervantage
