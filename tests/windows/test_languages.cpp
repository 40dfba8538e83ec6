// The German translation, as built: it loads, and says what the sources say.
#include "qt/languages.h"
#include "qt/spoken.h"
#include "support/keyboard.h"
#include "support/real_application.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QTranslator>
#include <QXmlStreamReader>

#include <set>

namespace tickervantage {
namespace {

// Everything that an installation put on the application goes with this, so that other tests stay English.
class InLanguage {
public:
    explicit InLanguage(const char* locale) {
        m_result = install_translations(*qApp, QLocale(QLatin1String(locale)), QStringLiteral(TRANSLATIONS));
    }
    ~InLanguage() { qDeleteAll(qApp->findChildren<QTranslator*>()); }
    InLanguage(const InLanguage&) = delete;
    InLanguage& operator=(const InLanguage&) = delete;

    [[nodiscard]] int result() const { return m_result; }

private:
    int m_result = 0;
};

QString hours(int count) {
    return QCoreApplication::translate("tracking", "%n hour(s)", nullptr, count);
}

TEST(Languages, TellSingularFromPluralInGermanAndInEverythingElse) {
    const struct {
        const char* locale;
        QString one;
        QString twelve;
    } cases[] = {{"de_DE", QStringLiteral("1 Stunde"), QStringLiteral("12 Stunden")},
                 {"de_AT", QStringLiteral("1 Stunde"), QStringLiteral("12 Stunden")},
                 {"fr_FR", QStringLiteral("1 hour"), QStringLiteral("12 hours")},
                 {"C", QStringLiteral("1 hour"), QStringLiteral("12 hours")}};
    for (const auto& expected : cases) {
        const InLanguage language(expected.locale);
        EXPECT_EQ(language.result(), 0) << expected.locale;
        EXPECT_EQ(hours(1), expected.one);
        EXPECT_EQ(hours(12), expected.twelve);
    }
}

TEST(Languages, SentencesOfTheLogicKeepWhatStandsInThem) {
    const struct {
        const char* said;
        const char* shown;
    } cases[] = {
        {"The root helper was not installed.", "Der Root-Helfer wurde nicht installiert."},
        {"Cannot write /a b/c: No space left on device.",
         "/a b/c kann nicht geschrieben werden: No space left on device."},
        // a sentence in a sentence, and the more exact of two that fit
        {"The root helper was not installed: /usr/bin/pkexec cannot be started: No such file or directory.",
         "Der Root-Helfer wurde nicht installiert: /usr/bin/pkexec kann nicht gestartet werden: No such file or "
         "directory."},
        {"hwclockfile: /etc/adjtime does not exist.", "hwclockfile: /etc/adjtime gibt es nicht."},
        {"Cannot read /x: it is a folder.", "/x kann nicht gelesen werden: es ist ein Ordner."},
        {"506 Cannot talk to daemon", "506 Cannot talk to daemon"},
        {"", ""},
    };
    for (const auto& [said, shown] : cases) {
        EXPECT_EQ(spoken(said).toStdString(), said);
        const InLanguage german("de_DE");
        EXPECT_EQ(spoken(said).toStdString(), shown);
    }
}

std::multiset<QString> placeholders(const QString& text) {
    std::multiset<QString> found;
    for (qsizetype i = 0; i + 1 < text.size(); ++i)
        if (text[i] == QLatin1Char('%') && (text[i + 1].isDigit() || text[i + 1] == QLatin1Char('n')))
            found.insert(text.mid(i, 2));
    return found;
}

// One letter after an ampersand; a text that has one in English must be reached by a key in German as well.
bool has_key(const QString& text) {
    return QString(text).remove(QLatin1String("&&")).contains(QLatin1Char('&'));
}

TEST(Languages, GermanKeepsPlaceholdersKeysAndBlanksAtTheEnds) {
    QFile file(QStringLiteral(TRANSLATION_SOURCES "/tickervantage_de.ts"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&file);
    QString source;
    int checked = 0;
    bool counts = false; // its translations come one by one, for one and for many
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("message"))
            counts = reader.attributes().hasAttribute(QLatin1String("numerus"));
        else if (reader.name() == QLatin1String("source"))
            source = reader.readElementText();
        else if (reader.name() == QLatin1String(counts ? "numerusform" : "translation") && !source.isEmpty()) {
            const QString german = reader.readElementText();
            EXPECT_EQ(placeholders(german), placeholders(source)) << german.toStdString();
            EXPECT_EQ(has_key(german), has_key(source)) << german.toStdString();
            EXPECT_EQ(german.startsWith(QLatin1Char(' ')), source.startsWith(QLatin1Char(' '))) << source.toStdString();
            EXPECT_EQ(german.endsWith(QLatin1Char(' ')), source.endsWith(QLatin1Char(' '))) << source.toStdString();
            ++checked;
        }
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    EXPECT_GT(checked, 600);
}

// Letters that are free in English are not so in German.
using GermanApplication = testing::RealApplication;

TEST_F(GermanApplication, NoKeyReachesTwoThings) {
    const InLanguage german("de_DE");
    administration = machine();
    administration->probes.file_names = [](const std::string&) {
        return std::vector<std::string>();
    };
    launch();
    settle();
    for (const char* name : {"showPreferences", "showServers", "liveTracking", "showSpectrum", "showFreqTemp",
                             "formerConfigurations", "newConfiguration"}) {
        item(name)->trigger();
        settle();
    }
    int windows = 0;
    for (const auto* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || window->windowType() == Qt::Popup)
            continue;
        ++windows;
        const auto name = testing::name_of(window);
        EXPECT_EQ(testing::clashes(testing::mnemonic_texts(*window)), std::vector<std::string>()) << name;
        for (const auto* menu : window->findChildren<QMenu*>())
            EXPECT_EQ(testing::clashes(testing::texts_of(*menu)), std::vector<std::string>()) << name;
    }
    EXPECT_GE(windows, 8);
}

} // namespace
} // namespace tickervantage
