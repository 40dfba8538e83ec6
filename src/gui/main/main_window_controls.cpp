#include "gui/main/main_window_controls.h"

#include "chrony/reports/commands.h"
#include "gui/main/clock_widget.h"
#include "gui/main/command_output.h"
#include "gui/main/main_area.h"
#include "gui/main/main_window_layout.h"
#include "gui/main/meter_widget.h"
#include "gui/main/notice_bar.h"
#include "gui/main/scrolled_widget.h"
#include "gui/main/sources_panel.h"
#include "gui/main/status_image.h"
#include "gui/main/trend_panel.h"
#include "gui/main/verdict_panel.h"
#include "qt/named_widget.h"
#include "qt/text_scale.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(mainwindow)
};

QLabel* text_label(QWidget* parent, const char* object_name, const QString& accessible_name) {
    auto* label = named(new QLabel(parent), object_name, accessible_name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

void build_readings(QWidget* central, MainWindowControls& controls) {
    //: main window: name of the text that shows date and time
    controls.localTime = text_label(central, "localTime", Texts::tr("Local time"));
    controls.localTime->setAlignment(Qt::AlignCenter);
    //: main window: name of the menu that chooses the meter's quantity
    controls.meterSelect = named(new QComboBox(central), "meterSelect", Texts::tr("Quantity on the meter"));
    //: main window: the meter's quantities, in chrony's words
    controls.meterSelect->addItems({Texts::tr("System time"),
                                    //: main window: quantity of the meter, in chrony's words
                                    Texts::tr("Last offset"),
                                    //: main window: quantity of the meter, in chrony's words
                                    Texts::tr("RMS offset"),
                                    //: main window: quantity of the meter, in chrony's words
                                    Texts::tr("Root delay"),
                                    //: main window: quantity of the meter, in chrony's words
                                    Texts::tr("Root dispersion"),
                                    //: main window: quantity of the meter, in chrony's words
                                    Texts::tr("Frequency"),
                                    //: main window: quantity of the meter: how far off the clock can be at the most
                                    Texts::tr("Error bound")});
    fit_entries(controls.meterSelect);
    controls.meterSelect->setToolTip(controls.meterSelect->accessibleName());
    //: main window: name of the text that shows the meter's value
    controls.meterValue = text_label(central, "meterValue", Texts::tr("Meter value"));
    controls.meterValue->setAlignment(Qt::AlignCenter);
}

void build_status(QWidget* central, MainWindowControls& controls) {
    static constexpr std::array<const char*, 3> image_names{"status_chronyd_synchronised", "status_chronyd_notlocked",
                                                            "status_chronyd_unavailable"};
    for (std::size_t i = 0; i < image_names.size(); ++i) {
        controls.status_images[i] = new StatusImage(static_cast<chronydStatus>(i), central);
        controls.status_images[i]->setObjectName(QLatin1String(image_names[i]));
        controls.status_images[i]->hide();
    }
    //: main window: name of the text beside the status image
    controls.status_words = text_label(central, "status_words", Texts::tr("State of chronyd"));
    //: main window: tooltip of the state's words
    controls.status_words->setToolTip(
        Texts::tr("What chronyd says of itself. It calls itself synchronised as long as it "
                  "has any reference, be it its own clock or a server that is gone."));
    //: main window: name of the notice that the clock is left alone
    controls.adjustingClock = text_label(central, "adjustingClock", Texts::tr("Clock adjustment"));
    //: main window: notice that chronyd was told not to adjust the system clock
    controls.adjustingClock->setText(Texts::tr("chronyd does not adjust the system clock."));
    controls.adjustingClock->setWordWrap(true);
    //: main window: button that opens the preferences
    controls.m_preferences = named(new QPushButton(Texts::tr("&Preferences…"), central), "m_preferences",
                                   //: main window: name of the button that opens the preferences
                                   Texts::tr("Preferences"));
    controls.adjustingClock->hide(); // until it is known
    controls.m_preferences->hide();
    //: main window: names of the version texts
    controls.chronycversion = text_label(central, "chronycversion", Texts::tr("Version of chronyc"));
    controls.chronydversion = text_label(central, "chronydversion",
                                         //: main window: name of a version text
                                         Texts::tr("Version of chronyd"));
}

void build_command_controls(QWidget* central, MainWindowControls& controls) {
    //: main window: name of the menu that chooses the report
    controls.commandMenu = named(new QComboBox(central), "commandMenu", Texts::tr("chronyc command"));
    for (const auto& entry : status_commands) {
        controls.commandMenu->addItem(from_std(entry.command));
        controls.commandMenu->setItemData(controls.commandMenu->count() - 1,
                                          QCoreApplication::translate("commands", entry.explanation), Qt::ToolTipRole);
    }
    fit_entries(controls.commandMenu);
    controls.commandMenu->setMaxVisibleItems(static_cast<int>(status_commands.size()));
    //: main window: tooltip of the command menu
    controls.commandMenu->setToolTip(Texts::tr("The chronyc report shown below"));
    //: main window: label of the server field, shown for the ntpdata report
    controls.m_server_label = new QLabel(Texts::tr("&Server:"), central);
    controls.m_server_label->setObjectName(QStringLiteral("m_server_label"));
    //: main window: name of the server field
    controls.m_server = named(new QComboBox(central), "m_server", Texts::tr("NTP server for ntpdata"));
    controls.m_server->setEditable(true);
    controls.m_server->lineEdit()->setAccessibleName(controls.m_server->accessibleName());
    controls.m_server->setInsertPolicy(QComboBox::NoInsert);
    controls.m_server->setMinimumContentsLength(18);
    //: main window: tooltip of the server field
    controls.m_server->setToolTip(Texts::tr("Server whose measurements are shown; empty for all of them"));
    controls.m_server_label->setBuddy(controls.m_server);
}

void build_options(QWidget* central, MainWindowControls& controls) {
    //: main window: checkbox, addresses are shown as numbers
    controls.showIPaddress = named(new QCheckBox(Texts::tr("&IP addresses"), central), "showIPaddress",
                                   //: main window: name of that checkbox
                                   Texts::tr("IP addresses"));
    //: main window: tooltip
    controls.showIPaddress->setToolTip(Texts::tr("Show numeric addresses, without asking for names"));
    //: main window: checkbox, sources by the names of the configuration
    controls.showOriginalName = named(new QCheckBox(Texts::tr("&Original names"), central), "showOriginalName",
                                      //: main window: name of that checkbox
                                      Texts::tr("Original names"));
    //: main window: tooltip
    controls.showOriginalName->setToolTip(Texts::tr("Show the sources by the names written in the configuration"));
    //: main window: name of the field with the seconds between two readings
    controls.m_interval = named(new QSpinBox(central), "m_interval", Texts::tr("Update interval"));
    controls.m_interval->setRange(1, 60);
    controls.m_interval->setValue(4);
    controls.m_interval->setKeyboardTracking(false); // "30" must not start with an interval of 3
    //: main window: unit behind the interval, seconds
    controls.m_interval->setSuffix(Texts::tr(" s"));
    //: main window: tooltip of the interval
    controls.m_interval->setToolTip(Texts::tr("Seconds between two readings, 1 to 60"));
}

void build_banner(QWidget* central, MainWindowControls& controls) {
    auto* bar = new NoticeBar(central);
    bar->setObjectName(QStringLiteral("standing_bar"));
    //: main window: name of the banner with what holds for the whole run, such as demonstration mode
    controls.standing_notice = text_label(bar, "standingNotice", Texts::tr("Notice"));
    controls.standing_notice->setWordWrap(true);
    controls.standing_notice->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    controls.use_system_chrony =
        //: main window: button in a demonstration that leaves it
        named(new QPushButton(Texts::tr("&Use This System's chrony"), bar), "use_system_chrony",
              //: main window: name of the button that leaves the demonstration
              Texts::tr("Use this system's chrony"),
              //: main window: tooltip of the button that leaves the demonstration
              Texts::tr("Starts the program again, without the demonstration"));
    controls.use_system_chrony->hide();
    bar->add(controls.standing_notice);
    bar->add_button(controls.use_system_chrony);
    bar->hide();
    controls.standing_bar = bar;
}

void build_host_bar(QWidget* central, MainWindowControls& controls) {
    auto* bar = new NoticeBar(central);
    bar->setObjectName(QStringLiteral("host_bar"));
    //: main window: name of the banner that says whose clock is shown
    controls.host_words = text_label(bar, "host_words", Texts::tr("Whose clock this is"));
    controls.host_words->setWordWrap(true);
    controls.own_machine =
        //: main window: button that ends the showing of another machine's clock
        named(new QPushButton(Texts::tr("&Back to This Machine"), bar), "own_machine",
              //: main window: name of that button
              Texts::tr("Back to this machine"));
    bar->add(controls.host_words);
    bar->add_button(controls.own_machine);
    bar->hide();
    controls.host_bar = bar;
}

void build_wrong_program(QWidget* central, MainWindowControls& controls) {
    auto* bar = new NoticeBar(central, NoticeTone::harm);
    bar->setObjectName(QStringLiteral("wrong_program"));
    controls.wrong_program_words = text_label(bar, "wrong_program_words",
                                              //: main window: name of the notice that a program is not chrony's
                                              Texts::tr("Wrong program"));
    controls.wrong_program_words->setWordWrap(true);
    controls.wrong_program_preferences =
        //: main window: button that opens the preferences
        named(new QPushButton(Texts::tr("Preferences…"), bar), "wrong_program_preferences",
              //: main window: name of the button that opens the preferences
              Texts::tr("Preferences"));
    bar->add(controls.wrong_program_words);
    bar->add_button(controls.wrong_program_preferences);
    bar->hide();
    controls.wrong_program = bar;
}

} // namespace

MainWindowControls build_main_window_controls(MainArea& area, ClockPerformance& meter) {
    auto* central = new ScrolledWidget(&area);
    MainWindowControls controls;
    build_banner(central, controls);
    build_host_bar(central, controls);
    build_wrong_program(central, controls);
    controls.verdict = new VerdictPanel(central);
    controls.trend = new TrendPanel(central);
    //: main window: names of the two instruments
    controls.analogClock = named(new ClockWidget(central), "analogClock", Texts::tr("Clock"));
    controls.clockPerformance = named(new MeterWidget(meter, central), "clockPerformance",
                                      //: main window: name of the meter beside the clock
                                      Texts::tr("Performance meter"));
    build_readings(central, controls);
    build_status(central, controls);
    build_command_controls(central, controls);
    build_options(central, controls);
    //: main window: name of the text view with chronyc's output
    controls.m_textscroll = named(new CommandOutput(central), "m_textscroll", Texts::tr("Output of chronyc"));
    controls.m_textscroll->setMinimumHeight(controls.m_textscroll->fontMetrics().lineSpacing() * 4);
    controls.sources = new SourcesPanel(central);
    //: main window: name of the line that says what stands in the way
    controls.m_status = text_label(&area, "m_status", Texts::tr("Status"));
    controls.m_status->setWordWrap(true);
    lay_out_main_window(area, central, controls);
    return controls;
}

} // namespace tickervantage
