#include "gateway/connections.h"

#include <string_view>

#include "gateway/connection_objects.h"
#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

// The library's own order of precedence.
std::string active_object(MibAccess& tree, const ConnectionObjects& objects) {
  for (const std::string* path : {&objects.dhcp, &objects.ppp, &objects.fixed}) {
    if (is_true(value_in(tree, *path, "Enable"))) return *path;
  }
  return objects.fixed;
}

Connection read_connection(MibAccess& tree, const std::string& path) {
  Connection connection;
  connection.path = path;
  connection.id = id_of_path(path);
  const std::string object = active_object(tree, connection_objects(path));
  connection.name = value_in(tree, object, "Name");
  connection.service = value_in(tree, object, "X_CT-COM_ServiceList");
  connection.access =
      value_in(tree, parent_of(parent_of(path)), "WANCommonInterfaceConfig.WANAccessType");
  (void)igd_wan_get_wan_bridge_info(path, &connection.bridge_path, &connection.bridge_name);
  return connection;
}

[[noreturn]] void fail_unknown(const std::vector<Connection>& connections,
                               const std::string& selector) {
  std::vector<std::string> titles;
  for (const Connection& connection : connections) titles.push_back(title_of(connection));
  const std::string all = titles.empty()
                              ? "there are no connections: create one with igdctl wan create"
                              : "the connections are " + quoted_list(titles);
  throw Failure(ExitCode::kNotFound, "there is no connection " + in_quotes(selector),
                did_you_mean(selector, titles, all));
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

Connection find_connection(MibAccess& tree, const std::string& selector) {
  const std::vector<Connection> connections = list_connections(tree);
  std::vector<Connection> meant;
  for (const Connection& connection : connections) {
    if (is_selected_by(connection, selector)) meant.push_back(connection);
  }
  if (meant.empty()) fail_unknown(connections, selector);
  if (meant.size() > 1) {
    std::vector<std::string> paths;
    for (const Connection& connection : meant) paths.push_back(connection.path);
    throw Failure(ExitCode::kBadInput, in_quotes(selector) + " names several connections",
                  "give the path of one: " + joined(paths, ", "));
  }
  return meant.front();
}

bool is_selected_by(const Connection& connection, const std::string& selector) {
  return !selector.empty() && (connection.name == selector || connection.id == selector ||
                               connection.path == selector || connection.path == selector + '.');
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
  return service_list.find(igd::kManagementService) != std::string::npos;
}

std::string id_of_path(const std::string& path) {
  constexpr std::string_view kTable = "WANConnectionDevice.";
  const std::string device = parent_of(parent_of(path));
  if (!begins_with(device, igd::kWanDeviceTable)) return {};
  const std::string_view number =
      std::string_view(device).substr(std::string_view(igd::kWanDeviceTable).size());
  const std::string_view rest = std::string_view(path).substr(device.size());
  if (!begins_with(rest, kTable)) return {};
  return std::string(number) +
         std::string(rest.substr(kTable.size(), rest.size() - kTable.size() - 1));
}

}  // namespace igdctl
