// Parameters: reading, writing, and the texts they hold.
#include <string>

#include "contract_test.h"

namespace contract {
namespace {

class Values : public Contract {};

TEST_P(Values, ReadBackWhatWasWrittenAtOnce) {
  const std::string name = add(kBridges) + "BridgeName";
  set(name, "first");
  EXPECT_EQ(get(name), "first");
  set(name, "second");
  EXPECT_EQ(get(name), "second");
}

TEST_P(Values, OfUnknownNamesAreEmpty) {
  const std::string bridge = add(kBridges);
  for (const std::string& name :
       {std::string(), std::string("Enable"), std::string("no.such.Name"), kRoot + "NoSuchName",
        bridge + "NoSuchName", kBridges + "0.BridgeName", bridge, kBridges}) {
    EXPECT_EQ(get(name), "") << "\"" << name << "\"";
  }
}

TEST_P(Values, OfOneInstanceAreNotThoseOfAnother) {
  const std::string first = add(kBridges) + "BridgeName";
  const std::string second = add(kBridges) + "BridgeName";
  set(first, "one");
  set(second, "two");
  EXPECT_EQ(get(first), "one");
  EXPECT_EQ(get(second), "two");
}

TEST_P(Values, ArePlainTextWhateverTheirType) {
  const Gateway gateway = add_one_of_each();
  set(gateway.wan_device + "WANCommonInterfaceConfig.WANAccessType", "3G");
  EXPECT_EQ(get(gateway.wan_device + "WANCommonInterfaceConfig.WANAccessType"), "3G");
  set(gateway.mapping + "PortMappingProtocol", "ALL");
  EXPECT_EQ(get(gateway.mapping + "PortMappingProtocol"), "ALL");
  set(gateway.port + "PVID", "");
  EXPECT_EQ(get(gateway.port + "PVID"), "");
}

INSTANTIATE_TEST_SUITE_P(Platform, Values, testing::ValuesIn(platforms()), platform_name);

struct Text {
  const char* name;
  std::string text;
};
std::ostream& operator<<(std::ostream& out, const Text& text) { return out << text.name; }

std::string every_byte() {
  std::string text;
  for (int byte = 1; byte < 256; ++byte) text += static_cast<char>(byte);
  return text;
}

const Text kTexts[] = {
    {"Empty", ""},
    {"Blank", " "},
    {"BlanksAround", "  text\t "},
    {"True", "true"},
    {"Number", "007"},
    {"Utf8",
     "K\xC3\xBC"
     "che"},
    {"EveryByteButZero", every_byte()},
    {"QuotesAndCommas", "a,\"b\",'c';"},
    {"LineEnds", "one\ntwo\r\nthree\r"},
    {"Length255", std::string(255, 'a')},
    {"Length256", std::string(256, 'a')},
    {"Length1024", std::string(1024, 'a')},
    {"Length65536", std::string(65536, 'a')},
};

class TextOfAValue : public ContractRow<Text> {};

TEST_P(TextOfAValue, IsKeptToTheByte) {
  const std::string name = add(kBridges) + "BridgeName";
  set(name, "before");
  set(name, row().text);
  EXPECT_TRUE(get(name) == row().text) << get(name).size() << " bytes came back";
}

INSTANTIATE_TEST_SUITE_P(Platform, TextOfAValue,
                         testing::Combine(testing::ValuesIn(platforms()),
                                          testing::ValuesIn(kTexts)),
                         row_name<Text>);

}  // namespace
}  // namespace contract
