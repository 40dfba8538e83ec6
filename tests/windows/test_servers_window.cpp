#include "base/failure_codes.h"
#include "gui/servers/servers_list.h"
#include "gui/servers/servers_window.h"
#include "support/memory_files.h"
#include "support/memory_stores.h"
#include "support/test.h"
#include "support/window_test.h"

namespace tickervantage {
namespace {

// A list in memory that others can change and that can refuse to be written.
class FakeSharedText : public SharedText {
public:
    FileReading on_disk;
    bool is_full = false;
    int written = 0;

    FileReading read() override { return on_disk; }
    Result<std::string> replace(std::string_view text, const std::optional<std::string>& made_from) override {
        if (is_full)
            return failed(FailureCode::cannot_write, {"servers.txt"}, ENOSPC);
        std::string kept_as;
        const bool ours = m_written && on_disk.bytes == *m_written;
        if (on_disk.outcome != FileReading::Outcome::missing && !ours && on_disk.bytes != made_from)
            kept_as = "servers.txt.other";
        set(std::string(text));
        m_written = on_disk.bytes;
        ++written;
        return kept_as;
    }
    void set(const std::string& text) { on_disk = {.outcome = FileReading::Outcome::read, .bytes = text}; }

private:
    std::optional<std::string> m_written;
};

// Stands for the browser while it lives.
class OpenedPages : public QObject {
    Q_OBJECT
public:
    OpenedPages() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); }
    ~OpenedPages() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }
    OpenedPages(const OpenedPages&) = delete;
    OpenedPages& operator=(const OpenedPages&) = delete;

    Q_INVOKABLE void open(const QUrl& page) { last = page.toString(); }

    QString last;
};

struct ServersWindowTest : testing::WindowTest<ServersWindow> {
    std::shared_ptr<FakeSharedText> list = std::make_shared<FakeSharedText>();
    testing::MemoryLogger logger;
    PreferencesGeneral general;
    testing::MemoryFiles files;
    QString inserted;

    void open(const char* text) {
        general.config = "/etc/chrony/chrony.conf";
        if (text)
            list->set(text);
        window = std::make_unique<ServersWindow>(ServersWindowParts{.list = list,
                                                                    .queue = queue,
                                                                    .main_thread = main_thread,
                                                                    .general = general,
                                                                    .files = files,
                                                                    .logger = logger});
        QObject::connect(window.get(), &ServersWindow::insert_wanted, window.get(),
                         [this](const QString& lines) { inserted = lines; });
        window->windowDidLoad();
        settle();
        window->show();
        settle();
    }

    void click_row(int row) {
        auto* view = find<ServerListView>("serverListView");
        view->selectionModel()->setCurrentIndex(view->model()->index(row, 0), QItemSelectionModel::ClearAndSelect);
    }
    int row() { return find<ServerListView>("serverListView")->currentIndex().row(); }
    std::string saved() { return list->on_disk.bytes; }
};

constexpr const char* two = "One:one.example:10:6:true\nTwo:two.example:8:4:false\n";

TEST_F(ServersWindowTest, ShowsAndSavesWhatIsTyped) {
    open(two);
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(text("m_name"), "one.example");
    EXPECT_EQ(text("m_maxpoll") + " " + text("m_minpoll"), "10 6");
    EXPECT_TRUE(find<QCheckBox>("m_iburst")->isChecked());
    EXPECT_EQ(words("minpoll_words"), "64 s at least");
    EXPECT_EQ(list->written, 0);
    logger.sentences.clear();
    click_row(1);
    EXPECT_EQ(text("m_name"), "two.example");
    type("m_name", "new.example");
    type("m_maxpoll", "12");
    press("m_iburst");
    EXPECT_EQ(saved(), "One:one.example:10:6:true\nTwo:new.example:12:4:true\n");
    EXPECT_EQ(logger.sentences,
              (std::vector<std::string>{"shouldchange: current selection: 0", "proposedselection: current selection: 0",
                                        "ischanging: current selection: 0", "didchange: current selection: 1"}));
}

TEST_F(ServersWindowTest, AnInvalidRowKeepsTheSelection) {
    struct Case {
        const char* field;
        const char* text;
        const char* words;
        bool stored; // or only kept in the field
    };
    const Case cases[]{{"m_name", "", "name_words", true},
                       {"m_name", "2001:db8::1", "name_words", false},
                       {"m_name", "ptb time 1.ptb.de", "name_words", true},
                       {"m_maxpoll", "17", "maxpoll_words", true},
                       {"m_maxpoll", "ten", "maxpoll_words", false},
                       {"m_minpoll", "17", "minpoll_words", true},
                       {"m_minpoll", "", "minpoll_words", false},
                       {"m_maxpoll", "5", "minpoll_words", true}};
    for (const auto& c : cases) {
        open(two);
        const std::string good = words(c.words);
        type(c.field, c.text);
        click_row(1);
        EXPECT_EQ(row(), 0) << c.text;
        press("add_server");
        EXPECT_EQ(window->servers().size(), 2U) << c.text;
        EXPECT_TRUE(words(c.words).ends_with('.')) << c.text;
        EXPECT_NE(words(c.words), good);
        EXPECT_EQ(saved() != two, c.stored) << c.text;
        const bool has_to_change =
            std::string(c.words).starts_with(std::string(c.field).substr(2)); // and not the other
        EXPECT_EQ(find<QLineEdit>(c.field)->selectedText(), has_to_change ? QLatin1String(c.text) : QLatin1String());
        press("remove_server");
        EXPECT_EQ(saved(), "Two:two.example:8:4:false\n");
    }
}

TEST_F(ServersWindowTest, AShortPollIsOnlyForTheLocalNetwork) {
    open(two);
    type("m_minpoll", "5");
    EXPECT_TRUE(words("minpoll_words").starts_with("Too often")) << words("minpoll_words");
    type("m_name", "192.168.0.1");
    EXPECT_EQ(words("minpoll_words"), "32 s at least");
    click_row(1); // nothing is refused
    EXPECT_EQ(row(), 1);
}

TEST_F(ServersWindowTest, RowsComeGoAndComeBack) {
    open(nullptr);
    EXPECT_FALSE(find<QWidget>("m_name")->isEnabled());
    press("add_server");
    EXPECT_EQ(saved(), "New Server:0.0.0.0:16:0:false\n");
    type("m_name", "a.example");
    press("add_server");
    EXPECT_EQ(row(), 1);
    EXPECT_EQ(text("m_maxpoll") + " " + text("m_minpoll"), "16 0");
    EXPECT_EQ(words("minpoll_words"), "Left to chrony: 64 s at least"); // nobody typed it
    EXPECT_EQ(words("maxpoll_words"), "Left to chrony: 17 min at most");
    type("m_name", "b.example");
    press("add_server");
    click_row(1);
    press("remove_server");
    EXPECT_EQ(row(), 1); // the next one
    EXPECT_EQ(text("m_name"), "0.0.0.0");
    press("remove_server");
    EXPECT_EQ(text("m_name"), "a.example"); // the last one
    press("remove_server");
    EXPECT_EQ(saved(), "");
    EXPECT_EQ(text("m_name"), "");
    for (int i = 0; i < 3; ++i)
        press("undo_removal");
    EXPECT_EQ(saved(), "New Server:a.example:16:0:false\nNew Server:b.example:16:0:false\n"
                       "New Server:0.0.0.0:16:0:false\n");
    EXPECT_FALSE(find<QToolButton>("undo_removal")->isVisible());
}

TEST_F(ServersWindowTest, TitlesAndOrderAreEditedInTheList) {
    open("One:one.example:10:6:true\nTwo:two.example:8:4:false\nThree:three.example:8:4:false\n");
    auto* view = find<ServerListView>("serverListView");
    auto* model = view->model();
    EXPECT_FALSE(model->setData(model->index(0, 0), QStringLiteral("a:b")));
    EXPECT_TRUE(find<QLabel>("notice")->isVisible());
    EXPECT_TRUE(model->setData(model->index(0, 0), QStringLiteral("Uno")));
    ASSERT_TRUE(model->moveRow({}, 0, {}, 3));
    settle();
    EXPECT_EQ(saved(), "Two:two.example:8:4:false\nThree:three.example:8:4:false\nUno:one.example:10:6:true\n");
    type("m_name", "uno.example"); // the fields went along
    ASSERT_TRUE(model->moveRow({}, 2, {}, 0));
    settle();
    EXPECT_EQ(saved(), "Uno:uno.example:10:6:true\nTwo:two.example:8:4:false\nThree:three.example:8:4:false\n");
}

TEST_F(ServersWindowTest, ARowIsMovedByKeys) {
    open("One:one.example:10:6:true\nTwo:two.example:8:4:false\nThree:three.example:8:4:false\n");
    const auto press = [this](Qt::Key key) {
        for (auto* shortcut : find<ServerListView>("serverListView")->findChildren<QShortcut*>())
            if (shortcut->key() == QKeySequence(Qt::ALT | key))
                Q_EMIT shortcut->activated();
        settle();
    };
    press(Qt::Key_Up); // there is nothing above
    press(Qt::Key_Down);
    EXPECT_EQ(saved(), "Two:two.example:8:4:false\nOne:one.example:10:6:true\nThree:three.example:8:4:false\n");
    EXPECT_EQ(text("m_name"), "one.example") << "the fields went along";
    for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Up})
        press(key);
    EXPECT_EQ(saved(), "One:one.example:10:6:true\nTwo:two.example:8:4:false\nThree:three.example:8:4:false\n");
}

TEST_F(ServersWindowTest, AFailureIsSaidAndTheEditStays) {
    open(two);
    list->is_full = true;
    type("m_name", "new.example");
    EXPECT_TRUE(words("notice").starts_with("Cannot write servers.txt: No space left on device.")) << words("notice");
    EXPECT_EQ(text("m_name"), "new.example");
    window->close();
    window->show(); // the list on the disk is older than the one here
    settle();
    EXPECT_EQ(text("m_name"), "new.example");
    list->is_full = false;
    press("retry");
    EXPECT_EQ(saved(), "One:new.example:10:6:true\nTwo:two.example:8:4:false\n");
    EXPECT_FALSE(find<QLabel>("notice")->isVisible());
}

TEST_F(ServersWindowTest, TheListOfSomebodyElseIsKeptOrShown) {
    open(two);
    type("m_name", "ours.example");
    list->set("Theirs:theirs.example:10:6:true\n");
    type("m_name", "ours2.example");
    EXPECT_NE(words("notice").find("servers.txt.other"), std::string::npos) << words("notice");
    list->set("Theirs:theirs.example:10:6:true\n");
    window->hide();
    window->show();
    settle();
    EXPECT_EQ(text("m_name"), "theirs.example"); // there was nothing of ours to save
    // A change that comes between the look and its answer.
    list->set("Theirs:again.example:10:6:true\n");
    window->hide();
    window->show();
    queue.turn();
    type("m_name", "ours3.example");
    EXPECT_EQ(text("m_name"), "ours3.example");
    EXPECT_NE(words("notice").find("servers.txt.other"), std::string::npos) << words("notice");
}

TEST_F(ServersWindowTest, AFileThatIsNoListIsNotLostSilently) {
    list->on_disk = {.outcome = FileReading::Outcome::unfit, .reason = {.code = FailureCode::is_folder}};
    open(nullptr);
    EXPECT_NE(words("notice").find("it is a folder"), std::string::npos);
    EXPECT_TRUE(window->servers().empty());
}

TEST_F(ServersWindowTest, GoesToAndFromChrony) {
    open(two);
    press("copy_lines");
    const QString lines = QStringLiteral("server one.example iburst\nserver two.example minpoll 4 maxpoll 8\n");
    EXPECT_EQ(QApplication::clipboard()->text(), lines);
    EXPECT_EQ(words("notice"), "Servers copied as lines of chrony's configuration: 2.");
    EXPECT_FALSE(find<QPushButton>("insert_lines")->isEnabled());
    window->insert_lines();
    EXPECT_EQ(words("notice"), "No configuration is open in the editor.");
    window->set_editor_open(true);
    press("insert_lines");
    EXPECT_EQ(inserted, lines);
    press("import_servers");
    EXPECT_EQ(words("notice"), "Cannot read /etc/chrony/chrony.conf: No such file or directory.");
    files.texts[general.config] = "pool three.example iburst\nserver one.example\nserver 2001:db8::1\n";
    press("import_servers");
    EXPECT_EQ(window->servers().size(), 3U);
    EXPECT_EQ(text("m_name"), "three.example");
    EXPECT_NE(words("notice").find("IPv6"), std::string::npos);
    EXPECT_TRUE(find<QCheckBox>("pool")->isChecked());
    press("copy_lines");
    EXPECT_EQ(QApplication::clipboard()->text(), lines + QStringLiteral("pool three.example iburst\n"));
    type("m_name", "");
    press("copy_lines");
    EXPECT_EQ(words("notice"), "Servers copied as lines of chrony's configuration: 2. Copied as comments, since "
                               "something is wrong with them: 1.");
    type("m_name", "four.example");
    press("pool"); // one server after all
    EXPECT_TRUE(saved().ends_with("three.example:four.example:10:6:true\n")) << saved();
    const OpenedPages pages;
    press("serverHelp");
    EXPECT_TRUE(pages.last.endsWith(QStringLiteral("chrony.conf.html#server")));
}

TEST_F(ServersWindowTest, AnswersMayOutliveTheWindow) {
    open(two);
    find<QLineEdit>("m_name")->setText(QStringLiteral("last.example"));
    Q_EMIT find<QLineEdit>("m_name")->textEdited({});
    find<QPushButton>("import_servers")->click();
    window.reset();
    settle();
    EXPECT_EQ(saved(), "One:last.example:10:6:true\nTwo:two.example:8:4:false\n");
}

} // namespace
} // namespace tickervantage

#include "test_servers_window.moc"
