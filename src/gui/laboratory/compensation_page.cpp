#include "gui/laboratory/compensation_page.h"

#include "gui/laboratory/compensation_words.h"
#include "qt/named_widget.h"
#include "qt/text_scale.h"
#include "settings/settings_catalogue.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(laboratory)
};

QTreeWidget* figure_table(QWidget* parent) {
    //: laboratory, compensation: name of the table
    auto* table = named(new QTreeWidget(parent), "compensation_figures", Texts::tr("Figures"), QString());
    table->setColumnCount(3);
    table->setHeaderHidden(true);
    table->setRootIsDecorated(false);
    table->setUniformRowHeights(true);
    table->setAlternatingRowColors(true);
    const int line = table->fontMetrics().lineSpacing();
    table->setMinimumHeight(6 * line);
    table->setMaximumHeight(13 * line); // the chart gets the rest
    return table;
}

} // namespace

CompensationChart::CompensationChart(QWidget* parent)
    : PlotSurface(parent, {.preferred = {640, 300}, .smallest = {300, 160}}) {
    m_view.m_show_mean_frequency = m_view.m_show_freq_bounds = m_view.m_show_last_record = false;
}

void CompensationChart::set_picture(const ScatterMap& picture) {
    m_view.set_scatter(picture);
    plot_changed();
}

void CompensationChart::draw_plot(Canvas& canvas) const {
    m_view.draw(canvas, bounds());
}

CompensationPage::CompensationPage(QWidget* parent, CompensationPageParts parts)
    : QWidget(parent), m_parts(std::move(parts)), m_background(m_parts.main_thread) {
    setObjectName(QStringLiteral("compensation_page"));
    build();
}

void CompensationPage::build() {
    //: laboratory, compensation: name of the sentence above the chart
    m_headline = named(new QLabel(this), "compensation_headline", Texts::tr("What it says"), QString());
    m_headline->setTextFormat(Qt::PlainText);
    m_headline->setWordWrap(true);
    m_headline->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont font = m_headline->font();
    font.setBold(true);
    m_headline->setFont(font);
    //: laboratory, compensation: name of the chart
    m_chart =
        named(new CompensationChart(this), "compensation_chart", Texts::tr("Frequency against temperature"), QString());
    //: laboratory, compensation: name of the line that says which colour is what
    m_legend = named(new QLabel(legend(), this), "compensation_legend", Texts::tr("Legend"), QString());
    m_legend->setTextFormat(Qt::RichText);
    m_figures = figure_table(this);
    //: laboratory, compensation: name of the button that has more points kept, and its tooltip
    m_more_points =
        named(new QPushButton(this), "compensation_more_points", Texts::tr("Keep more points"),
              //: laboratory, compensation: tooltip of that button
              Texts::tr("So many points of each sensor are kept from now on: enough days for a compensation"));
    m_more_points->hide();
    connect(m_more_points, &QPushButton::clicked, this, [this] { Q_EMIT more_points_requested(m_points_needed); });
    auto* sentence = new QHBoxLayout;
    sentence->addWidget(m_headline, 1);
    sentence->addWidget(m_more_points, 0, Qt::AlignTop);
    auto* column = new QVBoxLayout(this);
    column->addLayout(sentence);
    column->addWidget(m_chart, 1);
    column->addWidget(m_legend);
    column->addWidget(m_figures);
    column->addWidget(build_buttons());
    column->addStretch(0); // takes what chart and figures leave where there are none
    m_chart->hide();
    m_figures->hide();
}

QWidget* CompensationPage::build_buttons() {
    auto* row = new QWidget(this);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const char* name, const QString& text, const QString& tooltip) {
        auto* button = named(new QPushButton(text, row), name, QString(text).remove(QLatin1Char('&')), tooltip);
        line->addWidget(button);
        return button;
    };
    //: laboratory, compensation: button, and its tooltip
    auto* points = add("compensation_points", Texts::tr("&Frequency and Temperature"),
                       //: laboratory, compensation: tooltip of a button
                       Texts::tr("Open the window that reads frequencies and temperatures together"));
    line->addStretch(1);
    //: laboratory, compensation: button that installs, and its tooltip
    m_install = add("compensation_install", Texts::tr("I&nstall…"),
                    //: laboratory, compensation: tooltip of a button
                    Texts::tr("Have chronyd compensate for the temperature by this curve"));
    //: laboratory, compensation: button that removes what is installed, and its tooltip
    m_take_back = add("compensation_take_back", Texts::tr("Take &Back…"),
                      //: laboratory, compensation: tooltip of a button
                      Texts::tr("Have chronyd run without the compensation that is installed"));
    connect(points, &QPushButton::clicked, this, &CompensationPage::points_requested);
    connect(m_install, &QPushButton::clicked, this, &CompensationPage::request_installation);
    connect(m_take_back, &QPushButton::clicked, this, &CompensationPage::take_back_requested);
    m_install->setEnabled(false);
    m_take_back->setEnabled(false);
    return row;
}

QString CompensationPage::legend() const {
    const auto entry = [](const char* color, const QString& text) {
        return QStringLiteral("<span style='color:%1'>●</span> %2").arg(QLatin1String(color), text.toHtmlEscaped());
    };
    const QStringList entries{//: laboratory, compensation: what the blue dots are
                              entry("#1f73d9", Texts::tr("measured")),
                              //: laboratory, compensation: what the red line is
                              entry("#d93326", Texts::tr("curve")),
                              //: laboratory, compensation: what the green dots are
                              entry("#1a9940", Texts::tr("as it would be with the compensation"))};
    return entries.join(QStringLiteral("&nbsp;&nbsp;&nbsp;"));
}

void CompensationPage::set_configuration(const std::string& path) {
    m_configuration = path;
}

void CompensationPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    look();
}

void CompensationPage::look() {
    if (!isVisible())
        return;
    if (m_headline->text().isEmpty())
        //: laboratory, compensation: while files are read
        m_headline->setText(Texts::tr("Reading…"));
    m_background.start_newest(
        m_parts.queue,
        [places = CompensationPlaces{m_parts.map, m_configuration}, &files = m_parts.files, &logs = m_parts.logs] {
            CompensationState state = read_compensation(places, files, logs);
            ScatterMap picture = state.choice ? picture_of(*state.choice) : ScatterMap();
            return std::pair(std::move(state), std::move(picture));
        },
        [this](const std::pair<CompensationState, ScatterMap>& found) {
            show_state(found.first);
            offer_more_points(static_cast<std::size_t>(load(m_parts.settings, settings::max_samples)));
            show_picture(found.second);
        });
}

void CompensationPage::show_state(const CompensationState& state) {
    m_state = state;
    m_headline->setText(compensation_headline(state));
    m_figures->clear();
    for (const QStringList& row : compensation_figures(state))
        new QTreeWidgetItem(m_figures, row);
    const int gap = m_figures->fontMetrics().averageCharWidth() * 2;
    for (int at = 0; at < 3; ++at) {
        m_figures->resizeColumnToContents(at);
        m_figures->setColumnWidth(at, m_figures->columnWidth(at) + gap);
    }
    m_figures->setVisible(m_figures->topLevelItemCount() > 0);
    const bool is_good = state.choice && !state.choice->study.refused;
    m_install->setEnabled(m_parts.can_install && is_good);
    m_take_back->setEnabled(m_parts.can_install && state.installed.has_value());
}

void CompensationPage::offer_more_points(std::size_t most) {
    m_points_needed = m_state.choice ? points_needed(*m_state.choice, most) : 0;
    m_more_points->setVisible(m_points_needed > 0);
    if (m_points_needed == 0)
        return;
    m_headline->setText(m_headline->text() + QLatin1Char(' ') + few_points_words(most, m_points_needed));
    m_more_points->setText(keep_points_words(m_points_needed));
}

void CompensationPage::show_picture(const ScatterMap& picture) {
    m_chart->set_picture(picture);
    m_chart->setVisible(!picture.empty());
    m_legend->setVisible(picture.size() > 1);
}

// The readings as they were, since whoever installs them takes off what is installed by itself.
void CompensationPage::request_installation() {
    Q_EMIT install_requested(m_state.map);
}

} // namespace tickervantage
