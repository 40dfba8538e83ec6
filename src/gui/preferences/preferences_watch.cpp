#include "gui/preferences/preferences_watch.h"

#include "chrony/data/live_capture.h"
#include "chrony/truth/newest_offsets.h"
#include "qt/in_words.h"
#include "qt/named_widget.h"
#include "settings/settings_catalogue.h"
#include "watch/alarm_words.h"
#include "watch/watch_settings.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <fstream>

namespace tickervantage {

/* TRANSLATOR tickervantage::PreferencesWatchPane
   Preferences, Watching: from which limits on the user is told that something is wrong with the clock. */
namespace {

constexpr double milliseconds = 1e-3;
constexpr double minutes = 60;

// Without zeros that tell nothing.
class LimitField : public QDoubleSpinBox {
public:
    using QDoubleSpinBox::QDoubleSpinBox;
    [[nodiscard]] QString textFromValue(double value) const override {
        return locale().toString(value, 'f', QLocale::FloatingPointShortest);
    }
};

// The tracking log that the configuration names, as a text; empty: there is none, or it may not be read.
std::string tracking_log_text(const std::string& configuration) {
    constexpr std::streamoff largest = std::streamoff{64} << 20U;
    const auto path = tracking_log_of(read_configuration(configuration));
    std::ifstream file(path.value_or(""), std::ios::binary | std::ios::ate);
    const std::streamoff size = file ? std::streamoff(file.tellg()) : 0;
    std::string text(static_cast<std::size_t>(std::clamp(size, std::streamoff{0}, largest)), '\0');
    file.seekg(size - static_cast<std::streamoff>(text.size())); // the newest part
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return text;
}

} // namespace

PreferencesWatchPane::PreferencesWatchPane(const PreferencesParts& parts, QWidget* parent)
    : QWidget(parent), m_parts(parts), m_counting(parts.main_thread) {
    setObjectName(QStringLiteral("PreferencesWatch"));
    //: Watching preferences: check box
    m_notify = named(new QCheckBox(tr("Tell me with a &notification when something is wrong"), this), "m_notify",
                     //: Watching preferences: name of that check box
                     tr("Tell me with a notification when something is wrong"));
    //: Watching preferences: check box
    m_tray = named(new QCheckBox(tr("Show an &icon in the tray, and go on when the window is closed"), this), "m_tray",
                   //: Watching preferences: name of that check box
                   tr("Show an icon in the tray, and go on when the window is closed"));
    m_log_words = new QLabel(this);
    m_log_words->setWordWrap(true);
    auto* grid = new QGridLayout;
    build_table(grid);
    auto* column = new QVBoxLayout(this);
    // The numbers stand at the right, where the pane's scroll bar would cover them.
    QMargins margins = column->contentsMargins();
    margins.setRight(margins.right() + style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    column->setContentsMargins(margins);
    column->addWidget(m_notify);
    column->addWidget(m_tray);
    column->addSpacing(fontMetrics().height() / 2);
    column->addLayout(grid);
    column->addWidget(m_log_words);
    column->addStretch(1);
    for (auto* box : {m_notify, m_tray})
        connect(box, &QCheckBox::clicked, this, &PreferencesWatchPane::take);
}

void PreferencesWatchPane::build_table(QGridLayout* grid) {
    //: Watching preferences: heading of the list of alarms
    grid->addWidget(new QLabel(tr("Alarm when"), this), 0, 0);
    //: Watching preferences: heading above the numbers of alarms that there would have been
    grid->addWidget(new QLabel(tr("Times in your log"), this), 0, 2, Qt::AlignRight);
    grid->setColumnStretch(0, 1);
    add_limit(grid, 1, WatchQuantity::available, QString(), 0);
    add_limit(grid, 2, WatchQuantity::no_majority, QString(), 0);
    //: Watching preferences: unit behind a number of minutes
    add_limit(grid, 3, WatchQuantity::holdover, tr(" min"), minutes);
    add_limit(grid, 4, WatchQuantity::bound, QStringLiteral(" ms"), milliseconds);
    add_limit(grid, 5, WatchQuantity::usable, QString(), 1);
    add_limit(grid, 6, WatchQuantity::step, QStringLiteral(" ms"), milliseconds);
}

void PreferencesWatchPane::add_limit(QGridLayout* grid, int row, WatchQuantity quantity, const QString& unit,
                                     double scale) {
    const QString title = in_words(rule_title(quantity));
    auto* label = new QLabel(title, this);
    grid->addWidget(label, row, 0);
    Limit limit{.scale = scale, .count = new QLabel(this)};
    limit.count->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    limit.count->setObjectName(QStringLiteral("count_") + QLatin1String(name_of(quantity).data()));
    grid->addWidget(limit.count, row, 2);
    if (scale > 0) {
        const bool is_count = quantity == WatchQuantity::usable;
        limit.field = named<QDoubleSpinBox>(new LimitField(this), "", title);
        limit.field->setObjectName(QStringLiteral("limit_") + QLatin1String(name_of(quantity).data()));
        limit.field->setDecimals(is_count || scale == minutes ? 0 : 3);
        limit.field->setRange(is_count || scale == minutes ? 1 : 0.001, is_count ? 9 : 1e6);
        limit.field->setSuffix(unit);
        limit.field->setKeyboardTracking(false);
        label->setBuddy(limit.field);
        grid->addWidget(limit.field, row, 1);
        connect(limit.field, &QDoubleSpinBox::valueChanged, this, &PreferencesWatchPane::take);
    }
    m_limits[quantity] = limit;
}

QString PreferencesWatchPane::toolbarItemTitle() {
    //: preferences: name of a pane
    return tr("Watching");
}

QIcon PreferencesWatchPane::toolbarItemIcon() {
    return QIcon::fromTheme(QStringLiteral("preferences-desktop-notification"),
                            QIcon::fromTheme(QStringLiteral("utilities-system-monitor")));
}

void PreferencesWatchPane::show_record() {
    m_notify->setChecked(load(m_parts.settings, settings::watch_notify));
    m_tray->setChecked(load(m_parts.settings, settings::watch_tray));
    const auto rules = watch_rules(load_thresholds(m_parts.settings));
    for (const WatchRule& rule : rules) {
        const Limit& limit = m_limits[rule.quantity];
        if (limit.field == nullptr)
            continue;
        const QSignalBlocker blocker(limit.field);
        limit.field->setValue(rule.raise / limit.scale);
    }
    count_in_log();
}

void PreferencesWatchPane::take() {
    const auto chosen = [this](WatchQuantity quantity) {
        return m_limits[quantity].field->value() * m_limits[quantity].scale;
    };
    save(m_parts.settings, settings::watch_notify, m_notify->isChecked());
    save(m_parts.settings, settings::watch_tray, m_tray->isChecked());
    save(m_parts.settings, WatchThresholds{.holdover = chosen(WatchQuantity::holdover),
                                           .bound = chosen(WatchQuantity::bound),
                                           .usable = chosen(WatchQuantity::usable),
                                           .step = chosen(WatchQuantity::step)});
    count_in_log();
    Q_EMIT changed();
}

// The disk is waited for, and a log may be large.
void PreferencesWatchPane::count_in_log() {
    m_counting.start_newest(
        m_parts.queue,
        [configuration = m_parts.general.config, rules = watch_rules(load_thresholds(m_parts.settings))] {
            return alarms_in_log(tracking_log_text(configuration), rules);
        },
        [this](const std::optional<LogAlarms>& alarms) { show_counts(alarms); });
}

void PreferencesWatchPane::show_counts(const std::optional<LogAlarms>& alarms) {
    for (const auto& [quantity, limit] : m_limits) {
        const auto count = alarms ? (*alarms)[quantity] : std::nullopt;
        limit.count->setText(count ? locale().toString(*count) : QStringLiteral("–"));
    }
    m_log_words->setText(
        //: Watching preferences: below the list of alarms; %1 is a span of time such as "3 d 4 h"
        alarms ? tr("Counted in your tracking log of %1. It does not know of the others.")
                     .arg(in_words(quantity::duration(alarms->seconds)))
               //: Watching preferences: below the list of alarms
               : tr("How often each would have been raised is counted in chrony's tracking log. There is none that you "
                    "may read: turn logging on in the main window, or in chrony.conf with “log tracking”."));
}

} // namespace tickervantage
