// The configuration editor and the files that a configuration takes in: they can be opened and checked, but each is
// only a part, which must not be installed in place of the whole.
#include "base/text_difference.h"
#include "chrony/configuration/included_files.h"
#include "gui/common/words.h"
#include "gui/editor/config_editor_window.h"
#include "gui/editor/config_sheets.h"
#include "gui/editor/config_text.h"

#include <QMenu>

#include <utility>

namespace tickervantage {
namespace {

void add_disabled(QMenu* menu, const QString& words) {
    menu->addAction(words)->setEnabled(false);
}

} // namespace

void ConfigEditor::build_included_menu() {
    auto* menu = findChild<QMenu*>(QStringLiteral("includedFiles"));
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { list_included(menu); });
}

/* TRANSLATOR tickervantage::ConfigEditor
   configuration editor: its menus, sheets and the line below the text. */

// Folders are read behind the open menu.
void ConfigEditor::list_included(QMenu* menu) {
    menu->clear();
    //: configuration editor: menu of included files, while they are looked for
    add_disabled(menu, tr("Looking…"));
    const auto look = [text = m_controls.m_config->whole_text()] {
        return included_files(text.toStdString());
    };
    m_background.start(m_parts.queue, look, [this, menu](const std::vector<IncludedFile>& files) {
        menu->clear();
        for (const auto& file : files) {
            QString text = from_std(file.path).replace(QLatin1Char('&'), QLatin1String("&&"));
            if (file.is_read_only)
                //: configuration editor: menu of included files; %1 is a file that only an administrator may change
                text = tr("%1 (read-only)").arg(text);
            connect(menu->addAction(text), &QAction::triggered, this,
                    [this, path = from_std(file.path)] { Q_EMIT path_wanted(path); });
        }
        if (files.empty())
            //: configuration editor: menu of included files, when there are none
            add_disabled(menu, tr("None"));
    });
}

void ConfigEditor::offer_to_install() {
    const auto look = [&files = m_parts.files, config = m_parts.general.config,
                       text = m_controls.m_config->whole_text(),
                       path = isInstalledConfig ? std::string() : m_path.toStdString()] {
        const FileReading former = files.read(config, largest_document);
        const bool is_part = !path.empty() && (is_source_file(path) || is_included(former.bytes, path));
        InstallationChange change{.former = former.outcome, .reason = former.reason};
        if (!is_part && former.outcome == FileReading::Outcome::read)
            change.lines = text_difference(former.bytes, text.toStdString());
        return std::pair(is_part, std::move(change));
    };
    const auto then = [this, edits = m_controls.m_config->edits()](const std::pair<bool, InstallationChange>& found) {
        if (found.first)
            refuse_part();
        else if (m_controls.m_config->edits() != edits)
            say_text_changed();
        else
            ask_to_install(this, from_std(m_parts.general.config), found.second, [this] { save_and_install(); });
        Q_EMIT settled();
    };
    m_background.start_newest(m_parts.queue, look, then);
}

// Whoever installs a part in place of the whole is left without sources, keys and access rules.
void ConfigEditor::refuse_part() {
    //: alert: message above the reason
    show_failure(this, tr("The configuration was not installed"),
                 //: alert: %1 is the file that was to be installed, %2 the installed configuration
                 tr("%1 is a part of a configuration; installing it would put it in the place of the whole, %2. A "
                    "part belongs where it lies: save it there, or save a copy and put it there as an "
                    "administrator:\n\nsudo install -m 644 COPY %1\n\nThen restart chronyd.")
                     .arg(m_path, from_std(m_parts.general.config)));
}

} // namespace tickervantage
