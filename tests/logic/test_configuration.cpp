#include "chrony/configuration/configuration.h"
#include "support/test.h"

namespace tickervantage {
namespace {

TEST(Configuration, DirectivesMapToTheRestOfTheirLine) {
    Configuration configuration;
    configuration.read("# comment\n  server  ntp.example  iburst \t\r\n\nlogdir /var/log/chrony # why\nrtcsync\n"
                       "! odd\n;semicolon x\nserver second\nmakestep\t1.0 3\n   \nuser \n");
    EXPECT_EQ(configuration.all(), (std::map<std::string, std::string>{{"server", "second"},
                                                                       {"logdir", "/var/log/chrony # why"},
                                                                       {"!", "odd"},
                                                                       {";semicolon", "x"},
                                                                       {"makestep", "1.0 3"}}));
    configuration.read("server a  b\n");
    EXPECT_EQ(configuration.value("server"), "a  b");
    EXPECT_EQ(configuration.value("driftfile"), std::nullopt);
}

TEST(Configuration, FileThatCannotBeReadChangesNothing) {
    const auto folder = std::filesystem::path(::testing::TempDir());
    const auto file = folder / "configuration_test.conf";
    std::ofstream(file) << "logdir /a\n";
    Configuration configuration;
    configuration.load(file);
    EXPECT_EQ(configuration.value("logdir"), "/a");
    std::ofstream(file) << "logdir /b\n\xff\n";
    for (const auto& path : {file.string(), folder.string(), std::string("/no/such/file"), std::string()})
        configuration.load(path);
    EXPECT_EQ(configuration.value("logdir"), "/a");
    std::filesystem::remove(file);
}

} // namespace
} // namespace tickervantage
