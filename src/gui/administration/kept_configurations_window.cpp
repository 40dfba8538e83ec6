#include "gui/administration/kept_configurations_window.h"

#include "gui/common/difference_view.h"
#include "gui/common/words.h"
#include "qt/in_words.h"
#include "qt/text_scale.h"
#include "roothelper/jobs/job_machine.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

QString date_text(std::int64_t seconds) {
    return QLocale().toString(QDateTime::fromSecsSinceEpoch(seconds), QLocale::ShortFormat);
}

} // namespace

/* TRANSLATOR tickervantage::KeptConfigurationsWindow
   former configurations: the window that lists them and brings one back. */

KeptConfigurationsWindow::KeptConfigurationsWindow(KeptConfigurationsParts parts, QWidget* parent)
    : QDialog(parent), m_parts(std::move(parts)), m_background(m_parts.main_thread) {
    setObjectName(QStringLiteral("KeptConfigurations"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    //: former configurations: title of the window
    setWindowTitle(tr("Former Configurations"));
    build();
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, [this] { show_difference(); });
    connect(m_restore, &QPushButton::clicked, this, [this] { restore(); });
}

void KeptConfigurationsWindow::build_list() {
    //: former configurations: name of the list
    m_list = named(new QTreeWidget(this), "m_list", tr("Configurations"),
                   //: former configurations: tooltip of the list
                   tr("The configurations that were installed last, the newest first"));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setTabKeyNavigation(false);
    //: former configurations: titles of the columns
    m_list->setHeaderLabels({tr("Number"), tr("Date"), tr("User"), tr("What happened")});
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void KeptConfigurationsWindow::build_difference() {
    m_title = new QLabel(this);
    m_title->setObjectName(QStringLiteral("difference_title"));
    m_difference = make_difference_view(this);
    m_title->setBuddy(m_difference);
}

void KeptConfigurationsWindow::build() {
    build_list();
    build_difference();
    m_words = words_below(this, "words", 2);
    //: former configurations: button
    m_restore = named(new QPushButton(tr("&Bring Back…"), this), "m_restore", tr("Bring back"),
                      //: former configurations: tooltip of the button
                      tr("Install this configuration again and restart chronyd"));
    m_restore->setEnabled(false);
    m_restore->setAutoDefault(false);
    //: former configurations: button
    auto* close_button = named(new QPushButton(tr("Close"), this), "close", tr("Close"), QString());
    connect(close_button, &QPushButton::clicked, this, [this] { close(); });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_restore);
    buttons->addWidget(close_button);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_list, 1);
    column->addWidget(m_title);
    column->addWidget(m_difference, 2);
    column->addWidget(m_words);
    column->addLayout(buttons);
    constexpr QSize usual(640, 520);
    resize(scaled(usual, *this));
}

void KeptConfigurationsWindow::load() {
    m_background.start(
        m_parts.queue,
        [&machine = m_parts.machine, path = m_parts.configuration] {
            return Content{.kept = kept_configurations(machine, path),
                           .installed = machine.read_file(path).value_or("")};
        },
        [this](Content content) { show_content(std::move(content)); });
}

// The list is read again after a job: what was chosen stays so.
int KeptConfigurationsWindow::place_of(std::uint64_t number) const {
    const auto found =
        std::ranges::find(m_content.kept, number, [](const KeptConfiguration& one) { return one.entry.number; });
    return found == m_content.kept.end() ? 0 : static_cast<int>(found - m_content.kept.begin());
}

void KeptConfigurationsWindow::show_content(Content content) {
    const auto* one = chosen();
    const std::uint64_t before = one ? one->entry.number : 0;
    m_content = std::move(content);
    m_list->clear();
    for (const auto& [entry, text, user, is_installed] : m_content.kept) {
        const QString reason = QCoreApplication::translate("history", reason_text(entry.reason));
        //: former configurations: %1 is what happened to the configuration that chronyd uses now
        const QString words = is_installed ? tr("%1 (in use)").arg(reason) : reason;
        new QTreeWidgetItem(m_list, {QLocale().toString(static_cast<qulonglong>(entry.number)),
                                     date_text(entry.seconds), QString::fromStdString(user), words});
    }
    if (m_content.kept.empty())
        //: former configurations: said where nothing was kept yet
        m_words->setText(tr("No configuration has been kept yet: the first one is when you install one."));
    else
        m_list->setCurrentItem(m_list->topLevelItem(place_of(before)));
    show_difference();
}

const KeptConfiguration* KeptConfigurationsWindow::chosen() const {
    const int row = m_list->indexOfTopLevelItem(m_list->currentItem());
    return row < 0 ? nullptr : &m_content.kept[static_cast<std::size_t>(row)];
}

void KeptConfigurationsWindow::show_difference() {
    const auto* one = chosen();
    const auto lines = one ? text_difference(m_content.installed, one->text) : std::vector<DifferenceLine>();
    m_restore->setEnabled(!lines.empty());
    //: former configurations: above the lines that differ; the same where there are none
    m_title->setText(one && lines.empty() ? tr("This is what is installed.") : tr("What would c&hange:"));
    tickervantage::show_difference(m_difference, lines);
}

void KeptConfigurationsWindow::restore() {
    const auto* one = chosen();
    if (!one)
        return;
    m_words->clear();
    Q_EMIT wanted(one->text);
}

void KeptConfigurationsWindow::show_outcome(const Result<>& outcome) {
    //: former configurations: said when one was brought back
    m_words->setText(outcome ? tr("It is back, and chronyd runs with it.") : in_words(outcome.error()));
    set_alarmed(m_words, !outcome);
    load();
}

} // namespace tickervantage
