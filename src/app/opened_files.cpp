#include "app/opened_files.h"

#include "chrony/log/log_pieces.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <array>

namespace tickervantage {
namespace {

bool is_named_as_configuration(const QString& path) {
    return path.endsWith(QLatin1String(".conf")) || path.endsWith(QLatin1String(".sources"));
}

// What cannot be read says so in its window. The text of a compressed file is not at hand here, and only logs are.
bool is_log(FollowedFiles& files, const QString& path) {
    std::unique_ptr<FollowedFile> file;
    FileStatus status;
    std::optional<Failure> reason;
    std::array<char, 512> start{};
    std::size_t count = 0;
    if (files.open(path.toStdString(), file, status, reason) != 0 || file->read(0, start, count, reason) != 0 ||
        count == 0)
        return !is_named_as_configuration(path);
    return begins_as_log({start.data(), count});
}

QStringList local_files(const QMimeData& data) {
    QStringList paths;
    for (const auto& url : data.urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    return paths;
}

} // namespace

OpenedFiles::OpenedFiles(FollowedFiles& files, DispatchQueueSerial& queue, MainThread& main_thread)
    : m_files(files), m_queue(queue), m_background(main_thread) {
    QCoreApplication::instance()->installEventFilter(this);
}

void OpenedFiles::open(const QStringList& paths) {
    for (const auto& path : paths)
        m_background.start(
            m_queue, [&files = m_files, path] { return is_log(files, path); },
            [this, path](bool log) { log ? log_given(path) : configuration_given(path); });
}

bool OpenedFiles::eventFilter(QObject* receiver, QEvent* event) {
    const auto type = event->type();
    const bool is_drop = type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
    if ((!is_drop && type != QEvent::Polish) || !receiver->isWidgetType())
        return QObject::eventFilter(receiver, event);
    auto* window = static_cast<QWidget*>(receiver);
    if (window->windowType() != Qt::Window || window->property("takes_files").toBool()) // and knows better
        return QObject::eventFilter(receiver, event);
    if (type == QEvent::Polish) {
        window->setAcceptDrops(true);
        return QObject::eventFilter(receiver, event);
    }
    auto* drop = static_cast<QDropEvent*>(event);
    const QStringList paths = local_files(*drop->mimeData());
    if (paths.isEmpty())
        return QObject::eventFilter(receiver, event);
    drop->setDropAction(Qt::CopyAction); // the file stays where it is
    drop->accept();
    if (type == QEvent::Drop)
        open(paths);
    return true;
}

} // namespace tickervantage
