#include "wan/wan_change.h"

#include "backend/platform.h"
#include "cli/session.h"
#include "igd_api.h"
#include "term/text.h"
#include "wan/wan_description.h"
#include "wan/wan_keep.h"

namespace igdctl {

namespace {

// Another connection's change may have made what the library remembers wrong.
void forget_paths() {
  std::vector<std::string> none;
  _rebuid_cache(none);
}

void append(std::vector<Fault>* faults, const std::vector<Fault>& more) {
  faults->insert(faults->end(), more.begin(), more.end());
}

bool has_lan_bridge(const Surroundings& around) {
  for (const Bridge& bridge : around.bridges) {
    if (bridge.name == kLanBridge) return true;
  }
  return false;
}

std::string consent_for(const std::string& title) {
  return "connection " + in_quotes(title) +
         " carries the management service: the gateway may no longer be reached";
}

[[noreturn]] void fail_to_create(const std::string& name) {
  throw Failure(ExitCode::kPlatform,
                "the platform did not make connection " + in_quotes(name) + " whole",
                "igdctl wan list shows what is there");
}

}  // namespace

WanProposal propose_change(MibAccess& tree, const Connection& connection, const WanWish& wish) {
  forget_paths();
  const DnsOfMode dns_of_mode = [&tree, &connection](int mode, api_wan_info* info) {
    read_dns_of_mode(tree, connection, mode, info);
  };
  return lay_over(wish, read_description(tree, connection), connection.access, dns_of_mode);
}

void write_over(MibAccess& tree, const Connection& connection, WanProposal* proposal) {
  KeptValues kept(tree, connection);
  (void)igd_wan_set_params(connection.path, &proposal->info);
  kept.restore(*proposal);
}

WanChanger::WanChanger(Session& session, Change& change)
    : session_(session), change_(change), tree_(session.tree()) {}

void WanChanger::stop_or_go_on(const std::vector<Objection>& objections) {
  std::vector<Fault> final_ones;
  std::vector<Fault> forced_ones;
  for (const Objection& objection : objections) {
    if (objection.was_there) {
      session_.output().warn(objection.what + ", as before; " + objection.todo);
      continue;
    }
    std::vector<Fault>& list = objection.can_be_forced ? forced_ones : final_ones;
    list.push_back({objection.what, objection.todo});
  }
  if (!final_ones.empty()) {
    append(&final_ones, forced_ones);
    throw Failure(ExitCode::kRefused, final_ones);
  }
  change_.override_or_fail(forced_ones);
}

std::string WanChanger::create(const WanWish& wish, std::vector<Fault> faults) {
  WanProposal proposal = propose_new(wish);
  const Surroundings around = read_surroundings(tree_, nullptr);
  append(&faults, faults_of(proposal, around));
  fail_on(faults);
  stop_or_go_on(objections_to(proposal, around));
  const std::string path = igd_wan_create(proposal.access, &proposal.info);
  if (path.empty() || igd_wan_get_wan_bridge_info(path, nullptr, nullptr) != kIgdOk) {
    fail_to_create(proposal.info.wan_info_name);
  }
  return path;
}

bool WanChanger::set(const Connection& connection, const WanWish& wish, std::vector<Fault> faults) {
  WanProposal proposal = propose_change(tree_, connection, wish);
  const Surroundings around = read_surroundings(tree_, &connection);
  append(&faults, faults_of(proposal, around));
  fail_on(faults);
  stop_or_go_on(objections_to(proposal, around));
  // Only a store tells whether writes make a difference, and takes them back when they do not; and
  // the library makes a LAN bridge that is missing, which nobody asked for.
  if (proposal.changed.empty() && (!has_store() || !has_lan_bridge(around))) return false;
  const bool has_management =
      carries_management(connection.service) || carries_management(proposal.info.service_type);
  if (has_management && !proposal.changed.empty()) {
    change_.needs_consent(consent_for(title_of(connection)));
  }
  write_over(tree_, connection, &proposal);
  return true;
}

void WanChanger::remove(const Connection& connection) {
  forget_paths();
  const Surroundings around = read_surroundings(tree_, &connection);
  stop_or_go_on(objections_to_removal(connection, around));
  if (carries_management(connection.service)) {
    change_.needs_consent(consent_for(title_of(connection)));
  }
  igd_wan_destory(connection.path);
  // It commits by itself and tells nothing: without a trial a refused commit shows here only.
  if (igd_verify_is_wan_index(connection.path) == 0) return;
  throw Failure(ExitCode::kPlatform,
                "the platform did not remove connection " + in_quotes(title_of(connection)),
                "igdctl wan list shows what is there");
}

}  // namespace igdctl
