#include "gui/main/hosts_dialog.h"

#include "qt/named_widget.h"
#include "roothelper/jobs/synchronize.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tickervantage {

/* TRANSLATOR tickervantage::HostsDialog
   the window with the other machines whose clocks the main window can show. */

bool is_daemon_host(const QString& text) {
    constexpr qsizetype longest_socket = 107; // unix(7)
    const auto is_plain = [](QChar one) {
        return one.isPrint() && one != QLatin1Char(',');
    };
    if (text.startsWith(QLatin1Char('/')))
        return text.size() > 1 && text.toUtf8().size() <= longest_socket && std::ranges::all_of(text, is_plain);
    return !text.contains(QLatin1Char(' ')) && is_server_name(text.toStdString());
}

HostsDialog::HostsDialog(const QStringList& hosts, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("HostsDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    //: other machines: title of the window
    setWindowTitle(tr("Other Machines"));
    build(hosts);
    connect_controls();
    show_state();
}

void HostsDialog::build(const QStringList& hosts) {
    //: other machines: what the window is for
    auto* purpose =
        new QLabel(tr("The main window can show the clocks of other machines, as their chronyd tells it to "
                      "everybody. There, chrony.conf needs the directives bindcmdaddress and cmdallow, with "
                      "this machine's address; UDP port 323 has to be open between the two."),
                   this);
    purpose->setObjectName(QStringLiteral("purpose"));
    purpose->setWordWrap(true);
    //: other machines: label of the list
    auto* label = new QLabel(tr("&Machines:"), this);
    //: other machines: name of the list
    m_hosts = named(new QListWidget(this), "hosts", tr("Machines"),
                    //: other machines: tooltip of the list
                    tr("They stand in the menu Daemon; a double click shows the clock of one"));
    m_hosts->addItems(hosts);
    label->setBuddy(m_hosts);
    //: other machines: label of the field
    auto* name_label = new QLabel(tr("&Name or address:"), this);
    //: other machines: name of the field
    m_name = named(new QLineEdit(this), "host_name", tr("Name or address"),
                   //: other machines: tooltip of the field
                   tr("Such as time.example.org, 192.0.2.1 or 2001:db8::1; also the path of a chronyd's socket"));
    name_label->setBuddy(m_name);
    //: other machines: button
    m_add = named(new QPushButton(tr("&Add"), this), "add_host", tr("Add"));
    //: other machines: button
    m_remove = named(new QPushButton(tr("&Remove"), this), "remove_host", tr("Remove"));
    //: other machines: button
    m_show = named(new QPushButton(tr("&Show Its Clock"), this), "show_host", tr("Show its clock"));
    //: other machines: button
    m_close = named(new QPushButton(tr("&Close"), this), "close_hosts", tr("Close"));
    m_words = new QLabel(this);
    m_words->setObjectName(QStringLiteral("words"));
    m_words->setWordWrap(true);
    auto* typed = new QHBoxLayout;
    for (QWidget* one : std::initializer_list<QWidget*>{name_label, m_name, m_add})
        typed->addWidget(one);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_remove);
    buttons->addStretch(1);
    buttons->addWidget(m_show);
    buttons->addWidget(m_close);
    auto* column = new QVBoxLayout(this);
    for (QWidget* one : std::initializer_list<QWidget*>{purpose, label, m_hosts})
        column->addWidget(one);
    column->addLayout(typed);
    column->addWidget(m_words);
    column->addLayout(buttons);
    m_name->setFocus();
}

void HostsDialog::connect_controls() {
    for (auto* button : {m_remove, m_show, m_close})
        button->setAutoDefault(false); // Return in the field adds
    connect(m_name, &QLineEdit::textChanged, this, &HostsDialog::show_state);
    connect(m_add, &QPushButton::clicked, this, &HostsDialog::add);
    connect(m_remove, &QPushButton::clicked, this, &HostsDialog::remove);
    connect(m_show, &QPushButton::clicked, this, &HostsDialog::choose);
    connect(m_close, &QPushButton::clicked, this, &QWidget::close);
    connect(m_hosts, &QListWidget::itemActivated, this, &HostsDialog::choose);
    connect(m_hosts, &QListWidget::itemSelectionChanged, this, &HostsDialog::show_state);
}

QStringList HostsDialog::hosts() const {
    QStringList hosts;
    for (int row = 0; row < m_hosts->count(); ++row)
        hosts.append(m_hosts->item(row)->text());
    return hosts;
}

void HostsDialog::add() {
    const QString host = m_name->text().trimmed();
    if (!is_daemon_host(host)) {
        //: other machines: %1 was typed as a name or an address
        m_words->setText(tr("“%1” is neither a host name nor an address.").arg(host));
        return;
    }
    const auto known = m_hosts->findItems(host, Qt::MatchFixedString);
    if (known.isEmpty())
        m_hosts->addItem(host);
    m_hosts->setCurrentItem(known.value(0, m_hosts->item(m_hosts->count() - 1)));
    m_name->clear();
    Q_EMIT changed(hosts());
}

void HostsDialog::remove() {
    delete m_hosts->currentItem();
    show_state();
    Q_EMIT changed(hosts());
}

void HostsDialog::choose() {
    if (m_hosts->currentItem() == nullptr)
        return;
    Q_EMIT chosen(m_hosts->currentItem()->text());
    close();
}

void HostsDialog::show_state() {
    m_words->clear();
    m_add->setEnabled(!m_name->text().trimmed().isEmpty());
    const bool is_chosen = m_hosts->currentItem() != nullptr;
    m_remove->setEnabled(is_chosen);
    m_show->setEnabled(is_chosen);
}

} // namespace tickervantage
