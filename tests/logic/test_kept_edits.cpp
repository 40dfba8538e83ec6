#include "base/failure_codes.h"
#include "chrony/configuration/kept_edit.h"
#include "chrony/configuration/tracking_log_setting.h"
#include "linux/kept_files.h"
#include "support/child_program.h"
#include "support/manual_dispatch.h"
#include "support/memory_stores.h"
#include "support/test.h"

namespace tickervantage {
namespace {

TEST(KeptEdit, ReadsBackWhateverItHoldsAndNothingThatWasCut) {
    const KeptEdit edits[]{{},
                           {.path = "/a\nb 7", .title = "b\n", .stamp = ~std::size_t{0}, .text = "x\n\xc3\xb6"},
                           {.path = "/c",
                            .title = "Installed",
                            .is_installed_config = true,
                            .line_ends = LineEnds::dos_style,
                            .stamp = 1,
                            .text = "last"}};
    for (const auto& edit : edits) {
        const std::string bytes = format_kept_edit(edit);
        KeptEdit found;
        ASSERT_EQ(parse_kept_edit(bytes, found), 0) << bytes;
        EXPECT_EQ(found, edit) << bytes;
        for (std::size_t length = 0; length < bytes.size(); ++length)
            EXPECT_EQ(parse_kept_edit(bytes.substr(0, length), found), -1) << length;
        EXPECT_EQ(parse_kept_edit(bytes + "x", found), -1);
    }
    KeptEdit found;
    EXPECT_EQ(parse_kept_edit("Tickervantage edit 1 18446744073709551615 2 0 0 0 0\nab\n", found), -1);
}

TEST(KeptFiles, ARunFindsThoseOfRunsThatHaveEndedAndNoOthers) {
    const testing::PrivateHome home;
    const std::string folder = home.path("state/unsaved");
    const auto left_for = [](KeptFiles& run) {
        std::vector<std::string> bytes;
        std::string last;
        for (const auto& [path, found] : run.left_behind()) {
            bytes.push_back(found);
            last = path;
        }
        return std::pair(bytes, last);
    };
    auto first = std::make_unique<PosixKeptFiles>(folder);
    ASSERT_TRUE(first->keep("1.edit", "one"));
    ASSERT_TRUE(first->keep("2.edit", "two"));
    first->drop("2.edit");
    auto second = std::make_unique<PosixKeptFiles>(folder);
    EXPECT_TRUE(left_for(*second).first.empty()) << "the first still lives";
    EXPECT_TRUE(left_for(*first).first.empty());
    first.reset();
    const auto [bytes, path] = left_for(*second);
    EXPECT_EQ(bytes, std::vector<std::string>{"one"});
    PosixKeptFiles third(folder);
    EXPECT_TRUE(left_for(third).first.empty()) << "the second has them";
    ASSERT_TRUE(second->adopt(path, "7.edit"));
    EXPECT_TRUE(left_for(*second).first.empty());
    second->drop("7.edit");
    second.reset();
    EXPECT_EQ(home.found_in("state"), std::vector<std::string>{folder}) << "no folder of a run is left";
}

struct FakeKeptFiles : KeptFiles {
    std::vector<std::string> done;

    [[nodiscard]] Result<> keep(const std::string& name, std::string_view bytes) override {
        done.push_back(name + std::string(bytes.substr(bytes.rfind('\n'))));
        if (name == "2.edit")
            return failed(FailureCode::cannot_write, {name}, ENOSPC);
        return {};
    }
    void drop(const std::string& name) override { done.push_back("drop " + name); }
    [[nodiscard]] std::vector<LeftFile> left_behind() override { return {{"/x/1.edit", "rubbish"}}; }
    [[nodiscard]] Result<> adopt(const std::string& path, const std::string&) override {
        return failed(FailureCode::cannot_rename, {path}, EACCES);
    }
    void remove(const std::string&) override {}
};

TEST(EditKeeper, OfCopiesThatWaitOnlyTheNewestIsWritten) {
    testing::ManualQueue queue;
    testing::MemoryLogger log;
    const auto files = std::make_shared<FakeKeptFiles>();
    EditKeeper keeper(files, queue, log);
    const auto edit = [](const char* text) {
        return [text] {
            return KeptEdit{.path = {}, .title = {}, .text = text};
        };
    };
    EXPECT_TRUE(keeper.finish({})) << "there is nothing to wait for";
    keeper.keep(1, edit("old"));
    keeper.keep(1, edit("new"));
    keeper.keep(2, edit("other"));
    keeper.keep(3, edit("gone"));
    keeper.drop(3);
    EXPECT_FALSE(keeper.finish({}));
    queue.turn();
    EXPECT_EQ(files->done, (std::vector<std::string>{"1.edit\nnew", "2.edit\nother", "drop 3.edit"}));
    ASSERT_EQ(log.sentences.size(), 1U);
    EXPECT_TRUE(log.sentences[0].ends_with("No space left on device.")) << log.sentences[0];
    keeper.adopt("/theirs/5.edit", 2);
    queue.turn();
    EXPECT_EQ(log.sentences.back(), "Cannot rename /theirs/5.edit: Permission denied.");
    testing::ManualMainThread main_thread;
    Background background(main_thread);
    std::size_t found = 9;
    keeper.read_left(background, [&found](const std::vector<LeftEdit>& edits) { found = edits.size(); });
    queue.turn();
    main_thread.turn();
    EXPECT_EQ(found, 0U);
    EXPECT_EQ(log.sentences.back(), "/x/1.edit holds no edit that this version can read.");
}

TEST(TrackingLogSetting, FollowsWhatTheConfigurationTakesIn) {
    const testing::PrivateHome home;
    const auto write = [&home](const char* name, const std::string& text) {
        testing::write_file(home.path(name), text);
        return home.path(name);
    };
    const std::string dir = "logdir /var/log/chrony\n";
    std::filesystem::create_directory(home.path("conf.d"));
    write("conf.d/a.conf", "log measurements tracking\n");
    write("conf.d/b.txt", dir);
    const std::string loop = write("loop.conf", "include " + home.path("loop.conf") + "\n");
    const struct {
        std::string text;
        TrackingLogSetting setting;
    } cases[]{{dir + "LOG statistics tracking\nlog measurements\n", TrackingLogSetting::written},
              {dir + "#log tracking\n! log tracking\nlog\nlogtracking\n", TrackingLogSetting::not_asked_for},
              {"log tracking\n", TrackingLogSetting::no_folder},
              {dir + "confdir /no/such " + home.path("conf.d") + "\n", TrackingLogSetting::written},
              {"confdir " + home.path("conf.d") + "\n", TrackingLogSetting::no_folder},
              {dir + "include " + home.path("conf.d/*.conf") + "\n", TrackingLogSetting::written},
              {dir + "include " + home.path("none/*.conf") + "\n", TrackingLogSetting::not_asked_for},
              {dir + "include /no/such/file\n", TrackingLogSetting::unknown},
              {dir + "include " + loop + "\n", TrackingLogSetting::unknown}};
    for (const auto& [text, setting] : cases)
        EXPECT_EQ(tracking_log_setting(write("chrony.conf", text)), setting) << text;
    EXPECT_EQ(tracking_log_setting(home.path("missing.conf")), TrackingLogSetting::unknown);
}

} // namespace
} // namespace tickervantage
