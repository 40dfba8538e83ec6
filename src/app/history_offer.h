// Offers once to keep a history also while the window is closed: in the window's banner, some minutes after the start,
// and only where it can be had and is not. Main thread.
#pragma once

#include "base/background.h"
#include "base/repeater.h"
#include "base/user_service.h"
#include "settings/warning_register.h"

#include <QObject>
#include <QString>

#include <memory>

namespace tickervantage {

struct HistoryOfferParts {
    std::shared_ptr<const UserService> service;
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    MasterTimer& timer;
    WarningRegister& warnings; // remembers that it was offered
};

class HistoryOffer : public QObject {
    Q_OBJECT
public:
    explicit HistoryOffer(HistoryOfferParts parts);

    // The links of what was offered; others are passed over.
    void follow(const QString& link);

Q_SIGNALS:
    void offered(const QString& text); // to be shown without holding anybody up; empty: no more
    void complained(const QString& words);

private:
    void look();

    HistoryOfferParts m_parts;
    std::unique_ptr<Repeater> m_patience;
    Background m_background;
};

} // namespace tickervantage
