// Offers chronyd's temperature compensation, from points to an installed table and back: what it would gain or why not,
// a question, the job, and how that ended. Main thread only.
#pragma once

#include "base/background.h"
#include "base/sensors.h"
#include "settings/preferences.h"
#include "studies/laboratory/compensation_choice.h"

#include <QObject>
#include <QPointer>

#include <map>
#include <memory>
#include <optional>
#include <string>

class QWidget;

namespace tickervantage {

class Administration;
struct Alert;

// All of it outlives the object.
struct CompensationOffersParts {
    MainThread& main_thread;
    DispatchQueueSerial& queue;        // where it is worked out
    DispatchQueueSerial& sensor_queue; // where the sensors are read
    TemperatureSensors& sensors;
    const PreferencesGeneral& general;        // as they are now
    Administration* administration = nullptr; // null: nothing can be installed
};

class CompensationOffers : public QObject {
    Q_OBJECT

public:
    explicit CompensationOffers(CompensationOffersParts parts);

    // Works out what is best and asks, on a sheet of the window. `map` may hold sensors without points; of each no more
    // than `most_points` are kept.
    void offer(QWidget* window, const ScatterMap& map, std::size_t most_points);

    // Asks whether the installed one is to be taken back.
    void ask_to_take_back(QWidget* window);

Q_SIGNALS:
    void changed();                                // a compensation was installed or taken back
    void more_points_requested(std::size_t count); // are to be kept of each sensor

private:
    struct Offer {
        std::optional<CompensationChoice> choice;
        std::optional<InstalledCompensation> installed;
        std::size_t most_points = 0;
        std::size_t points_needed = 0;                         // 0: those are enough
        std::string description = {};                          // of the sensor
        Result<SensorPlace> place = tl::unexpected(Failure()); // of the sensor
    };
    void find_sensor(QPointer<QWidget> window, Offer offer);
    void ask(QWidget* window, const Offer& offer);
    void install(const QPointer<QWidget>& window, const Offer& offer);
    void take_back(const QPointer<QWidget>& window);
    void tell(const QPointer<QWidget>& window, const Result<>& outcome, const QString& success);
    [[nodiscard]] Alert question(const Offer& offer) const;
    [[nodiscard]] Alert refusal(const Offer& offer) const;

    CompensationOffersParts m_parts;
    Background m_background;
};

// What is known of a compensation's gain, in sentences of one line each.
[[nodiscard]] QString gain_words(const Compensation& compensation);

} // namespace tickervantage
