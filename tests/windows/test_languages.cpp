// The German translation, as built: it loads, and says what the sources say.
#include "base/failure_codes.h"
#include "qt/in_words.h"
#include "qt/languages.h"
#include "support/keyboard.h"
#include "support/real_application.h"
#include "support/test.h"

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

// German for some failures, as a file of translations would have it.
class SomeGerman : public QTranslator {
public:
    SomeGerman() { QCoreApplication::installTranslator(this); }
    ~SomeGerman() override { QCoreApplication::removeTranslator(this); }

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* context, const char* source, const char*, int) const override {
        static const std::map<std::string, const char*> german{
            {words_of(FailureCode::cannot_write), "%1 kann nicht geschrieben werden: %c."},
            {words_of(FailureCode::configuration_not_installed), "Die Konfiguration wurde nicht installiert: %c."},
            {words_of(FailureCode::chronyd_ended_saying), "chronyd endete bald nach dem Start: %1."},
            {words_of(FailureCode::former_is_back), "Die frühere Konfiguration ist wieder da."},
            {words_of(FailureCode::is_larger_than), "sie ist größer als %1 Byte"}};
        const auto found = german.find(source);
        return std::string_view(context) == "failures" && found != german.end() ? QString::fromUtf8(found->second)
                                                                                : QString();
    }
};

TEST(Languages, FailuresArePutTogetherFromTheirTranslatedParts) {
    const auto made = [](tl::unexpected<Failure> failure) {
        return std::move(failure).value();
    };
    const Failure full = made(failed(FailureCode::cannot_write, {"/a b/%1"}, ENOSPC));
    const struct {
        Failure failure;
        const char* english;
        const char* german;
    } cases[] = {
        {made(failed(FailureCode::configuration_not_installed, {}, full)),
         "The configuration was not installed: Cannot write /a b/%1: No space left on device.",
         "Die Konfiguration wurde nicht installiert: /a b/%1 kann nicht geschrieben werden: No space left on device."},
        {made(failed(FailureCode::configuration_not_installed)), "The configuration was not installed.",
         "Die Konfiguration wurde nicht installiert."},
        {made(failed(FailureCode::configuration_not_installed, {}, said_by_others("Invalid command."))),
         "The configuration was not installed: Invalid command.",
         "Die Konfiguration wurde nicht installiert: Invalid command."},
        {made(failed(FailureCode::chronyd_ended_saying, {"No /dev/pps9"}, {.code = FailureCode::former_is_back})),
         "chronyd ended soon after it was started with this configuration: No /dev/pps9. "
         "The former configuration is back, and chronyd runs with it again.",
         "chronyd endete bald nach dem Start: No /dev/pps9. Die frühere Konfiguration ist wieder da."},
        {made(failed(FailureCode::cannot_write, {"c"}, made(failed(FailureCode::is_larger_than, {"9"})))),
         "Cannot write c: it is larger than 9 bytes.", "c kann nicht geschrieben werden: sie ist größer als 9 Byte."},
        {said_by_others("506 Cannot talk to daemon"), "506 Cannot talk to daemon", "506 Cannot talk to daemon"}};
    for (const auto& [failure, english_words, german_words] : cases) {
        EXPECT_EQ(english(failure), english_words);
        EXPECT_EQ(in_words(failure).toStdString(), english_words);
        const SomeGerman german;
        EXPECT_EQ(in_words(failure).toStdString(), german_words);
        EXPECT_EQ(english(failure), english_words) << "logs and the command line stay English";
    }
}

std::multiset<QString> placeholders(const QString& text) {
    std::multiset<QString> found;
    for (qsizetype i = 0; i + 1 < text.size(); ++i)
        if (text[i] == QLatin1Char('%') && (text[i + 1].isDigit() || QLatin1String("nc").contains(text[i + 1])))
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
    has_administration = true;
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
