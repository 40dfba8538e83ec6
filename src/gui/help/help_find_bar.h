// The bar below a help page that finds text in it: Return goes on, Shift+Return back, Escape closes. Main thread only.
#pragma once

#include "gui/help/help_page_view.h"

#include <QWidget>

class QLabel;
class QLineEdit;

namespace tickervantage {

class HelpFindBar : public QWidget {
    Q_OBJECT
public:
    HelpFindBar(HelpPageView* page, QWidget* parent); // hidden at first

    void open();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void find(HelpPageView::Direction direction);
    void type(const QString& text);

    HelpPageView* m_page;
    QLineEdit* m_find;
    QLabel* m_answer;
};

} // namespace tickervantage
