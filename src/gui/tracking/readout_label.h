// The words below a graph, of the record under the pointer. Main thread.
#pragma once

#include <QLabel>

namespace tickervantage {

// As high as the longest words need at its width, so that nothing is cut and the graph does not move under the pointer
// when the words change.
class ReadoutLabel : public QLabel {
public:
    explicit ReadoutLabel(QWidget* parent);

    void reserve(const QString& longest);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void take_room();

    QString m_longest;
};

} // namespace tickervantage
