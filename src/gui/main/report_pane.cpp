#include "gui/main/report_pane.h"

#include "gui/main/command_output.h"
#include "qt/named_widget.h"
#include "qt/text_scale.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QSpinBox>
#include <QStyle>
#include <QToolButton>

#include <utility>

namespace tickervantage {

/* TRANSLATOR mainwindow
   The main window: how the clock is, its sources, and a report of chrony. */
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(mainwindow)
};

constexpr int row_wide_enough = 600; // points, for all controls in one row

QWidget* build_interval_holder(QWidget* parent, QSpinBox* interval) {
    auto* holder = new QWidget(parent);
    holder->setObjectName(QStringLiteral("ph_interval"));
    //: main window: label of the interval
    auto* label = new QLabel(Texts::tr("&Every"), holder);
    label->setBuddy(interval);
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label);
    row->addWidget(interval);
    return holder;
}

QToolButton* button(QWidget* parent, const char* name, QStyle::StandardPixmap picture, const QString& words) {
    auto* made = named(new QToolButton(parent), name, words, words);
    made->setIcon(made->style()->standardIcon(picture));
    made->setAutoRaise(true);
    made->setFocusPolicy(Qt::TabFocus);
    return made;
}

} // namespace

ReportPane::ReportPane(QWidget* parent, const MainWindowControls& controls)
    : QWidget(parent), m_content(new QWidget(this)), m_row(new QBoxLayout(QBoxLayout::LeftToRight)) {
    setObjectName(QStringLiteral("report_pane"));
    m_content->setObjectName(QStringLiteral("report_content"));
    build_head(controls);
    auto* head = new QHBoxLayout;
    head->addLayout(m_row, 1);
    head->addSpacing(8);
    head->addWidget(m_move, 0, Qt::AlignTop);
    head->addWidget(m_content->findChild<QToolButton*>(QStringLiteral("hide_report")), 0, Qt::AlignTop);
    auto* column = new QVBoxLayout(m_content);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(head);
    column->addWidget(controls.m_textscroll, 1);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(m_content);
}

void ReportPane::build_head(const MainWindowControls& controls) {
    //: main window: label of the command menu
    auto* label = new QLabel(Texts::tr("&Report:"), m_content);
    label->setBuddy(controls.commandMenu);
    auto* what = new QHBoxLayout;
    for (QWidget* one : std::initializer_list<QWidget*>{label, controls.commandMenu, controls.m_server_label})
        what->addWidget(one);
    what->addWidget(controls.m_server, 1);
    what->addStretch(1);
    auto* how = new QHBoxLayout;
    how->addWidget(controls.showIPaddress);
    how->addWidget(controls.showOriginalName);
    how->addStretch(1);
    how->addWidget(build_interval_holder(m_content, controls.m_interval));
    m_row->addLayout(what, 1);
    m_row->addLayout(how);
    build_buttons();
}

void ReportPane::build_buttons() {
    m_move = button(m_content, "move_report", QStyle::SP_TitleBarNormalButton, {});
    //: main window: button that hides the report
    auto* hide = button(m_content, "hide_report", QStyle::SP_TitleBarCloseButton, Texts::tr("Hide the report"));
    connect(hide, &QToolButton::clicked, this, [this] { set_place(Place::hidden); });
    connect(m_move, &QToolButton::clicked, this,
            [this] { set_place(m_place == Place::apart ? Place::docked : Place::apart); });
    set_out();
}

void ReportPane::set_place(Place place) {
    if (std::exchange(m_place, place) == place)
        return;
    if (place == Place::apart)
        open_apart();
    else
        close_apart();
    setVisible(place == Place::docked);
    set_out();
    Q_EMIT place_changed();
}

void ReportPane::show_apart(bool shown) {
    if (m_apart)
        m_apart->setVisible(shown);
}

QByteArray ReportPane::apart_geometry() const {
    return m_apart ? m_apart->saveGeometry() : m_apart_geometry;
}

void ReportPane::open_apart() {
    m_apart = new QWidget(window(), Qt::Window);
    m_apart->setObjectName(QStringLiteral("ReportWindow"));
    //: title of the window with chronyc's report, where it stands apart from the main window
    m_apart->setWindowTitle(Texts::tr("chronyc's report"));
    auto* column = new QVBoxLayout(m_apart);
    column->addWidget(m_content);
    m_apart->resize(scaled(QSize(720, 460), *this));
    if (!m_apart_geometry.isEmpty())
        m_apart->restoreGeometry(m_apart_geometry);
    m_apart->installEventFilter(this);
    m_content->show();
    m_apart->setVisible(window()->isVisible());
}

void ReportPane::close_apart() {
    if (!m_apart)
        return;
    m_apart_geometry = m_apart->saveGeometry();
    layout()->addWidget(m_content);
    m_content->show();
    m_apart->removeEventFilter(this);
    m_apart->hide();
    m_apart->deleteLater();
    m_apart.clear();
}

bool ReportPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_apart && event->type() == QEvent::Close && window()->isVisible()) {
        set_place(Place::hidden);
        return true;
    }
    if (watched == m_apart && event->type() == QEvent::Resize)
        set_out();
    return QWidget::eventFilter(watched, event);
}

void ReportPane::set_out() {
    const int width = m_apart ? m_apart->width() : this->width();
    m_row->setDirection(width >= scaled(row_wide_enough, *this) ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    const QString words = m_place == Place::apart
                              //: main window: button that brings the report back from a window of its own
                              ? Texts::tr("Put the report back into the main window")
                              //: main window: button that shows the report in a window of its own
                              : Texts::tr("Show the report in a window of its own");
    m_move->setAccessibleName(words);
    m_move->setToolTip(words);
}

void ReportPane::resizeEvent(QResizeEvent* event) {
    set_out();
    QWidget::resizeEvent(event);
}

} // namespace tickervantage
