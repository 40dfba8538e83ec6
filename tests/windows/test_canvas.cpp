#include "base/failure_codes.h"
#include "draw/canvases.h"
#include "gui/main/instrument_widget.h"
#include "qt/local_number.h"
#include "qt/picture_file.h"
#include "qt/qt_canvas.h"
#include "support/test.h"

#include <QtWidgets>
#include <sys/resource.h>

namespace tickervantage {
namespace {

const CanvasColors COLORS = CanvasColors::light();

Path line(Point from, Point to) {
    Path path;
    path.add_line(from, to);
    return path;
}

Path disc(Rect box) {
    Path path;
    path.add_ellipse(box);
    return path;
}

template <typename Draw>
QImage painted(int side, double pixel_ratio, Draw draw) {
    const int pixels = static_cast<int>(side * pixel_ratio);
    QImage image(pixels, pixels, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixel_ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    QtCanvas canvas(painter, side, COLORS);
    if constexpr (std::is_invocable_v<Draw, QtCanvas&, QPainter&>)
        draw(canvas, painter);
    else
        draw(canvas);
    return image;
}

// The box of all pixels that are not white.
QRect inked(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) != Qt::white)
                box |= QRect(x, y, 1, 1);
    return box;
}

TEST(QtCanvas, YGrowsUpwardsInTheRolesColour) {
    for (const double ratio : {1.0, 2.0}) {
        const QImage image = painted(40, ratio, [](Canvas& canvas) {
            canvas.fill(disc({4, 28, 8, 8}), ColorRole::red, FillRule::nonzero);
        });
        const int scale = static_cast<int>(ratio);
        EXPECT_EQ(image.pixelColor(8 * scale, 8 * scale), COLORS.red);
        EXPECT_EQ(inked(image), QRect(4 * scale, 4 * scale, 8 * scale, 8 * scale));
    }
}

TEST(QtCanvas, EvenOddLeavesTheHoleOpen) {
    Path ring;
    ring.add_rounded_rect({0, 0, 40, 40}, 20, 20);
    ring.add_ellipse({5, 5, 30, 30});
    const QImage image =
        painted(40, 1, [&](Canvas& canvas) { canvas.fill(ring, ColorRole::blue, FillRule::even_odd); });
    EXPECT_EQ(image.pixelColor(20, 20), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(2, 20), COLORS.blue);
}

TEST(QtCanvas, UprightAndLevelLinesFillWholePixels) {
    for (const double ratio : {1.0, 2.0}) {
        const QImage image = painted(40, ratio, [](Canvas& canvas) {
            canvas.stroke(line({10, 5}, {10, 35}), ColorRole::text, 1, Shadow::none);
        });
        EXPECT_EQ(inked(image).width(), static_cast<int>(ratio));
        EXPECT_EQ(image.pixelColor(inked(image).center()), COLORS.text);
    }
}

TEST(QtCanvas, SoftShadowSurroundsTheStrokeEvenly) {
    const QImage image = painted(40, 1, [](Canvas& canvas) {
        canvas.stroke(line({10, 20.5}, {30, 20.5}), ColorRole::red, 1, Shadow::soft);
    });
    EXPECT_EQ(image.pixelColor(20, 19), COLORS.red);
    EXPECT_NE(image.pixelColor(20, 18), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(20, 18), image.pixelColor(20, 20));
}

TEST(QtCanvas, TextHangsFromTheBoxAndKeepsToItsSide) {
    struct Case {
        TextAlign align;
        double center;
    };
    const Rect box{10, 40, 80, 30};
    for (const auto& one : {Case{TextAlign::left, 16}, Case{TextAlign::center, 50}, Case{TextAlign::right, 84}}) {
        const QImage image =
            painted(100, 1, [&](Canvas& canvas) { canvas.text("00", box, {.size = 10, .align = one.align}); });
        EXPECT_NEAR(inked(image).center().x(), one.center, 2.0);
        EXPECT_NEAR(inked(image).center().y(), 30 + 10 * TEXT_MIDDLE, 1.5);
    }
}

TEST(QtCanvas, LayerLandsWhereItsLinesBelong) {
    for (const double ratio : {1.0, 1.5, 2.0}) {
        const QImage image = painted(40, ratio, [](Canvas& canvas) {
            canvas.begin_layer({5, 0, 30, 40});
            const Point points[] = {{10, 30}, {20, 30}};
            canvas.polyline(points, Ink(ColorRole::red), 2);
            const Rect box{30, 10, 2, 6};
            canvas.fill_rects(std::span(&box, 1), ColorRole::red);
            canvas.end_layer();
        });
        const auto pixels = [ratio](double points) {
            return static_cast<int>(points * ratio);
        };
        EXPECT_EQ(image.pixelColor(pixels(15), pixels(10)), COLORS.red) << ratio;
        EXPECT_EQ(image.pixelColor(pixels(31), pixels(27)), COLORS.red) << ratio;
        EXPECT_EQ(inked(image), QRect(pixels(10), pixels(9), pixels(32) - pixels(10), pixels(30) - pixels(9))) << ratio;
    }
}

TEST(QtCanvas, LayerDrawsStraightLinesWhereTheyBelong) {
    const LineStyle styles[] = {{ColorRole::red, 1, {}}, {ColorRole::red, 2, {3, 2}}};
    const std::pair<Point, Point> lines[] = {
        {{10, 5}, {10, 35}}, {{10, 35}, {10, 5}}, {{5, 20}, {35, 20}}, {{35, 20}, {5, 20}}, {{-9, 8}, {99, 8}}};
    for (const double ratio : {1.0, 2.0})
        for (const auto& style : styles)
            for (const auto& [from, to] : lines) {
                const auto draw = [&](bool on_layer, bool clipped) {
                    return painted(40, ratio, [&](QtCanvas& canvas, QPainter& painter) {
                        if (clipped) // then the layer cannot write the picture itself
                            painter.setClipRect(0, 0, 40, 40);
                        if (on_layer)
                            canvas.begin_layer({0, 0, 40, 40});
                        canvas.stroke(line(from, to), style);
                        canvas.end_layer();
                    });
                };
                const QImage by_painter = draw(false, true);
                EXPECT_EQ(draw(true, false), by_painter) << ratio << " " << from.x << " " << from.y;
                EXPECT_EQ(draw(true, true), by_painter) << ratio << " " << from.x << " " << from.y;
                EXPECT_EQ(draw(false, false), by_painter) << ratio << " " << from.x << " " << from.y;
            }
}

TEST(QtCanvas, KeptLabelsLookLikeOthers) {
    CanvasMemory memory;
    for (const double ratio : {1.0, 2.0, 1.0})
        for (const TextAlign align : {TextAlign::left, TextAlign::center, TextAlign::right}) {
            const auto draw = [&](CanvasMemory* kept) {
                QImage image(QSize(100, 40) * ratio, QImage::Format_RGB32);
                image.setDevicePixelRatio(ratio);
                image.fill(Qt::white);
                QPainter painter(&image);
                QtCanvas canvas(painter, 40, COLORS, kept);
                canvas.text("-10 \xC2\xB5s", {10, 10, 80, 20}, {.size = 10, .align = align});
                painter.end();
                return inked(image);
            };
            EXPECT_EQ(draw(&memory), draw(nullptr)) << ratio;
        }
}

TEST(QtCanvas, NumbersHaveTheLocalesPointAndOtherTextsStayAsTheyAre) {
    QLocale::setDefault(QLocale(QLocale::German));
    for (const auto& [text, shown] : {std::pair{"1.5", "1,5"},
                                      {"-0.5 ms", "-0,5 ms"},
                                      {"−0.5", "−0,5"},
                                      {"1.0e-05", "1,0e-05"},
                                      {"12:30", "12:30"},
                                      {"192.0.2.1", "192.0.2.1"}})
        EXPECT_EQ(with_local_point(text), shown);
    QLocale::setDefault(QLocale::c());
}

TEST(CanvasColors, HuesCanBeReadOnEveryBackground) {
    for (const int grey : {0, 30, 60, 90, 118, 128, 160, 200, 239, 255}) {
        QPalette palette;
        palette.setColor(QPalette::Base, QColor(grey, grey, grey));
        const auto colors = CanvasColors::from_palette(palette);
        EXPECT_GE(contrast_ratio(colors.blue, colors.text_background), 4.5) << grey;
        EXPECT_GE(contrast_ratio(colors.red, colors.text_background), 4.5) << grey;
        EXPECT_GE(contrast_ratio(colors.grey, colors.text_background), 4.5) << grey;
    }
}

class PictureFile : public ::testing::Test {
protected:
    QTemporaryDir folder;

    [[nodiscard]] std::string path(const char* name) const {
        return folder.filePath(QString::fromUtf8(name)).toStdString();
    }
    static Result<> write(const std::string& file, PictureFormat format = {.width = 60, .height = 40}) {
        return write_picture(file, format, [](Canvas& canvas, Rect bounds) {
            canvas.fill(disc(bounds), ColorRole::blue, FillRule::nonzero);
            canvas.text("5 \xC2\xB5s < 1 ms", bounds, {});
        });
    }
    static QByteArray content(const std::string& file) {
        QFile reader(QString::fromStdString(file));
        return reader.open(QIODevice::ReadOnly) ? reader.readAll() : QByteArray();
    }
};

TEST_F(PictureFile, PngHasTheSizeAndTheDrawing) {
    ASSERT_TRUE(write(path("a.PNG"), {.width = 60, .height = 40, .scale = 2, .colors = CanvasColors::dark()}));
    const QImage image(QString::fromStdString(path("a.PNG")));
    EXPECT_EQ(image.size(), QSize(60, 40));
    EXPECT_EQ(image.pixelColor(30, 36), CanvasColors::dark().blue);
    EXPECT_EQ(image.pixelColor(0, 0), CanvasColors::dark().text_background);
}

TEST_F(PictureFile, SvgIsWellFormedAndKeepsItsText) {
    ASSERT_TRUE(write(path("a.svg")));
    QXmlStreamReader xml(content(path("a.svg")));
    QString text;
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::Characters)
            text += xml.text();
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("5 \u00b5s < 1 ms"))) << text.toStdString();
}

// At 96 to the inch; its numbers are points.
TEST_F(PictureFile, PdfIsOnePageOfThePicturesSize) {
    ASSERT_TRUE(write(path("a.pdf"), {.width = 960, .height = 480}));
    const QByteArray pdf = content(path("a.pdf"));
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 720 360]") || pdf.contains("/MediaBox [0 0 720.000000 360.000000]"));
    EXPECT_EQ(pdf.count("/Type /Page\n"), 1);
}

TEST_F(PictureFile, RefusalsSayWhy) {
    struct Case {
        std::string file;
        PictureFormat format;
        FailureCode code;
    };
    const Case cases[] = {{path("a.gif"), {.width = 10, .height = 10}, FailureCode::picture_of_no_kind},
                          {path("png"), {.width = 10, .height = 10}, FailureCode::picture_of_no_kind},
                          {path("a.png"), {.width = 0, .height = 10}, FailureCode::picture_too_large},
                          {path("a.svg"), {.width = 10, .height = 16385}, FailureCode::picture_too_large},
                          {path("missing/a.png"), {.width = 10, .height = 10}, FailureCode::picture_not_written},
                          {"/proc/a.svg", {.width = 10, .height = 10}, FailureCode::picture_not_written}};
    for (const auto& one : cases) {
        const auto written = write(one.file, one.format);
        ASSERT_FALSE(written) << one.file;
        EXPECT_EQ(written.error().code, one.code) << english(written.error());
    }
}

TEST_F(PictureFile, FailedWriteLeavesTheOldFile) {
    ASSERT_TRUE(write(path("a.svg")));
    const QByteArray before = content(path("a.svg"));

    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit nothing{.rlim_cur = 0, .rlim_max = limit.rlim_max}; // every write fails, as on a full disk
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &nothing), 0);
    const auto result = write(path("a.svg"), {.width = 90, .height = 90});
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    std::signal(SIGXFSZ, old_handler);

    EXPECT_FALSE(result);
    EXPECT_EQ(content(path("a.svg")), before);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1) << "a half-written file was left behind";
}

// The widget also asks for the hands to learn where they are.
bool is_painted(Canvas& canvas) {
    return dynamic_cast<BoundsCanvas*>(&canvas) == nullptr;
}

class CountedInstrument : public InstrumentWidget {
public:
    using InstrumentWidget::InstrumentWidget;
    int faces = 0;
    mutable int hands = 0;
    std::size_t position = 0;
    Rect seen; // of the face

protected:
    void draw_face(Canvas&, Rect bounds) override {
        ++faces;
        seen = bounds;
    }
    void draw_hands(Canvas& canvas, Rect bounds) const override {
        hands += is_painted(canvas) ? 1 : 0;
        Path line;
        line.add_line(bounds.center(), {position == 0 ? 10.0 : 190.0, 150});
        canvas.stroke(line, ColorRole::red, 2, Shadow::soft);
    }
    [[nodiscard]] std::size_t hand_position() const override { return position; }
};

TEST(InstrumentWidget, KeepsTheFaceUntilSomethingChanges) {
    CountedInstrument widget;
    const auto expect_after_paint = [&](int expected_faces, int expected_hands) {
        static_cast<void>(widget.grab()); // only the painting is wanted
        EXPECT_EQ(widget.faces, expected_faces);
        EXPECT_EQ(widget.hands, expected_hands);
    };
    widget.resize(200, 200);
    expect_after_paint(1, 1);
    widget.redraw_hands();
    expect_after_paint(1, 2);
    widget.redraw_all();
    expect_after_paint(2, 3);
    widget.resize(300, 250);
    expect_after_paint(3, 4);
    widget.setPalette(QPalette(Qt::black));
    expect_after_paint(4, 5);
}

// Of any colour channel of any pixel; 255 where the sizes differ.
int largest_difference(const QImage& one, const QImage& other) {
    int largest = one.size() == other.size() ? 0 : 255;
    for (int y = 0; largest < 255 && y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            largest = std::max(
                {largest, std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
        }
    return largest;
}

TEST(InstrumentWidget, KeptHandPicturesLookLikePaintedHands) {
    CountedInstrument plain;
    CountedInstrument kept(nullptr, 2);
    for (auto* widget : {&plain, &kept}) {
        widget->resize(200, 200);
        widget->show(); // a hidden widget is told its size before every grab, which counts as a change
    }
    for (const std::size_t now : {0U, 1U, 0U, 1U}) {
        plain.position = kept.position = now;
        kept.redraw_hands();
        EXPECT_LE(largest_difference(kept.grab().toImage(), plain.grab().toImage()), 4);
    }
    kept.hands = 0;
    static_cast<void>(kept.grab()); // both positions are known by now
    EXPECT_EQ(kept.hands, 0);
}

TEST(InstrumentWidget, ShowsScreenReadersAPictureWithItsValue) {
    CountedInstrument widget;
    widget.setAccessibleName(QStringLiteral("Meter"));
    widget.set_value_text(QStringLiteral("12 ms fast"));
    const auto* accessible = QAccessible::queryAccessibleInterface(&widget);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Graphic);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Meter"));
    EXPECT_EQ(accessible->text(QAccessible::Description), QStringLiteral("12 ms fast"));
}

TEST(InstrumentWidget, MagnifiesLargeDials) {
    CountedInstrument widget;
    widget.resize(480, 480);
    static_cast<void>(widget.grab()); // only the painting is wanted
    EXPECT_EQ(widget.seen, (Rect{0, 0, 240, 240}));
}

} // namespace
} // namespace tickervantage
