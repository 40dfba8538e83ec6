#include "base/failure_codes.h"
#include "linux/serial_queue.h"
#include "qt/qt_settings_store.h"
#include "support/child_program.h"
#include "support/manual_dispatch.h"
#include "support/memory_stores.h"
#include "support/small_disk.h"
#include "support/test.h"

#include <QtWidgets>

namespace tickervantage {
namespace {

using testing::ManualMainThread;
using testing::ManualQueue;
using testing::MemoryLogger;
using Texts = std::vector<std::string>;
namespace fs = std::filesystem;

struct SettingsStoreTest : ::testing::Test {
    QTemporaryDir temporary;
    fs::path folder = temporary.path().toStdString();
    fs::path file = folder / "Tickervantage.ini";
    MemoryLogger logger;
    ManualQueue queue;

    [[nodiscard]] Texts names() const {
        Texts all;
        for (const auto& entry : fs::directory_iterator(folder))
            all.push_back(entry.path().filename().string());
        return all;
    }
    [[nodiscard]] Texts kept_aside() const {
        Texts all = names();
        std::erase_if(all, [](const auto& name) { return name.find(".damaged-") == std::string::npos; });
        return all;
    }
};

TEST_F(SettingsStoreTest, EveryTextComesBackFromANewStore) {
    std::vector<Texts> values{{",", ""}, {"@@", "@x"}, {}, {"a", "b,c", " d "}, {"", ""}};
    for (const auto& one : {std::string("zero\0x", 6), std::string(20'000, 'x')})
        values.push_back({one});
    for (const char* one : {"plain", "", "a,b", "\"quoted\"", "back\\slash\\n", "line\nbreak\r\n\ttab",
                            " leading and trailing ", "µs – ünïcode 🕐", "@", "@Invalid()", "@ByteArray(x)", "one",
                            "#rrggbb;x=y", "true", "0.1", "DejaVu Sans Mono,10", "%41", "\x01\x7f"})
        values.push_back({one});
    {
        QtSettingsStore store(file.string(), queue, logger);
        for (std::size_t index = 0; index < values.size(); ++index)
            store.write("key" + std::to_string(index), values[index]);
        EXPECT_EQ(queue.waiting(), 1U); // one save for all
        queue.turn();
        EXPECT_FALSE(store.save_problem());
    }
    const QtSettingsStore again(file.string(), queue, logger);
    for (std::size_t index = 0; index < values.size(); ++index)
        EXPECT_EQ(again.read("key" + std::to_string(index)), values[index]) << index;
    EXPECT_EQ(logger.sentences, Texts{});
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600));
}

// As an editor writes, and as this program does: beside, and over it.
TEST_F(SettingsStoreTest, WhatOthersWriteIsNoticedAndWhatIsNotSavedYetIsKept) {
    using namespace std::chrono_literals;
    ManualMainThread main_thread;
    QtSettingsStore store(file.string(), queue, logger);
    int changes = 0;
    store.watch(main_thread, [&changes] { ++changes; });
    const auto wait_for_change = [&](const std::string& value) {
        const auto deadline = std::chrono::steady_clock::now() + 30s;
        while (store.read("chronyc_interval") != Texts{value} && std::chrono::steady_clock::now() < deadline) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 1000);
            queue.turn();
            main_thread.turn();
        }
        return store.read("chronyc_interval") == Texts{value};
    };
    for (const char* value : {"5", "6", "7"}) {
        ManualQueue other_queue;
        QtSettingsStore other(file.string(), other_queue, logger);
        other.write("chronyc_interval", {value});
        other_queue.turn();
        const int before = changes;
        EXPECT_TRUE(wait_for_change(value)) << value;
        EXPECT_EQ(changes, before + 1);
    }
    store.write("meter_view", {"3"});
    std::ofstream(file, std::ios::app) << "chronyc_interval=8\n";
    EXPECT_TRUE(wait_for_change("8"));
    EXPECT_EQ(store.read("meter_view"), Texts{"3"});
}

TEST_F(SettingsStoreTest, TwoStoresOnOneFileKeepEachOthersChangesAndUnknownKeys) {
    testing::write_file(
        file, "[General]\nchronyc_interval=5\nadj_system=true\nsomebody=\"a, b\"\n[Other]\nsize=@Size(3 4)\n");
    fs::permissions(file, fs::perms(0640));
    QtSettingsStore one(file.string(), queue, logger);
    QtSettingsStore two(file.string(), queue, logger);
    one.write("chronyc_interval", {"7"});
    two.write("meter_view", {"2"});
    two.remove("adj_system");
    queue.turn();
    one.write("chronyc_interval", {"7"}); // as it is: no work
    EXPECT_EQ(queue.waiting(), 0U);
    const QSettings seen(QString::fromStdString(file.string()), QSettings::IniFormat);
    EXPECT_EQ(seen.value("chronyc_interval").toInt(), 7);
    EXPECT_EQ(seen.value("meter_view").toInt(), 2);
    EXPECT_FALSE(seen.contains("adj_system"));
    EXPECT_EQ(seen.value("somebody").toString().toStdString(), "a, b");
    EXPECT_EQ(seen.value("Other/size").toSize(), QSize(3, 4));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
}

TEST_F(SettingsStoreTest, StoresThatSaveAtTheSameTimeLoseNothing) {
    SerialQueue left_queue("left");
    SerialQueue right_queue("right");
    QtSettingsStore left(file.string(), left_queue, logger);
    QtSettingsStore right(file.string(), right_queue, logger);
    for (int round = 0; round < 20; ++round) {
        for (int count = 0; count < 5; ++count) {
            left.write("left" + std::to_string(round * 5 + count), {"1"});
            right.write("right" + std::to_string(round * 5 + count), {"1"});
        }
        ASSERT_TRUE(left.finish(std::chrono::seconds(20)));
    }
    ASSERT_TRUE(right.finish(std::chrono::seconds(20)));
    const QSettings seen(QString::fromStdString(file.string()), QSettings::IniFormat);
    EXPECT_EQ(seen.allKeys().size(), 200);
}

TEST_F(SettingsStoreTest, ALinkStaysALink) {
    fs::create_directory(folder / "elsewhere");
    testing::write_file(folder / "elsewhere/real.ini", "[General]\na=1\n");
    fs::create_symlink("elsewhere/real.ini", file);
    QtSettingsStore store(file.string(), queue, logger);
    store.write("a", {"2"});
    queue.turn();
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_NE(testing::contents(folder / "elsewhere/real.ini").find("a=2"), std::string::npos);
}

TEST_F(SettingsStoreTest, DamagedFilesAreKeptAsideUnderNamesOfTheirOwn) {
    const Texts damaged{"[General]\na=1\nno line of ours\n", "[General]\na=\xFF\n",
                        std::string("[General]\na=\0\n", 13), "[General]\na=" + std::string(1U << 20U, 'x')};
    for (std::size_t index = 0; index < damaged.size(); ++index) {
        testing::write_file(file, damaged[index]);
        QtSettingsStore store(file.string(), queue, logger);
        EXPECT_FALSE(store.read("a")) << index;
        EXPECT_TRUE(store.load_problem()) << index;
        EXPECT_EQ(kept_aside().size(), index + 1);
        store.write("b", {"1"});
        queue.turn();
        EXPECT_FALSE(store.save_problem());
    }
    Texts kept;
    for (const auto& name : kept_aside())
        kept.push_back(testing::contents(folder / name));
    EXPECT_TRUE(std::ranges::is_permutation(kept, damaged));
}

TEST_F(SettingsStoreTest, AFolderInPlaceOfTheFileIsKeptAside) {
    fs::create_directories(file / "inside");
    const QtSettingsStore store(file.string(), queue, logger);
    ASSERT_TRUE(store.load_problem());
    EXPECT_NE(english(*store.load_problem()).find("it is a folder"), std::string::npos)
        << english(*store.load_problem());
    ASSERT_EQ(kept_aside().size(), 1U);
    EXPECT_TRUE(fs::exists(folder / kept_aside().front() / "inside"));
}

TEST_F(SettingsStoreTest, AFileDamagedByOthersMeanwhileIsReplacedByWhatIsKnown) {
    testing::write_file(file, "[General]\na=1\n");
    QtSettingsStore store(file.string(), queue, logger);
    testing::write_file(file, "rubbish");
    ManualMainThread main_thread;
    Texts shown;
    store.set_problem_handler(main_thread, [&](const Failure& failure) { shown.push_back(english(failure)); });
    store.write("b", {"2"});
    queue.turn();
    main_thread.turn();
    EXPECT_EQ(shown.size(), 1U);
    EXPECT_EQ(kept_aside().size(), 1U);
    const QtSettingsStore again(file.string(), queue, logger);
    EXPECT_EQ(again.read("a"), Texts{"1"});
    EXPECT_EQ(again.read("b"), Texts{"2"});
}

TEST_F(SettingsStoreTest, AFileThatIsNoFileIsNeitherReadNorWritten) {
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    QtSettingsStore store(file.string(), queue, logger);
    store.write("a", {"1"});
    queue.turn();
    EXPECT_TRUE(store.load_problem());
    EXPECT_TRUE(store.save_problem());
    EXPECT_EQ(store.read("a"), Texts{"1"}); // the program goes on with it
    EXPECT_TRUE(fs::is_fifo(file));
}

TEST_F(SettingsStoreTest, WithoutPermissionNothingIsWrittenAndTheNextSaveMakesUpForIt) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may write everywhere; run as an ordinary user";
    testing::write_file(file, "[General]\na=1\n");
    fs::permissions(file, fs::perms::none);
    QtSettingsStore unreadable(file.string(), queue, logger);
    unreadable.write("b", {"2"});
    queue.turn();
    EXPECT_TRUE(unreadable.load_problem());
    EXPECT_TRUE(unreadable.save_problem());
    fs::permissions(file, fs::perms(0600));
    EXPECT_EQ(testing::contents(file), "[General]\na=1\n");
    fs::permissions(folder, fs::perms(0500));
    QtSettingsStore store(file.string(), queue, logger);
    EXPECT_EQ(store.read("a"), Texts{"1"});
    store.write("c", {"3"});
    queue.turn();
    EXPECT_TRUE(store.save_problem());
    fs::permissions(folder, fs::perms(0700));
    store.write("d", {"4"});
    queue.turn();
    EXPECT_FALSE(store.save_problem());
    EXPECT_EQ(QtSettingsStore(file.string(), queue, logger).read("c"), Texts{"3"});
}

TEST_F(SettingsStoreTest, FinishWaitsForTheDiskAndGivesUpAtItsLimit) {
    {
        SerialQueue thread("settings");
        QtSettingsStore store((folder / "new/folder/file.ini").string(), thread, logger);
        EXPECT_TRUE(store.finish(std::chrono::seconds(10))); // nothing to do
        for (int count = 0; count < 200; ++count)
            store.write("count", {std::to_string(count)});
        EXPECT_TRUE(store.finish(std::chrono::seconds(10)));
        EXPECT_EQ(QtSettingsStore((folder / "new/folder/file.ini").string(), queue, logger).read("count"),
                  Texts{"199"});
    }
    QtSettingsStore stuck(file.string(), queue, logger); // its queue does not turn
    stuck.write("a", {"1"});
    EXPECT_EQ(stuck.finish(std::chrono::milliseconds(1)).error().code, FailureCode::settings_not_saved_in_time);
}

TEST_F(SettingsStoreTest, AFullDiskLeavesTheOldFileWhole) {
    const testing::SmallDisk disk("64k");
    if (disk.path().empty()) {
        if (!disk.runs_the_test())
            GTEST_SKIP() << "This machine lets nobody here mount a disk.";
        return;
    }
    file = disk.path() + "/Tickervantage.ini";
    const std::string old = "[General]\na=1\n";
    testing::write_file(file, old);
    {
        QtSettingsStore store(file.string(), queue, logger);
        store.write("b", {std::string(100'000, 'x')});
        queue.turn();
        ASSERT_TRUE(store.save_problem());
        EXPECT_NE(english(*store.save_problem()).find("No space left"), std::string::npos)
            << english(*store.save_problem());
        EXPECT_EQ(testing::contents(file), old);
        store.write("b", {"small"});
        queue.turn();
        EXPECT_FALSE(store.save_problem());
    }
    EXPECT_NE(testing::contents(file).find("b=small"), std::string::npos);
}

} // namespace
} // namespace tickervantage
