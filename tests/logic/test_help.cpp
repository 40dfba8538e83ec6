#include "cli/help/help_command.h"
#include "help/help_pages.h"
#include "help/manual_page.h"
#include "help/markdown_text.h"
#include "support/child_program.h"
#include "support/kept_text.h"
#include "support/scripted_execute.h"
#include "support/test.h"

namespace tickervantage {
namespace {

namespace fs = std::filesystem;

struct HelpPagesTest : ::testing::Test {
    const testing::PrivateHome home;
    const fs::path folder = home.path();
    testing::ScriptedExecute execute;
    HelpPages pages{{.execute = execute,
                     .own_pages = folder / "own",
                     .manual_roots = {folder / "local", folder / "share"},
                     .mandoc = folder / "mandoc"}};

    void SetUp() override {
        write("own/faq.md", "# Questions\n\n[Steps](first-use.md)\n");
        write("mandoc", "");
        execute.answer("mandoc", "<h1>NAME</h1>");
    }

    void write(const fs::path& name, const std::string& text) const {
        fs::create_directories((folder / name).parent_path());
        std::ofstream(folder / name) << text;
    }
};

TEST_F(HelpPagesTest, ManualsAreRenderedFromTheInstalledFileCompressedOrNot) {
    const HelpTopic& chronyc = *find_help_topic("chronyc");
    EXPECT_EQ(pages.for_window(chronyc).absence, HelpAbsence::not_installed);
    write("share/man1/chronyc.1.gz", "");
    EXPECT_EQ(pages.for_window(chronyc).text, "<h2>NAME</h2>");
    EXPECT_TRUE(execute.calls.back().ends_with("share/man1/chronyc.1.gz")) << execute.calls.back();
    write("local/man1/chronyc.1", "");
    (void)pages.for_window(chronyc);
    EXPECT_TRUE(execute.calls.back().ends_with("local/man1/chronyc.1")) << execute.calls.back();
    fs::remove(folder / "mandoc");
    EXPECT_EQ(pages.for_terminal(chronyc, 78).absence, HelpAbsence::no_renderer);
}

TEST_F(HelpPagesTest, CommandPrintsTopicsAPageOrPassagesAndRefusesTheRest) {
    std::ostringstream out;
    EXPECT_EQ(print_help(pages, {}, 78, out), 0);
    testing::expect_as_kept(out.str(), "topics");
    out.str("");
    EXPECT_EQ(print_help(pages, {.topic = "faq", .words = {}}, 78, out), 0);
    EXPECT_EQ(out.str(), "Questions\n=========\n\nSteps\n");
    out.str("");
    EXPECT_EQ(print_help(pages, {.topic = {}, .words = "STEPS"}, 78, out), 0);
    EXPECT_EQ(out.str(), "faq: Steps\n");
    EXPECT_EQ(print_help(pages, {.topic = {}, .words = "absent"}, 78, out), 1);
    EXPECT_EQ(print_help(pages, {.topic = "../faq", .words = {}}, 78, out), 2);
    EXPECT_EQ(print_help(pages, {.topic = "chronyd", .words = {}}, 78, out), 2);
}

TEST_F(HelpPagesTest, APageInTheUsersLanguageComesFirstAndKeepsThePlacesThatLinksName) {
    write("own/faq_de.md", "# Fragen {#questions}\n\n## Was? Wie! {#what}\n\nText {#none}\n");
    write("own/windows.md", "# The windows\n");
    const HelpPages german({.execute = execute, .own_pages = folder / "own", .language = "de"});
    const HelpPage page = german.for_window(*find_help_topic("faq"));
    EXPECT_EQ(page.text, "# Fragen\n\n## Was? Wie!\n\nText {#none}\n");
    EXPECT_EQ(page.places, (std::map<std::string, std::string>{{"questions", "fragen"}, {"what", "was-wie"}}));
    EXPECT_EQ(german.for_window(*find_help_topic("windows")).text, "# The windows\n");
    EXPECT_EQ(pages.for_window(*find_help_topic("faq")).places.size(), 0U);
}

std::vector<std::string> names_of_headings(const std::string& page) {
    std::ifstream file(std::string(HELP_PAGES) + "/" + page);
    std::vector<std::string> names;
    for (std::string line; std::getline(file, line);) {
        const auto name = line.find(" {#");
        if (line.starts_with('#'))
            names.push_back(name == std::string::npos ? heading_name(line.substr(line.find(' ') + 1))
                                                      : line.substr(name + 3, line.size() - name - 4));
    }
    return names;
}

TEST(GermanHelp, HasTheSamePlacesInTheSameOrder) {
    for (const auto& topic : help_topics()) {
        if (topic.is_manual())
            continue;
        const std::string name(topic.name);
        EXPECT_GT(names_of_headings(name + ".md").size(), 3U) << name;
        EXPECT_EQ(names_of_headings(name + "_de.md"), names_of_headings(name + ".md")) << name;
    }
}

TEST(ManualPage, ReferencesBecomeLinksOutsideOfTagsOnly) {
    const HelpTopic& self = *find_help_topic("chronyd");
    for (const auto& [html, adapted] : std::vector<std::pair<std::string, std::string>>{
             {"<b>chronyc(1)</b>", "<b><a href=\"help:chronyc\">chronyc(1)</a></b>"},
             {"<b>chronyd(8)</b>", "<b>chronyd(8)</b>"},
             {"<p id=\"chronyc(1)\">", "<p id=\"chronyc(1)\">"},
             {"my-chronyc(1)", "my-chronyc(1)"},
             {"<h1 id=\"A\"><a class=\"permalink\" href=\"#A\">A</a></h1>", "<h2 id=\"A\">A</h2>"},
             {"a</table><table class=\"head\"><tr></tr></table>x", "a</table>x"},
             {"<a class=\"permalink\"", "<a class=\"permalink\""},
             {"<hr><head>", "<hr><head>"}})
        EXPECT_EQ(adapted_manual(html, self), adapted);
    EXPECT_EQ(without_overstrikes("N\bNA\bA _\b−x \b\b\b\b\b\b\b\b"), "");
    EXPECT_EQ(without_overstrikes("N\bNA\bA −\b−"), "NA −");
}

TEST(HelpTarget, LinksLeadIntoTheHelpOrOutOfIt) {
    EXPECT_EQ(help_target("help:chrony.conf").topic->name, "chrony.conf");
    EXPECT_EQ(help_target("faq.md#what-is-the-stratum").place, heading_name("What is the stratum?"));
    EXPECT_EQ(help_target("faq.md").topic, find_help_topic("faq"));
    EXPECT_TRUE(help_target("#NAME").is_in_help);
    for (const char* link : {"https://chrony-project.org/", "help:nothing", "", "#", "/etc/passwd", "../faq.md"})
        EXPECT_FALSE(help_target(link).is_in_help) << link;
}

TEST(MarkdownText, IsFoldedAndLosesItsMarks) {
    for (const auto& [markdown, text] : std::vector<std::pair<std::string, std::string>>{
             {"a **b** `*c*` [d](faq.md)", "a b *c* d\n"},
             {"[d](https://x.org/)", "d (https://x.org/)\n"},
             {"- one two three four\n- five", "  - one two three\n    four\n  - five\n"},
             {"12. one", "  12. one\n"},
             {"one\ntwo\n\n\n\nthree", "one two\n\nthree\n"},
             {"µµµµµµµµµ µµµµµµµµ µ", "µµµµµµµµµ µµµµµµµµ\nµ\n"},
             {"x\n\n    make  it\n", "x\n\n    make  it\n"},
             {"```\n- code\n```", "    - code\n"},
             {"|a|b|\n|---|---|\n| 1 | 2 |", "  a:b\n  1: 2\n"},
             {"![x](y.png)\n[broken](", "[broken](\n"}})
        EXPECT_EQ(markdown_as_text(markdown, 19), text) << markdown;
}

TEST(HelpSearch, EveryWordMustStandInTheParagraph) {
    const std::string text = "Head\n\nThe clock is\n  slewed, not stepped.\n\nNothing here\n\nclock clock";
    EXPECT_EQ(search_page(text, " CLOCK not", 9), std::vector<std::string>{"The clock is slewed, not stepped."});
    EXPECT_EQ(search_page(text, "clock", 9).size(), 2U);
    EXPECT_EQ(search_page(text, "clock", 1).size(), 1U);
    EXPECT_TRUE(search_page(text, "  ", 9).empty());
    const std::string near = "b " + std::string(27, 'a') + " clock";
    EXPECT_EQ(search_page(near, "clock", 9), std::vector{near});
    const auto cut = search_page(std::string(80, 'a') + " µµµµ clock " + std::string(100, 'b'), "clock", 9);
    ASSERT_EQ(cut.size(), 1U);
    EXPECT_TRUE(cut[0].starts_with("…µµµµ clock b") && cut[0].ends_with("b…")) << cut[0];
}

} // namespace
} // namespace tickervantage
