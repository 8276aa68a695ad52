#include "wan/wan_draft.h"

#include "igd_vocabulary.h"
#include "wan/wan_words.h"

namespace igdctl {

namespace {

constexpr char kUsualMtu[] = "1500";

bool names_bridged(const WanPatch& patch) {
  return patch.text("class") == word_of_class(kIgdBridged);
}

WanDescription usual_connection(const WanPatch& patch) {
  WanDescription usual;
  usual.access = igd::kEthernetAccess;
  usual.info.connection_class = kIgdRouted;
  usual.info.connect_mode = kIgdDhcp;
  usual.info.service_type = igd::kInternetService;
  usual.info.nat_mode = names_bridged(patch) ? 0 : 1;
  usual.info.pppoe_mtu = std::to_string(igd::kHighestPppoeMtu);
  usual.info.static_mtu = kUsualMtu;
  usual.info.dhcp_mtu = kUsualMtu;
  usual.info.wan_enable = igd::kTrue;
  usual.info.wan_remote_management_enable = igd::kFalse;
  usual.info.stp_enable = igd::kFalse;
  return usual;
}

}  // namespace

WanDraft lay_over(const WanPatch& patch, const WanDescription& start,
                  const DnsOfMode& dns_of_mode) {
  WanDraft draft{start, {}, {}, patch.unreadable()};
  for (const WanField& field : kWanFields) {
    const Value* const asked = patch.find(field);
    if (asked == nullptr || (field.is_kept != nullptr && !field.is_kept(draft))) continue;
    draft.named.insert(field.key);
    if (is_same(field, field.value(draft), *asked)) continue;
    draft.changed.insert(field.key);
    const int mode = draft.info.connect_mode;
    field.lay(&draft, *asked);
    if (draft.info.connect_mode != mode) dns_of_mode(draft.info.connect_mode, &draft.info);
  }
  return draft;
}

WanDraft draft_new(const WanPatch& patch) {
  const DnsOfMode no_servers = [](int, api_wan_info*) {};
  return lay_over(patch, usual_connection(patch), no_servers);
}

}  // namespace igdctl
