#include "gui/common/desktop_links.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

#include <unistd.h>

#include <csignal>

namespace tickervantage {
namespace {

// In the user's folder, or else in the system's; empty: none.
QString desktop_file_of(const QString& id) {
    return QStandardPaths::locate(QStandardPaths::ApplicationsLocation, id + QStringLiteral(".desktop"));
}

// In the child: system calls only. The signals that we read from a descriptor are blocked, and it would inherit that.
void leave_our_session() {
    (void)setsid();
    sigset_t none;
    sigemptyset(&none);
    (void)sigprocmask(SIG_SETMASK, &none, nullptr); // NOLINT(concurrency-mt-unsafe): one thread after fork
}

} // namespace

bool show_file(const QString& path) {
    return QFileInfo(path).isFile() && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool reveal_folder(const QString& path) {
    return QFileInfo(path).isDir() && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool open_page(const QString& address) {
    const QUrl url(address, QUrl::StrictMode);
    return url.isValid() && !url.isRelative() && QDesktopServices::openUrl(url);
}

bool has_application(const QString& id) {
    const QString file = desktop_file_of(id);
    if (file.isEmpty())
        return false;
    const QSettings entry(file, QSettings::IniFormat);
    const QString needed = entry.value(QStringLiteral("Desktop Entry/TryExec")).toString();
    return !entry.value(QStringLiteral("Desktop Entry/Hidden")).toBool() &&
           (needed.isEmpty() || !QStandardPaths::findExecutable(needed).isEmpty());
}

void launch_application(const QString& id, const QObject* context, const std::function<void()>& failed) {
    auto* gio = new QProcess(qApp); // it starts the application and ends
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("TMPDIR"));
    gio->setProcessEnvironment(environment);
    gio->setStandardInputFile(QProcess::nullDevice());
    gio->setStandardOutputFile(QProcess::nullDevice());
    gio->setStandardErrorFile(QProcess::nullDevice());
    gio->setChildProcessModifier(leave_our_session);
    QObject::connect(gio, &QProcess::finished, context, [failed](int status) {
        if (status != 0)
            failed();
    });
    QObject::connect(gio, &QProcess::errorOccurred, context, [failed](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            failed();
    });
    QObject::connect(gio, &QProcess::finished, gio, &QObject::deleteLater);
    QObject::connect(gio, &QProcess::errorOccurred, gio, &QObject::deleteLater);
    gio->start(QStringLiteral("gio"), {QStringLiteral("launch"), desktop_file_of(id)});
}

} // namespace tickervantage
