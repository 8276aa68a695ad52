#include "help/man_page.h"

#include <gtest/gtest.h>

#include "term/exit_codes.h"

namespace igdctl {
namespace {

TEST(ManPage, TextIsShownLetterByLetter) {
  EXPECT_EQ(roff_text(".TH"), "\\&.TH");
  EXPECT_EQ(roff_text("a.b\n.c"), "a.b\n\\&.c");
  EXPECT_EQ(roff_text("'x' \"y\""), "\\&\\(aqx\\(aq \\(dqy\\(dq");
  EXPECT_EQ(roff_text("--json \\n"), "\\-\\-json \\en");
}

TEST(ManPage, HasASectionForEveryCommandAndARowForEveryExitCode) {
  CLI::App root("A tool", "igdctl");
  CLI::App& group = *root.add_subcommand("wan", "Connections");
  CLI::App& command = *group.add_subcommand("list", "All of them");
  command.footer("Example:\n  igdctl wan list");
  root.add_subcommand("__hidden")->group("");
  EXPECT_EQ(man_page_names(root), std::vector<std::string>({"igdctl", "igdctl-wan"}));
  const std::string page = man_page(root, "igdctl-wan", true);
  EXPECT_NE(page.find(".SS \"igdctl wan list\"\nAll of them.\n"), std::string::npos);
  EXPECT_NE(page.find("\n.nf\n.RS 4\nigdctl wan list\n"), std::string::npos) << page;
  for (const ExitCodeMeaning& row : exit_code_meanings()) {
    EXPECT_NE(page.find(roff_text(row.meaning)), std::string::npos) << row.meaning;
  }
  EXPECT_EQ(man_page(root, "igdctl-nothing", true), "");
}

TEST(ManPage, ShowsWhatACommandNeedsAndTakesAndNothingHidden) {
  CLI::App root("A tool", "igdctl");
  CLI::App& command = *root.add_subcommand("wan", "Connections")->add_subcommand("set", "Change");
  std::string text;
  command.add_option("NAME", text, "Which")->required();
  command.add_option("OTHER", text, "What else");
  command.add_option("--unshown", text, "Hidden")->group("");
  const std::string page = man_page(root, "igdctl-wan", true);
  EXPECT_NE(page.find("\\fBigdctl wan set\\fR [OPTION]... NAME [OTHER]\n"), std::string::npos)
      << page;
  EXPECT_EQ(page.find("Hidden"), std::string::npos) << page;
  EXPECT_EQ(page.find("\\-\\-help"), page.rfind("\\-\\-help")) << page;  // one for all commands
}

TEST(ManPage, OfAGroupWithoutCommandsDescribesTheGroup) {
  CLI::App root("A tool", "igdctl");
  root.add_subcommand("doctor", "Look for faults");
  EXPECT_NE(man_page(root, "igdctl-doctor", true).find(".SS \"igdctl doctor\"\nLook for faults.\n"),
            std::string::npos);
}

TEST(ManPage, SaysWhatEachExitCodeMeans) {
  const CLI::App root("A tool", "igdctl");
  const std::string page = man_page(root, "igdctl", true);
  const char* const meanings[] = {"done",
                                  "an unexpected failure",
                                  "bad input",
                                  "no such connection",
                                  "a check failed",
                                  "the store cannot be used",
                                  "a change is still waiting",
                                  "this build cannot do that",
                                  "the change needs",
                                  "the platform refused",
                                  "doctor found contradictions"};
  int code = 0;
  for (const char* const meaning : meanings) {
    const std::string row = ".TP\n\\fB" + std::to_string(code++) + "\\fR\n" + meaning;
    EXPECT_NE(page.find(row), std::string::npos) << row;
  }
}

TEST(ManPage, NamesTheStoresEnvironmentWhereThereIsAStore) {
  const CLI::App root("A tool", "igdctl");
  EXPECT_NE(man_page(root, "igdctl", true).find("IGD_STORE"), std::string::npos);
  EXPECT_EQ(man_page(root, "igdctl", false).find("IGD_STORE"), std::string::npos);
}

TEST(ManPage, OfTheProgramHasItsGroupsAndTheOptionsOfAllCommands) {
  CLI::App root("A tool", "igdctl");
  root.set_help_flag("--help", "Show this help");
  root.add_flag("--json", "Print one document");
  root.add_subcommand("wan", "Connections");
  const std::string page = man_page(root, "igdctl", true);
  EXPECT_NE(page.find(".SH GROUPS\n.TP\n\\fBwan\\fR\nConnections. See igdctl\\-wan(1).\n"
                      ".SH OPTIONS\n.TP\n\\fB\\-\\-help\\fR\nShow this help.\n"
                      ".TP\n\\fB\\-\\-json\\fR\nPrint one document.\n.SH EXAMPLES\n"),
            std::string::npos)
      << page;
}

}  // namespace
}  // namespace igdctl
