// The main thread of a Qt program: work runs from its event loop.
#pragma once

#include "platform/dispatch.h"

#include <QObject>

namespace tickervantage {

class QtMainThread : public MainThread {
public:
    void main_async(Work work) override;

private:
    QObject m_receiver; // lives on the thread that made it; work still waiting dies with it
};

} // namespace tickervantage
