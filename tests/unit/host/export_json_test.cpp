// The JSON export: read with a parser, everything of the tree is there.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "host_platform.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::ExportResult;
using host::Tree;
using nlohmann::json;

const std::string kInfo = "InternetGatewayDevice.DeviceInfo.";

json json_of(const Tree& tree) {
  std::ostringstream text;
  const ExportResult result = host::export_json(tree, text);
  EXPECT_TRUE(result.ok) << result.error;
  return json::parse(text.str());
}

json entry(const json& list, const std::string& key, const std::string& name) {
  for (const json& one : list) {
    if (one.contains(key) && one[key] == name) return one;
  }
  return {};
}

TEST(JsonExport, StatesItsFormat) {
  const json document = json_of(Tree());
  EXPECT_EQ(document.size(), 3U);
  EXPECT_EQ(document["format"], 1);
}

TEST(JsonExport, HasEveryObjectInOrder) {
  Tree tree = Tree::factory();
  for (int i = 0; i < 10; ++i) added(tree, kBridges);
  const json objects = json_of(tree)["objects"];
  const auto expected = tree.objects();
  ASSERT_EQ(objects.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(objects[i]["path"], expected[i].path);
}

TEST(JsonExport, HasEveryParameterInOrder) {
  const Tree tree = Tree::factory();
  const json parameters = json_of(tree)["parameters"];
  const auto expected = tree.parameters();
  ASSERT_EQ(parameters.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(parameters[i]["name"], expected[i].name);
    EXPECT_EQ(parameters[i]["value"], expected[i].value);
  }
}

TEST(JsonExport, DescribesObjects) {
  Tree tree;
  added(tree, kBridges);
  tree.delete_object(added(tree, kBridges));
  const json objects = json_of(tree)["objects"];
  EXPECT_EQ(entry(objects, "path", kBridges), json({{"path", kBridges},
                                                    {"kind", "table"},
                                                    {"writable", true},
                                                    {"extension", false},
                                                    {"highest_instance", 2}}));
  EXPECT_EQ(entry(objects, "path", kBridges + "1."), json({{"path", kBridges + "1."},
                                                           {"kind", "instance"},
                                                           {"writable", true},
                                                           {"extension", false}}));
  EXPECT_EQ(entry(objects, "path", kInfo)["kind"], "object");
}

// People look for a name first.
TEST(JsonExport, BeginsWithWhatAnEntryIsAbout) {
  std::ostringstream text;
  ASSERT_TRUE(host::export_json(Tree(), text).ok);
  const auto document = nlohmann::ordered_json::parse(text.str());
  const auto keys_of = [](const nlohmann::ordered_json& object) {
    std::vector<std::string> keys;
    for (const auto& item : object.items()) keys.push_back(item.key());
    return keys;
  };
  using Keys = std::vector<std::string>;
  EXPECT_EQ(keys_of(document), (Keys{"format", "objects", "parameters"}));
  EXPECT_EQ(keys_of(document["objects"][0]), (Keys{"path", "kind", "writable", "extension"}));
  EXPECT_EQ(keys_of(document["parameters"][0]),
            (Keys{"name", "value", "type", "writable", "extension", "derived"}));
}

TEST(JsonExport, DescribesParameters) {
  Tree tree;
  ASSERT_TRUE(host::import_csv_file(tree, std::string(TEST_DATA_DIR) + "/gateway.csv").ok);
  const json parameters = json_of(tree)["parameters"];
  const std::string extension = kInfo + "X_EXAMPLE_Board.Ready";
  EXPECT_EQ(entry(parameters, "name", extension), json({{"name", extension},
                                                        {"value", "true"},
                                                        {"type", "boolean"},
                                                        {"writable", false},
                                                        {"extension", true},
                                                        {"derived", false}}));
  const std::string count = kRoot + "Layer2Bridging.BridgeNumberOfEntries";
  EXPECT_EQ(entry(parameters, "name", count), json({{"name", count},
                                                    {"value", "2"},
                                                    {"type", "unsignedInt"},
                                                    {"writable", false},
                                                    {"extension", false},
                                                    {"derived", true}}));
}

TEST(JsonExport, KeepsEveryUnicodeText) {
  Tree tree;
  const std::vector<std::string> texts = {"",
                                          " a ",
                                          "\"\\/",
                                          "a\r\n\tb",
                                          std::string("a\0b", 3),
                                          "\x01\x1F\x7F",
                                          "\xC3\xBC \xE2\x82\xAC",
                                          "\xF0\x9F\x93\xB6"};
  for (const std::string& text : texts) {
    tree.set_value(kInfo + "Description", text);
    const json parameter = entry(json_of(tree)["parameters"], "name", kInfo + "Description");
    EXPECT_EQ(parameter["value"].get<std::string>(), text);
    EXPECT_FALSE(parameter.contains("value_hex"));
  }
}

TEST(JsonExport, WritesOtherBytesAsHexadecimalDigits) {
  Tree tree;
  tree.set_value(kInfo + "Description", "a\xFF\x0A");
  const json parameter = entry(json_of(tree)["parameters"], "name", kInfo + "Description");
  EXPECT_EQ(parameter["value_hex"], "61ff0a");
  EXPECT_FALSE(parameter.contains("value"));
}

TEST(JsonExport, KeepsNamesThatAreNoUnicode) {
  Tree tree;
  std::istringstream dump(
      "Parameter,Object,Writable,Value,Value type\n"
      "InternetGatewayDevice.X_\xFF,false,true,x,xsd:string\n"
      "InternetGatewayDevice.Y_\xFF,true,true,,\n");
  ASSERT_TRUE(host::import_csv(tree, dump, "dump").ok);
  const json document = json_of(tree);
  EXPECT_EQ(entry(document["parameters"], "name_hex",
                  "496e7465726e6574476174657761794465766963652e585fff")["value"],
            "x");
  EXPECT_FALSE(
      entry(document["objects"], "path_hex", "496e7465726e6574476174657761794465766963652e595fff2e")
          .is_null());
}

TEST(JsonExport, TellsWhatItWrote) {
  const Tree tree = Tree::factory();
  std::ostringstream text;
  const ExportResult result = host::export_json(tree, text);
  EXPECT_EQ(result.objects, tree.objects().size());
  EXPECT_EQ(result.parameters, tree.parameters().size());
}

TEST(JsonExport, TellsWhenTheOutputFails) {
  std::ostringstream output;
  output.setstate(std::ios::badbit);
  EXPECT_EQ(host::export_json(Tree(), output).error, "the output cannot be written");
}

}  // namespace
