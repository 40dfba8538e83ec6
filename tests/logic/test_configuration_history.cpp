#include "base/text_difference.h"
#include "roothelper/jobs/kept_configurations.h"
#include "support/fake_job_machine.h"
#include "support/test.h"

namespace tickervantage {
namespace {

using Numbers = std::vector<std::uint64_t>;

TEST(ConfigurationHistory, NameSaysWhatBecameOfATextAndNothingElseIsOne) {
    for (const auto reason : {HistoryReason::found, HistoryReason::installed, HistoryReason::rolled_back}) {
        const HistoryEntry entry{.number = 12, .seconds = 1795320000, .user = 1000, .reason = reason};
        EXPECT_EQ(parse_history_name(history_name(entry)), entry) << history_name(entry);
    }
    EXPECT_EQ(history_name({7, 1795320000, 0, HistoryReason::found}), "7-1795320000-0-found.conf");
    for (const char* name : {"", ".new", "x.conf", "1-2-3-eaten.conf", "1-2-installed.conf", "-1-2-3-found.conf",
                             "1-2-3-found", "1--2--3-found.conf", "99999999999999999999-2-3-found.conf"})
        EXPECT_EQ(parse_history_name(name), std::nullopt) << name;
}

TEST(ConfigurationHistory, EachPathHasAFolderOfItsOwn) {
    EXPECT_EQ(history_folder_of("/etc/chrony/chrony.conf"), "etc-chrony-chrony.conf");
    std::set<std::string> folders;
    for (const char* path : {"/a/b", "/a-b", "/a-/b", "/a/-b", "/a%2Db", "/a%b", "/a-%2Db"})
        EXPECT_TRUE(folders.insert(history_folder_of(path)).second) << path;
}

TEST(ConfigurationHistory, NewestComesFirstAndTheOneInUseIsMarkedOnce) {
    testing::FakeJobMachine machine;
    machine.files = {{"/etc/c.conf", "b\n"},
                     {"/H/etc-c.conf/9-100-0-found.conf", "a\n"},
                     {"/H/etc-c.conf/10-200-5-installed.conf", "b\n"},
                     {"/H/etc-c.conf/11-300-5-installed.conf", "c\n"},
                     {"/H/etc-c.conf/12-400-5-rolledback.conf", "b\n"},
                     {"/H/etc-c.conf/strange", "d\n"}};
    machine.unreadable = {"8-1-1-installed.conf"};
    const auto kept = kept_configurations(machine, "/etc/c.conf", "/H");
    Numbers numbers;
    Numbers in_use;
    for (const auto& one : kept) {
        numbers.push_back(one.entry.number);
        if (one.is_installed)
            in_use.push_back(one.entry.number);
    }
    EXPECT_EQ(numbers, (Numbers{12, 11, 10, 9}));
    EXPECT_EQ(in_use, Numbers{12});
    ASSERT_NE(find_kept(kept, 9), nullptr);
    EXPECT_EQ(find_kept(kept, 9)->text, "a\n");
    EXPECT_EQ(find_kept(kept, 9)->user, "root");
    EXPECT_EQ(find_kept(kept, 8), nullptr);
}

TEST(TextDifference, ShowsTheLinesThatDifferWithThoseAround) {
    const struct {
        const char* former;
        const char* latter;
        const char* expected;
    } cases[] = {{"", "", ""},
                 {"a\nb\n", "a\nb\n", ""},
                 {"a\nb", "a\nb\n", ""},
                 {"", "a\n", "+a\n"},
                 {"a\n", "", "-a\n"},
                 {"a\nb\nc\n", "a\nx\nc\n", " a\n-b\n+x\n c\n"},
                 {"1\n2\n3\n4\n5\n6\n", "1\n2\n3\n4\n5\n7\n", "...\n 5\n-6\n+7\n"},
                 {"1\n2\n3\n4\n5\n6\n7\n8\n", "x\n2\n3\n4\n5\n6\n7\ny\n", "-1\n+x\n 2\n...\n 7\n-8\n+y\n"},
                 {"a\na\n", "a\na\na\n", "...\n a\n+a\n"},
                 {"a\nb\nc\nd\n", "b\nd\ne\n", "-a\n b\n-c\n d\n+e\n"}};
    for (const auto& [former, latter, expected] : cases)
        EXPECT_EQ(difference_text(text_difference(former, latter, 1)), expected) << former << "to\n" << latter;
}

TEST(TextDifference, TextsOfManyOtherLinesAreWhollyDifferent) {
    std::string former;
    std::string latter;
    for (int line = 0; line < 3000; ++line) {
        former += "a" + std::to_string(line) + '\n';
        latter += "b" + std::to_string(line) + '\n';
    }
    EXPECT_EQ(text_difference(former, latter).size(), 6000U);
}

} // namespace
} // namespace tickervantage
