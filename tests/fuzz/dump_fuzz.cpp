// Parameter dumps: what is refused leaves the tree as it was, what is read comes back from an
// export as the same tree.
#include <nlohmann/json.hpp>
#include <sstream>

#include "harness.h"
#include "host_platform.h"
#include "tree_text.h"

namespace {

using fuzz::require;
using fuzz::require_same;

host::Tree small_tree() {
  host::Tree tree;
  int bridge = 0;
  (void)tree.add_object("InternetGatewayDevice.Layer2Bridging.Bridge.", &bridge);
  return tree;
}

std::string text_of(host::ExportResult (*write)(const host::Tree&, std::ostream&),
                    const host::Tree& tree) {
  std::ostringstream text;
  const host::ExportResult result = write(tree, text);
  require(result.ok, "every tree can be exported");
  return text.str();
}

// Instances are found by the number of their type, and there as often as they are listed.
void require_whole(const host::Tree& tree) {
  for (const host::Parameter& parameter : tree.parameters()) {
    require(tree.has_parameter(parameter.name), "a listed parameter is there");
    require_same(tree.value(parameter.name), parameter.value, "a listed parameter has its value");
  }
  for (const host::Object& object : tree.objects()) {
    require(tree.has_object(object.path), "a listed object is there");
  }
  for (const std::string& name : tree.instances(kWanConnectionDevice)) {
    require(tree.has_object(name), "an enumerated object is there");
  }
  for (const std::string& name : tree.instances(kPortInterface)) {
    require(tree.has_parameter(name), "an enumerated parameter is there");
  }
}

void require_export(const host::Tree& tree) {
  const std::string text = text_of(host::export_csv, tree);
  host::Tree copy = small_tree();
  std::istringstream input(text);
  const host::ImportResult result = host::import_csv(copy, input, "export");
  require_same(result.error, "", "an export can be imported");
  require(result.booleans == 0, "nothing is normalised twice");
  require_same(host_tests::whole_text(copy), host_tests::whole_text(tree), "the same tree");
  require_same(text_of(host::export_csv, copy), text, "the same export");
  require(nlohmann::json::accept(text_of(host::export_json, tree)), "the other export is JSON");
}

// All of it goes when tables are emptied one by one; so no part was joined to the tree wrongly.
void require_that_it_can_be_emptied(host::Tree& tree) {
  for (const char* path :
       {"InternetGatewayDevice.WANDevice.1.", "InternetGatewayDevice.Layer2Bridging.Bridge.1.",
        "InternetGatewayDevice.Layer3Forwarding."}) {
    const bool was_there = tree.has_object(path);
    require((tree.delete_object(path) == 0) == was_there, "what is there can go");
  }
  require_whole(tree);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string before = host_tests::whole_text(small_tree());
  host::Tree tree = small_tree();
  std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
  const host::ImportResult result = host::import_csv(tree, input, "dump");
  require(result.ok == result.error.empty(), "a refusal has a reason, and nothing else has one");
  if (!result.ok) {
    require(result.error.rfind("dump:", 0) == 0, "a refusal says where");
    require_same(host_tests::whole_text(tree), before, "what is refused changes nothing");
    return 0;
  }
  require_whole(tree);
  require_export(tree);
  require_that_it_can_be_emptied(tree);
  return 0;
}
