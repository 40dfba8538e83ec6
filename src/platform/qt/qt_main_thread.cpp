#include "platform/qt/qt_main_thread.h"

#include <utility>

namespace tickervantage {

void QtMainThread::main_async(Work work) {
    QMetaObject::invokeMethod(&m_receiver, std::move(work), Qt::QueuedConnection);
}

} // namespace tickervantage
