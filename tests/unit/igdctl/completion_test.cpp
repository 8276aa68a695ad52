#include "help/completion.h"

#include <gtest/gtest.h>

namespace igdctl {
namespace {

using Words = std::vector<std::string>;

class CompleteLine : public testing::Test {
 protected:
  CompleteLine() {
    root_.add_option("--store", text_)->type_name("FILE");
    root_.add_flag("--json", flag_);
    root_.add_subcommand("__hidden")->group("");
    CLI::App& wan = *root_.add_subcommand("wan", "connections");
    CLI::App& set = *wan.add_subcommand("set", "change one");
    set.add_option("CONNECTION", text_);
    set.add_option("--bind-lan", list_)->type_name("PORTS");
    set.add_option("--nat", text_)->type_name("on|off");
    set.add_option("--format", text_)->check(CLI::IsMember({"csv", "json"}));
    wan.add_subcommand("show", "all of one");
  }

  Words candidates(const Words& words) const {
    Words found;
    for (const Candidate& one : complete_line(root_, words).candidates) found.push_back(one.word);
    return found;
  }
  Completion at(const Words& words) const { return complete_line(root_, words); }

  CLI::App root_;

 private:
  std::string text_;
  Words list_;
  bool flag_ = false;
};

TEST_F(CompleteLine, OffersCommandsButNoHiddenOnes) {
  EXPECT_EQ(candidates({""}), Words({"wan"}));
  EXPECT_EQ(candidates({"_"}), Words());
  EXPECT_EQ(candidates({"wan", "s"}), Words({"set", "show"}));
  EXPECT_EQ(candidates({"wan", "se"}), Words({"set"}));
}

TEST_F(CompleteLine, OffersOptionsOfTheCommandAndThoseAbove) {
  EXPECT_EQ(candidates({"wan", "set", "--b"}), Words({"--bind-lan"}));
  EXPECT_EQ(candidates({"wan", "set", "--js"}), Words({"--json"}));
  EXPECT_EQ(candidates({"wan", "--b"}), Words());
}

TEST_F(CompleteLine, OffersTheValuesOfAnOption) {
  EXPECT_EQ(candidates({"wan", "set", "--nat", ""}), Words({"on", "off"}));
  EXPECT_EQ(candidates({"wan", "set", "--nat", "of"}), Words({"off"}));
  EXPECT_EQ(candidates({"wan", "set", "--format=j"}), Words({"--format=json"}));
  EXPECT_EQ(at({"--store", ""}).kind, WordKind::kFile);
}

TEST_F(CompleteLine, KnowsWhatAnArgumentIs) {
  EXPECT_EQ(at({"wan", "set", ""}).kind, WordKind::kConnection);
  EXPECT_EQ(at({"wan", "set", "--nat", "on", "Int"}).kind, WordKind::kConnection);
  EXPECT_EQ(at({"wan", "set", "--nat", "on", "Int"}).prefix, "Int");
  EXPECT_EQ(at({"wan", "set", "Internet", ""}).kind, WordKind::kNothing);
  EXPECT_EQ(at({"wan", "set", "--", "-x"}).kind, WordKind::kConnection);
}

TEST_F(CompleteLine, GoesOnWithinAListOfPorts) {
  const Completion completion = at({"wan", "set", "--bind-lan=LAN1,LA"});
  EXPECT_EQ(completion.kind, WordKind::kPort);
  EXPECT_EQ(completion.before, "--bind-lan=LAN1,");
  EXPECT_EQ(completion.prefix, "LA");
}

TEST_F(CompleteLine, TakesTheStoreFromTheLine) {
  EXPECT_EQ(at({"--store", "a.db", "wan", ""}).store, "a.db");
  EXPECT_EQ(at({"--store=a.db", "wan", ""}).store, "a.db");
  EXPECT_EQ(at({"wan", ""}).store, "");
}

TEST_F(CompleteLine, OddLinesAreNoTrouble) {
  for (const Words& words : {Words(), Words({"--"}), Words({"-"}), Words({"="}), Words({"--=", ""}),
                             Words({"--nothing=x", "y"}), Words({"wan", "wan", "set", "--nat"})}) {
    (void)at(words);
  }
  EXPECT_EQ(candidates({"nonsense", ""}), Words());
}

}  // namespace
}  // namespace igdctl
