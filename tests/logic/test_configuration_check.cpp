#include "base/failure_codes.h"
#include "chrony/configuration/config_document.h"
#include "chrony/configuration/configuration_check.h"
#include "chrony/configuration/directives.h"
#include "cli/configuration/config_command.h"
#include "support/fake_path_probes.h"
#include "support/kept_text.h"
#include "support/memory_files.h"
#include "support/scripted_execute.h"
#include "support/test.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace tickervantage {
namespace {

TEST(CheckAnswer, TheScannerFindsMessageLineAndFile) {
    struct Row {
        const char* answer;
        const char* message;
        long long line;
        const char* file;
    };
    for (const auto& row : {Row{"", "", 0, ""},
                            {"pool x\n", "", 0, ""},
                            {"T Fatal error : Invalid directive at line 3 in file /tmp/c.conf\n",
                             "Fatal error : Invalid directive at line 3", 3, "/tmp/c.conf"},
                            {"Fatal error : Invalid directive at line 3 in file /tmp/c.conf\n", "", 0, ""},
                            {"T Fatal error : Could not open /c.conf : No such file\n", "", 0, ""},
                            {"T in file x Fatal error : y\n", "", 0, ""},
                            {"T Fatal error : Could not parse m2 directive at line 7 in file c\nserver\n",
                             "Fatal error : Could not parse m2 directive at line 7", 2, "c"},
                            {"T Fatal error : no number in file", "Fatal error : no number", 0, ""},
                            {"\nFatal error :  in filefoo", "Fatal error : ", 0, "foo"},
                            {"T Fatal error : 99999999999999999999 in file c", "Fatal error : 99999999999999999999",
                             std::numeric_limits<long long>::max(), "c"}}) {
        const ConfigError error = parse_check_answer(row.answer);
        EXPECT_EQ(error.m_msg, row.message) << row.answer;
        EXPECT_EQ(error.m_line, row.line) << row.answer;
        EXPECT_EQ(error.m_file, row.file) << row.answer;
        EXPECT_EQ(error.m_isok, error.m_msg.empty()) << row.answer;
    }
}

struct CheckTest : ::testing::Test {
    testing::ScriptedExecute execute;
    std::vector<std::string> chronyds{"/one/chronyd"};
    testing::MemoryFiles files;
    SyntaxCheckParts parts{
        .execute = execute, .chronyds = [this] { return chronyds; }, .files = files, .temporary = "/no/such/folder/"};

    void outcome(ExecuteOutcome what, const std::string& words) {
        execute.answers["chronyd"] = {what, -1, "", said_by_others(words)};
    }
};

TEST_F(CheckTest, AsksChronydAboutAFileInTheTemporaryFolder) {
    execute.answer("chronyd", "pool x\n");
    EXPECT_TRUE(checkSyntax(parts, "pool x\n").passed());
    EXPECT_EQ(files.texts["/no/such/folder/check_chrony.conf"], "pool x\n");
    EXPECT_EQ(execute.calls, std::vector<std::string>{"chronyd|-p|-f|/no/such/folder/check_chrony.conf"});
    execute.answer("chronyd", "T Fatal error : Invalid directive at line 1 in file /no/such/folder/check_chrony.conf\n",
                   1);
    const ConfigError error = checkSyntax(parts, "x\n");
    EXPECT_FALSE(error.m_isok);
    EXPECT_EQ(error.m_file, ""); // the text's own lines are counted
    EXPECT_FALSE(error.m_doubt);
}

TEST_F(CheckTest, WhatTheScannerDoesNotSeeIsADoubt) {
    execute.answer("chronyd", "T Fatal error : Could not open /nope : No such file or directory\n", 1);
    ConfigError error = checkSyntax(parts, "include /nope\n");
    EXPECT_TRUE(error.m_isok);
    EXPECT_FALSE(error.passed());
    EXPECT_EQ(english(error.m_doubt.value()),
              "chronyd refuses this configuration: Could not open /nope : No such file or directory.");
    outcome(ExecuteOutcome::timed_out, "It took too long.");
    error = checkSyntax(parts, "x");
    EXPECT_TRUE(error.m_isok);
    EXPECT_NE(english(error.m_doubt.value()).find("did not end in time"), std::string::npos);
    outcome(ExecuteOutcome::not_started, "It is no program.");
    EXPECT_EQ(english(checkSyntax(parts, "x").m_doubt.value()), "It is no program.");
}

TEST_F(CheckTest, AChronydThatMayNotReadTheFileIsNotTheLastWord) {
    chronyds = {"/one/chronyd", "/two/chronyd-of-the-bundle"};
    execute.answer("chronyd", "T Fatal error : Could not open /no/such/folder/check_chrony.conf : Permission denied\n",
                   1);
    execute.answer("chronyd-of-the-bundle", "x\n");
    EXPECT_TRUE(checkSyntax(parts, "x").passed());
    EXPECT_EQ(execute.calls.size(), 2U);
}

TEST_F(CheckTest, WithoutChronydTheTextPassesAndIsWarnedOf) {
    chronyds.clear();
    const ConfigurationCheck check = check_configuration({parts, testing::FakePathProbes()}, "nonsense\n");
    EXPECT_TRUE(check.error.passed());
    ASSERT_EQ(check.warnings.size(), 1U);
    EXPECT_TRUE(execute.calls.empty());
}

TEST_F(CheckTest, AFileThatCannotBeWrittenIsAFailedCheckWithoutAMessage) {
    files.is_full = true;
    const ConfigError error = checkSyntax(parts, "x");
    EXPECT_FALSE(error.m_isok);
    EXPECT_EQ(error.m_msg, "");
    EXPECT_EQ(error.m_line, 0);
    EXPECT_EQ(english(error.m_doubt.value()),
              "Cannot write /no/such/folder/check_chrony.conf: No space left on device.");
}

TEST(Warnings, NameWhatTheDaemonWillMiss) {
    using Kind = PathFacts::Kind;
    testing::FakePathProbes probes;
    probes.facts = {{"/there", {Kind::file}},      {"/secret", {Kind::file, false, false}},
                    {"/folder", {Kind::folder}},   {"/locked", {Kind::folder, true, false}},
                    {"/dev/pps0", {Kind::device}}, {"/hidden", {Kind::unknown}}};
    probes.users = {"_chrony"};
    testing::expect_answers_as_kept("warnings", [&](const std::string& line) {
        std::string told;
        for (const auto& warning : configuration_warnings("\n" + line + "\n", probes))
            told += fmt::format("  {}: {}\n", warning.line, english(warning.what));
        return told;
    });
    std::string many;
    for (int i = 0; i < 1000; ++i)
        many += "include /nope\n";
    EXPECT_EQ(configuration_warnings(many, probes).size(), most_warnings);
    const std::string locked = "driftfile /locked/drift\n";
    EXPECT_EQ(configuration_warnings(locked, probes).size(), 1U);
    EXPECT_TRUE(configuration_warnings(locked, probes, "root").empty()) << "a demonstration's runs as its user";
}

struct DocumentTest : ::testing::Test {
    testing::MemoryFiles files;
    std::map<std::string, std::string>& disk = files.texts;
};

TEST_F(DocumentTest, ComesBackAsItWas) {
    for (const std::string bytes :
         {"a\nb\n", "a\r\nb\r\n", "", "no end", "\n\n", "a\r\nb", "\xc3\xa4\xe2\x80\xa8 \xc2\xa0x\n"}) {
        disk["f"] = bytes;
        const auto document = load_document(files, "f");
        ASSERT_TRUE(document) << english(document.error());
        EXPECT_EQ(document->text.find('\r'), std::string::npos);
        const SaveAnswer answer = save_document(files, {"f", document->text, document->line_ends, document->stamp});
        EXPECT_EQ(answer.outcome, SaveAnswer::Outcome::saved);
        EXPECT_EQ(disk["f"], bytes);
        EXPECT_EQ(answer.stamp, document->stamp);
    }
}

TEST_F(DocumentTest, WhatIsNoTextDoesNotOpen) {
    EXPECT_EQ(decode_document("a\n\xff\n").error().code, FailureCode::document_is_no_utf8);
    EXPECT_EQ(english(decode_document(std::string("a\nb\0c", 5)).error()),
              "Line 2 holds a zero byte, which no configuration may.");
    EXPECT_EQ(english(load_document(files, "nope").error()), "nope cannot be read: No such file or directory.");
    const SaveAnswer answer = save_document(files, {"f", std::string("\0", 1), LineEnds::unix_style, {}});
    EXPECT_EQ(answer.outcome, SaveAnswer::Outcome::failed);
    EXPECT_TRUE(disk.empty());
}

TEST_F(DocumentTest, AnotherProgramsWorkIsNotOverwrittenUnasked) {
    disk["f"] = "mine\n";
    const auto document = load_document(files, "f");
    ASSERT_TRUE(document);
    disk["f"] = "theirs\n";
    SaveRequest request{"f", "edited\n", document->line_ends, document->stamp};
    EXPECT_EQ(save_document(files, request).outcome, SaveAnswer::Outcome::changed_meanwhile);
    EXPECT_EQ(disk["f"], "theirs\n");
    disk.clear();
    EXPECT_EQ(save_document(files, request).outcome, SaveAnswer::Outcome::changed_meanwhile);
    request.known.reset();
    EXPECT_EQ(save_document(files, request).outcome, SaveAnswer::Outcome::saved);
    EXPECT_EQ(disk["f"], "edited\n");
}

TEST(ConfigCommands, PrintWhatScriptsRead) {
    Configuration configuration;
    configuration.read("logdir /var/log\nserver a  iburst\n");
    std::ostringstream out;
    EXPECT_EQ(print_configuration(configuration, "logdir", OutputForm::text, out), 0);
    EXPECT_EQ(print_configuration(configuration, "nope", OutputForm::json, out), 1);
    EXPECT_EQ(out.str(), "/var/log\nnull\n");
    out.str("");
    EXPECT_EQ(print_configuration(configuration, {}, OutputForm::json, out), 0);
    EXPECT_EQ(nlohmann::json::parse(out.str()), nlohmann::json({{"logdir", "/var/log"}, {"server", "a  iburst"}}));

    ConfigurationCheck check;
    check.error.m_doubt = said_by_others("chronyd refuses it.");
    check.warnings = {{3, said_by_others("keyfile: \x1b is bad.")}};
    std::ostringstream err;
    EXPECT_EQ(print_check(check, OutputForm::text, out, err), 1);
    EXPECT_EQ(err.str(), "tickerctl: chronyd refuses it.\ntickerctl: line 3: keyfile: ? is bad.\n");
    out.str("");
    EXPECT_EQ(print_check(check, OutputForm::json, out, err), 1);
    const auto document = nlohmann::json::parse(out.str());
    EXPECT_EQ(document["isok"], true);
    EXPECT_EQ(document["warnings"][1]["line"], 3);
    EXPECT_EQ(print_check({}, OutputForm::text, out, err), 0);
}

} // namespace
} // namespace tickervantage
