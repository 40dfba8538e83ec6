// A table as text for the clipboard: cells with tabs between them, as spreadsheets take it. Main thread.
#pragma once

class QTreeWidget;

namespace tickervantage {

// The rows that are selected, all where none is; the headings first.
void copy_table(const QTreeWidget& table);

// Ctrl+C in the table, and its context menu.
void offer_copying(QTreeWidget* table);

} // namespace tickervantage
