#include "gui/editor/config_controls.h"

#include "gui/common/words.h"
#include "gui/editor/check_image.h"
#include "gui/editor/config_find_bar.h"
#include "gui/editor/config_text.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(configeditor)
};

QPushButton* button(QWidget* parent, const char* object_name, const QString& label, const QString& tooltip) {
    auto* one = named(new QPushButton(label, parent), object_name, QString(label).remove(QLatin1Char('&')), tooltip);
    one->setAutoDefault(false);
    return one;
}

QLabel* line_of_text(QWidget* parent, const char* object_name, const QString& accessible_name) {
    auto* label = named(new QLabel(parent), object_name, accessible_name, QString());
    label->setTextFormat(Qt::PlainText);
    return label;
}

void build_buttons(QWidget* parent, ConfigControls& controls) {
    controls.m_checksyntax =
        //: configuration editor: button, checks the text
        button(parent, "m_checksyntax", Texts::tr("&Check"),
               //: configuration editor: tooltip
               Texts::tr("Let chronyd check the syntax (Ctrl+Return)"));
    //: configuration editor: button, installs the text
    controls.m_install = button(parent, "m_install", Texts::tr("&Install…"),
                                //: configuration editor: tooltip
                                Texts::tr("Make this the live configuration; it must have passed a check"));
    //: configuration editor: button, opens chrony's page
    controls.help = button(parent, "ShowHelpConfig", Texts::tr("&Help"),
                           //: configuration editor: tooltip
                           Texts::tr("What the directives mean, on chrony's own page"));
    controls.m_install->setEnabled(false);
}

void build_words(QWidget* parent, ConfigControls& controls) {
    //: configuration editor: name of the words beside the Check button
    controls.state = line_of_text(parent, "state", Texts::tr("State of the check"));
    const auto metrics = controls.state->fontMetrics();
    int width = 0; // fixed, so that the row does not move when the words change
    for (const auto image : {CheckImage::partially_available, CheckImage::available, CheckImage::unavailable})
        width = std::max(width, metrics.horizontalAdvance(words_of(image)));
    constexpr int margin = 12;
    controls.state->setFixedWidth(width + margin);
    //: configuration editor: name of the line that says what went on last
    controls.message = line_of_text(parent, "message", Texts::tr("Message"));
    controls.message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    controls.message->setMinimumWidth(1);
    controls.message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void build_warnings(QWidget* parent, ConfigControls& controls) {
    auto* list = new QListWidget(parent);
    list->setObjectName(QStringLiteral("warnings"));
    //: configuration editor: name of the list of warnings
    list->setAccessibleName(Texts::tr("Warnings"));
    //: configuration editor: tooltip of that list
    list->setToolTip(Texts::tr("What a syntax check does not see; choose one to see its line"));
    list->setWordWrap(true);
    list->hide();
    controls.warnings = list;
}

} // namespace

ConfigControls build_config_controls(QWidget* parent) {
    ConfigControls controls;
    controls.m_config = new ConfigText(parent);
    controls.find_bar = new FindBar(controls.m_config, parent);
    build_warnings(parent, controls);
    build_buttons(parent, controls);
    build_words(parent, controls);
    auto* row = new QHBoxLayout;
    row->addWidget(controls.m_checksyntax);
    row->addWidget(controls.state);
    row->addWidget(controls.message, 1);
    row->addWidget(controls.help);
    row->addWidget(controls.m_install);
    auto* column = new QVBoxLayout(parent);
    column->addWidget(controls.m_config, 1);
    column->addWidget(controls.find_bar);
    column->addWidget(controls.warnings);
    column->addLayout(row);
    return controls;
}

} // namespace tickervantage
