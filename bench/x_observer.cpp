// An outside look at the windows of a program on an X display, without a hand in the program.
//
//   x_observer first-paint PROGRAM [ARGUMENT...]
//       Starts the program, waits until one of its windows is on the screen and shows more than one colour, prints the
//       milliseconds from just before the fork until then, and ends the program. For a display without other programs.
//   x_observer iconify TITLE
//       Asks the window manager to minimise the window of that title and waits until it has gone from the screen.
#include <poll.h>
#include <spawn.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <sys/wait.h>
#include <unistd.h>
#include <X11/extensions/Xdamage.h>
#include <X11/extensions/XShm.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <string_view>

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds patience{20};

[[noreturn]] void give_up(const char* what) {
    std::fprintf(stderr, "x_observer: %s\n", what);
    std::exit(1);
}

int ignore_error(Display*, XErrorEvent*) { // a window may go while it is looked at
    return 0;
}

Display* open_display() {
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr)
        give_up("no display");
    XSetErrorHandler(ignore_error);
    return display;
}

// Handles events until the handler says that it has seen enough.
void watch(Display* display, const std::function<bool(XEvent&)>& seen_enough) {
    const auto deadline = Clock::now() + patience;
    while (Clock::now() < deadline) {
        pollfd news{ConnectionNumber(display), POLLIN, 0};
        if (XPending(display) == 0 && poll(&news, 1, 100) <= 0)
            continue;
        XEvent event;
        XNextEvent(display, &event);
        if (seen_enough(event))
            return;
    }
    give_up("waited in vain");
}

// A picture of a window, through memory that is shared with the display: through the connection a large window would
// keep the display from serving the program that is watched.
class Picture {
public:
    Picture(Display* display, const XWindowAttributes& window) : m_display(display) {
        m_image = XShmCreateImage(display, window.visual, static_cast<unsigned>(window.depth), ZPixmap, nullptr,
                                  &m_memory, static_cast<unsigned>(window.width), static_cast<unsigned>(window.height));
        if (m_image == nullptr)
            give_up("the display does not share memory");
        m_memory.shmid = shmget(IPC_PRIVATE, size(), IPC_CREAT | 0600);
        void* memory = m_memory.shmid < 0 ? nullptr : shmat(m_memory.shmid, nullptr, 0);
        if (memory == nullptr || memory == reinterpret_cast<void*>(-1)) // how shmat says no
            give_up("no shared memory");
        m_memory.shmaddr = m_image->data = static_cast<char*>(memory);
        XShmAttach(display, &m_memory);
        XSync(display, False);
        shmctl(m_memory.shmid, IPC_RMID, nullptr);
    }
    ~Picture() {
        XShmDetach(m_display, &m_memory);
        XSync(m_display, False);
        shmdt(m_memory.shmaddr);
        m_image->data = nullptr;
        XDestroyImage(m_image);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    // Whether the window shows more than one colour.
    [[nodiscard]] bool has_colours(Window window) {
        const auto pixel = static_cast<std::size_t>(m_image->bits_per_pixel / 8);
        return XShmGetImage(m_display, window, m_image, 0, 0, AllPlanes) != 0 &&
               std::memcmp(m_image->data, m_image->data + pixel, size() - pixel) != 0;
    }

private:
    [[nodiscard]] std::size_t size() const {
        return static_cast<std::size_t>(m_image->bytes_per_line) * static_cast<std::size_t>(m_image->height);
    }

    Display* m_display;
    XImage* m_image = nullptr;
    XShmSegmentInfo m_memory{};
};

// A window whose background alone has been painted has one colour.
bool shows_something(Display* display, Window window) {
    XWindowAttributes attributes;
    if (XGetWindowAttributes(display, window, &attributes) == 0 || attributes.map_state != IsViewable)
        return false;
    return Picture(display, attributes).has_colours(window);
}

int first_paint(char** program) {
    Display* display = open_display();
    int damage_event = 0;
    int damage_error = 0;
    if (XDamageQueryExtension(display, &damage_event, &damage_error) == 0)
        give_up("the display does not report what is painted");
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    XSync(display, False);
    std::map<Damage, Window> watched;

    const auto start = Clock::now();
    pid_t pid = -1;
    if (posix_spawn(&pid, program[0], nullptr, nullptr, program, environ) != 0)
        give_up("the program cannot be started");
    watch(display, [&](XEvent& event) {
        if (event.type == MapNotify && event.xmap.event == DefaultRootWindow(display)) {
            // All of it counts as damaged at first.
            watched[XDamageCreate(display, event.xmap.window, XDamageReportNonEmpty)] = event.xmap.window;
            return false;
        }
        if (event.type != damage_event + XDamageNotify)
            return false;
        const Damage damage = reinterpret_cast<XDamageNotifyEvent&>(event).damage; // how the extension hands it over
        XDamageSubtract(display, damage, None, None);
        return shows_something(display, watched[damage]);
    });
    std::printf("%.3f\n", std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    kill(pid, SIGTERM);
    waitpid(pid, nullptr, 0);
    return 0;
}

bool is_viewable(Display* display, Window window) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(display, window, &attributes) != 0 && attributes.map_state == IsViewable;
}

// Toolkits keep hidden windows of the same title.
Window find_window(Display* display, Window under, std::string_view title) {
    char* name = nullptr;
    const bool found = XFetchName(display, under, &name) != 0 && name == title;
    XFree(name);
    if (found && is_viewable(display, under))
        return under;
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    if (XQueryTree(display, under, &root, &parent, &children, &count) == 0)
        return None;
    Window result = None;
    for (unsigned i = 0; i < count && result == None; ++i)
        result = find_window(display, children[i], title);
    XFree(children);
    return result;
}

int iconify(std::string_view title) {
    Display* display = open_display();
    const Window window = find_window(display, DefaultRootWindow(display), title);
    if (window == None)
        give_up("no window of that title");
    XSelectInput(display, window, StructureNotifyMask);
    XIconifyWindow(display, window, DefaultScreen(display));
    XFlush(display);
    watch(display, [](XEvent& event) { return event.type == UnmapNotify; });
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view verb = argc > 2 ? argv[1] : "";
    if (verb == "first-paint")
        return first_paint(argv + 2);
    if (verb == "iconify")
        return iconify(argv[2]);
    std::fprintf(stderr, "usage: x_observer first-paint PROGRAM [ARGUMENT...] | iconify TITLE\n");
    return 2;
}
