#include "gui/servers/servers_list.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace tickervantage {

std::string one_line_of(const QString& text) {
    QString line = text;
    line.removeIf([](QChar c) { return c.category() == QChar::Other_Control || c == QChar::LineSeparator; });
    return line.toStdString();
}

ServerListModel::ServerListModel(std::vector<server_data>& servers, QObject* parent)
    : QAbstractListModel(parent), m_servers(servers) {}

void ServerListModel::insert(int row, server_data server) {
    beginInsertRows({}, row, row);
    m_servers.insert(m_servers.begin() + row, std::move(server));
    endInsertRows();
}

server_data ServerListModel::remove(int row) {
    beginRemoveRows({}, row, row);
    server_data server = std::move(m_servers[static_cast<std::size_t>(row)]);
    m_servers.erase(m_servers.begin() + row);
    endRemoveRows();
    return server;
}

void ServerListModel::replace_all(std::vector<server_data> servers) {
    beginResetModel();
    m_servers = std::move(servers);
    endResetModel();
}

int ServerListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_servers.size());
}

QVariant ServerListModel::data(const QModelIndex& index, int role) const {
    const auto& server = m_servers[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return QString::fromStdString(server.title);
    if (role == Qt::ToolTipRole)
        return QString::fromStdString(server.address);
    return {};
}

bool ServerListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole)
        return false;
    std::string title = one_line_of(value.toString());
    const ServerProblem problem = check_title(title);
    if (problem != ServerProblem::none) {
        Q_EMIT refused(problem);
        return false;
    }
    auto& server = m_servers[static_cast<std::size_t>(index.row())];
    if (title == server.title)
        return false;
    server.title = std::move(title);
    server.garbled.clear();
    Q_EMIT dataChanged(index, index);
    Q_EMIT edited();
    return true;
}

Qt::ItemFlags ServerListModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::ItemIsDropEnabled; // between rows, never on one
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsDragEnabled;
}

Qt::DropActions ServerListModel::supportedDropActions() const {
    return Qt::MoveAction;
}

bool ServerListModel::moveRows(const QModelIndex& from, int row, int count, const QModelIndex& to, int destination) {
    if (count != 1 || !beginMoveRows(from, row, row, to, destination))
        return false;
    const auto first = m_servers.begin();
    if (row < destination)
        std::rotate(first + row, first + row + 1, first + destination);
    else
        std::rotate(first + destination, first + row, first + row + 1);
    endMoveRows();
    Q_EMIT edited();
    return true;
}

bool GuardedSelection::allows(const QModelIndex& index) {
    if (m_free || index == currentIndex())
        return true;
    bool may = index.isValid();
    if (may)
        Q_EMIT leaving(may);
    return may;
}

void GuardedSelection::select(const QItemSelection& selection, SelectionFlags command) {
    const QModelIndexList rows = selection.indexes();
    const bool leaves_one = rows.size() == 1 && !(command & (Deselect | Toggle));
    if (m_free || (leaves_one && allows(rows.front())))
        QItemSelectionModel::select(selection, command);
}

void GuardedSelection::setCurrentIndex(const QModelIndex& index, SelectionFlags command) {
    if (allows(index))
        QItemSelectionModel::setCurrentIndex(index, command);
}

void GuardedSelection::go_to(int row) {
    m_free = true;
    setCurrentIndex(model()->index(row, 0), ClearAndSelect);
    m_free = false;
}

ServerListView::ServerListView(QWidget* parent) : QListView(parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    setDragDropMode(QAbstractItemView::InternalMove);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ServerListView::set_empty_text(const QString& text) {
    m_empty_text = text;
    viewport()->update();
}

void ServerListView::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (model() == nullptr || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    constexpr int margin = 12;
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin), Qt::AlignCenter | Qt::TextWordWrap,
                     m_empty_text);
}

} // namespace tickervantage
