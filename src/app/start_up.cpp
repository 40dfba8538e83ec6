#include "app/start_up.h"

#include <QIcon>
#include <QString>
#include <QStringList>

#include <dlfcn.h>

namespace tickervantage {

// Qt's library of windows brings fontconfig along, if it was built with it; nothing else here needs its headers.
FontsAhead::FontsAhead() {
    using Function = int (*)();
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): how the dynamic linker hands functions over
    if (const auto read_fonts = reinterpret_cast<Function>(::dlsym(RTLD_DEFAULT, "FcInit")))
        m_thread = std::thread([read_fonts] { (void)read_fonts(); });
}

FontsAhead::~FontsAhead() {
    if (m_thread.joinable())
        m_thread.join();
}

// Where the desktop names no theme, Qt falls back on the one in which programs leave the icons of their own. None of
// ours is there that is not in the bundle, and reading its index takes longer than all our pictures.
void choose_icons(const Paths& paths) {
    QIcon::setFallbackSearchPaths({QString::fromStdString(paths.bundle_resource("icons"))});
    if (QIcon::themeName() == QLatin1String("hicolor"))
        QIcon::setThemeSearchPaths({QStringLiteral(":/icons")});
}

} // namespace tickervantage
