#include "gui/administration/synchronize_window.h"

#include "gui/common/words.h"
#include "qt/in_words.h"
#include "qt/text_scale.h"
#include "settings/settings_catalogue.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace tickervantage {

Synchronize::Synchronize(DefaultSettings& settings, QWidget* parent) : QDialog(parent), m_settings(settings) {
    setObjectName(QStringLiteral("Synchronize"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    //: synchronise window: title
    setWindowTitle(tr("Synchronise Now"));
    build();
    connect(m_sync, &QPushButton::clicked, this, [this] { synchronize(); });
    connect(m_close, &QPushButton::clicked, this, [this] { cancelSync(); });
    connect(m_server, &QLineEdit::textChanged, this, [this] { update_button(); });
}

void Synchronize::build_options() {
    //: synchronise window: name of the field, and its tooltip
    m_server = named(new QLineEdit(this), "m_server", tr("Server"),
                     //: synchronise window: tooltip of the server
                     tr("The NTP server that sets the clock"));
    ph_timeout = new QWidget(this);
    ph_timeout->setObjectName(QStringLiteral("ph_timeout"));
    //: synchronise window: name of the number field, and its tooltip
    m_timeout = named(new QSpinBox(ph_timeout), "m_timeout", tr("Time-out"),
                      //: synchronise window: tooltip of the time-out
                      tr("Seconds after which chronyd gives up"));
    m_timeout->setRange(static_cast<int>(settings::sync_timeout.minimum),
                        static_cast<int>(settings::sync_timeout.maximum));
    //: synchronise window: unit behind the number of seconds
    m_timeout->setSuffix(tr(" s"));
    auto* inside = new QHBoxLayout(ph_timeout);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(m_timeout);
    inside->addStretch(1);
    m_restart_chronyd =
        //: synchronise window: check box, and its tooltip
        named(new QCheckBox(tr("&Restart chronyd afterwards"), this), "m_restart_chronyd",
              //: synchronise window: name of that check box
              tr("Restart chronyd afterwards"),
              //: synchronise window: tooltip of that check box
              tr("Off: the clock runs on its own from then on"));
}

void Synchronize::build_output() {
    //: synchronise window: name of the text that chronyd printed
    m_output = named(new QPlainTextEdit(this), "m_output", tr("Output"), QString());
    m_output->setReadOnly(true);
    //: one-time synchronisation: in place of chronyd's words, before there are any
    m_output->setPlaceholderText(tr("chronyd is stopped, asks this server, and sets the clock at once.\n"
                                    "What it says meanwhile appears here."));
    m_output->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_output->setLineWrapMode(QPlainTextEdit::NoWrap);
    constexpr int columns = 70;
    constexpr int lines = 10;
    m_output->setMinimumHeight(m_output->fontMetrics().lineSpacing() * lines / 2);
    m_output->resize(m_output->fontMetrics().averageCharWidth() * columns,
                     m_output->fontMetrics().lineSpacing() * lines);
    //: synchronise window: name of the bar that moves meanwhile
    m_busy = named(new QProgressBar(this), "m_busy", tr("Synchronising"), QString());
    m_busy->setTextVisible(false);
    m_busy_msg = words_below(this, "m_busy_msg", 1);
    m_words = words_below(this, "words", 1);
}

void Synchronize::build() {
    build_options();
    build_output();
    //: synchronise window: button, and its tooltip
    m_sync = named(new QPushButton(tr("&Synchronise"), this), "m_sync",
                   //: synchronise window: name of the button
                   tr("Synchronise"),
                   //: synchronise window: tooltip of the button
                   tr("Stop chronyd and set the clock from this server"));
    //: synchronise window: button
    m_close = named(new QPushButton(tr("Close"), this), "cancelSync", tr("Close"), QString());
    m_close->setAutoDefault(false);
    m_sync->setDefault(true);
    auto* form = new QFormLayout;
    //: synchronise window: labels
    form->addRow(tr("S&erver:"), m_server);
    auto* timeout_title = new QLabel(
        //: synchronise window: label of the number of seconds
        tr("&Give up after:"), this);
    timeout_title->setBuddy(m_timeout);
    form->addRow(timeout_title, ph_timeout);
    form->addRow(QString(), m_restart_chronyd);
    auto* busy_row = new QHBoxLayout;
    busy_row->addWidget(m_busy_msg, 1);
    busy_row->addWidget(m_words, 1);
    constexpr int bar_width = 120;
    m_busy->setFixedWidth(scaled(bar_width, *this));
    QSizePolicy policy = m_busy->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_busy->setSizePolicy(policy);
    busy_row->addWidget(m_busy);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_close);
    buttons->addWidget(m_sync);
    auto* column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(m_output, 1);
    column->addLayout(busy_row);
    column->addLayout(buttons);
    constexpr QSize usual(560, 380);
    resize(scaled(usual, *this));
}

void Synchronize::windowDidLoad() {
    m_server->setText(from_std(load(m_settings, settings::sync_ntp_server)));
    m_timeout->setValue(static_cast<int>(load(m_settings, settings::sync_timeout)));
    m_restart_chronyd->setChecked(load(m_settings, settings::sync_restart_chronyd));
    set_busy(false);
}

void Synchronize::set_busy(bool busy) {
    m_is_busy = busy;
    m_restart_chronyd->setEnabled(!busy);
    m_busy->setRange(0, busy ? 0 : 1); // without a range it moves
    m_busy->setVisible(busy);
    m_busy_msg->setVisible(busy);
    m_words->setVisible(!busy);
    update_button();
}

void Synchronize::update_button() {
    const bool fits = is_server_name(m_server->text().trimmed().toStdString());
    m_sync->setEnabled(!m_is_busy && fits);
    //: synchronise window: said while the field holds no server's name
    m_words->setText(fits ? QString() : tr("A server has a name or an address, without quotes or signs."));
    set_alarmed(m_words, !fits);
}

void Synchronize::synchronize() {
    const Synchronisation what{m_server->text().trimmed().toStdString(), m_timeout->value(),
                               m_restart_chronyd->isChecked()};
    save(m_settings, settings::sync_ntp_server, what.server);
    save(m_settings, settings::sync_timeout, what.timeout_seconds);
    save(m_settings, settings::sync_restart_chronyd, what.restart_chronyd);
    m_output->clear();
    set_busy(true);
    //: synchronise window: said meanwhile; %1 is a number
    m_busy_msg->setText(tr("Synchronising; this may take %1 s…").arg(what.timeout_seconds));
    Q_EMIT wanted(what);
}

void Synchronize::show_result(const JobResult& result) {
    set_busy(false);
    m_output->setPlainText(from_std(result.output));
    if (result.outcome)
        return;
    m_words->setText(in_words(result.outcome.error()));
    set_alarmed(m_words, true);
}

void Synchronize::cancelSync() {
    close();
}

} // namespace tickervantage
