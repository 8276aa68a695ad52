#include "model.h"

namespace model {
namespace {

const char* const kNever = "InternetGatewayDevice.WANDevice.9.WANConnectionDevice.9.";

}  // namespace

std::string Model::path_meant_by(const Step& step) const {
  const std::string meant = step.text(Field::kWan);
  if (meant.empty()) return {};
  std::vector<std::string> paths;
  for (const auto& [id, connection] : state_.connections) paths.push_back(path_of(id));
  const char* const counted[] = {"first", "second", "third"};
  for (std::size_t i = 0; i < 3 && !paths.empty(); ++i) {
    if (meant == counted[i]) return paths[i % paths.size()];
  }
  if (meant == "cut" && !paths.empty()) return paths[0].substr(0, paths[0].size() - 1);
  if (meant == "gone" && !state_.gone.empty()) return state_.gone;
  if (meant == "uplink" && !state_.uplinks.empty()) {
    return uplink_path(state_.uplinks.begin()->first);
  }
  return kNever;
}

Answer Model::perform(const Step& step) {
  state_.refused = false;
  const std::string path = path_meant_by(step);
  switch (step.operation) {
    case Operation::kCreate:
      return create(step);
    case Operation::kCheck:
      return check(step, path);
    case Operation::kSet:
      return set(step, path);
    case Operation::kGet:
      return get(step, path);
    case Operation::kRemove:
      return remove(path);
    case Operation::kMayRemove:
      return may_remove(path);
    case Operation::kList:
      return list();
    case Operation::kSaveBinding:
      return save_binding(step, path);
    case Operation::kFindName:
      return find_name(step.text(Field::kName));
    case Operation::kIsIndex:
      return is_index(path);
    case Operation::kIsBridgeParameter:
      return is_bridge_parameter(step);
    case Operation::kSetAll:
      return set_all(step, path);
    case Operation::kUsedPorts:
      return used_ports(path);
    case Operation::kStatus:
      return status(step, path);
    case Operation::kNameBridge:
      return name_bridge(path);
    case Operation::kFindBridge:
      return find_bridge(path);
    case Operation::kShowBridge:
      return show_bridge(path);
    case Operation::kBelongs:
      return belongs(step);
    case Operation::kFindPhysical:
      return find_physical(step);
    case Operation::kFreeVlan:
      return free_vlan();
    case Operation::kBridgeTexts:
      return bridge_texts(step, path);
    case Operation::kSetPvid:
      return set_pvid(step);
    case Operation::kSetRoute:
      return set_route(step);
    case Operation::kListRoutes:
      return list_routes();
    case Operation::kClearRoutes:
      return clear_routes();
    case Operation::kSetManagement:
      return set_management(step);
    case Operation::kGetManagement:
      return get_management(step);
    case Operation::kSetL3Name:
      return set_l3_name(step);
    case Operation::kGetL3Name:
      return get_l3_name(step);
    case Operation::kRemember:
      return remember(path);
    case Operation::kForget:
      return forget(path);
    case Operation::kLoseLanBridge:
      return lose_bridge(lan_bridge());
    case Operation::kLoseBridge:
      return lose_bridge(own_bridge(path));
    case Operation::kLoseConnection:
      return lose_connection(path);
    case Operation::kMoveRoute:
      return move_route(path);
    case Operation::kLineUp:
      return line_up(step, path);
  }
  return {};
}

ConnectionId Model::id_of(const std::string& path) const {
  for (const auto& [id, connection] : state_.connections) {
    if (path_of(id) == path) return id;
  }
  return {};
}

bool Model::is_connection(const std::string& path) const { return id_of(path).first != 0; }

std::string Model::read(ConnectionId id, Kind kind, const std::string& parameter) const {
  const auto found = state_.connections.find(id);
  return found == state_.connections.end() ? "" : text_of(found->second.objects[kind], parameter);
}

void Model::write(ConnectionId id, Kind kind, const std::string& parameter,
                  const std::string& value) {
  const auto found = state_.connections.find(id);
  if (found == state_.connections.end()) {
    state_.refused = true;
  } else {
    found->second.objects[kind][parameter] = value;
  }
}

}  // namespace model
