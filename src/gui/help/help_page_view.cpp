#include "gui/help/help_page_view.h"

#include <QCoreApplication>
#include <QImage>
#include <QImageReader>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace tickervantage {
namespace {

/* TRANSLATOR helptopics
   help window: the titles of its pages */
const std::vector<const char*> topic_titles{QT_TRANSLATE_NOOP("helptopics", "First steps"),
                                            QT_TRANSLATE_NOOP("helptopics", "The windows"),
                                            QT_TRANSLATE_NOOP("helptopics", "Questions and answers")};

constexpr int widest_picture = 640; // pixels: fits beside the list of pages on a small screen
constexpr int half_light = 128;

bool is_dark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < half_light;
}

// A dark palette often keeps the dark blue that suits a light one.
QColor link_color(const QPalette& palette) {
    return is_dark(palette) ? QColor(0x8a, 0xb4, 0xf8) : QColor(0x0b, 0x57, 0xa4);
}

// Visits pieces of text with one format; the function may change them.
void for_each_fragment(QTextDocument& document, const std::function<void(const QTextFragment&)>& visit) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        std::vector<QTextFragment> fragments; // first: a change would end the walk
        for (auto at = block.begin(); !at.atEnd(); ++at)
            fragments.push_back(at.fragment());
        for (const auto& fragment : fragments)
            visit(fragment);
    }
}

void set_format(QTextDocument& document, const QTextFragment& fragment, const QTextCharFormat& format) {
    QTextCursor cursor(&document);
    cursor.setPosition(fragment.position());
    cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(format);
}

QTextBlock block_with(const QTextDocument& document, const QString& text) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        if (block.text().simplified().contains(text, Qt::CaseInsensitive))
            return block;
    return {};
}

} // namespace

QString title_of(const HelpTopic& topic) {
    return QCoreApplication::translate("helptopics", std::string(topic.title).c_str());
}

HelpPageView::HelpPageView(QString own_pages, QWidget* parent)
    : QTextBrowser(parent), m_own_pages(std::move(own_pages)) {
    setObjectName(QStringLiteral("page"));
    //: help window: name of the page for screen readers
    setAccessibleName(tr("Help page"));
    setOpenLinks(false);
}

QString HelpPageView::style_sheet() const {
    const QString quiet = is_dark(palette()) ? QStringLiteral("#2b2d30") : QStringLiteral("#f1f3f4");
    return QStringLiteral("h2 { margin-top: 18px; } "
                          "div.Bd-indent { margin-left: 28px; } "
                          "pre { font-family: monospace; margin-left: 28px; background-color: %1; } "
                          "table.foot { color: gray; }")
        .arg(quiet);
}

// Made whole before it is shown: in a document in sight every change would lay out the page anew.
void HelpPageView::show_page(const HelpTopic& topic, const HelpPage& page) {
    auto* made = new QTextDocument(this);
    made->setUndoRedoEnabled(false);
    made->setDefaultFont(font());
    made->setDocumentMargin(16);
    made->setDefaultStyleSheet(style_sheet());
    if (page.absence != HelpAbsence::none)
        made->setHtml(words_of_absence(topic, page));
    else if (topic.is_manual())
        made->setHtml(QStringLiteral("<h1>%1</h1>").arg(title_of(topic).toHtmlEscaped()) +
                      QString::fromStdString(page.text));
    else
        made->setMarkdown(QString::fromStdString(page.text));
    polish(*made);
    QTextDocument* const former = document();
    m_places = page.places;
    const bool is_ours = former->parent() == this; // the first one is the browser's own, which deletes it
    setDocument(made);
    if (is_ours)
        delete former;
}

QString HelpPageView::words_of_absence(const HelpTopic& topic, const HelpPage& page) {
    const QString title = title_of(topic).toHtmlEscaped();
    const QString address = QString::fromUtf8(manuals_address.data(), static_cast<qsizetype>(manuals_address.size()));
    //: help window: shown in place of a manual page; %1 its name
    const QString missing =
        tr("The manual page %1 is not installed on this machine. Debian's package chrony brings it, "
           "unless the system was set up to leave manual pages out.")
            .arg(title);
    //: help window: shown in place of a manual page; mandoc is a program and a package
    const QString no_renderer = tr("Manual pages are shown with mandoc, which is not installed on this machine. "
                                   "Debian's package mandoc brings it.");
    //: help window: shown in place of a manual page; %1 a link
    const QString elsewhere =
        tr("It can be read at %1.").arg(QStringLiteral("<a href=\"%1\">chrony-project.org</a>").arg(address));
    const QString reason = page.absence == HelpAbsence::not_installed ? missing
                           : page.absence == HelpAbsence::no_renderer
                               ? no_renderer
                               : QString::fromStdString(page.reason).toHtmlEscaped();
    return QStringLiteral("<h1>%1</h1><p>%2</p>").arg(title, reason) +
           (topic.is_manual() ? QStringLiteral("<p>%1</p>").arg(elsewhere) : QString());
}

// Links take a colour that can be read on this background; pictures shrink to the page.
void HelpPageView::polish(QTextDocument& made) {
    QTextCharFormat link;
    link.setForeground(link_color(palette()));
    for_each_fragment(made, [this, &link, &made](const QTextFragment& fragment) {
        if (!fragment.charFormat().anchorHref().isEmpty())
            set_format(made, fragment, link);
        if (!fragment.charFormat().isImageFormat())
            return;
        QTextImageFormat image = fragment.charFormat().toImageFormat();
        const QSize size = QImageReader(m_own_pages + QLatin1Char('/') + image.name()).size();
        image.setWidth(std::min(size.width(), widest_picture));
        set_format(made, fragment, image);
    });
}

QVariant HelpPageView::loadResource(int type, const QUrl& name) {
    const QString path = name.path();
    const bool is_own =
        name.isRelative() && path.startsWith(QLatin1String("images/")) && !path.contains(QLatin1String(".."));
    if (type != QTextDocument::ImageResource || !is_own)
        return {};
    return QImage(m_own_pages + QLatin1Char('/') + path);
}

void HelpPageView::go_to(const QString& place) {
    verticalScrollBar()->setValue(0);
    if (place.isEmpty())
        return;
    const auto named = m_places.find(place.toStdString());
    const std::string wanted = named != m_places.end() ? named->second : heading_name(place.toStdString());
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || heading_name(block.text().toStdString()) != wanted)
            continue;
        moveCursor(QTextCursor::End); // so that the heading comes to stand at the top
        setTextCursor(QTextCursor(block));
        verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top() - 8);
        return;
    }
}

void HelpPageView::go_to_excerpt(const QString& excerpt, const QString& words) {
    QString core = excerpt;
    core.remove(QChar(0x2026));
    const QTextBlock block = block_with(*document(), core.simplified());
    const QString first_word = words.simplified().section(QLatin1Char(' '), 0, 0);
    QTextCursor from(document());
    if (block.isValid())
        from.setPosition(block.position());
    const QTextCursor found = document()->find(first_word, from);
    if (found.isNull())
        return;
    moveCursor(QTextCursor::End);
    setTextCursor(found);
    ensureCursorVisible();
}

bool HelpPageView::find_text(const QString& text, Direction direction) {
    const bool back = direction == Direction::back;
    const QTextDocument::FindFlags flags = back ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (text.isEmpty() || find(text, flags))
        return true;
    const QTextCursor before = textCursor();
    moveCursor(back ? QTextCursor::End : QTextCursor::Start);
    if (find(text, flags))
        return true;
    setTextCursor(before);
    return false;
}

} // namespace tickervantage
