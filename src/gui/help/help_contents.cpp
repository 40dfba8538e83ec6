#include "gui/help/help_contents.h"

#include "gui/help/help_page_view.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

namespace tickervantage {
namespace {

constexpr int name_role = Qt::UserRole;
constexpr int excerpt_role = Qt::UserRole + 1;

QString name_of(const HelpTopic& topic) {
    return QString::fromUtf8(topic.name.data(), static_cast<qsizetype>(topic.name.size()));
}

} // namespace

HelpContents::HelpContents(QWidget* parent)
    : QWidget(parent), m_search(new QLineEdit(this)), m_topics(new QListWidget(this)), m_answer(new QLabel(this)),
      m_hits(new QListWidget(this)) {
    m_search->setObjectName(QStringLiteral("search"));
    //: help window: accessible name and placeholder of the field that searches every page
    m_search->setAccessibleName(tr("Search all pages"));
    m_search->setPlaceholderText(m_search->accessibleName());
    m_search->setClearButtonEnabled(true);
    build_topics();
    m_answer->setObjectName(QStringLiteral("search_answer"));
    m_answer->setWordWrap(true);
    m_hits->setObjectName(QStringLiteral("hits"));
    //: help window: accessible name of the list of what a search found
    m_hits->setAccessibleName(tr("Passages found"));
    m_hits->setWordWrap(true);
    auto* column = new QVBoxLayout(this);
    for (QWidget* widget : {static_cast<QWidget*>(m_search), static_cast<QWidget*>(m_topics),
                            static_cast<QWidget*>(m_answer), static_cast<QWidget*>(m_hits)})
        column->addWidget(widget, widget == m_hits ? 1 : 0);
    column->addStretch();
    connect(m_search, &QLineEdit::textChanged, this, &HelpContents::wordsEdited);
    connect(m_topics, &QListWidget::currentRowChanged, this, &HelpContents::choose_topic);
    connect(m_hits, &QListWidget::itemClicked, this, &HelpContents::choose_passage);
    connect(m_hits, &QListWidget::itemActivated, this, &HelpContents::choose_passage);
    setMinimumWidth(180);
    hide_hits();
}

void HelpContents::build_topics() {
    m_topics->setObjectName(QStringLiteral("topics"));
    //: help window: accessible name of the list of pages
    m_topics->setAccessibleName(tr("Pages"));
    for (const auto& topic : help_topics()) {
        auto* item = new QListWidgetItem(title_of(topic), m_topics);
        item->setData(name_role, name_of(topic));
    }
    const int rows = m_topics->count() * m_topics->sizeHintForRow(0);
    m_topics->setFixedHeight(rows + 2 * m_topics->frameWidth() + 4);
}

void HelpContents::choose_topic() {
    if (const auto* item = m_topics->currentItem())
        Q_EMIT topicChosen(item->data(name_role).toString());
}

void HelpContents::choose_passage(const QListWidgetItem* item) {
    Q_EMIT passageChosen(item->data(name_role).toString(), item->data(excerpt_role).toString());
}

void HelpContents::mark(const HelpTopic& topic) {
    const QSignalBlocker quiet(m_topics);
    for (int row = 0; row < m_topics->count(); ++row)
        if (m_topics->item(row)->data(name_role) == name_of(topic))
            m_topics->setCurrentRow(row);
}

void HelpContents::show_hits(const QString& words, const std::vector<FoundPassage>& hits) {
    m_hits->clear();
    for (const auto& hit : hits) {
        auto* item = new QListWidgetItem(title_of(*hit.topic) + QStringLiteral(":\n") + hit.excerpt, m_hits);
        item->setData(name_role, name_of(*hit.topic));
        item->setData(excerpt_role, hit.excerpt);
    }
    //: help window: answer of a search; %1 what was searched for
    m_answer->setText(hits.empty() ? tr("No page has “%1”.").arg(words)
                                   : /*: help window: answer of a search; %n passages were found */ tr(
                                         "%n passage(s)", nullptr, static_cast<int>(hits.size())));
    m_answer->show();
    m_hits->setVisible(!hits.empty());
}

void HelpContents::hide_hits() {
    m_answer->hide();
    m_hits->hide();
}

void HelpContents::focus_search() {
    m_search->setFocus();
    m_search->selectAll();
}

} // namespace tickervantage
