#include "gui/help/help_viewer.h"

#include "gui/help/help_contents.h"
#include "gui/help/help_find_bar.h"
#include "gui/help/help_page_view.h"
#include "help/help_pages.h"
#include "qt/text_scale.h"

#include <QAction>
#include <QEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>

#include <atomic>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t most_hits_in_a_page = 40;
constexpr std::size_t search_width = 500; // letters: long lines, in which nothing is folded within a word
constexpr int fewest_letters = 2;

} // namespace

// Shared with the search that is under way.
struct HelpViewer::Searched {
    std::atomic<std::uint64_t> newest{0};          // its number: an older one stops between two pages
    std::map<std::string_view, std::string> texts; // of the pages that were searched; queue only
};

HelpViewer::HelpViewer(HelpViewerParts parts)
    : m_parts(std::move(parts)), m_searched(std::make_shared<Searched>()), m_background(m_parts.main_thread) {
    setObjectName(QStringLiteral("HelpViewer"));
    //: help window: title
    setWindowTitle(tr("Help"));
    build();
    build_tools();
    setMinimumSize(460, 300);
    resize(scaled(QSize(960, 680), *this));
}

HelpViewer::~HelpViewer() {
    m_background.forget_newest();
    ++m_searched->newest;
}

void HelpViewer::build() {
    auto* splitter = new QSplitter(this);
    m_contents = new HelpContents(splitter);
    auto* right = new QWidget(splitter);
    m_page = new HelpPageView(QString::fromStdString(m_parts.pages->own_pages()), right);
    m_find_bar = new HelpFindBar(m_page, right);
    auto* column = new QVBoxLayout(right);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(m_page);
    column->addWidget(m_find_bar);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({scaled(240, *this), scaled(720, *this)});
    setCentralWidget(splitter);
    connect(m_page, &QTextBrowser::anchorClicked, this, &HelpViewer::follow);
    connect(m_contents, &HelpContents::topicChosen, this, &HelpViewer::open_page);
    connect(m_contents, &HelpContents::passageChosen, this, &HelpViewer::open_passage);
    connect(m_contents, &HelpContents::wordsEdited, this, &HelpViewer::search);
}

template <class Slot>
QAction* HelpViewer::add_tool(const char* name, const char* icon, const QString& text, const QList<QKeySequence>& keys,
                              Slot slot) {
    auto* tools = findChild<QToolBar*>();
    QAction* action = tools->addAction(QIcon::fromTheme(QLatin1String(icon)), text);
    action->setObjectName(QLatin1String(name));
    action->setShortcuts(keys);
    action->setToolTip(text + QStringLiteral(" (") + action->shortcut().toString(QKeySequence::NativeText) +
                       QLatin1Char(')'));
    connect(action, &QAction::triggered, this, slot);
    return action;
}

void HelpViewer::build_tools() {
    //: help window: name of the tool bar
    auto* tools = addToolBar(tr("Tools"));
    tools->setMovable(false);
    tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    tools->setContextMenuPolicy(Qt::PreventContextMenu);
    //: help window: buttons of the tool bar
    m_back = add_tool("back", "go-previous", tr("Back"), QKeySequence::keyBindings(QKeySequence::Back),
                      [this] { step(-1); });
    m_forward =
        //: help window: tool, the page that was left with Back
        add_tool("forward", "go-next", tr("Forward"), QKeySequence::keyBindings(QKeySequence::Forward),
                 [this] { step(1); });
    //: help window: tool, opens the find bar
    add_tool("findInPage", "edit-find", tr("Find…"), {QKeySequence(QKeySequence::Find)},
             [this] { m_find_bar->open(); });
    //: help window: tool, goes to the field that searches all pages
    add_tool("searchAll", "help-contents", tr("Search All…"), {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F)},
             [this] { m_contents->focus_search(); });
    //: help window: tool, smaller letters
    add_tool("smaller", "zoom-out", tr("Smaller"), {QKeySequence(QKeySequence::ZoomOut)},
             [this] { m_page->zoomOut(); });
    //: help window: tool, larger letters
    add_tool("larger", "zoom-in", tr("Larger"),
             {QKeySequence(QKeySequence::ZoomIn), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
             [this] { m_page->zoomIn(); });
    m_back->setEnabled(false);
    m_forward->setEnabled(false);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);
}

void HelpViewer::open_page(const QString& name) {
    const HelpTarget target = help_target("help:" + name.toStdString());
    if (target.topic != nullptr)
        visit({target.topic, QString::fromStdString(target.place), 0});
}

void HelpViewer::open_passage(const QString& name, const QString& excerpt) {
    m_excerpt = excerpt;
    open_page(name);
}

void HelpViewer::follow(const QUrl& link) {
    const HelpTarget target = help_target(link.toString().toStdString());
    if (target.is_in_help)
        visit({target.topic != nullptr ? target.topic : m_shown, QString::fromStdString(target.place), 0});
    else if (link.scheme() == QLatin1String("https") || link.scheme() == QLatin1String("http"))
        Q_EMIT address_requested(link.toString());
}

void HelpViewer::visit(const Visit& where) {
    if (where.topic == nullptr)
        return;
    if (!m_visits.empty()) {
        m_visits[m_at].scroll = m_page->verticalScrollBar()->value();
        m_visits.resize(m_at + 1); // what lay ahead is forgotten, as in a browser
    }
    m_visits.push_back(where);
    m_at = m_visits.size() - 1;
    show_current();
}

void HelpViewer::step(int by) {
    m_visits[m_at].scroll = m_page->verticalScrollBar()->value();
    m_at = by < 0 ? m_at - 1 : m_at + 1;
    show_current();
}

void HelpViewer::show_current() {
    const HelpTopic& topic = *m_visits[m_at].topic;
    m_back->setEnabled(m_at > 0);
    m_forward->setEnabled(m_at + 1 < m_visits.size());
    m_contents->mark(topic);
    m_background.forget_newest(); // a page under way is another one
    if (m_shown == &topic)
        arrive();
    else if (const auto read = m_read.find(topic.name); read != m_read.end())
        apply(topic, read->second);
    else
        request(topic);
}

void HelpViewer::request(const HelpTopic& topic) {
    m_background.start_newest(
        m_parts.queue, [pages = m_parts.pages, &topic] { return pages->for_window(topic); },
        [this, &topic](const HelpPage& page) {
            if (page.absence == HelpAbsence::none)
                m_read[topic.name] = page;
            apply(topic, page);
        });
}

void HelpViewer::apply(const HelpTopic& topic, const HelpPage& page) {
    m_page->show_page(topic, page);
    m_shown = page.absence == HelpAbsence::none ? &topic : nullptr;
    //: help window: its title with a page; %1 the page's title
    setWindowTitle(tr("Help: %1").arg(title_of(topic)));
    arrive();
}

void HelpViewer::arrive() {
    const Visit& visit = m_visits[m_at];
    if (const QString excerpt = std::exchange(m_excerpt, {}); !excerpt.isEmpty())
        m_page->go_to_excerpt(excerpt, m_words);
    else if (visit.scroll > 0)
        m_page->verticalScrollBar()->setValue(visit.scroll);
    else
        m_page->go_to(visit.place);
}

void HelpViewer::search(const QString& words) {
    const std::uint64_t number = ++m_searched->newest;
    m_words = words.simplified();
    if (m_words.size() < fewest_letters) {
        m_contents->hide_hits();
        return;
    }
    const auto find = [searched = m_searched, number, pages = m_parts.pages, words = m_words.toStdString()] {
        std::vector<FoundPassage> hits;
        for (const auto& topic : help_topics()) {
            if (searched->newest != number)
                break;
            auto& text = searched->texts[topic.name];
            if (text.empty())
                text = pages->for_terminal(topic, search_width).text;
            for (const auto& excerpt : search_page(text, words, most_hits_in_a_page))
                hits.push_back({&topic, QString::fromStdString(excerpt)});
        }
        return hits;
    };
    m_background.start(m_parts.queue, find, [this, number](const std::vector<FoundPassage>& hits) {
        if (m_searched->newest == number)
            m_contents->show_hits(m_words, hits);
    });
}

void HelpViewer::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || m_shown == nullptr)
        return;
    const int scroll = m_page->verticalScrollBar()->value(); // colours are part of the text
    m_page->show_page(*m_shown, m_read[m_shown->name]);
    m_page->verticalScrollBar()->setValue(scroll);
}

} // namespace tickervantage
