#include <string>

#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"

namespace {

struct ServerSetting {
  const char* parameter;
  std::string api_mng_server_info::*field;
};

constexpr ServerSetting kServerSettings[] = {
    {"URL", &api_mng_server_info::url},
    {"Username", &api_mng_server_info::username},
    {"Password", &api_mng_server_info::password},
    {"ConnectionRequestURL", &api_mng_server_info::connection_request_url},
    {"ConnectionRequestUsername", &api_mng_server_info::connection_request_username},
    {"ConnectionRequestPassword", &api_mng_server_info::connection_request_password},
};

}  // namespace

int igd_mng_server_get_params(api_mng_server_info* info) {
  if (igd::tree() == nullptr || info == nullptr) return kIgdNoTree;
  for (const ServerSetting& row : kServerSettings) {
    igd::read_into(igd::kManagementServer, row.parameter, &(info->*row.field));
  }
  return kIgdOk;
}

int igd_mng_server_set_params(api_mng_server_info* info) {
  if (igd::tree() == nullptr || info == nullptr) return kIgdNoTree;
  for (const ServerSetting& row : kServerSettings) {
    _set_value(igd::kManagementServer, row.parameter, info->*row.field);
  }
  return kIgdOk;
}

std::string igd_c_get_lan_ipaddr() {
  return _get_value(igd::kLanIpInterface, "IPInterfaceIPAddress");
}
