// The fixed-pitch text view that shows what chronyc printed.
#pragma once

#include "settings/default_settings.h"

#include <QPlainTextEdit>

#include <string>

namespace tickervantage {

class CommandOutput : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit CommandOutput(QWidget* parent = nullptr);

    // Replaces the whole text, any bytes. The same text again changes nothing, so that selection and scroll position
    // stay; with another text the scroll position stays where that is possible.
    void show_text(const std::string& text);

    // What stands in the place of an empty text.
    void show_instead(const QString& words);

    // No family: the system's fixed-pitch font.
    void set_font(const Font& font);

private:
    [[nodiscard]] bool replace_changed_lines(const QStringList& lines);

    std::string m_shown;
};

} // namespace tickervantage
