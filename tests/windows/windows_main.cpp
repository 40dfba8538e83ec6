// Windows are tested without a screen and with one font, whatever the machine has. TEST_FONTS in the environment names
// another file of fontconfig.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir runtime; // Qt wants a folder of its own, and the machine may have none
    qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    const bool usual = !qEnvironmentVariableIsSet("TEST_FONTS");
    qputenv("FONTCONFIG_FILE", usual ? QByteArray(USUAL_TEST_FONTS) : qgetenv("TEST_FONTS"));
    const QApplication application(argc, argv);
    const auto family = QFontInfo(QApplication::font()).family();
    if (usual && family != QLatin1String("DejaVu Sans")) {
        std::fprintf(stderr, "The windows' tests need the font DejaVu Sans and have got \"%s\".\n", qPrintable(family));
        return 2;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
