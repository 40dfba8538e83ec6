#include "draw/canvas_pixels.h"
#include "studies/freqtemp/freqtemp_view.h"
#include "studies/freqtemp/scatter_csv.h"
#include "studies/freqtemp/scatter_json.h"
#include "support/freqtemp_parts.h"
#include "support/kept_text.h"
#include "support/recording_canvas.h"
#include "support/test.h"

#include <nlohmann/json.hpp>

namespace tickervantage::testing {
namespace {

constexpr const char* MAP = "/data/Tickervantage/scattermap.json";

std::string written(const ScatterMap& map, int (*write)(const ScatterMap&, const TextSink&) = write_scatter_json) {
    std::string text;
    const auto keep = [&text](std::string_view piece) {
        text += piece;
        return 0;
    };
    EXPECT_EQ(write(map, keep), 0);
    return text;
}

scatterEntry entry_of(std::size_t count, bool with_fit = false) {
    scatterEntry entry;
    for (std::size_t i = 0; i < count; ++i)
        entry.points.append({20.2 + static_cast<double>(i % 100) * 0.115, std::sin(static_cast<double>(i))});
    if (with_fit)
        (void)entry.quadRegression->fit(entry.points.spans(), 2);
    return entry;
}

// A list and what it should hold.
struct ListAndModel {
    PointList list;
    std::deque<freqPoint> points;
    std::deque<std::optional<std::int64_t>> times;

    void expect_same() const {
        ASSERT_EQ(list.size(), points.size());
        std::vector<freqPoint> found;
        for (const auto& part : list.spans())
            for (std::size_t i = 0; i < part.x.size(); ++i)
                found.push_back({part.x[i], part.y[i]});
        ASSERT_TRUE(std::ranges::equal(found, points));
        ASSERT_EQ(list.empty(), points.empty());
        if (points.empty())
            return;
        const std::size_t middle = points.size() / 2;
        EXPECT_EQ(list[middle], points[middle]);
        EXPECT_EQ(list.time(middle), times[middle]);
        EXPECT_EQ(list.back(), points.back());
        const auto [coldest, warmest] = std::ranges::minmax(points, {}, &freqPoint::temperature);
        const auto [slowest, fastest] = std::ranges::minmax(points, {}, &freqPoint::frequency);
        const auto extent = list.extent();
        EXPECT_EQ(
            std::tuple(extent->min_temperature, extent->max_temperature, extent->min_frequency, extent->max_frequency),
            std::tuple(coldest.temperature, warmest.temperature, slowest.frequency, fastest.frequency));
    }
};

TEST(PointList, HoldsWhatAPlainListWouldInEveryCopy) {
    std::mt19937 random(11);
    const auto below = [&random](std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
    };
    std::vector<ListAndModel> copies(3);
    for (int step = 0; step < 120; ++step) {
        ListAndModel& one = copies[below(3)];
        switch (below(5)) {
        case 0:
            copies[below(3)] = one;
            break;
        case 1:
        case 2: {
            const std::size_t count = below(2) == 0 ? below(6000) : below(3);
            one.list.drop_front(count);
            const auto dropped = static_cast<std::ptrdiff_t>(std::min(count, one.points.size()));
            one.points.erase(one.points.begin(), one.points.begin() + dropped);
            one.times.erase(one.times.begin(), one.times.begin() + dropped);
            break;
        }
        default:
            for (std::size_t count = below(2500); count > 0; --count) {
                one.points.push_back({static_cast<double>(below(100)), static_cast<double>(below(50)) - 25});
                one.times.push_back(count % 3 == 0 ? std::nullopt : std::optional<std::int64_t>(count));
                one.list.append(one.points.back(), one.times.back());
            }
        }
        for (const auto& copy : copies)
            copy.expect_same();
    }
}

TEST(ScatterJson, KeepsWhatItDoesNotKnow) {
    const std::string text =
        R"({"gone/temp1": {"points": [{"temperature": 45, "frequency": -12.25, "at": [1, {"b": 2}]},
        {"frequency": 1e-3, "time": "2026-11-22T01:30:00Z", "temperature": 0.1}], "selected": false, "note": "x", "color": {"r":0, "g":0.5, "b":1, "a":0.75,
        "name": null}, "quadRegression": {"r": 0.5, "y_stddev": 0.25, "x_min": 1, "x_max": 2, "coefficients": [1, 2.5],
        "valid": true, "extra": {"deep": []}}}, "übrig": {"selected": true, "color": {"r":0,"g":0,"b":0,"a":0},
        "quadRegression": {"r":0,"y_stddev":0,"x_min":0,"x_max":0,"coefficients":[],"valid":false}, "points": []}})";
    const auto read = read_scatter_json(text);
    ASSERT_TRUE(read) << english(read.error());
    const ScatterMap& map = *read;
    EXPECT_EQ(map.at("gone/temp1").points[1], (freqPoint{0.1, 1e-3}));
    EXPECT_EQ(map.at("gone/temp1").points.time(1), 1795311000);
    EXPECT_FALSE(map.at("gone/temp1").points.time(0));
    EXPECT_EQ(map.at("gone/temp1").quadRegression->coefficients, (std::vector{1, 2.5}));
    const std::string again = written(map);
    EXPECT_EQ(nlohmann::json::parse(again), nlohmann::json::parse(text));
    expect_as_kept(again, "scattermap");
}

TEST(ScatterJson, RefusesWhatDoesNotDecode) {
    const std::string whole = written({{"s", entry_of(2, true)}});
    for (std::size_t end = 0; end + 2 < whole.size(); ++end)
        ASSERT_FALSE(read_scatter_json(whole.substr(0, end))) << end;
    const std::string deep(100'000, '[');
    for (const auto& [from, to] :
         std::multimap<std::string, std::string>{{"\"selected\": true", "\"selected\": 1"},
                                                 {"\"selected\"", "\"chosen\""},
                                                 {"\"temperature\": 20.2", "\"temperature\": \"20\""},
                                                 {"\"g\": 0", "\"g\": 1e999"},
                                                 {"\"frequency\"", "\"time\": 7, \"frequency\""},
                                                 {"\"frequency\"", "\"time\": \"noon\", \"frequency\""},
                                                 {"{\n  \"s\"", "{\"s\":" + deep + "\n  \"s\""},
                                                 {"\"points\"", "\"x\":" + deep + "\n\"points\""},
                                                 {"{\n  \"s\"", "[{\n  \"s\""}}) {
        std::string text = whole;
        ASSERT_NE(text.find(from), std::string::npos) << from;
        text.replace(text.find(from), from.size(), to);
        EXPECT_FALSE(read_scatter_json(text)) << from;
    }
}

TEST(ScatterCsv, ComesBackAsItWasWritten) {
    ScatterMap map{{"a, \"b\"", entry_of(3)}, {"c", entry_of(2)}};
    const std::string text = written(map, write_scatter_csv);
    ScatterMap back;
    CsvDamage damage;
    ASSERT_EQ(read_scatter_csv(text + "45.5, -12\nrubbish\n1,nan\n", "stem", back, damage), 0);
    ASSERT_EQ(back.size(), 3U);
    EXPECT_EQ(back.at("a, \"b\"").points.back(), map.at("a, \"b\"").points.back());
    EXPECT_EQ(back.at("stem").points[0], (freqPoint{45.5, -12}));
    EXPECT_EQ(damage.lines, 2U);
    EXPECT_EQ(damage.first, 8U);
    EXPECT_EQ(read_scatter_csv("temperature,frequency\n", "stem", back, damage), -1);
    const std::string timed =
        "temperature,frequency,time,sensor\n40,1,2026-11-22T00:00:00Z,a\n41,2,2026-11-22T00:05:00Z\n";
    ASSERT_EQ(read_scatter_csv(timed, "stem", back, damage), 0);
    EXPECT_EQ(back.size(), 2U) << "a time is no sensor";
    EXPECT_EQ(back["a"].points.size() + back["stem"].points.size(), 2U);
}

class FreqTempSessionTest : public ::testing::Test, public FreqTempListener {
protected:
    FreqTempFakes m_fakes;
    std::shared_ptr<const Sensors> m_told;

    FreqTempSessionTest() {
        m_fakes.sensors.readings = {{"cpu", "Package", 45}, {"disk", "", 31}, {"off", "Off", 0}};
        m_fakes.broadcast.AddListener(sensor_inspector_key, "test", [this](std::string_view, const std::any& object) {
            m_told = std::any_cast<std::shared_ptr<const Sensors>>(object);
        });
    }
    std::unique_ptr<FreqTempSession> started(std::int64_t most = 2000) {
        FreqTempSettings settings;
        settings.max_samples = most;
        auto session = std::make_unique<FreqTempSession>(m_fakes.parts(), settings, *this);
        session->start();
        m_fakes.settle();
        return session;
    }
    void session_ready() override {}
    void session_changed() override {}
    [[nodiscard]] nlohmann::json stored() { return nlohmann::json::parse(m_fakes.files.texts.at(MAP)); }
};

TEST_F(FreqTempSessionTest, PairsEveryFrequencyWithTheLatestTemperatures) {
    const auto session = started();
    EXPECT_EQ(session->menu().sensors(), (std::vector<tempSensor>{{"cpu", "Package"}, {"disk", "disk"}}));
    EXPECT_EQ(session->scatter().at("cpu").color, (colorType{0, 1, 1, 0.75}));
    EXPECT_EQ(session->scatter().at("disk").color, (colorType{1, 0, 0, 0.75}));
    m_fakes.sample(-12); // before the first temperature
    EXPECT_TRUE(m_told->sensors.empty());
    m_fakes.tick();
    m_fakes.sample(-12.5);
    m_fakes.sensors.readings = {{"cpu", "Package", 46}, {"new", "New", 50}, {"off", "Off", 40}}; // the disk has gone
    m_fakes.tick();
    m_fakes.sample(-12.75);
    m_fakes.sample(NAN);
    ASSERT_EQ(session->scatter().size(), 2U);
    EXPECT_EQ(session->scatter().at("cpu").points.back(), (freqPoint{46, -12.75}));
    EXPECT_EQ(session->scatter().at("disk").points.back(), (freqPoint{31, -12.75}));
    ASSERT_EQ(m_told->sensors.size(), 2U);
    EXPECT_EQ(m_told->sensors[0].name, "Package");
    EXPECT_EQ(m_told->sensors[0].regression->x_max, 46);
    EXPECT_FALSE(m_told->sensors[0].regression->valid); // two temperatures are too few for degree 2
    session->selectOrder(0);
    m_fakes.settle();
    EXPECT_TRUE(m_told->sensors[0].regression->valid);
}

TEST_F(FreqTempSessionTest, DropsTheOldestPointsAfterTheFit) {
    const auto session = started(5);
    session->selectOrder(0);
    for (int i = 0; i < 7; ++i) {
        m_fakes.sensors.readings[0].temperature = 40 + i;
        m_fakes.tick();
        m_fakes.sample(i);
    }
    EXPECT_EQ(session->samples(), 5U);
    EXPECT_EQ(session->scatter().at("cpu").points[0].temperature, 42);
    EXPECT_EQ(session->scatter().at("cpu").quadRegression->x_min, 41); // the point that went was fitted still
    session->set_max_samples(2);
    m_fakes.settle();
    EXPECT_EQ(session->scatter().at("disk").points.size(), 2U);
    EXPECT_EQ(session->samples(), 2U);
}

TEST_F(FreqTempSessionTest, SavesEveryHundredthSampleAndAtTheEnd) {
    m_fakes.files.texts["/data/Tickervantage/scattermap.txt"] = "old";
    auto session = started();
    m_fakes.tick();
    for (int i = 0; i < 99; ++i)
        m_fakes.sample(i);
    EXPECT_EQ(m_fakes.files.writes, 0);
    m_fakes.sample(0);
    EXPECT_EQ(stored()["cpu"]["points"].size(), 100U);
    EXPECT_FALSE(m_fakes.files.texts.contains("/data/Tickervantage/scattermap.txt"));
    session->clear();
    m_fakes.settle();
    EXPECT_EQ(stored()["cpu"]["points"].size(), 0U);
    EXPECT_TRUE(m_told->sensors.empty());
    m_fakes.sample(1);
    session->close();
    session.reset(); // though the queue was never turned again
    EXPECT_EQ(stored()["cpu"]["points"].size(), 1U);
    m_fakes.settle();
    EXPECT_EQ(m_fakes.files.writes, 3);
    EXPECT_TRUE(m_fakes.sensors.is_closed);
    m_fakes.sample(2); // nobody listens
}

TEST_F(FreqTempSessionTest, SavesAMapAtItsMaximumAsSeldomAsOneThatGrows) {
    for (const std::int64_t most : {200, 250}) {
        const auto session = started(most);
        for (int i = 0; i < 5; ++i)
            m_fakes.sample(i); // without a temperature nothing comes to be saved
        EXPECT_EQ(m_fakes.files.writes, 0) << most;
        m_fakes.tick();
        for (int i = 0; i < 1000; ++i)
            m_fakes.sample(i);
        EXPECT_EQ(m_fakes.files.writes, 10) << most;
        m_fakes.files = {};
    }
}

TEST_F(FreqTempSessionTest, LeavesNoMapWithoutEntries) {
    for (const auto& [readings, stored] : {std::pair{std::vector<SensorReading>{}, ""},
                                           {std::vector<SensorReading>{}, "{}"},
                                           {std::vector<SensorReading>{{"cpu", "", 45}}, " { } "}}) {
        m_fakes.files.texts.clear();
        if (*stored != '\0')
            m_fakes.files.texts[MAP] = stored;
        m_fakes.sensors.readings = readings;
        auto session = started();
        EXPECT_TRUE(session->scatter().empty());
        session->close();
        session.reset();
        m_fakes.settle();
        EXPECT_FALSE(m_fakes.files.texts.contains(MAP)) << stored;
        EXPECT_EQ(m_fakes.files.writes, 0);
    }
    m_fakes.sensors.readings = {{"cpu", "", 45}};
    EXPECT_TRUE(started()->scatter().contains("cpu")); // nothing stands in its way any more
}

TEST_F(FreqTempSessionTest, FitsEventsThatComeTooFastTogether) {
    const auto session = started();
    m_fakes.tick();
    session->selectOrder(0);
    m_fakes.settle();
    for (int i = 0; i < 100; ++i) {
        m_fakes.sensors.readings[0].temperature = 40 + i % 7;
        session->frequency_event(i);
    }
    session->set_max_samples(1000); // which nobody needs to be told
    EXPECT_EQ(m_fakes.queue.waiting(), 1U);
    m_told.reset();
    m_fakes.settle();
    ASSERT_NE(m_told, nullptr);
    EXPECT_EQ(m_fakes.files.writes, 2); // the other when there were no samples, which is a hundredth one too
    EXPECT_EQ(stored()["cpu"]["points"].size(), 100U);
    EXPECT_EQ(m_told->sensors.size(), 2U);
}

TEST_F(FreqTempSessionTest, GoesOnWithAStoredMap) {
    ScatterMap map{{"cpu", entry_of(4)}, {"gone", entry_of(3)}};
    map.at("cpu").selected = false;
    map.at("cpu").color = {1, 1, 1, 1};
    m_fakes.files.texts[MAP] = written(map);
    const auto session = started();
    EXPECT_EQ(session->scatter().at("cpu").color, (colorType{0, 1, 1, 0.75}));
    EXPECT_FALSE(session->scatter().at("cpu").selected);
    EXPECT_FALSE(session->scatter().contains("disk")); // new, and the file does not know it
    m_fakes.tick();
    m_fakes.sample(1);
    EXPECT_EQ(session->scatter().at("cpu").points.size(), 5U);
    session->close();
    m_fakes.settle();
    EXPECT_EQ(stored()["gone"]["points"].size(), 3U);
}

TEST_F(FreqTempSessionTest, KeepsADamagedMapAsideAndBearsAFullDisk) {
    m_fakes.files.texts[MAP] = "{\"cpu\":";
    m_fakes.files.is_full = true;
    const auto session = started();
    EXPECT_EQ(m_fakes.files.texts.at(std::string(MAP) + ".damaged"), "{\"cpu\":");
    EXPECT_EQ(session->scatter().size(), 2U);
    session->close();
    m_fakes.settle();
    ASSERT_EQ(m_fakes.logger.sentences.size(), 2U);
    EXPECT_NE(m_fakes.logger.sentences[1].find("No space left on device."), std::string::npos);
}

TEST_F(FreqTempSessionTest, ADamagedMapThatCannotBeMovedIsNeverWrittenOver) {
    m_fakes.files.texts[MAP] = "{\"cpu\":";
    m_fakes.files.holds_fast = true;
    auto session = started();
    m_fakes.tick();
    for (int i = 0; i < 100; ++i)
        m_fakes.sample(i);
    session->close();
    session.reset();
    m_fakes.settle();
    EXPECT_EQ(m_fakes.files.texts.at(MAP), "{\"cpu\":");
    EXPECT_EQ(m_fakes.files.writes, 0);
    ASSERT_EQ(m_fakes.logger.sentences.size(), 1U);
    EXPECT_NE(m_fakes.logger.sentences[0].find("will not be written"), std::string::npos);
}

TEST_F(FreqTempSessionTest, ChecksSensorsOrNoSensor) {
    const auto session = started();
    session->selectSensor(1);
    EXPECT_FALSE(session->scatter().at("cpu").selected);
    EXPECT_FALSE(session->scatter().at("disk").selected);
    EXPECT_TRUE(session->menu().is_checked(1));
    for (const bool selected : {true, false}) {
        session->selectSensor(4); // behind the title, the item for no sensor, a separator, and the first sensor
        EXPECT_EQ(session->scatter().at("disk").selected, selected);
        EXPECT_EQ(session->menu().is_checked(4), selected);
        EXPECT_FALSE(session->menu().is_checked(1));
    }
    session->selectSensor(99);
}

constexpr Rect VISIBLE{0, 0, 470, 338}; // the drawing area is 392 by 300, from (54, 34)

TEST(FreqTempView, StaysFiniteAtOneTemperatureAndWithoutPoints) {
    scatterEntry entry;
    for (int i = 0; i < 5; ++i)
        entry.points.append({45, i * 0.5});
    for (const bool is_empty : {false, true}) {
        FreqTempView view;
        view.set_scatter(is_empty ? ScatterMap{} : ScatterMap{{"a", entry}});
        RecordingCanvas canvas;
        view.draw(canvas, VISIBLE);
        EXPECT_TRUE(canvas.polylines.empty());
        EXPECT_EQ(canvas.boxes.size(), is_empty ? 0U : 1U);
        EXPECT_EQ(view.is_empty(), is_empty);
        for (const auto& one : canvas.texts)
            EXPECT_TRUE(one.text != "45.0" || std::abs(one.box.center().x - (54 + 196)) < 2.5);
        EXPECT_EQ(std::ranges::count(canvas.texts, is_empty ? "0.0" : "45.0", &RecordingCanvas::Text::text),
                  is_empty ? 2 : 1)
            << "not at every mark";
        for (const auto& boxes : canvas.boxes)
            EXPECT_NEAR(boxes.boxes[0].center().x, 54 + 196, 2.5);
        view.draw(canvas, {0, 0, 3, 3}); // no room at all
    }
}

TEST(FreqTempView, CoversTheSameOfManyPointsAsOfTheSameOneByOne) {
    // 400 places, each 60 times: enough for a digest, which has to cover what the places alone cover.
    scatterEntry few;
    scatterEntry many;
    for (int i = 0; i < 24'000; ++i) {
        const freqPoint point{20 + (i % 400) * 0.029, std::sin(i % 400)};
        many.points.append(point);
        if (i < 400)
            few.points.append(point);
    }
    many.digest = make_digest(many.points);
    ASSERT_TRUE(many.digest);
    EXPECT_LE(many.digest->dots.size(), 400U);
    std::vector<std::vector<bool>> covered;
    for (const auto& entry : {few, many}) {
        FreqTempView view;
        view.set_scatter({{"a", entry}});
        RecordingCanvas canvas;
        view.draw(canvas, VISIBLE);
        auto& pixels = covered.emplace_back(470 * 338);
        for (const auto& boxes : canvas.boxes)
            for (const auto& box : boxes.boxes)
                for (double y = std::round(box.y); y < std::round(box.y + box.height); ++y)
                    for (double x = std::round(box.x); x < std::round(box.x + box.width); ++x)
                        pixels[static_cast<std::size_t>(y * 470 + x)] = true;
    }
    EXPECT_EQ(covered[0], covered[1]);
}

// Its pixels are those of VISIBLE's drawing area, and some around it that nobody may touch.
class PixelCanvas : public RecordingCanvas {
public:
    static constexpr std::size_t MARGIN = 8;
    static constexpr std::size_t WIDTH = 392;
    static constexpr std::size_t HEIGHT = 300;
    static constexpr std::size_t STRIDE = WIDTH + 2 * MARGIN;
    std::vector<std::uint32_t> field = std::vector<std::uint32_t>(STRIDE * (HEIGHT + 2 * MARGIN));

    std::optional<CanvasPixels> begin_pixels(Rect) override {
        return CanvasPixels{.rows = {field.data(), STRIDE},
                            .width = STRIDE,
                            .height = HEIGHT + 2 * MARGIN,
                            .left = static_cast<double>(MARGIN) - 54,
                            .bottom = 34 + static_cast<double>(HEIGHT + MARGIN),
                            .is_canvas = true};
    }
    // How many pixels have that alpha.
    [[nodiscard]] std::ptrdiff_t count(std::uint32_t alpha) const {
        return std::ranges::count_if(field, [alpha](std::uint32_t pixel) { return pixel >> 24 == alpha; });
    }
    [[nodiscard]] std::uint32_t at(std::size_t x, std::size_t y) const {
        return field[(MARGIN + y) * STRIDE + MARGIN + x] >> 24;
    }
};

TEST(FreqTempView, LaysSquaresOverPixelsAsOftenAsTheyComeAndNoFurtherThanItsArea) {
    FreqTempView view;
    view.m_show_last_record = view.m_show_mean_frequency = false;
    scatterEntry entry;
    entry.color = {0, 0, 1, 0.5};
    for (const freqPoint point : {freqPoint{20, 0}, {20, 0}, {30, 1}, {25.5, 0.5}, {25.5, 0.5}, {25.5, 0.5}})
        entry.points.append(point);
    view.set_scatter({{"a", entry}});
    PixelCanvas canvas;
    view.draw(canvas, VISIBLE);
    PixelCanvas white;
    std::ranges::fill(white.field, 0xFFFFFFFFU);
    view.draw(white, VISIBLE);
    EXPECT_EQ(std::ranges::count(white.field, 0xFFFFFFFFU), std::ssize(white.field) - (6 + 6 + 25));
    EXPECT_TRUE(canvas.boxes.empty());
    EXPECT_EQ(canvas.count(128) + canvas.count(191) + canvas.count(223), 6 + 6 + 25) << "two of them cut at a corner";
    EXPECT_EQ(canvas.at(391, 0), 128U) << "the highest one";
    EXPECT_EQ(canvas.at(0, 299), 191U) << "twice";
    EXPECT_EQ(canvas.at(215, 150), 223U) << "three times";
    entry.points.clear();
    for (int i = 0; i < 300; ++i)
        entry.points.append({20 + (i % 3) * 5.0, (i % 3) * 0.5});
    view.set_scatter({{"a", entry}});
    PixelCanvas crowded;
    view.draw(crowded, VISIBLE);
    EXPECT_EQ(crowded.at(0, 299), 254U) << "a hundred times";
}

} // namespace
} // namespace tickervantage::testing
