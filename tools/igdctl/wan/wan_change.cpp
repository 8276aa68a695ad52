#include "wan/wan_change.h"

#include "cli/session.h"
#include "gateway/management.h"
#include "igd_api.h"
#include "term/text.h"
#include "wan/wan_description.h"
#include "wan/wan_writes.h"

namespace igdctl {

namespace {

// Another connection's change may have made what the library remembers wrong.
void forget_paths() {
  std::vector<std::string> none;
  _rebuid_cache(none);
}

void append(std::vector<Problem>* problems, const std::vector<Problem>& more) {
  problems->insert(problems->end(), more.begin(), more.end());
}

[[noreturn]] void fail_to_create(const std::string& name) {
  throw Failure(ExitCode::kPlatform,
                "the platform did not create all of connection " + in_quotes(name),
                "igdctl wan list shows what is there");
}

}  // namespace

WanDraft draft_change(MibAccess& tree, const Connection& connection, const WanPatch& patch) {
  forget_paths();
  const DnsOfMode dns_of_mode = [&tree, &connection](int mode, api_wan_info* info) {
    read_dns_of_mode(tree, connection, mode, info);
  };
  return lay_over(patch, {read_description(tree, connection), connection.access}, dns_of_mode);
}

WanChanger::WanChanger(Session& session, Change& change)
    : session_(session), change_(change), tree_(session.tree()) {}

void WanChanger::stop_or_go_on(const std::vector<Conflict>& conflicts) {
  std::vector<Problem> final_ones;
  std::vector<Problem> forced_ones;
  for (const Conflict& conflict : conflicts) {
    if (conflict.was_there) {
      session_.output().warn(conflict.message + ", as before; " + conflict.hint);
      continue;
    }
    std::vector<Problem>& list = conflict.can_be_forced ? forced_ones : final_ones;
    list.push_back({conflict.message, conflict.hint});
  }
  if (!final_ones.empty()) {
    append(&final_ones, forced_ones);
    throw Failure(ExitCode::kRefused, final_ones);
  }
  change_.override_or_fail(forced_ones);
}

std::string WanChanger::create(const WanPatch& patch, std::vector<Problem> problems) {
  WanDraft draft = draft_new(patch);
  const GatewayState gateway = read_gateway_state(tree_, nullptr);
  append(&problems, problems_of(draft, gateway));
  fail_on(problems);
  stop_or_go_on(conflicts_of(draft, gateway));
  const std::string path = igd_wan_create(draft.access, &draft.info);
  if (path.empty() || igd_wan_get_wan_bridge_info(path, nullptr, nullptr) != kIgdOk) {
    fail_to_create(draft.info.wan_info_name);
  }
  return path;
}

bool WanChanger::set(const Connection& connection, const WanPatch& patch,
                     std::vector<Problem> problems) {
  const WanDraft draft = draft_change(tree_, connection, patch);
  const GatewayState gateway = read_gateway_state(tree_, &connection);
  append(&problems, problems_of(draft, gateway));
  fail_on(problems);
  stop_or_go_on(conflicts_of(draft, gateway));
  WanWrites writes(tree_, connection, draft);
  if (writes.empty()) return false;
  if (carries_management(connection.service) || carries_management(draft.info.service_type)) {
    change_.needs_consent(management_reason(title_of(connection)));
  }
  writes.run();
  return true;
}

void WanChanger::remove(const Connection& connection) {
  forget_paths();
  const GatewayState gateway = read_gateway_state(tree_, &connection);
  stop_or_go_on(conflicts_of_removal(connection, gateway));
  if (carries_management(connection.service)) {
    change_.needs_consent(management_reason(title_of(connection)));
  }
  igd_wan_destory(connection.path);
  // It commits by itself and tells nothing: without a trial a refused commit shows here only.
  if (igd_verify_is_wan_index(connection.path) == 0) return;
  throw Failure(ExitCode::kPlatform,
                "the platform did not remove connection " + in_quotes(title_of(connection)),
                "igdctl wan list shows what is there");
}

}  // namespace igdctl
