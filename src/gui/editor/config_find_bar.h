// The bar below a text that finds and replaces. Replacing all is one step to undo. Main thread.
#pragma once

#include <QWidget>

#include <cstddef>
#include <optional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tickervantage {

class ConfigText;

class FindBar : public QWidget {
    Q_OBJECT

public:
    FindBar(ConfigText* text, QWidget* parent);

    void open(); // with what is selected in the text, when that is in one line
    void find_next();
    void find_previous();
    void replace_one();
    void replace_all();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build();
    enum class Direction : unsigned char { onward, back };
    void find(Direction direction);
    void select(int start, int length);
    [[nodiscard]] Qt::CaseSensitivity sensitivity() const;
    [[nodiscard]] bool has_match_selected() const;
    void end_replacing();
    void close_bar();

    ConfigText* m_text;
    QLineEdit* m_find = nullptr;
    QLineEdit* m_replacement = nullptr;
    QCheckBox* m_match_case = nullptr;
    QLabel* m_answer = nullptr;
    std::optional<std::size_t> m_replacing; // so many places; none: no replacement goes on
};

} // namespace tickervantage
