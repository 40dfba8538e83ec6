// Files, folders, pages and other applications, shown and started by the desktop's own programs. Main thread; each
// returns at once.
#pragma once

#include <functional>

class QObject;
class QString;

namespace tickervantage {

inline constexpr const char* product_page = "https://brisklane.net/tickervantage/";
inline constexpr const char* chrony_page = "https://chrony-project.org/";

// Shows the text file. False: the desktop has no program for it, or there is no such file.
[[nodiscard]] bool show_file(const QString& path);

// Opens the folder in the file browser. False as above.
[[nodiscard]] bool reveal_folder(const QString& path);

// Opens the page in the default browser. False also for what is no address.
[[nodiscard]] bool open_page(const QString& address);

// Whether the desktop offers the application with that id, the name of its desktop file. Reads a small file: any
// thread.
[[nodiscard]] bool has_application(const QString& id);

// Starts it in a session of its own: it outlives us and does not use our private temporary folder, which goes when we
// do. `failed` hears once, as long as `context` lives, that it could not be started.
void launch_application(const QString& id, const QObject* context, const std::function<void()>& failed);

} // namespace tickervantage
