#include "gui/common/desktop_links.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace tickervantage {

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

} // namespace tickervantage
