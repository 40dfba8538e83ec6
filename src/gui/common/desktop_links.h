// Files, folders and pages shown by the desktop's own programs. Main thread; each returns at once.
#pragma once

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

} // namespace tickervantage
