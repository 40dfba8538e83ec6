#include "app/history_offer.h"

#include "qt/in_words.h"

#include <QCoreApplication>

#include <utility>

namespace tickervantage {

/* TRANSLATOR historyoffer
   An offer in the main window: a service may keep the history of the clock while the window is closed. */
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(historyoffer)
};

constexpr const char* identifier = "KeepHistoryOffer";
constexpr double first_look = 180; // s: whoever starts the program came for something else
const QString keep_link = QStringLiteral("keep-history");
const QString decline_link = QStringLiteral("no-history");

QString offer_text() {
    return
        //: main window, banner: an offer; %1 and %2 are links, the next two texts
        Texts::tr(
            "This program remembers how your clock was, as long as its window is open. Shall a small service go on "
            "with it while the window is closed? %1 · %2")
            .arg(QStringLiteral("<a href=\"%1\">%2</a>")
                     //: link in that offer
                     .arg(keep_link, Texts::tr("Yes, keep a history")),
                 QStringLiteral("<a href=\"%1\">%2</a>")
                     //: link in that offer
                     .arg(decline_link, Texts::tr("No, thank you")));
}

} // namespace

HistoryOffer::HistoryOffer(HistoryOfferParts parts)
    : m_parts(std::move(parts)), m_patience(m_parts.timer.make_repeater("historyoffer", Pace::free)),
      m_background(m_parts.main_thread) {
    if (!m_parts.warnings.contains(identifier))
        m_patience->start(first_look, [this] { look(); });
}

void HistoryOffer::look() {
    m_patience->stop();
    m_background.start(
        m_parts.queue, [service = m_parts.service] { return service->is_on(); },
        [this](const Result<bool>& is_on) {
            if (!is_on || *is_on)
                return; // where it cannot be had now, another start may find it
            m_parts.warnings.register_warning(identifier);
            Q_EMIT offered(offer_text());
        });
}

void HistoryOffer::follow(const QString& link) {
    if (link != keep_link && link != decline_link)
        return;
    Q_EMIT offered({});
    if (link == decline_link)
        return;
    m_background.start(
        m_parts.queue, [service = m_parts.service] { return service->turn(true); },
        [this](const Result<>& done) {
            if (!done)
                Q_EMIT complained(in_words(done.error()));
        });
}

} // namespace tickervantage
