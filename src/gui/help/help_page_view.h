// Shows one page of the help. Main thread only.
//
// Nothing is loaded but pictures of our own pages: a page that others wrote cannot make the program read a file or
// reach the network.
#pragma once

#include "help/help_pages.h"

#include <QTextBrowser>

#include <map>
#include <string>

namespace tickervantage {

class HelpPageView : public QTextBrowser {
    Q_OBJECT
public:
    // The folder in which the pages of our own lie, with their pictures.
    HelpPageView(QString own_pages, QWidget* parent);

    void show_page(const HelpTopic& topic, const HelpPage& page);
    void go_to(const QString& place); // the heading of that name; empty: the beginning

    // Selects the paragraph that an excerpt was taken from, or the first word of `words` where there is none such.
    void go_to_excerpt(const QString& excerpt, const QString& words);

    enum class Direction : unsigned char { onward, back };
    [[nodiscard]] bool find_text(const QString& text, Direction direction); // goes on from the other end

protected:
    QVariant loadResource(int type, const QUrl& name) override;

private:
    [[nodiscard]] static QString words_of_absence(const HelpTopic& topic, const HelpPage& page);
    void polish(QTextDocument& made);
    [[nodiscard]] QString style_sheet() const;

    QString m_own_pages;
    std::map<std::string, std::string> m_places; // of the page that is shown
};

// The title of a topic in the user's language.
[[nodiscard]] QString title_of(const HelpTopic& topic);

} // namespace tickervantage
