// The list in the server window: its rows, and a selection that asks before it moves.
//
// The rows are the window's; every change of their number or order goes through the model. Titles are edited in place,
// rows move by dragging. Main thread.
#pragma once

#include "chrony/configuration/server_list.h"

#include <QAbstractListModel>
#include <QItemSelectionModel>
#include <QListView>

#include <string>
#include <vector>

namespace tickervantage {

class ServerListModel : public QAbstractListModel {
    Q_OBJECT
public:
    // The rows outlive the model.
    explicit ServerListModel(std::vector<server_data>& servers, QObject* parent = nullptr);

    void insert(int row, server_data server);
    server_data remove(int row);
    void replace_all(std::vector<server_data> servers);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override; // the title
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override;
    bool moveRows(const QModelIndex& from, int row, int count, const QModelIndex& to, int destination) override;

Q_SIGNALS:
    void edited();                       // a title or the order
    void refused(ServerProblem problem); // a title

private:
    std::vector<server_data>& m_servers;
};

// Lets the current row go only when nobody objects; a list with rows keeps one selected.
class GuardedSelection : public QItemSelectionModel {
    Q_OBJECT
public:
    using QItemSelectionModel::QItemSelectionModel;

    using QItemSelectionModel::select; // the overload for one row, which comes to the one below
    void select(const QItemSelection& selection, SelectionFlags command) override;
    void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override;

    // Without asking: for rows that the window itself put there.
    void go_to(int row);

Q_SIGNALS:
    void leaving(bool& may); // the current row: a slot on the same thread may forbid it

private:
    [[nodiscard]] bool allows(const QModelIndex& index);

    bool m_free = false;
};

// What was typed or pasted, without the characters that would end its line.
[[nodiscard]] std::string one_line_of(const QString& text);

class ServerListView : public QListView {
    Q_OBJECT
public:
    explicit ServerListView(QWidget* parent = nullptr);
    void set_empty_text(const QString& text); // shown while there are no rows

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_empty_text;
};

} // namespace tickervantage
