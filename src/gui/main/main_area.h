// The main window below its toolbar: scrolls where the window is too small, and sets its parts side by side where it is
// wide enough. Main thread.
#pragma once

#include <QByteArray>
#include <QScrollArea>

#include <array>

class QSplitter;

namespace tickervantage {

class VerdictPanel;

// The last hour above the two halves: the sources, and at their side the instruments above the report.
struct MainSplitters {
    QSplitter* rows = nullptr;
    QSplitter* halves = nullptr;
    QSplitter* side = nullptr;
};

class MainArea : public QScrollArea {
    Q_OBJECT

public:
    explicit MainArea(QWidget* parent);

    // All are in the area's widget.
    void adapt(const MainSplitters& splitters, VerdictPanel& verdict);

    // How the splitters of the area stand, also as they stood when the window was wide, or narrow. What was not saved
    // stays as it is.
    [[nodiscard]] QByteArray layout_state() const;
    void restore_layout(const QByteArray& state);

    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void set_out(int width);
    void share_width();

    bool m_is_set_out = false;
    MainSplitters m_splitters;
    std::array<QByteArray, 2> m_states; // of all splitters: narrow, wide; empty: as they come
    VerdictPanel* m_verdict = nullptr;
};

} // namespace tickervantage
