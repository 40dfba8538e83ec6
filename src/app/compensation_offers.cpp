#include "app/compensation_offers.h"

#include "app/administration.h"
#include "app/alert_sheet.h"
#include "base/failure_codes.h"
#include "gui/laboratory/compensation_words.h"
#include "qt/in_words.h"
#include "qt/named_widget.h"
#include "roothelper/jobs/sensor_place.h"

#include <QCoreApplication>
#include <QLocale>
#include <QMessageBox>

#include <algorithm>
#include <utility>

namespace tickervantage {

/* TRANSLATOR compensation
   The questions about chronyd's compensation for the temperature: what it would gain, and whether it is installed. */
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(compensation)
};

constexpr double hour = 3600;

QString number(double value) {
    return QLocale().toString(value, 'g', 3);
}

QString paragraphs(const QStringList& texts) {
    return texts.join(QStringLiteral("\n\n"));
}

// Its own words, or why there is none.
QString words_of(const CompensationStudy& study) {
    QStringList texts;
    if (study.refused)
        texts << in_words(*study.refused);
    if (study.compensation)
        texts << gain_words(*study.compensation);
    return paragraphs(texts);
}

} // namespace

QString gain_words(const Compensation& compensation) {
    //: compensation: %1 and %2 are numbers
    const QString residual = Texts::tr("Within a day the frequency goes up and down by %1 ppm. On days that the "
                                       "compensation was not made of, %2 ppm of that would be left.")
                                 .arg(number(compensation.before), number(compensation.after));
    //: compensation: %1 to %3 are numbers such as 4.2
    const QString gain =
        Texts::tr("That is %1 times steadier (%2 to %3, with 95 % certainty).")
            .arg(number(compensation.gain), number(compensation.gain_low), number(compensation.gain_high));
    //: compensation: %1 and %2 are times such as 430 µs
    const QString holdover = Texts::tr("An hour without time sources: typically %1 off instead of %2.")
                                 .arg(in_words(quantity::seconds(error_after(hour, compensation.after))),
                                      in_words(quantity::seconds(error_after(hour, compensation.before))));
    return paragraphs({residual, gain, holdover});
}

CompensationOffers::CompensationOffers(CompensationOffersParts parts)
    : m_parts(parts), m_background(m_parts.main_thread) {}

void CompensationOffers::offer(QWidget* window, const ScatterMap& map, std::size_t most_points) {
    m_background.start_newest(
        m_parts.queue,
        [map = snapshot(map), path = m_parts.general.config, most_points] {
            auto installed = installed_compensation(path);
            auto choice = choose_compensation(samples_in_map(map), installed);
            const std::size_t needed = choice ? points_needed(*choice, most_points) : 0;
            return Offer{.choice = std::move(choice),
                         .installed = std::move(installed),
                         .most_points = most_points,
                         .points_needed = needed};
        },
        [this, window = QPointer(window)](Offer offer) { find_sensor(window, std::move(offer)); });
}

void CompensationOffers::find_sensor(QPointer<QWidget> window, Offer offer) {
    m_background.start_newest(
        m_parts.sensor_queue,
        [&sensors = m_parts.sensors, offer = std::move(offer)]() mutable {
            const std::string name = offer.choice ? offer.choice->sensor : std::string();
            offer.description = name;
            offer.place = failed(FailureCode::sensor_without_file, {name});
            for (const SensorReading& one : sensors.read())
                if (one.name == name) {
                    offer.description = one.description.empty() ? name : one.description;
                    offer.place = place_of_sensor(one.file, offer.description);
                }
            return std::move(offer);
        },
        [this, window = std::move(window)](const Offer& found) {
            if (window)
                ask(window, found);
        });
}

Alert CompensationOffers::question(const Offer& offer) const {
    //: compensation: last sentences of the question
    QString risk =
        Texts::tr("chronyd is restarted. If it does not run with the compensation, what there was comes back.");
    if (offer.installed)
        //: compensation: last sentence of the question
        risk += QLatin1Char(' ') + Texts::tr("The compensation that is installed now is replaced.");
    Alert alert{.identifier = "InstallCompensation",
                //: compensation: question, %1 is a sensor
                .message =
                    Texts::tr("Compensate for the temperature of %1?").arg(from_std(offer.description)).toStdString(),
                .informative = paragraphs({gain_words(*offer.choice->study.compensation), risk}).toStdString(),
                //: compensation: button
                .buttons = {Texts::tr("Install").toStdString()},
                .kind = AlertKind::question};
    if (offer.installed)
        //: compensation: button, removes the installed compensation
        alert.buttons.push_back(Texts::tr("Take Back").toStdString());
    //: compensation: button
    alert.buttons.push_back(Texts::tr("Cancel").toStdString());
    return alert;
}

// Why there is nothing to be installed, and what there is to be taken back.
Alert CompensationOffers::refusal(const Offer& offer) const {
    QStringList texts;
    if (!offer.choice)
        //: compensation: where there is nothing to work with
        texts << Texts::tr("No point of the sensors shown says when it was read. Keep this window open for some days, "
                           "with chronyd running.");
    else
        texts << words_of(offer.choice->study);
    if (offer.points_needed > 0)
        texts << few_points_words(offer.most_points, offer.points_needed);
    const bool is_good = offer.choice && !offer.choice->study.refused;
    if (is_good && m_parts.administration == nullptr)
        //: compensation: in a demonstration
        texts << Texts::tr("A demonstration leaves the system as it is, so nothing can be installed.");
    else if (is_good)
        texts << in_words(offer.place.error());
    Alert alert{.identifier = "NoCompensation",
                //: compensation: alert
                .message = (is_good ? Texts::tr("A compensation would help, but cannot be installed here.")
                                    //: compensation: alert
                                    : Texts::tr("A compensation for the temperature is not advised."))
                               .toStdString(),
                .informative = paragraphs(texts).toStdString(),
                .kind = AlertKind::information};
    if (offer.points_needed > 0)
        alert.buttons.push_back(keep_points_words(offer.points_needed).toStdString());
    if (offer.installed && m_parts.administration != nullptr)
        alert.buttons.push_back(Texts::tr("Take Back").toStdString());
    //: compensation: button that closes the alert
    alert.buttons.push_back(Texts::tr("Dismiss").toStdString());
    return alert;
}

void CompensationOffers::ask(QWidget* window, const Offer& offer) {
    const bool can_install =
        offer.choice && !offer.choice->study.refused && offer.place && m_parts.administration != nullptr;
    const Alert alert = can_install ? question(offer) : refusal(offer);
    const bool wants_points = !can_install && offer.points_needed > 0;
    const std::size_t take_back_button = can_install || wants_points ? 1 : 0;
    show_question(window, alert,
                  m_background.if_alive([this, window = QPointer(window), offer, can_install, wants_points,
                                         take_back_button, last = alert.buttons.size() - 1](std::size_t button) {
                      if (button == last)
                          return;
                      if (button == take_back_button && offer.installed)
                          take_back(window);
                      else if (wants_points)
                          Q_EMIT more_points_requested(offer.points_needed);
                      else if (can_install)
                          install(window, offer);
                  }));
}

void CompensationOffers::ask_to_take_back(QWidget* window) {
    const Alert alert{.identifier = "TakeBackCompensation",
                      //: compensation: question
                      .message = Texts::tr("Take back the compensation for the temperature?").toStdString(),
                      //: compensation: second sentence of that question
                      .informative =
                          Texts::tr("chronyd is restarted without it. The points of the window stay, so that "
                                    "it can be installed again.")
                              .toStdString(),
                      .buttons = {Texts::tr("Take Back").toStdString(), Texts::tr("Cancel").toStdString()},
                      .kind = AlertKind::question};
    if (m_parts.administration != nullptr)
        show_question(window, alert, m_background.if_alive([this, window = QPointer(window)](std::size_t button) {
            if (button == 0)
                take_back(window);
        }));
}

void CompensationOffers::install(const QPointer<QWidget>& window, const Offer& offer) {
    constexpr double unit = 1000; // the kernel's: thousandths of a degree
    const std::string points = points_text(points_of(*offer.choice->study.compensation, unit));
    m_parts.administration->run({.job = AdminJob::install_tempcomp,
                                 .compensation = {.points = points, .name = offer.description, .sensor = *offer.place}},
                                m_background.if_alive([this, window](const JobResult& result) {
                                    //: compensation: after it was installed
                                    tell(window, result.outcome,
                                         Texts::tr("chronyd compensates for the temperature now. The Laboratory window "
                                                   "shows after a day what that gained."));
                                }));
}

void CompensationOffers::take_back(const QPointer<QWidget>& window) {
    m_parts.administration->run(
        {.job = AdminJob::remove_tempcomp}, m_background.if_alive([this, window](const JobResult& result) {
            //: compensation: after it was taken back
            tell(window, result.outcome, Texts::tr("chronyd runs without a compensation for the temperature now."));
        }));
}

void CompensationOffers::tell(const QPointer<QWidget>& window, const Result<>& outcome, const QString& success) {
    Q_EMIT changed();
    if (!window || (!outcome && !is_untold_failure(outcome)))
        return;
    auto* box =
        new QMessageBox(outcome ? QMessageBox::Information : QMessageBox::Warning, QStringLiteral("Tickervantage"),
                        outcome ? success : in_words(outcome.error()), QMessageBox::Ok, window);
    box->setObjectName(QStringLiteral("CompensationEnded"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace tickervantage
