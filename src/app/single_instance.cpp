#include "app/single_instance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFileInfo>
#include <QUrl>

namespace tickervantage {
namespace {

constexpr const char* bus_name = "net.brisklane.tickervantage";
constexpr const char* object_path = "/net/brisklane/tickervantage";
constexpr const char* interface_name = "org.freedesktop.Application";
constexpr const char* token_key = "activation-token";
constexpr const char* token_variable = "XDG_ACTIVATION_TOKEN"; // read by Qt when it activates a window on Wayland
constexpr int patience_ms = 5000;

// Asking for a bus that nobody named would start one.
bool is_there_a_bus() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

bool hand_over(QDBusConnection& bus, const QStringList& files, const QString& activation_token) {
    auto call = QDBusMessage::createMethodCall(QLatin1String(bus_name), QLatin1String(object_path),
                                               QLatin1String(interface_name),
                                               files.isEmpty() ? QStringLiteral("Activate") : QStringLiteral("Open"));
    call.setAutoStartService(false);
    QStringList addresses;
    for (const auto& file : files)
        addresses.append(QString::fromLatin1(QUrl::fromLocalFile(file).toEncoded()));
    if (!files.isEmpty())
        call << addresses;
    QVariantMap platform_data;
    if (!activation_token.isEmpty())
        platform_data.insert(QLatin1String(token_key), activation_token);
    call << platform_data;
    return bus.call(call, QDBus::Block, patience_ms).type() == QDBusMessage::ReplyMessage;
}

} // namespace

SingleInstance::Role SingleInstance::begin(const QStringList& files, const QString& activation_token) {
    if (!is_there_a_bus())
        return Role::alone;
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Role::alone;
    // Before the name, so that whoever sees the name finds the object.
    if (!bus.registerObject(QLatin1String(object_path), this, QDBusConnection::ExportScriptableInvokables))
        return Role::alone;
    if (bus.registerService(QLatin1String(bus_name)))
        return Role::first;
    bus.unregisterObject(QLatin1String(object_path));
    return hand_over(bus, files, activation_token) ? Role::second : Role::alone;
}

void SingleInstance::Activate(const QVariantMap& platform_data) {
    start_again({}, platform_data);
}

void SingleInstance::Open(const QStringList& addresses, const QVariantMap& platform_data) {
    QStringList files;
    for (const auto& address : addresses)
        if (const QUrl url(address); url.isLocalFile())
            files.append(url.toLocalFile());
    start_again(files, platform_data);
}

void SingleInstance::ActivateAction(const QString& /*name*/, const QVariantList& /*arguments*/,
                                    const QVariantMap& platform_data) {
    start_again({}, platform_data);
}

void SingleInstance::start_again(const QStringList& files, const QVariantMap& platform_data) {
    if (const auto token = platform_data.value(QLatin1String(token_key)).toString(); !token.isEmpty())
        qputenv(token_variable, token.toUtf8());
    Q_EMIT started_again(files);
}

} // namespace tickervantage
