#include "app/config_windows.h"
#include "gui/editor/config_find_bar.h"
#include "gui/editor/config_text.h"
#include "linux/posix_path_probes.h"
#include "linux/posix_user_files.h"
#include "support/child_program.h"
#include "support/manual_dispatch.h"
#include "support/memory_stores.h"
#include "support/scripted_execute.h"
#include "support/small_disk.h"
#include "support/test.h"
#include "support/window_test.h"

namespace tickervantage {
namespace {

constexpr const char* error_in_line_2 = "T Fatal error : Invalid directive at line 2 in file ";

struct ConfigEditorTest : ::testing::Test {
    testing::ScriptedExecute execute;
    testing::ManualQueue queue;
    testing::ManualMainThread main_thread;
    testing::MemorySettingsStore store;
    DefaultSettings settings{store};
    PosixPathProbes probes;
    PosixFiles files;
    QTemporaryDir folder;
    PreferencesGeneral general;
    testing::MemoryLogger logger;
    std::string installed_text;
    Result<> installation = tl::unexpected(said_by_others("The helper is not there."));
    QStringList said;
    std::string state_folder = file("state");
    QWidget desk; // the program's main window
    std::unique_ptr<ConfigWindows> windows;

    void SetUp() override {
        write("installed.conf", "pool a\nserver b\nlast");
        execute.answer("chronyd", "pool a\n");
        start();
    }

    // A run of the program. One before it goes as if it were killed.
    void start() {
        windows.reset();
        settle();
        Paths paths;
        paths.temporary = file("");
        paths.bundle = file("");
        paths.state = state_folder;
        windows = std::make_unique<ConfigWindows>(ConfigWindowsParts{.execute = execute,
                                                                     .queue = queue,
                                                                     .edit_queue = queue,
                                                                     .main_thread = main_thread,
                                                                     .settings = settings,
                                                                     .paths = paths,
                                                                     .probes = probes,
                                                                     .files = files,
                                                                     .general = general,
                                                                     .logger = logger,
                                                                     .can_install = true,
                                                                     .window = &desk});
        general.config = file("installed.conf");
        QObject::connect(windows.get(), &ConfigWindows::install_wanted, windows.get(),
                         [this](ConfigEditor* editor, const QString& text) {
                             installed_text = text.toStdString();
                             editor->show_installation(installation);
                         });
        QObject::connect(windows.get(), &ConfigWindows::not_opened, windows.get(),
                         [this](const QString& sentence) { said.append(sentence); });
    }

    std::string file(const char* name) {
        return folder.filePath(QLatin1String(name)).toStdString() + (*name ? "" : "/");
    }
    QString path(const char* name) { return QString::fromStdString(file(name)); }
    void write(const char* name, const std::string& text) { std::ofstream(file(name)) << text; }
    std::string read(const char* name) { return testing::contents(file(name)); }

    void settle() {
        while (queue.turn() || main_thread.turn() || text_is_loading())
            QApplication::processEvents();
    }
    bool text_is_loading() { return !editors().empty() && text()->is_busy(); }

    static std::vector<ConfigEditor*> editors() {
        std::vector<ConfigEditor*> all;
        for (auto* widget : QApplication::topLevelWidgets())
            if (auto* editor = qobject_cast<ConfigEditor*>(widget); editor && editor->isVisible())
                all.push_back(editor);
        return all;
    }
    ConfigEditor* editor() { return editors().front(); }
    static ConfigEditor* other_editor() { // beside that of the installed configuration
        const auto all = editors();
        const auto found = std::ranges::find(all, false, &ConfigEditor::is_installed_config);
        return found == all.end() ? nullptr : *found;
    }
    ConfigText* text() { return find<ConfigText>("m_config"); }
    template <typename Widget>
    Widget* find(const char* name) {
        auto* widget = editor()->findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    bool can(const char* name) { return find<QPushButton>(name)->isEnabled(); }
    QString state() { return find<QLabel>("state")->text(); }

    void installed() {
        windows->show_installed();
        settle();
    }
    void open(const char* name, const std::string& contents) {
        write(name, contents);
        windows->open_path(path(name));
        settle();
    }
    void check() {
        editor()->check();
        settle();
    }
    void save() {
        editor()->save();
        settle();
    }
    void install() {
        editor()->install();
        settle();
    }
    // Reads the sheet and presses one of its buttons.
    QString answer(const char* name, const char* button) { return answer(find<QMessageBox>(name), button); }
    QString answer(const QPointer<QMessageBox>& box, const char* button) {
        QString words = box->text() + QLatin1Char('|') + box->informativeText();
        testing::press_button(*box, button);
        settle();
        delete box; // else it would be found in place of the next one
        return words;
    }
};

TEST_F(ConfigEditorTest, TheInstalledConfigurationIsACopyThatNeedsNoCheckUntilItIsEdited) {
    installed();
    EXPECT_EQ(editor()->windowTitle(), QStringLiteral("Installed Chrony Configuration[*]"));
    EXPECT_EQ(editor()->path(), path("show_chrony.conf"));
    EXPECT_EQ(text()->whole_text(), QStringLiteral("pool a\nserver b\nlast"));
    EXPECT_EQ(state(), QStringLiteral("Syntax OK"));
    EXPECT_FALSE(can("m_checksyntax"));
    EXPECT_FALSE(can("m_install"));
    EXPECT_FALSE(editor()->isWindowModified());
    text()->insertPlainText(QStringLiteral("x"));
    EXPECT_EQ(state(), QStringLiteral("Not checked"));
    EXPECT_TRUE(can("m_checksyntax"));
    EXPECT_TRUE(editor()->isWindowModified());
    text()->undo();
    EXPECT_FALSE(editor()->isWindowModified());
}

TEST_F(ConfigEditorTest, APassedCheckAllowsToInstallUntilTheNextEdit) {
    installed();
    text()->insertPlainText(QStringLiteral("keyfile /no/such\n"));
    check();
    const QString words = answer("syntax_ok", "Dismiss");
    EXPECT_TRUE(words.startsWith(QStringLiteral("Chrony configuration file syntax OK|Config file syntax is OK and is "
                                                "suitable for installation\n")))
        << words.toStdString();
    EXPECT_TRUE(words.contains(QStringLiteral("Line 1: keyfile: /no/such does not exist.")));
    EXPECT_EQ(find<QListWidget>("warnings")->count(), 1);
    EXPECT_EQ(state(), QStringLiteral("Syntax OK"));
    EXPECT_TRUE(can("m_install"));
    QApplication::setPalette(QPalette(Qt::black));
    QApplication::processEvents();
    EXPECT_TRUE(can("m_install")); // new colours are no edit
    QApplication::setPalette(QApplication::style()->standardPalette());
    text()->insertPlainText(QStringLiteral("x"));
    EXPECT_FALSE(can("m_install"));
    EXPECT_EQ(state(), QStringLiteral("Not checked"));
}

TEST_F(ConfigEditorTest, AnErrorIsShownInItsLine) {
    installed();
    text()->insertPlainText(QStringLiteral("x"));
    execute.answer("chronyd", error_in_line_2 + file("check_chrony.conf"), 1);
    check();
    EXPECT_EQ(answer("syntax_error", "Dismiss"),
              QStringLiteral("Chrony configuration file syntax error|Fatal error : Invalid directive at line 2"));
    EXPECT_EQ(state(), QStringLiteral("Syntax error"));
    EXPECT_FALSE(can("m_install"));
    EXPECT_EQ(text()->textCursor().selectedText(), QStringLiteral("server b") + QChar(QChar::ParagraphSeparator));
    for (const auto& [line, selected] : {std::pair{3LL, "last"}, {4LL, ""}, {1LL << 40, ""}}) {
        text()->select_line(line);
        EXPECT_EQ(text()->textCursor().selectedText(), QLatin1String(selected)) << line;
    }
    execute.answer("chronyd", error_in_line_2 + std::string("/etc/other.conf"), 1);
    text()->moveCursor(QTextCursor::Start);
    check();
    EXPECT_TRUE(answer("syntax_error", "Dismiss").contains(QStringLiteral("/etc/other.conf")));
    EXPECT_FALSE(text()->textCursor().hasSelection());
}

TEST_F(ConfigEditorTest, WhatChronydRefusesWithoutAnErrorMayNotBeInstalled) {
    installed();
    text()->insertPlainText(QStringLiteral("x"));
    execute.answer("chronyd", "T Fatal error : Could not open /nope : No such file\n", 1);
    check();
    EXPECT_TRUE(answer("syntax_doubt", "Dismiss").contains(QStringLiteral("Could not open /nope")));
    EXPECT_FALSE(can("m_install"));
}

TEST_F(ConfigEditorTest, AnAnswerAboutAnOlderTextIsDropped) {
    installed();
    text()->insertPlainText(QStringLiteral("x"));
    editor()->check();
    queue.turn();
    text()->insertPlainText(QStringLiteral("y"));
    settle();
    EXPECT_FALSE(can("m_install"));
    EXPECT_EQ(state(), QStringLiteral("Not checked"));
    EXPECT_EQ(editor()->findChild<QMessageBox*>(), nullptr);
    editor()->check(); // and one that outlives its window
    queue.turn();
    windows.reset();
    main_thread.turn();
}

TEST_F(ConfigEditorTest, InstallAsksSavesAndHandsOver) {
    installed();
    text()->insertPlainText(QStringLiteral("new\n"));
    check();
    answer("syntax_ok", "Dismiss");
    install();
    EXPECT_TRUE(find<QLabel>("change")->text().contains(QStringLiteral("brings it back")));
    EXPECT_EQ(find<QPlainTextEdit>("m_difference")->toPlainText(), QStringLiteral("+new\n pool a\n server b\n last\n"));
    EXPECT_EQ(answer("install_sheet", "Cancel"),
              QStringLiteral("Installing new Chrony configuration|Configuration file ") + path("installed.conf") +
                  QStringLiteral(" will be overwritten and chronyd will be restarted\n\nThis cannot be undone\nOK to "
                                 "proceed or Cancel to abort the installation\n"));
    EXPECT_EQ(installed_text, "");
    install();
    answer("install_sheet", "OK");
    EXPECT_EQ(installed_text, "new\npool a\nserver b\nlast");
    EXPECT_EQ(read("show_chrony.conf"), installed_text);
    EXPECT_TRUE(editor()->is_installed_config());
    EXPECT_TRUE(answer("failure", "Dismiss").contains(QStringLiteral("The helper is not there.")));
    EXPECT_TRUE(can("m_install"));
}

TEST_F(ConfigEditorTest, AnEditOfTheInstalledConfigurationIsSafeOnlyOnceItIsInstalled) {
    installed();
    text()->insertPlainText(QStringLiteral("new\n"));
    check();
    answer("syntax_ok", "Dismiss");
    install();
    answer("install_sheet", "OK");
    answer("failure", "Dismiss");
    EXPECT_TRUE(editor()->isWindowModified());
    EXPECT_FALSE(editor()->close());
    answer("unsaved_sheet", "Cancel");
    installation = {};
    install();
    answer("install_sheet", "OK");
    EXPECT_FALSE(editor()->isWindowModified());
    text()->insertPlainText(QStringLiteral("x"));
    editor()->show_installation({}); // of what it was before this edit
    EXPECT_TRUE(editor()->isWindowModified());
    text()->undo();
    EXPECT_TRUE(editor()->close());
}

TEST_F(ConfigEditorTest, TheQuestionToInstallTellsWhatIsThereNow) {
    open("a.conf", "pool a\n");
    const auto change = [this] {
        install();
        const QString words = find<QLabel>("change")->text();
        EXPECT_EQ(editor()->findChild<QPlainTextEdit*>(QStringLiteral("m_difference")), nullptr);
        answer("install_sheet", "Cancel");
        return words;
    };
    write("installed.conf", "pool a\n");
    EXPECT_TRUE(change().startsWith(QStringLiteral("Nothing would change")));
    QFile::remove(path("installed.conf"));
    EXPECT_EQ(change(), QStringLiteral("There is no configuration in that place yet."));
    QDir().mkdir(path("installed.conf"));
    EXPECT_TRUE(change().contains(QStringLiteral("cannot be shown: it is a folder")));
    editor()->install();
    text()->insertPlainText(QStringLiteral("x"));
    settle();
    EXPECT_EQ(editor()->findChild<QMessageBox*>(), nullptr) << "asked about a text that is no longer there";
}

TEST_F(ConfigEditorTest, IncludedFilesOpenAndArePartsThatAreNotInstalled) {
    for (const char* name : {"conf.d", "more.d", "sources.d"})
        QDir(folder.path()).mkdir(QLatin1String(name));
    for (const char* name : {"conf.d/b.conf", "conf.d/a & b.conf", "conf.d/note.txt", "more.d/b.conf", "single.inc"})
        write(name, "port 0\n");
    write("sources.d/lab.sources", "server c\n port 0\n");
    write("installed.conf", "confdir " + file("conf.d") + " " + file("more.d") + "\nInclude " + file("*.inc") +
                                "\nsourcedir /not/there\n# include /etc/passwd\nsourcedir " + file("sources.d"));
    installed();
    auto* menu = find<QMenu>("includedFiles");
    Q_EMIT menu->aboutToShow();
    settle();
    QStringList listed;
    for (const auto* item : menu->actions())
        listed.append(item->text().remove(folder.path() + QLatin1Char('/')));
    EXPECT_EQ(listed, QStringList({QStringLiteral("conf.d/a && b.conf"), QStringLiteral("conf.d/b.conf"),
                                   QStringLiteral("single.inc"), QStringLiteral("sources.d/lab.sources")}));
    for (const int item : {1, 3}) {
        menu->actions().at(item)->trigger();
        settle();
        auto* part = other_editor();
        ASSERT_NE(part, nullptr);
        part->check();
        settle();
        EXPECT_EQ(part->findChild<QListWidget*>(QStringLiteral("warnings"))->count(), item == 3 ? 1 : 0);
        delete part->findChild<QMessageBox*>();
        part->install();
        settle();
        const auto* refusal = part->findChild<QMessageBox*>();
        ASSERT_NE(refusal, nullptr);
        EXPECT_TRUE(refusal->informativeText().contains(part->path())) << refusal->informativeText().toStdString();
        EXPECT_EQ(installed_text, "");
        delete refusal;
        part->close();
        settle();
    }
    open("whole.conf", "port 0\n");
    other_editor()->install();
    settle();
    EXPECT_EQ(other_editor()->findChild<QMessageBox*>()->objectName(), QStringLiteral("install_sheet"));
}

TEST_F(ConfigEditorTest, SavingNoticesOtherProgramsAndKeepsTheEditWhenItFails) {
    open("a.conf", "one\r\ntwo\r\n");
    text()->insertPlainText(QStringLiteral("x"));
    save();
    EXPECT_EQ(read("a.conf"), "xone\r\ntwo\r\n");
    EXPECT_FALSE(editor()->isWindowModified());
    EXPECT_EQ(windows->recent().paths(), QStringList{path("a.conf")});
    text()->insertPlainText(QStringLiteral("y"));
    write("a.conf", "theirs\n");
    save();
    answer("conflict_sheet", "Cancel");
    EXPECT_EQ(read("a.conf"), "theirs\n");
    EXPECT_TRUE(editor()->isWindowModified());
    save();
    answer("conflict_sheet", "Reload");
    EXPECT_EQ(text()->whole_text(), QStringLiteral("theirs\n"));
    text()->insertPlainText(QStringLiteral("z"));
    editor()->save_to(path("no/such/folder.conf"));
    settle();
    EXPECT_TRUE(answer("failure", "Dismiss").contains(QStringLiteral("No such file")));
    EXPECT_TRUE(editor()->isWindowModified());
    EXPECT_EQ(editor()->path(), path("a.conf"));
}

TEST_F(ConfigEditorTest, ClosingAsksAboutUnsavedChanges) {
    open("a.conf", "one\n");
    text()->insertPlainText(QStringLiteral("x"));
    EXPECT_FALSE(editor()->close());
    answer("unsaved_sheet", "Cancel");
    ASSERT_EQ(editors().size(), 1U);
    editor()->close();
    answer("unsaved_sheet", "Save");
    EXPECT_TRUE(editors().empty());
    EXPECT_EQ(read("a.conf"), "xone\n");
}

TEST_F(ConfigEditorTest, WhatIsNoConfigurationDoesNotOpen) {
    write("bad.conf", "a\xff\n");
    write("zero.conf", std::string("a\0", 2));
    for (const char* name : {"bad.conf", "zero.conf", "missing.conf", "."}) {
        windows->open_path(path(name));
        settle();
        EXPECT_TRUE(editors().empty()) << name;
    }
    EXPECT_EQ(said.size(), 4);
    write("good.conf", "");
    windows->open_path(path("good.conf"));
    windows->new_document();
    settle();
    EXPECT_EQ(editors().size(), 2U);
    windows->open_path(path("good.conf")); // already open
    settle();
    EXPECT_EQ(editors().size(), 2U);
}

TEST_F(ConfigEditorTest, ADroppedFileOpensAndLinesCanBeInserted) {
    installed();
    write("a.conf", "one\n");
    struct Text : ConfigText {
        using ConfigText::insertFromMimeData;
    };
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(path("a.conf"))});
    QObject::connect(windows.get(), &ConfigWindows::file_dropped, windows.get(), &ConfigWindows::open_path);
    (text()->*&Text::insertFromMimeData)(&dropped);
    settle();
    EXPECT_EQ(editors().size(), 2U);
    windows->insert(QStringLiteral("server c"));
    const auto all = editors();
    EXPECT_TRUE(std::ranges::any_of(all, [](auto* one) {
        return one->template findChild<ConfigText*>()->whole_text().startsWith(QStringLiteral("server c\n"));
    }));
}

TEST_F(ConfigEditorTest, DirectivesAreCompletedOnlyWhereTheyStand) {
    installed();
    const auto type = [this](const QString& keys) {
        for (const QChar key : keys)
            testing::press_key(text(), Qt::Key_A, Qt::NoModifier, key);
        return text()->findChild<QCompleter*>()->popup()->isVisible();
    };
    text()->moveCursor(QTextCursor::End);
    text()->insertPlainText(QStringLiteral("\n"));
    EXPECT_TRUE(type(QStringLiteral("dr")));
    auto* completer = text()->findChild<QCompleter*>();
    EXPECT_EQ(completer->currentCompletion(), QStringLiteral("driftfile"));
    EXPECT_FALSE(completer->popup()->model()->index(0, 1).data().toString().isEmpty());
    Q_EMIT completer->activated(QStringLiteral("driftfile"));
    completer->popup()->hide();
    EXPECT_EQ(text()->textCursor().block().text(), QStringLiteral("driftfile"));
    EXPECT_FALSE(type(QStringLiteral(" ma")));
}

TEST_F(ConfigEditorTest, OptionsAreCompletedByPlace) {
    installed();
    const auto offered = [this](const char* line) {
        text()->moveCursor(QTextCursor::End);
        text()->insertPlainText(QLatin1Char('\n') + QLatin1String(line));
        text()->complete();
        auto* completer = text()->findChild<QCompleter*>();
        const bool is_shown = completer->popup()->isVisible();
        completer->popup()->hide();
        return is_shown ? completer->currentCompletion().toStdString() : std::string();
    };
    EXPECT_EQ(offered("server a.example ibu"), "iburst");
    EXPECT_EQ(offered("server a.example iburst "), "asymmetry");
    EXPECT_EQ(offered("server a.example minpoll "), "");
    EXPECT_EQ(offered("server a.ex"), "");
    EXPECT_EQ(offered("dri"), "driftfile");
    Q_EMIT text()->findChild<QCompleter*>()->activated(QStringLiteral("driftfile"));
    EXPECT_EQ(text()->textCursor().block().text(), QStringLiteral("driftfile"));
}

TEST_F(ConfigEditorTest, AMistakeIsUnderlinedAndSaidWithoutACheck) {
    installed();
    const auto underlined = [this] {
        for (const auto& one : text()->extraSelections())
            if (one.format.underlineStyle() == QTextCharFormat::WaveUnderline)
                return one.cursor.selectedText().toStdString();
        return std::string();
    };
    const auto answer = [this](const std::string& output) {
        execute.answer("chronyd", output);
        text()->moveCursor(QTextCursor::End);
        text()->insertPlainText(QStringLiteral(" "));
        editor()->check_quietly();
        settle();
    };
    text()->load(QStringLiteral("driftfile /d\nserverr a\nrtcsync"));
    settle();
    answer(error_in_line_2 + file("check_chrony.conf"));
    EXPECT_EQ(underlined(), "serverr a");
    const auto words = [this](const char* label) {
        return find<QLabel>(label)->text().toStdString();
    };
    EXPECT_EQ(words("message"), "Line 2: Invalid directive");
    EXPECT_FALSE(find<QPushButton>("m_install")->isEnabled());
    EXPECT_EQ(words("state"), "Not checked");
    EXPECT_EQ(editor()->findChild<QMessageBox*>(), nullptr);
    text()->moveCursor(QTextCursor::Start);
    text()->insertPlainText(QStringLiteral("\n"));
    EXPECT_EQ(underlined(), "serverr a") << "which moved down";
    answer("");
    EXPECT_EQ(underlined() + words("message"), "");
}

TEST_F(ConfigEditorTest, FindsAndReplacesInOneStepToUndo) {
    installed();
    auto* bar = find<FindBar>("find_bar");
    find<QLineEdit>("find")->setText(QStringLiteral("A"));
    find<QLineEdit>("replacement")->setText(QStringLiteral("aa"));
    bar->find_next();
    bar->find_next();
    EXPECT_EQ(text()->textCursor().selectionStart(), 17);
    bar->find_next(); // round the end
    EXPECT_EQ(text()->textCursor().selectionStart(), 5);
    bar->replace_all();
    settle();
    EXPECT_EQ(text()->whole_text(), QStringLiteral("pool aa\nserver b\nlaast"));
    text()->undo();
    EXPECT_EQ(text()->whole_text(), QStringLiteral("pool a\nserver b\nlast"));
    find<QLineEdit>("find")->setText(QStringLiteral("nowhere"));
    bar->find_previous();
    EXPECT_EQ(find<QLabel>("find_answer")->text(), QStringLiteral("Not found"));
}

constexpr int many = 8'000;

std::string many_lines(const std::string& name) {
    std::string lines;
    for (int i = 0; i < many; ++i)
        lines += "server " + name + std::to_string(i) + " iburst\n";
    return lines;
}

TEST_F(ConfigEditorTest, ALongTextComesInSlices) {
    const std::string lines = many_lines("host");
    write("long.conf", lines);
    windows->open_path(path("long.conf"));
    queue.turn();
    main_thread.turn();
    EXPECT_TRUE(text()->is_loading()); // shown before all of it is there
    EXPECT_TRUE(text()->isReadOnly());
    EXPECT_FALSE(editor()->isWindowModified()) << "or closing it would ask a question";
    settle();
    EXPECT_EQ(text()->whole_text().toStdString(), lines);
    EXPECT_FALSE(text()->document()->isUndoAvailable());
    EXPECT_FALSE(editor()->isWindowModified());
}

TEST_F(ConfigEditorTest, ALongEditComesInSlicesAndIsOneStepBackAndForth) {
    const std::string lines = many_lines("host");
    const std::string renamed = many_lines("machine");
    open("long.conf", lines);
    find<QLineEdit>("find")->setText(QStringLiteral("host"));
    find<QLineEdit>("replacement")->setText(QStringLiteral("machine"));
    const auto press = [this](int key, Qt::KeyboardModifiers modifiers, const char* typed = "") {
        testing::press_key(text(), key, modifiers, QLatin1String(typed));
    };
    struct Pasting : ConfigText {
        using ConfigText::insertFromMimeData;
    };
    QMimeData pasted;
    pasted.setText(QString::fromStdString("\r\n" + renamed));
    const struct {
        const char* what;
        std::function<void()> act;
        std::string after;
    } steps[]{{"replace", [&] { find<FindBar>("find_bar")->replace_all(); }, renamed},
              {"undo", [&] { press(Qt::Key_Z, Qt::ControlModifier); }, lines},
              {"redo", [&] { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }, renamed},
              {"undo", [&] { text()->undo_step(); }, lines},
              {"remove",
               [&] {
                   text()->selectAll();
                   press(Qt::Key_Delete, Qt::NoModifier);
               },
               ""},
              {"paste", [&] { (text()->*&Pasting::insertFromMimeData)(&pasted); }, "\n" + renamed},
              {"undo", [&] { text()->undo_step(); }, ""},
              {"undo", [&] { text()->undo_step(); }, lines},
              {"type over",
               [&] {
                   text()->selectAll();
                   press(Qt::Key_X, Qt::NoModifier, "x");
               },
               "x"},
              {"undo", [&] { text()->undo_step(); }, lines}};
    for (const auto& [what, act, after] : steps) {
        act();
        EXPECT_TRUE(text()->is_busy() && text()->isReadOnly()) << what << " held everything up";
        settle();
        ASSERT_EQ(text()->whole_text().toStdString(), after) << what;
        EXPECT_EQ(editor()->isWindowModified(), after != lines) << what;
    }
    find<FindBar>("find_bar")->replace_all();
    editor()->save(); // waits for the whole
    settle();
    EXPECT_EQ(read("long.conf"), renamed);
    EXPECT_FALSE(editor()->isWindowModified());
}

TEST_F(ConfigEditorTest, ADiskThatIsFullOrClosedCostsNothingButASentence) {
    const testing::SmallDisk disk("64k");
    if (disk.path().empty()) {
        if (!disk.runs_the_test())
            GTEST_SKIP() << "This machine lets nobody here mount a disk.";
        return;
    }
    state_folder = disk.path() + "/state";
    start();
    const QString path = QString::fromStdString(disk.path() + "/a.conf");
    std::ofstream(path.toStdString()) << "one\n";
    windows->open_path(path);
    settle();
    const auto fails = [&](const char* why) {
        save();
        EXPECT_EQ(answer("failure", "Dismiss"),
                  QStringLiteral("The configuration was not saved|Cannot write %1: %2.").arg(path, QLatin1String(why)));
        EXPECT_TRUE(editor()->isWindowModified());
        EXPECT_TRUE(text()->whole_text().endsWith(QStringLiteral("one\n")));
        EXPECT_EQ(testing::contents(path.toStdString()), "one\n");
        EXPECT_EQ(QDir(QFileInfo(path).path()).entryList(QDir::Files | QDir::Hidden),
                  QStringList{QStringLiteral("a.conf")});
    };
    text()->insertPlainText(QString(100'000, QLatin1Char('x')));
    fails("No space left on device");
    text()->undo();
    text()->insertPlainText(QStringLiteral("small"));
    ASSERT_TRUE(disk.make_read_only());
    fails("Read-only file system");
    editor()->keep_edit(); // there as well
    settle();
    ASSERT_FALSE(logger.sentences.empty());
    EXPECT_NE(logger.sentences.back().find("Read-only file system"), std::string::npos) << logger.sentences.back();
}

TEST_F(ConfigEditorTest, AnEditThatWasNotSavedIsOfferedByTheNextRuns) {
    const auto offered = [this](const char* button) {
        start();
        windows->offer_kept_edits();
        settle();
        auto* box = desk.findChild<QMessageBox*>();
        return box == nullptr ? QString() : answer(box, button);
    };
    open("a.conf", "one\r\n");
    text()->insertPlainText(QStringLiteral("x"));
    editor()->keep_edit();
    settle();
    EXPECT_TRUE(offered("Later").contains(path("a.conf")));
    EXPECT_TRUE(editors().empty());
    EXPECT_TRUE(offered("Open").contains(path("a.conf")));
    EXPECT_EQ(text()->whole_text(), QStringLiteral("xone\n"));
    EXPECT_EQ(editor()->path(), path("a.conf"));
    EXPECT_TRUE(editor()->isWindowModified());
    EXPECT_FALSE(can("m_install"));
    write("a.conf", "theirs\n");
    save();
    answer("conflict_sheet", "Overwrite");
    EXPECT_EQ(read("a.conf"), "xone\r\n");
    EXPECT_EQ(offered("Open"), QString()) << "it is saved";

    installed();
    text()->insertPlainText(QStringLiteral("y"));
    editor()->keep_edit();
    settle();
    EXPECT_TRUE(offered("Open").contains(QStringLiteral("Installed Chrony Configuration")));
    EXPECT_TRUE(editor()->is_installed_config());
    EXPECT_TRUE(offered("Open").contains(QStringLiteral("Installed"))) << "adopted, and left behind once more";
    editor()->close();
    answer("unsaved_sheet", "Don't Save");
    EXPECT_EQ(offered("Open"), QString()) << "it was given up";
}

} // namespace
} // namespace tickervantage
