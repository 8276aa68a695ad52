#include "gateway/connections.h"

#include <string_view>

#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

struct Objects {
  std::string fixed;
  std::string dhcp;
  std::string ppp;
};

Objects objects_of(const std::string& wan_path) {
  Objects objects;
  objects.fixed = parent_of(igd_tool_loop_fullname(wan_path, kAddressingType, "Static"));
  objects.dhcp = parent_of(igd_tool_loop_fullname(wan_path, kAddressingType, "DHCP"));
  const std::vector<std::string> ppp = instances_below(wan_path, kPppConnection);
  if (!ppp.empty()) objects.ppp = ppp.front();
  return objects;
}

// The library's own order of precedence.
std::string active_object(MibAccess& tree, const Objects& objects) {
  for (const std::string* path : {&objects.dhcp, &objects.ppp, &objects.fixed}) {
    if (value_in(tree, *path, "Enable") == "true") return *path;
  }
  return objects.fixed;
}

Connection read_connection(MibAccess& tree, const std::string& path) {
  Connection connection;
  connection.path = path;
  connection.id = id_of_path(path);
  const std::string object = active_object(tree, objects_of(path));
  connection.name = value_in(tree, object, "Name");
  connection.service = value_in(tree, object, "X_CT-COM_ServiceList");
  connection.access =
      value_in(tree, parent_of(parent_of(path)), "WANCommonInterfaceConfig.WANAccessType");
  (void)igd_wan_get_wan_bridge_info(path, &connection.bridge_path, &connection.bridge_name);
  return connection;
}

bool is_meant(const Connection& connection, const std::string& words) {
  return connection.name == words || connection.id == words || connection.path == words ||
         connection.path == words + '.';
}

std::string all_titles(const std::vector<Connection>& connections) {
  std::vector<std::string> titles;
  for (const Connection& connection : connections) {
    titles.push_back(in_quotes(title_of(connection)));
  }
  return joined(titles, ", ");
}

[[noreturn]] void fail_unknown(const std::vector<Connection>& connections,
                               const std::string& words) {
  const std::string what = "there is no connection " + in_quotes(words);
  if (connections.empty()) {
    throw Failure(ExitCode::kNotFound, what,
                  "there is none at all: make one with igdctl wan create");
  }
  std::vector<std::string> titles;
  for (const Connection& connection : connections) titles.push_back(title_of(connection));
  std::vector<std::string> near = near_names(words, titles);
  for (std::string& name : near) name = in_quotes(name);
  throw Failure(ExitCode::kNotFound, what,
                near.empty() ? "there are " + all_titles(connections)
                             : "did you mean " + joined(near, " or ") + "?");
}

}  // namespace

std::vector<Connection> list_connections(MibAccess& tree) {
  std::vector<std::string> paths;
  (void)igd_wan_list(paths);
  std::vector<Connection> connections;
  connections.reserve(paths.size());
  for (const std::string& path : paths) connections.push_back(read_connection(tree, path));
  return connections;
}

Connection find_connection(MibAccess& tree, const std::string& words) {
  const std::vector<Connection> connections = list_connections(tree);
  std::vector<Connection> meant;
  for (const Connection& connection : connections) {
    if (!words.empty() && is_meant(connection, words)) meant.push_back(connection);
  }
  if (meant.empty()) fail_unknown(connections, words);
  if (meant.size() > 1) {
    std::vector<std::string> paths;
    for (const Connection& connection : meant) paths.push_back(connection.path);
    throw Failure(ExitCode::kBadInput, in_quotes(words) + " means several connections",
                  "name one by its path: " + joined(paths, ", "));
  }
  return meant.front();
}

std::string title_of(const Connection& connection) {
  return connection.name.empty() ? connection.id : connection.name;
}

std::string title_of_path(const std::vector<Connection>& connections, const std::string& path) {
  for (const Connection& connection : connections) {
    if (connection.path == path) return title_of(connection);
  }
  return path;
}

bool carries_management(const std::string& service_list) {
  return service_list.find(kManagementService) != std::string::npos;
}

std::string id_of_path(const std::string& path) {
  constexpr std::string_view kTable = "WANConnectionDevice.";
  const std::string device = parent_of(parent_of(path));
  if (!begins_with(device, kWanDeviceTable)) return {};
  const std::string_view number =
      std::string_view(device).substr(std::string_view(kWanDeviceTable).size());
  const std::string_view rest = std::string_view(path).substr(device.size());
  if (!begins_with(rest, kTable)) return {};
  return std::string(number) +
         std::string(rest.substr(kTable.size(), rest.size() - kTable.size() - 1));
}

}  // namespace igdctl
