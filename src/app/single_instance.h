// One process of the program a session: the first owns a name on the session bus, and a start that finds the name taken
// hands its files over and ends. Where there is no session bus, every start stands alone.
//
// The interface is org.freedesktop.Application as freedesktop.org describes it for desktop files, under the name of
// the desktop file. Main thread only; a QApplication lives.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace tickervantage {

class SingleInstance : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    enum class Role : unsigned char {
        first,  // later starts come by the signal started_again
        second, // the first one has the files and comes to the front: nothing is left to do
        alone,  // there is no bus, or the first one does not answer
    };

    // Waits for the answer of the first one, at most some seconds: before there is a window. `files` are absolute
    // paths, `activation_token` is what the desktop gave to this start so that a window may come to the front.
    [[nodiscard]] Role begin(const QStringList& files, const QString& activation_token);

    // Called over the bus.
    Q_INVOKABLE Q_SCRIPTABLE void Activate(const QVariantMap& platform_data);
    Q_INVOKABLE Q_SCRIPTABLE void Open(const QStringList& addresses, const QVariantMap& platform_data);
    Q_INVOKABLE Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& arguments,
                                                 const QVariantMap& platform_data); // there are none

Q_SIGNALS:
    void started_again(const QStringList& files);

private:
    void start_again(const QStringList& files, const QVariantMap& platform_data);
};

} // namespace tickervantage
