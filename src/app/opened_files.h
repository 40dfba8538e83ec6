// Files that somebody drops on a window, or names when the program is started: a tracking log goes to a graph, anything
// else to the editor. What a file is, its first bytes tell. Main thread only.
#pragma once

#include "base/background.h"
#include "base/followed_file.h"

#include <QObject>
#include <QStringList>

namespace tickervantage {

class OpenedFiles : public QObject {
    Q_OBJECT
public:
    // All outlive the object, and the main thread outlives the queue, where the files are looked at.
    OpenedFiles(FollowedFiles& files, DispatchQueueSerial& queue, MainThread& main_thread);

    void open(const QStringList& paths);

Q_SIGNALS:
    void log_given(const QString& path);
    void configuration_given(const QString& path);

protected:
    // Sees each window before it is shown for the first time, and what is dropped where no control wants it.
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    FollowedFiles& m_files;
    DispatchQueueSerial& m_queue;
    Background m_background;
};

} // namespace tickervantage
