#include "gui/freqtemp/sensor_inspector.h"

#include "base/broadcast.h"
#include "base/failure_codes.h"
#include "base/user_files.h"
#include "gui/freqtemp/rtf_html.h"
#include "gui/freqtemp/sensor_table.h"
#include "qt/text_scale.h"
#include "studies/freqtemp/sensor_menu.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <iostream>
#include <utility>

namespace tickervantage {
namespace {

constexpr const char* LISTENER = "sensorinspector.listener";

// On the queue; empty when there is no such file.
Result<QString> read_equation(UserFiles& files, const std::string& path) {
    const FileReading file = files.read(path, LARGEST_RTF);
    if (file.outcome == FileReading::Outcome::missing)
        return QString();
    if (file.outcome == FileReading::Outcome::read)
        return html_of_rtf(file.bytes);
    return failed(FailureCode::cannot_read, {path}, file.reason);
}

} // namespace

SensorInspector::SensorInspector(SensorInspectorParts parts)
    : m_parts(std::move(parts)), m_background(m_parts.main_thread) {
    setObjectName(QStringLiteral("SensorInspector"));
    //: sensor inspector: title
    setWindowTitle(tr("Sensor Inspector"));
    build();
    constexpr int beside = 48; // the margins, and a bar to scroll with
    const int width =
        std::min(m_sensors_table->horizontalHeader()->length() + beside, screen()->availableSize().width());
    resize(std::max(width, minimumSizeHint().width()), scaled(QSize(720, 280), *this).height());
}

SensorInspector::~SensorInspector() {
    if (m_is_listening)
        m_parts.broadcast.RemoveListener(sensor_inspector_key, LISTENER);
}

void SensorInspector::build() {
    auto* central = new QWidget(this);
    m_equation = new QLabel(central);
    m_equation->setObjectName(QStringLiteral("m_equation"));
    //: sensor inspector: name of the text above the table
    m_equation->setAccessibleName(tr("Equation"));
    m_equation->setTextFormat(Qt::RichText);
    m_equation->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_equation->setWordWrap(true);
    build_table();
    //: sensor inspector: shown in place of an empty table
    m_empty = new QLabel(tr("Nothing is known yet. The window “Frequency and Temperature” collects the points, and "
                            "tells them here with each reading of the clock's frequency while it is open."),
                         central);
    m_empty->setObjectName(QStringLiteral("empty"));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    auto* column = new QVBoxLayout(central);
    column->addWidget(m_equation);
    column->addWidget(m_sensors_table, 1);
    column->addWidget(m_empty, 1);
    setCentralWidget(central);
    rows_changed();
}

void SensorInspector::build_table() {
    m_sensors = new SensorTable(this);
    m_sensors_table = new QTableView(this);
    m_sensors_table->setObjectName(QStringLiteral("m_sensors_table"));
    //: sensor inspector: name of the table
    m_sensors_table->setAccessibleName(tr("Sensors"));
    m_sensors_table->setModel(m_sensors);
    m_sensors_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_sensors_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_sensors_table->setAlternatingRowColors(true);
    m_sensors_table->setWordWrap(false);
    m_sensors_table->setTabKeyNavigation(false);
    m_sensors_table->verticalHeader()->hide();
    auto* header = m_sensors_table->horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionResizeMode(QHeaderView::Interactive);
    const int digit = m_sensors_table->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    for (int column = 0; column < m_sensors->columnCount(); ++column)
        header->resizeSection(column, digit * (column == 0 ? 28 : column < 3 ? 9 : 12)); // "-1.23457e-05" and some air
    //: sensor inspector: menu item, the selected rows go to the clipboard
    auto* copy = new QAction(tr("&Copy Rows"), this);
    copy->setObjectName(QStringLiteral("copy_rows"));
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutVisibleInContextMenu(true);
    copy->setShortcutContext(Qt::WidgetShortcut); // over the text above, Copy is the text's own
    connect(copy, &QAction::triggered, this, [this] { copy_rows(); });
    m_sensors_table->addAction(copy);
    m_sensors_table->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void SensorInspector::windowDidLoad() {
    if (std::exchange(m_is_listening, true))
        return;
    m_parts.broadcast.AddListener(sensor_inspector_key, LISTENER, [this](std::string_view, const std::any& object) {
        if (const auto* sensors = std::any_cast<std::shared_ptr<const Sensors>>(&object)) {
            m_sensors->set_sensors(*sensors);
            rows_changed();
        }
    });
    load_equation();
    Q_EMIT sensors_requested();
}

void SensorInspector::load_equation() {
    m_background.start(
        m_parts.queue, [&files = m_parts.files, path = m_parts.equation] { return read_equation(files, path); },
        [this](const Result<QString>& equation) {
            if (!equation)
                std::cout << "Got an error " << english(equation.error()) << std::endl;
            else if (!equation->isEmpty())
                m_equation->setText(*equation);
        });
}

void SensorInspector::rows_changed() {
    const bool is_empty = m_sensors->rowCount() == 0;
    m_sensors_table->setVisible(!is_empty);
    m_empty->setVisible(is_empty);
}

void SensorInspector::copy_rows() const {
    const auto selected = m_sensors_table->selectionModel()->selectedRows();
    QStringList lines;
    const auto add_line = [&](const auto& cell) {
        QStringList cells;
        for (int column = 0; column < m_sensors->columnCount(); ++column)
            cells.push_back(cell(column));
        lines.push_back(cells.join(QLatin1Char('\t')));
    };
    add_line([&](int column) { return m_sensors->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(); });
    for (int row = 0; row < m_sensors->rowCount(); ++row)
        if (selected.isEmpty() || m_sensors_table->selectionModel()->isRowSelected(row))
            add_line([&](int column) { return m_sensors->index(row, column).data().toString(); });
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')) + QLatin1Char('\n'));
}

void SensorInspector::closeEvent(QCloseEvent* event) {
    if (std::exchange(m_is_listening, false))
        m_parts.broadcast.RemoveListener(sensor_inspector_key, LISTENER);
    QMainWindow::closeEvent(event);
}

} // namespace tickervantage
