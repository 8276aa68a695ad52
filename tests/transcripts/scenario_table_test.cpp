// The table of scenarios itself: nothing is missing, nothing is left over.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <tuple>

#include "documents.h"
#include "expected_text.h"
#include "form/pattern.h"
#include "scenarios/create_rows.h"
#include "scenarios/scenario.h"

namespace transcripts {
namespace {

std::set<std::string> scenario_names() {
  std::set<std::string> names;
  for (const Scenario& scenario : all_scenarios()) names.insert(scenario.name);
  return names;
}

template <typename Predicate>
bool some_row(Predicate predicate) {
  return std::any_of(std::begin(kCreateRows), std::end(kCreateRows), predicate);
}

TEST(ScenarioTable, GivesEachNameOnce) {
  EXPECT_EQ(scenario_names().size(), all_scenarios().size());
}

TEST(ScenarioTable, NamesAreWordsInLowerCase) {
  const Pattern words("[a-z][a-z0-9]*(_[a-z0-9]+)+");
  for (const std::string& name : scenario_names()) EXPECT_TRUE(words.matches(name)) << name;
}

TEST(ScenarioTable, BeginsEachNameWithItsArea) {
  for (const Area& area : kAreas) {
    for (const Scenario& scenario : area.scenarios()) {
      EXPECT_EQ(scenario.name.rfind(std::string(area.name) + '_', 0), 0U) << scenario.name;
    }
  }
}

TEST(ScenarioTable, HasOneFileForEachDocument) {
  std::set<std::string> documents;
  for (const Document& document : all_documents()) documents.insert(document.name);
  EXPECT_EQ(documents.size(), all_documents().size());
  std::set<std::string> files;
  for (const auto& file : std::filesystem::directory_iterator(TRANSCRIPT_DIR)) {
    files.insert(file.path().stem().string());
  }
  EXPECT_EQ(files, documents);
}

TEST(ScenarioTable, CreatesEveryClassInEveryModeOnEveryUplink) {
  for (const std::string type : kAccessTypes) {
    for (const IgdConnectionClass kind : kClasses) {
      for (const IgdConnectMode mode : kModes) {
        const auto text = type + " class " + std::to_string(kind) + " mode " + std::to_string(mode);
        EXPECT_TRUE(some_row([&](const CreateRow& row) {
          return row.access_type == type && row.connection_class == kind;
        })) << text;
        EXPECT_TRUE(some_row([&](const CreateRow& row) {
          return row.access_type == type && row.connect_mode == mode;
        })) << text;
        EXPECT_TRUE(some_row([&](const CreateRow& row) {
          return row.connection_class == kind && row.connect_mode == mode;
        })) << text;
      }
    }
  }
}

TEST(ScenarioTable, CreatesEachOfThemTaggedAndUntagged) {
  std::set<std::tuple<std::string, bool>> pairs;
  for (const CreateRow& row : kCreateRows) {
    pairs.insert({row.access_type, row.tagged});
    pairs.insert({"class " + std::to_string(row.connection_class), row.tagged});
    pairs.insert({"mode " + std::to_string(row.connect_mode), row.tagged});
  }
  EXPECT_EQ(pairs.size(), 2 * (std::size(kAccessTypes) + std::size(kClasses) + std::size(kModes)));
}

}  // namespace
}  // namespace transcripts
