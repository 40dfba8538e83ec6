#include "qt/languages.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTranslator>

#include <algorithm>

namespace tickervantage {
namespace {

constexpr const char* own = "tickervantage";

int install(QCoreApplication& application, const QLocale& locale, const char* name, const QString& folder) {
    auto* translator = new QTranslator(&application);
    if (translator->load(locale, QLatin1String(name), QStringLiteral("_"), folder) &&
        QCoreApplication::installTranslator(translator))
        return 0;
    delete translator;
    return -1;
}

} // namespace

int install_translations(QCoreApplication& application, const QLocale& locale, const QString& folder) {
    if (install(application, locale, own, folder) != 0)
        return install(application, QLocale(QLocale::English), own, folder); // Qt's words would be in another language
    (void)install(application, locale, "qtbase", QLibraryInfo::path(QLibraryInfo::TranslationsPath)); // may be missing
    return 0;
}

std::string local_file(const std::string& path) {
    std::string local = path;
    const std::string language = QLocale().name().section(QLatin1Char('_'), 0, 0).toStdString();
    local.insert(std::min(local.rfind('.'), local.size()), "_" + language);
    return QFileInfo::exists(QString::fromStdString(local)) ? local : path;
}

} // namespace tickervantage
