#include "app/help_windows.h"
#include "gui/help/help_viewer.h"
#include "support/scripted_execute.h"
#include "support/test.h"
#include "support/window_test.h"

namespace tickervantage {
namespace {

struct HelpViewerTest : testing::WindowTest<HelpViewer> {
    QTemporaryDir folder;
    testing::ScriptedExecute execute;
    QStringList opened; // in the browser

    HelpSources sources() {
        const std::string root = folder.path().toStdString();
        return {.execute = execute, .own_pages = root, .manual_roots = {root}, .mandoc = root + "/mandoc"};
    }

    void write(const char* name, const std::string& text) const {
        const std::filesystem::path path = folder.filePath(QLatin1String(name)).toStdString();
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << text;
    }

    void SetUp() override {
        write("first-use.md",
              "# First\n\n[go](faq.md#second-part) [out](https://chrony-project.org/) [bad](file:///x)");
        std::string long_text;
        for (int line = 0; line < 200; ++line)
            long_text += "line " + std::to_string(line) + "\n\n";
        write("faq.md", "# Questions\n\n" + long_text + "## Second part\n\nNeedles are here\n\n" + long_text);
        execute.answer("mandoc", "<p>By hand, see <b>chronyd(8)</b>.</p><img src=\"file:///etc/hostname\">");
        window = std::make_unique<HelpViewer>(HelpViewerParts{
            .pages = std::make_shared<HelpPages>(sources()), .queue = queue, .main_thread = main_thread});
        QObject::connect(window.get(), &HelpViewer::address_requested, window.get(),
                         [this](const QString& address) { opened << address; });
        window->show();
        open("first-use");
    }

    void open(const char* page) {
        window->open_page(QLatin1String(page));
        settle();
    }
    void follow(const char* link) {
        Q_EMIT page()->anchorClicked(QUrl(QLatin1String(link)));
        settle();
    }
    void trigger(const char* action) {
        find<QAction>(action)->trigger();
        settle();
    }
    QTextBrowser* page() { return find<QTextBrowser>("page"); }
    std::string shown() { return page()->toPlainText().left(9).toStdString(); }
    std::string line_at_top() { return page()->cursorForPosition({30, 20}).block().text().toStdString(); }
};

TEST_F(HelpViewerTest, LinksLeadToPlacesAndBackAgain) {
    EXPECT_FALSE(find<QAction>("back")->isEnabled());
    follow("faq.md#second-part");
    EXPECT_EQ(shown(), "Questions");
    EXPECT_EQ(line_at_top(), "Second part");
    EXPECT_EQ(find<QListWidget>("topics")->currentItem()->text(), QStringLiteral("Questions and answers"));
    trigger("back");
    EXPECT_EQ(shown(), "First\ngo ");
    trigger("forward");
    EXPECT_EQ(line_at_top(), "Second part");
    EXPECT_FALSE(find<QAction>("forward")->isEnabled());
    follow("https://chrony-project.org/");
    follow("file:///etc/passwd");
    EXPECT_EQ(opened, QStringList{QStringLiteral("https://chrony-project.org/")});
    EXPECT_EQ(shown(), "Questions");
}

TEST_F(HelpViewerTest, LinksLeadToPlacesOfAPageInAnotherLanguage) {
    write("faq.md", "# Fragen\n\n" + std::string(4000, '\n') + "## Zweiter Teil {#second-part}\n\nText\n");
    follow("faq.md#second-part");
    EXPECT_EQ(page()->textCursor().block().text(), QStringLiteral("Zweiter Teil"));
}

TEST_F(HelpViewerTest, ManualThatIsMissingSaysSoAndIsLookedForAgain) {
    open("chrony.conf");
    EXPECT_TRUE(page()->toPlainText().contains(QStringLiteral("not installed")));
    EXPECT_TRUE(page()->toHtml().contains(QStringLiteral("https://chrony-project.org/")));
    write("mandoc", "");
    write("man5/chrony.conf.5", "");
    open("first-use");
    open("chrony.conf");
    EXPECT_TRUE(page()->toHtml().contains(QStringLiteral("help:chronyd")));
    EXPECT_TRUE(
        page()->loadResource(QTextDocument::ImageResource, QUrl(QStringLiteral("file:///etc/hostname"))).isNull());
}

TEST_F(HelpViewerTest, OnlyTheNewestPageAskedForIsShown) {
    window->open_page(QStringLiteral("faq"));
    window->open_page(QStringLiteral("first-use"));
    settle();
    EXPECT_EQ(shown(), "First\ngo ");
    window->open_page(QStringLiteral("faq"));
    queue.turn();
    window.reset(); // its answer is on the way
    settle();
}

TEST_F(HelpViewerTest, SearchFindsPassagesOfAllPagesAndGoesThere) {
    type("search", "needles");
    auto* hits = find<QListWidget>("hits");
    ASSERT_EQ(hits->count(), 1);
    Q_EMIT hits->itemActivated(hits->item(0));
    settle();
    EXPECT_EQ(page()->textCursor().selectedText(), QStringLiteral("Needles"));
    type("search", "nowhere");
    EXPECT_FALSE(hits->isVisible());
    EXPECT_NE(words("search_answer"), "");
}

TEST_F(HelpViewerTest, FindingInAPageGoesOnFromTheOtherEnd) {
    open("faq");
    trigger("findInPage");
    for (const char* expected : {"line 7", "line 70"}) {
        type("find", expected);
        EXPECT_EQ(page()->textCursor().selectedText(), QLatin1String(expected));
    }
    const int first = page()->textCursor().position();
    for (int times = 0; times < 2; ++times) {
        testing::press_key(find<QLineEdit>("find"), Qt::Key_Return);
        EXPECT_EQ(page()->textCursor().position() == first, times == 1);
    }
    type("find", "absent");
    EXPECT_NE(words("find_answer"), "");
}

TEST_F(HelpViewerTest, F1OpensThePageOfTheWindow) {
    write("windows.md", "# The windows\n\n## Servers\n\nA list\n\n## Former configurations\n\nKept\n");
    HelpWindows help({.sources = sources(), .queue = queue, .main_thread = main_thread});
    for (const auto& [name, heading] :
         {std::pair{"ServersWindow", "Servers"}, std::pair{"KeptConfigurations", "Former configurations"}}) {
        QWidget asking;
        asking.setObjectName(QLatin1String(name));
        testing::press_key(&asking, Qt::Key_F1);
        settle();
        bool found = false;
        for (auto* top : QApplication::topLevelWidgets())
            found = found || (top->objectName() == QStringLiteral("HelpViewer") &&
                              top->findChild<QTextBrowser*>()->textCursor().block().text() == QLatin1String(heading));
        EXPECT_TRUE(found) << name;
    }
}

} // namespace
} // namespace tickervantage
