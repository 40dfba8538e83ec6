// The help window: chrony's manual pages and our own, with links between them.
//
// Pages are read and searched on the queue; answers are applied on the main thread unless a newer one was asked for
// meanwhile. A page that was read is kept, one that is absent is looked for again at every visit. Main thread only.
//
// The parts outlive the window, and the main thread outlives the queue: an answer may be under way when the window
// dies.
#pragma once

#include "base/background.h"
#include "help/help_pages.h"

#include <QMainWindow>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QAction;

namespace tickervantage {

class HelpContents;
class HelpFindBar;
class HelpPageView;

struct HelpViewerParts {
    std::shared_ptr<const HelpPages> pages;
    DispatchQueueSerial& queue;
    MainThread& main_thread;
};

class HelpViewer : public QMainWindow {
    Q_OBJECT
public:
    explicit HelpViewer(HelpViewerParts parts);
    ~HelpViewer() override;
    HelpViewer(const HelpViewer&) = delete;
    HelpViewer& operator=(const HelpViewer&) = delete;

    // Shows the page of that name; with "#" and a heading's name behind it, at that place. An unknown name does
    // nothing.
    void open_page(const QString& name);

Q_SIGNALS:
    void address_requested(const QString& address); // of a page of the web

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Visit {
        const HelpTopic* topic = nullptr;
        QString place;
        int scroll = 0;
    };
    struct Searched;

    void build();
    void build_tools();
    template <class Slot>
    QAction* add_tool(const char* name, const char* icon, const QString& text, const QList<QKeySequence>& keys,
                      Slot slot);
    void visit(const Visit& where);
    void follow(const QUrl& link);
    void step(int by);
    void show_current();
    void request(const HelpTopic& topic);
    void apply(const HelpTopic& topic, const HelpPage& page);
    void arrive();
    void search(const QString& words);
    void open_passage(const QString& name, const QString& excerpt);

    HelpViewerParts m_parts;
    HelpContents* m_contents = nullptr;
    HelpPageView* m_page = nullptr;
    HelpFindBar* m_find_bar = nullptr;
    QAction* m_back = nullptr;
    QAction* m_forward = nullptr;
    std::map<std::string_view, HelpPage> m_read; // by topic
    std::vector<Visit> m_visits;
    std::size_t m_at = 0; // the visit that is shown
    const HelpTopic* m_shown = nullptr;
    QString m_words;   // of the last search
    QString m_excerpt; // to be found in the page that is on its way
    std::shared_ptr<Searched> m_searched;
    Background m_background;
};

} // namespace tickervantage
