#include "gui/servers/servers_controls.h"

#include "gui/common/words.h"
#include "gui/servers/servers_list.h"
#include "qt/text_scale.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tickervantage {
namespace {

constexpr int LIST_WIDTH = 180;
constexpr int RECORD_WIDTH = 370;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(servers)
};

QToolButton* segment(QWidget* parent, const char* object_name, const QString& sign, const QString& accessible_name,
                     const QString& tooltip) {
    auto* button = named(new QToolButton(parent), object_name, accessible_name, tooltip);
    button->setText(sign);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setMinimumWidth(button->sizeHint().height() + 4);
    return button;
}

QWidget* build_segments(QWidget* parent, ServersControls& controls) {
    auto* row = new QWidget(parent);
    //: server window: name of the two buttons that add and remove a server
    controls.serverControl = named(new QWidget(row), "serverControl", Texts::tr("Add or remove"), QString());
    //: server window: name of the button with the plus sign, and its tooltip
    controls.segments[0] = segment(controls.serverControl, "add_server", QStringLiteral("+"), Texts::tr("Add"),
                                   //: server window: tooltip of the button +
                                   Texts::tr("Add a server (Ctrl+N)"));
    //: server window: name of the button with the minus sign, and its tooltip
    controls.segments[1] = segment(controls.serverControl, "remove_server", QStringLiteral("−"), Texts::tr("Remove"),
                                   //: server window: tooltip of the button −
                                   Texts::tr("Remove the selected server (Delete)"));
    //: server window: button that brings back the server removed last
    controls.undo = segment(row, "undo_removal", Texts::tr("Undo Remove"), Texts::tr("Undo Remove"),
                            //: server window: tooltip of that button
                            Texts::tr("Bring back the server that was removed last (Ctrl+Z)"));
    auto* joined = new QHBoxLayout(controls.serverControl);
    joined->setContentsMargins(0, 0, 0, 0);
    joined->setSpacing(0);
    for (auto* button : controls.segments)
        joined->addWidget(button);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(controls.serverControl);
    layout->addStretch(1);
    layout->addWidget(controls.undo);
    return row;
}

QLayout* build_list(QWidget* parent, ServersControls& controls) {
    controls.serverListView =
        named(new ServerListView(parent), "serverListView",
              //: server window: name of the list, and its tooltip
              Texts::tr("Servers"),
              //: server window: tooltip of the list
              Texts::tr("Double-click or F2 changes a title; drag, or Alt with Up and Down, moves"));
    controls.serverListView->setMinimumWidth(scaled(LIST_WIDTH, *parent));
    controls.serverListView->set_empty_text(
        //: server window: shown in the list while it is empty
        Texts::tr("No servers yet. Add one with +, or import those of the installed configuration."));
    auto* column = new QVBoxLayout;
    column->addWidget(controls.serverListView, 1);
    column->addWidget(build_segments(parent, controls));
    return column;
}

void build_fields(ServersControls& controls) {
    QWidget* parent = controls.record;
    //: server window: name of the field with the server's address, and its tooltip
    controls.m_name = named(new QLineEdit(parent), "m_name", Texts::tr("Address"),
                            //: server window: tooltip of the server's address
                            Texts::tr("The server's host name or IPv4 address"));
    controls.name_words = words_below(parent, "name_words", 2);
    controls.m_minpoll =
        named(new QLineEdit(parent), "m_minpoll",
              //: server window: name of the field with chrony's minpoll, and its tooltip
              Texts::tr("Shortest interval"),
              //: server window: tooltip of “Shortest interval”
              Texts::tr("minpoll: the shortest time between two requests, as a power of 2 in seconds"));
    controls.minpoll_words = words_below(parent, "minpoll_words", 2);
    controls.m_maxpoll = named(new QLineEdit(parent), "m_maxpoll",
                               //: server window: name of the field with chrony's maxpoll, and its tooltip
                               Texts::tr("Longest interval"),
                               //: server window: tooltip of “Longest interval”
                               Texts::tr("maxpoll: the longest time between two requests, as a power of 2 in seconds"));
    controls.maxpoll_words = words_below(parent, "maxpoll_words", 2);
    //: server window: check box
    controls.m_iburst = named(new QCheckBox(Texts::tr("Ask a few times quickly at the &start"), parent), "m_iburst",
                              //: server window: name of that check box, and its tooltip
                              Texts::tr("Ask a few times quickly at the start"),
                              //: server window: tooltip of the box for iburst
                              Texts::tr("iburst: four requests within seconds set the clock sooner"));
    //: server window: check box
    controls.pool = named(new QCheckBox(Texts::tr("A pool of several ser&vers"), parent), "pool",
                          //: server window: name of that check box, and its tooltip
                          Texts::tr("A pool of several servers"),
                          //: server window: tooltip of the box for a pool
                          Texts::tr("pool: chrony takes several of the servers that the name stands for"));
    for (auto* field : {controls.m_minpoll, controls.m_maxpoll})
        field->setMaximumWidth(field->fontMetrics().horizontalAdvance(QLatin1Char('0')) * 10);
}

void build_record(QWidget* parent, ServersControls& controls) {
    controls.record = new QWidget(parent);
    build_fields(controls);
    auto* form = new QFormLayout(controls.record);
    form->setContentsMargins(0, 0, 0, 0);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setVerticalSpacing(2);
    //: server window: labels of the fields
    form->addRow(Texts::tr("&Address:"), controls.m_name);
    form->addRow(QString(), controls.name_words);
    form->addRow(
        //: server window: label of the field with minpoll
        Texts::tr("Sho&rtest interval:"), controls.m_minpoll);
    form->addRow(QString(), controls.minpoll_words);
    form->addRow(
        //: server window: label of the field with maxpoll
        Texts::tr("&Longest interval:"), controls.m_maxpoll);
    form->addRow(QString(), controls.maxpoll_words);
    form->addRow(QString(), controls.m_iburst);
    form->addRow(QString(), controls.pool);
    controls.record->setMinimumWidth(std::max(scaled(RECORD_WIDTH, *parent), form->minimumSize().width()));
}

QLayout* build_buttons(QWidget* parent, ServersControls& controls) {
    //: server window: button, adds the servers of the installed chrony.conf
    controls.import = named(new QPushButton(Texts::tr("&Import"), parent), "import_servers",
                            //: server window: name of the button that imports a configuration
                            Texts::tr("Import"),
                            //: server window: tooltip of that button
                            Texts::tr("Add the servers and pools of the installed configuration"));
    //: server window: button, the list goes to the clipboard as lines of chrony.conf
    controls.copy = named(new QPushButton(Texts::tr("&Copy Lines"), parent), "copy_lines",
                          //: server window: name of the button that copies the list as lines
                          Texts::tr("Copy Lines"),
                          //: server window: tooltip of that button
                          Texts::tr("Copy the list as lines of chrony's configuration"));
    //: server window: button, the list goes into the configuration that is being edited
    controls.insert = named(new QPushButton(Texts::tr("Insert in &Editor"), parent), "insert_lines",
                            //: server window: name of the button that inserts the list into the editor
                            Texts::tr("Insert in Editor"), QString());
    //: server window: button, opens chrony's manual
    controls.help = named(new QPushButton(Texts::tr("&Help"), parent), "serverHelp",
                          //: server window: name of the button that opens a page on servers
                          Texts::tr("Help"),
                          //: server window: tooltip of that button
                          Texts::tr("What chrony's manual says of the server directive"));
    auto* row = new QHBoxLayout;
    for (auto* button : {controls.import, controls.copy, controls.insert}) {
        button->setAutoDefault(false);
        row->addWidget(button);
    }
    row->addStretch(1);
    row->addWidget(controls.help);
    return row;
}

void build_notice(QWidget* parent, ServersControls& controls) {
    controls.notice = new QFrame(parent);
    controls.notice->setFrameShape(QFrame::StyledPanel);
    controls.notice_text = new QLabel(controls.notice);
    controls.notice_text->setObjectName(QStringLiteral("notice"));
    controls.notice_text->setTextFormat(Qt::PlainText);
    controls.notice_text->setWordWrap(true);
    controls.notice_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    //: server window: button beside a failure to save; saves once more
    controls.retry = named(new QPushButton(Texts::tr("&Try Again"), controls.notice), "retry",
                           //: server window: button, tries to save again
                           Texts::tr("Try Again"),
                           //: server window: tooltip of that button
                           Texts::tr("Save the list once more"));
    auto* row = new QHBoxLayout(controls.notice);
    row->addWidget(controls.notice_text, 1);
    row->addWidget(controls.retry);
    controls.notice->hide();
}

} // namespace

ServersControls build_servers_controls(QWidget* parent) {
    ServersControls controls;
    build_notice(parent, controls);
    auto* list = build_list(parent, controls);
    build_record(parent, controls);
    auto* columns = new QHBoxLayout;
    columns->addLayout(list, 1);
    columns->addSpacing(8);
    auto* right = new QVBoxLayout;
    right->addWidget(controls.record);
    right->addStretch(1);
    columns->addLayout(right, 1);
    auto* rows = new QVBoxLayout(parent);
    rows->addWidget(controls.notice);
    rows->addLayout(columns, 1);
    rows->addLayout(build_buttons(parent, controls));
    return controls;
}

PollWords words_of_minpoll(const server_data& server) {
    if (asks_too_often(server))
        //: server window: below the field with the smallest poll
        return {Texts::tr("Too often for a server outside the local network; 6 (64 s) is the least."), true};
    const bool is_left_to_chrony = !polls_of_line(server).minpoll;
    const QString length = poll_length(is_left_to_chrony ? *CHRONY_POLLS.minpoll : server.minpoll);
    if (is_left_to_chrony && server.minpoll != CHRONY_POLLS.minpoll)
        //: server window: below the field with the smallest poll; %1 is a time
        return {Texts::tr("Left to chrony: %1 at least").arg(length)};
    //: server window: below the field with the smallest poll; %1 is a time
    return {Texts::tr("%1 at least").arg(length)};
}

PollWords words_of_maxpoll(const server_data& server) {
    const bool is_left_to_chrony = !polls_of_line(server).maxpoll;
    const QString length = poll_length(is_left_to_chrony ? *CHRONY_POLLS.maxpoll : server.maxpoll);
    if (is_left_to_chrony && server.maxpoll != CHRONY_POLLS.maxpoll)
        //: server window: below the field with the largest poll; %1 is a time
        return {Texts::tr("Left to chrony: %1 at most").arg(length)};
    //: server window: below the field with the largest poll; %1 is a time
    return {Texts::tr("%1 at most").arg(length)};
}

QString poll_length(std::int64_t poll) {
    constexpr std::int64_t smallest = -7;
    constexpr std::int64_t minute = 60;
    constexpr std::int64_t hour = 3600;
    if (poll < smallest || poll > LARGEST_POLL)
        return {};
    const QLocale locale;
    if (poll < 0)
        //: server window: part of a second; %1 a whole number
        return Texts::tr("1/%1 s").arg(locale.toString(std::int64_t{1} << -poll));
    const std::int64_t seconds = std::int64_t{1} << poll;
    const auto rounded = [&](std::int64_t unit) {
        return locale.toString((seconds + unit / 2) / unit);
    };
    if (seconds <= 2 * minute)
        //: server window: %1 seconds
        return Texts::tr("%1 s").arg(locale.toString(seconds));
    //: server window: %1 minutes; %1 hours
    return seconds < 2 * hour
               ? Texts::tr("%1 min").arg(rounded(minute))
               : /*: server window: a time below a field; %1 is a number of hours */ Texts::tr("%1 h").arg(
                     rounded(hour));
}

} // namespace tickervantage
