#include "gui/preferences/preferences_advanced.h"

#include "gui/common/words.h"

#include <QCheckBox>
#include <QVBoxLayout>

namespace tickervantage {
namespace {

QCheckBox* add_box(QVBoxLayout* column, const char* object_name, const QString& text, const QString& explanation) {
    QWidget* parent = column->parentWidget();
    auto* box = named(new QCheckBox(text, parent), object_name, QString(text).remove(QLatin1Char('&')), explanation);
    box->setAccessibleDescription(explanation);
    auto* words = new QLabel(explanation, parent);
    words->setWordWrap(true);
    words->setTextFormat(Qt::PlainText);
    constexpr int indent = 24;
    words->setIndent(indent);
    column->addWidget(box);
    column->addWidget(words);
    column->addSpacing(words->fontMetrics().height() / 2);
    return box;
}

} // namespace

PreferencesAdvancedPane::PreferencesAdvancedPane(const PreferencesParts& parts, QWidget* parent)
    : QWidget(parent), m_parts(parts) {
    setObjectName(QStringLiteral("PreferencesAdvanced"));
    auto* column = new QVBoxLayout(this);
    //: Advanced preferences: check boxes, each with its explanation
    m_frequency = add_box(column, "m_frequency", tr("Offer the &frequency and temperature window"),
                          //: Advanced preferences: explanation of the frequency and temperature window
                          tr("How the clock's frequency follows the temperature of this machine's sensors."));
    m_spectrum = add_box(column, "m_spectrum",
                         //: Advanced preferences: check box
                         tr("Offer the &spectrum window"),
                         //: Advanced preferences: explanation of the spectrum window
                         tr("The spectrum of a tracking log: which periods its fluctuations have."));
    m_restart_gpsd = add_box(column, "m_restart_gpsd",
                             //: Advanced preferences: check box
                             tr("&Restart the GPS daemon together with chronyd"),
                             //: Advanced preferences: explanation of the restart of the GPS daemon
                             tr("For a reference clock that gpsd feeds: it finds chronyd again only when it starts."));
    column->addStretch(1);
    connect(m_restart_gpsd, &QCheckBox::clicked, this, [this] { restartGPSD(); });
    connect(m_frequency, &QCheckBox::clicked, this, [this] { enableFrequency(); });
    connect(m_spectrum, &QCheckBox::clicked, this, [this] { enableSpectrum(); });
}

QString PreferencesAdvancedPane::toolbarItemTitle() {
    //: preferences: name of a pane
    return tr("Advanced");
}

QIcon PreferencesAdvancedPane::toolbarItemIcon() {
    return QIcon::fromTheme(QStringLiteral("preferences-other"));
}

void PreferencesAdvancedPane::show_record() {
    m_restart_gpsd->setChecked(m_parts.advanced.restart_gpsd);
    m_frequency->setChecked(m_parts.advanced.frequency);
    m_spectrum->setChecked(m_parts.advanced.spectrum);
}

void PreferencesAdvancedPane::take(bool& value, const QCheckBox* box) {
    value = box->isChecked();
    m_parts.advanced.save(m_parts.settings);
    Q_EMIT changed();
}

void PreferencesAdvancedPane::restartGPSD() {
    take(m_parts.advanced.restart_gpsd, m_restart_gpsd);
}

void PreferencesAdvancedPane::enableFrequency() {
    take(m_parts.advanced.frequency, m_frequency);
}

void PreferencesAdvancedPane::enableSpectrum() {
    take(m_parts.advanced.spectrum, m_spectrum);
}

} // namespace tickervantage
