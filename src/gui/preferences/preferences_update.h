// The pane about updates: the version, and where newer ones come from. Main thread.
#pragma once

#include <QIcon>
#include <QWidget>

#include <string>

namespace tickervantage {

class PreferencesUpdatePane : public QWidget {
    Q_OBJECT
public:
    explicit PreferencesUpdatePane(const std::string& version, QWidget* parent = nullptr);

    [[nodiscard]] static QString toolbarItemTitle();
    [[nodiscard]] static QIcon toolbarItemIcon();
};

} // namespace tickervantage
