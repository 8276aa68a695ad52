// Callers that were compiled before read the records by position: each field stands where its
// predecessor ends, and nothing follows the last.
#include <gtest/gtest.h>

#include <cstddef>

#include "igd_types.h"

namespace {

using Text = std::string;
using Names = std::vector<std::string>;
using TextByName = std::map<std::string, std::string>;

constexpr std::size_t aligned(std::size_t offset, std::size_t alignment) {
  return (offset + alignment - 1) / alignment * alignment;
}

template <typename Record>
class Layout {
 public:
  /// The next field has this type.
  template <typename Field>
  Layout& then(Field Record::*field) {
    ++number_;
    end_ = aligned(end_, alignof(Field));
    EXPECT_EQ(offset_of(field), end_) << "field " << number_;
    end_ += sizeof(Field);
    return *this;
  }

  void and_no_more() const { EXPECT_EQ(sizeof(Record), aligned(end_, alignof(Record))); }

 private:
  template <typename Field>
  std::size_t offset_of(Field Record::*field) const {
    const auto* start = reinterpret_cast<const char*>(&record_);
    return static_cast<std::size_t>(reinterpret_cast<const char*>(&(record_.*field)) - start);
  }

  Record record_;
  int number_ = 0;
  std::size_t end_ = 0;
};

// The library's types are those of the standard library's current interface, or, where it is built
// so, of the old one, in which a string is a pointer.
TEST(RecordLayout, BuildsOnTheUsualSizes) {
  constexpr bool k64 = sizeof(void*) == 8;
#if _GLIBCXX_USE_CXX11_ABI
  EXPECT_EQ(sizeof(Text), k64 ? 32u : 24u);
#else
  EXPECT_EQ(sizeof(Text), sizeof(void*));
#endif
  EXPECT_EQ(sizeof(Names), 3 * sizeof(void*));
  EXPECT_EQ(sizeof(TextByName), k64 ? 48u : 24u);
  EXPECT_EQ(sizeof(int), 4u);
}

TEST(RecordLayout, OfAConnection) {
  using R = api_wan_info;
  Layout<R>()
      .then<Text>(&R::wan_info_name)
      .then<int>(&R::vlan_enable)
      .then<int>(&R::vlan_id)
      .then<int>(&R::vlan_priority)
      .then<int>(&R::connection_class)
      .then<Names>(&R::bind_lan)
      .then<Names>(&R::bind_wan)
      .then<Text>(&R::service_type)
      .then<int>(&R::dhcp_trans)
      .then<int>(&R::nat_mode)
      .then<int>(&R::connect_mode)
      .then<Text>(&R::pppoe_user_name)
      .then<Text>(&R::pppoe_password)
      .then<Text>(&R::pppoe_mtu)
      .then<Text>(&R::static_mtu)
      .then<Text>(&R::dhcp_mtu)
      .then<int>(&R::protocol)
      .then<Text>(&R::ip_addr)
      .then<Text>(&R::ip_mask)
      .then<Text>(&R::ip_gw)
      .then<int>(&R::ip_dns_enable)
      .then<int>(&R::dhcp_dns_enable)
      .then<Text>(&R::dhcp_dns1)
      .then<Text>(&R::dhcp_dns2)
      .then<int>(&R::static_dns_enable)
      .then<Text>(&R::static_dns1)
      .then<Text>(&R::static_dns2)
      .then<Text>(&R::ip_dns1)
      .then<Text>(&R::ip_dns2)
      .then<Text>(&R::dhcp_option60)
      .then<Text>(&R::wan_enable)
      .then<Text>(&R::wan_remote_management_enable)
      .then<Text>(&R::stp_enable)
      .then<TextByName>(&R::port_option60)
      .then<int>(&R::lan_vlan_enable)
      .then<int>(&R::lan_vlan_id)
      .and_no_more();
}

TEST(RecordLayout, OfACacheEntry) {
  using R = wan_mib_info;
  Layout<R>()
      .then<Text>(&R::wan_path)
      .then<Text>(&R::bridge_name)
      .then<Text>(&R::static_path)
      .then<Text>(&R::ppp_path)
      .then<Text>(&R::dhcp_path)
      .then<Text>(&R::wan_bridge_path)
      .then<Text>(&R::lan_bridge_path)
      .then<Text>(&R::lan_bridge_name)
      .then<int>(&R::connect_class)
      .and_no_more();
}

TEST(RecordLayout, OfAStatus) {
  using R = api_wan_status;
  Layout<R>()
      .then<Text>(&R::name)
      .then<int>(&R::connected)
      .then<Text>(&R::mac_address)
      .then<int>(&R::connect_mode)
      .then<Text>(&R::service_list)
      .then<Text>(&R::connection_type)
      .then<Text>(&R::ip_addr)
      .then<Text>(&R::ip_mask)
      .then<Text>(&R::ip_gw)
      .then<Text>(&R::ip_dns)
      .then<Text>(&R::bytes_sent)
      .then<Text>(&R::bytes_received)
      .then<Text>(&R::packets_sent)
      .then<Text>(&R::packets_received)
      .then<Text>(&R::uptime)
      .then<Text>(&R::last_connection_error)
      .and_no_more();
}

TEST(RecordLayout, OfARoute) {
  using R = api_route_info;
  Layout<R>()
      .then<Text>(&R::dest_ip)
      .then<Text>(&R::dest_mask)
      .then<int>(&R::enable)
      .then<int>(&R::route_type)
      .then<Text>(&R::interface)
      .then<Text>(&R::gateway)
      .and_no_more();
}

TEST(RecordLayout, OfTheManagementServer) {
  using R = api_mng_server_info;
  Layout<R>()
      .then<Text>(&R::url)
      .then<Text>(&R::username)
      .then<Text>(&R::password)
      .then<Text>(&R::connection_request_url)
      .then<Text>(&R::connection_request_username)
      .then<Text>(&R::connection_request_password)
      .and_no_more();
}

}  // namespace
