// The left side of the help window: the list of pages, the field that searches all of them, and what it found. Main
// thread only.
#pragma once

#include "help/help_topics.h"

#include <QWidget>

#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;

namespace tickervantage {

struct FoundPassage {
    const HelpTopic* topic = nullptr;
    QString excerpt;
};

class HelpContents : public QWidget {
    Q_OBJECT
public:
    explicit HelpContents(QWidget* parent);

    void mark(const HelpTopic& topic); // as the one that is shown
    void show_hits(const QString& words, const std::vector<FoundPassage>& hits);
    void hide_hits();
    void focus_search();

Q_SIGNALS:
    void topicChosen(const QString& name);
    void passageChosen(const QString& name, const QString& excerpt);
    void wordsEdited(const QString& words);

private:
    void build_topics();
    void choose_topic();
    void choose_passage(const QListWidgetItem* item);

    QLineEdit* m_search;
    QListWidget* m_topics;
    QLabel* m_answer;
    QListWidget* m_hits;
};

} // namespace tickervantage
