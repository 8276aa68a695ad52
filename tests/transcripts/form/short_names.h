// Short names for the paths that transcripts are full of.
//
//   InternetGatewayDevice.                                                igd.
//   InternetGatewayDevice.WANDevice.1.                                    wan(1).
//   InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.              wan(1.2).
//   InternetGatewayDevice.Layer2Bridging.Bridge.2.                        bridge(2).
//   InternetGatewayDevice.Layer3Forwarding.Forwarding.3.                  route(3).
//   behind wan(d.c).     WANIPConnection.1.                               ip(1).
//                        WANPPPConnection.1.                              ppp.
//                        WANPPPConnection.2.                              ppp(2).
//   behind ip or ppp     PortMapping.1.                                   mapping(1).
//   behind bridge(b).    Port.9.                                          port(9).
//
// Everything else stays as it is. The numbers are the tree's own: which IP connection is the static
// one is for the tree to say. A text that has a short name already gets a backslash in front of
// it, and so does a backslash; each text can therefore be had back from its short form.
#ifndef IGD_TESTS_SHORT_NAMES_H
#define IGD_TESTS_SHORT_NAMES_H

#include <string>

namespace transcripts {

/// The text with its paths shortened.
std::string shorten(const std::string& text);

/// The text that was shortened.
std::string expand(const std::string& short_text);

}  // namespace transcripts

#endif  // IGD_TESTS_SHORT_NAMES_H
