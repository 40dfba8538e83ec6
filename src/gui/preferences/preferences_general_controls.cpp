#include "gui/preferences/preferences_general_controls.h"

#include "gui/common/words.h"
#include "qt/text_scale.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace tickervantage {
namespace {

constexpr int NUMBER_FIGURES = 8;
constexpr int PATH_FIGURES = 34;
constexpr int TESTING_WIDTH = 80;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(preferences)
};

QPushButton* button(QWidget* parent, const char* object_name, const QString& text, const QString& tooltip) {
    auto* result = named(new QPushButton(text, parent), object_name, QString(text).remove(QLatin1Char('&')), tooltip);
    result->setAutoDefault(false);
    return result;
}

QCheckBox* check_box(QWidget* parent, const char* object_name, const QString& text, const QString& tooltip) {
    return named(new QCheckBox(text, parent), object_name, QString(text).remove(QLatin1Char('&')), tooltip);
}

// What has something to say on few machines takes no room on the others.
QLabel* note_below(QWidget* parent, const char* object_name) {
    auto* label = words_below(parent, object_name, 1);
    label->setMinimumHeight(0);
    label->setMaximumHeight(QWIDGETSIZE_MAX);
    label->hide();
    return label;
}

QGroupBox* build_program_group(QWidget* parent, PreferencesGeneralControls& controls) {
    //: General preferences: title of a group
    auto* group = new QGroupBox(Texts::tr("Program"), parent);
    controls.m_launch_login = check_box(group, "m_launch_login",
                                        //: General preferences: check box, and its tooltip
                                        Texts::tr("&Launch Tickervantage at login"),
                                        //: General preferences: tooltip of the launch at login
                                        Texts::tr("Puts a desktop file into your autostart folder"));
    controls.m_adj_system = check_box(group, "m_adj_system",
                                      //: General preferences: check box, and its tooltip
                                      Texts::tr("&Adjust System Clock"),
                                      //: General preferences: tooltip of “Adjust the system clock”
                                      Texts::tr("Off: chronyd runs with the option -x and leaves the clock alone"));
    controls.m_keep_history =
        check_box(group, "m_keep_history",
                  //: General preferences: check box; the history of the clock
                  Texts::tr("Keep a &history also while the window is closed"),
                  //: General preferences: tooltip of the box that keeps a history
                  Texts::tr("A small service of yours reads the clock every 10 seconds, from login to logout"));
    controls.m_keep_history->setEnabled(false); // until it is known whether it can be
    controls.history_words = note_below(group, "history_words");
    controls.resetWarnings = button(group, "resetWarnings",
                                    //: General preferences: button, and its tooltip
                                    Texts::tr("Reset Warnin&gs"),
                                    //: General preferences: tooltip of the button that resets warnings
                                    Texts::tr("Every warning that you asked not to see again is shown again"));
    auto* boxes = new QVBoxLayout;
    boxes->addWidget(controls.m_launch_login);
    boxes->addWidget(controls.m_adj_system);
    boxes->addWidget(controls.m_keep_history);
    boxes->addWidget(controls.history_words);
    auto* row = new QHBoxLayout(group);
    row->addLayout(boxes, 1);
    row->addWidget(controls.resetWarnings, 0, Qt::AlignTop);
    return group;
}

void add_path(QGridLayout* grid, int row, const char* object_name, const QString& label, const QString& tooltip,
              PathControls& path) {
    QWidget* parent = grid->parentWidget();
    const QString name = QString(label).remove(QLatin1Char('&')).remove(QLatin1Char(':'));
    path.field = named(new QLineEdit(parent), object_name, name, tooltip);
    path.field->setMinimumWidth(path.field->fontMetrics().averageCharWidth() * PATH_FIGURES);
    //: General preferences: button that opens a file chooser
    path.choose = button(parent, "", Texts::tr("Choose…"), QString());
    path.choose->setObjectName(QStringLiteral("choose_") + QLatin1String(object_name));
    //: General preferences: name of that button, and its tooltip; %1 is what is chosen, such as "chronyd"
    path.choose->setAccessibleName(Texts::tr("Choose %1").arg(name));
    path.choose->setToolTip(path.choose->accessibleName());
    path.words = words_below(parent, "", 1);
    path.words->setObjectName(QLatin1String(object_name) + QStringLiteral("_words"));
    auto* title = new QLabel(label, parent);
    title->setBuddy(path.field);
    grid->addWidget(title, 2 * row, 0);
    grid->addWidget(path.field, 2 * row, 1);
    grid->addWidget(path.choose, 2 * row, 2);
    grid->addWidget(path.words, 2 * row + 1, 1, 1, 2);
}

QGroupBox* build_path_group(QWidget* parent, PreferencesGeneralControls& controls) {
    //: General preferences: title of a group
    auto* group = new QGroupBox(Texts::tr("chrony's Files"), parent);
    auto* grid = new QGridLayout(group);
    grid->setVerticalSpacing(1);
    grid->setColumnStretch(1, 1);
    //: General preferences: labels of four paths, each with its tooltip
    add_path(grid, 0, "m_config", Texts::tr("&Configuration:"),
             //: General preferences: tooltip of the configuration's path
             Texts::tr("The installed chrony.conf"), controls.paths[0]);
    add_path(grid, 1, "m_chronyc",
             //: General preferences: label of the path of chronyc
             Texts::tr("chron&yc:"),
             //: General preferences: tooltip of the path of chronyc
             Texts::tr("The program that asks chronyd"), controls.paths[1]);
    add_path(grid, 2, "m_chronyd",
             //: General preferences: label of the path of chronyd
             Texts::tr("chrony&d:"),
             //: General preferences: tooltip of the path of chronyd
             Texts::tr("The daemon that keeps the clock"), controls.paths[2]);
    add_path(grid, 3, "m_chronywake",
             //: General preferences: label of the path of chronywake
             Texts::tr("chronywa&ke:"),
             //: General preferences: tooltip of the path of chronywake
             Texts::tr("The program that sets the clock right after the machine wakes up"), controls.paths[3]);
    controls.detect = button(group, "detect",
                             //: General preferences: button, and its tooltip
                             Texts::tr("D&etect"),
                             //: General preferences: tooltip of the button Detect
                             Texts::tr("Fill in the paths of the distribution's own chrony"));
    controls.paths_note = note_below(group, "paths_note");
    grid->addWidget(controls.paths_note, 8, 0, 1, 2);
    grid->addWidget(controls.detect, 8, 2);
    return group;
}

QLineEdit* add_argument(QFormLayout* form, const char* object_name, const QString& label, const QString& tooltip) {
    QWidget* parent = form->parentWidget();
    const QString name = QString(label).remove(QLatin1Char('&')).remove(QLatin1Char(':'));
    auto* field = named(new QLineEdit(parent), object_name, name, tooltip);
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * NUMBER_FIGURES);
    form->addRow(label, field);
    return field;
}

// A label says what its field is for: what happens after waking up is new to most.
void build_arguments(QFormLayout* form, PreferencesGeneralControls& controls) {
    controls.m_make_thresh =
        add_argument(form, "m_make_thresh",
                     //: General preferences: labels of chronywake's arguments, each with its tooltip
                     Texts::tr("Set the clock at once if it is off &by (seconds):"),
                     //: General preferences: tooltip of chronywake's first field
                     Texts::tr("What is off by less is corrected slowly, without a jump"));
    controls.m_make_limit =
        add_argument(form, "m_make_limit",
                     //: General preferences: label; in how many updates after waking the clock may be stepped
                     Texts::tr("… &in the first so many updates:"),
                     //: General preferences: tooltip of “… in the first so many updates”
                     Texts::tr("Later updates never make the clock jump; −1: any update may"));
    controls.m_burst_good =
        add_argument(form, "m_burst_good",
                     //: General preferences: label; measurements wanted from each source after waking
                     Texts::tr("G&ood measurements wanted from each source:"),
                     //: General preferences: tooltip of “Good measurements wanted from each source”
                     Texts::tr("chronyd stops asking a source once it has so many"));
    controls.m_burst_max = add_argument(form, "m_burst_max",
                                        //: General preferences: label; measurements tried with each source after waking
                                        Texts::tr("&Most requests sent to each source:"),
                                        //: General preferences: tooltip of “Most requests sent to each source”
                                        Texts::tr("chronyd gives up on a source after so many, answered or not"));
    controls.m_burst_netmask =
        add_argument(form, "m_burst_netmask",
                     //: General preferences: label; the network whose sources are asked after waking
                     Texts::tr("Ask only sou&rces in this network:"),
                     //: General preferences: tooltip of “Ask only sources in this network”
                     Texts::tr("A mask and an address, such as 255.255.255.0/192.0.2.0; empty: all sources"));
    controls.m_burst_netmask->setPlaceholderText(
        //: General preferences: shown in the empty field of the sources that chronywake asks
        Texts::tr("all"));
}

QLayout* build_wake_buttons(QWidget* parent, PreferencesGeneralControls& controls) {
    //: General preferences: buttons of chronywake
    controls.saveArguments = button(parent, "saveArguments", Texts::tr("A&pply"), QString());
    controls.m_test_wake = button(parent, "m_test_wake",
                                  //: General preferences: button, runs chronywake once
                                  Texts::tr("&Test"), QString());
    controls.m_testing_wake = named(new QProgressBar(parent), "m_testing_wake",
                                    //: General preferences: name of the bar that moves while chronywake runs
                                    Texts::tr("Testing chronywake"), QString());
    controls.m_testing_wake->setRange(0, 0);
    controls.m_testing_wake->setTextVisible(false);
    controls.m_testing_wake->setFixedWidth(scaled(TESTING_WIDTH, *controls.m_testing_wake));
    QSizePolicy policy = controls.m_testing_wake->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    controls.m_testing_wake->setSizePolicy(policy);
    controls.m_testing_wake->hide();
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(controls.m_testing_wake);
    row->addWidget(controls.m_test_wake);
    row->addWidget(controls.saveArguments);
    return row;
}

QGroupBox* build_wake_group(QWidget* parent, PreferencesGeneralControls& controls) {
    //: General preferences: title of a group
    auto* group = new QGroupBox(Texts::tr("After Waking Up"), parent);
    controls.m_install_wake =
        check_box(group, "m_install_wake",
                  //: General preferences: check box, and its tooltip
                  Texts::tr("I&nstall chronywake"),
                  //: General preferences: tooltip of the box that installs chronywake
                  Texts::tr("Install the program that sets the clock right after the machine wakes up"));
    auto* form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapLongRows); // a small screen, a long language
    auto* column = new QVBoxLayout(group);
    column->addWidget(controls.m_install_wake);
    column->addLayout(form);
    build_arguments(form, controls);
    controls.wake_words = words_below(group, "wake_words", 2);
    column->addWidget(controls.wake_words);
    column->addLayout(build_wake_buttons(group, controls));
    return group;
}

} // namespace

PreferencesGeneralControls build_preferences_general(QWidget* parent) {
    PreferencesGeneralControls controls;
    auto* column = new QVBoxLayout(parent);
    column->addWidget(build_program_group(parent, controls));
    column->addWidget(build_path_group(parent, controls));
    column->addWidget(build_wake_group(parent, controls));
    column->addStretch(1);
    controls.restoreDefaults =
        button(parent, "restoreDefaults",
               //: General preferences: button, and its tooltip
               Texts::tr("Restore Defaults"),
               //: General preferences: tooltip of the button Restore Defaults
               Texts::tr("Everything on this pane as it was at first, but for the launch at login"));
    controls.status = words_below(parent, "status", 2);
    auto* row = new QHBoxLayout;
    row->addWidget(controls.status, 1);
    row->addWidget(controls.restoreDefaults, 0, Qt::AlignTop);
    column->addLayout(row);
    return controls;
}

} // namespace tickervantage
