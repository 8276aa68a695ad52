// Which connections are created: uplinks, classes, modes and tagging in all pairs.
#ifndef IGD_TESTS_CREATE_ROWS_H
#define IGD_TESTS_CREATE_ROWS_H

#include <string>

#include "igd_types.h"

namespace transcripts {

struct CreateRow {
  const char* access_type;
  IgdConnectionClass connection_class;
  IgdConnectMode connect_mode;
  bool tagged;
};

inline constexpr const char* kAccessTypes[] = {"Ethernet", "3G", "Repeator", "DSL"};
inline constexpr IgdConnectionClass kClasses[] = {kIgdRouted, kIgdBridged, kIgdRoutedAndBridged};
inline constexpr IgdConnectMode kModes[] = {kIgdDhcp, kIgdStatic, kIgdPppoe};

/// Any two values of two columns meet in some row; scenario_table_test.cpp says so.
inline constexpr CreateRow kCreateRows[] = {
    {"Ethernet", kIgdRouted, kIgdDhcp, false},
    {"Ethernet", kIgdBridged, kIgdStatic, true},
    {"Ethernet", kIgdRoutedAndBridged, kIgdPppoe, false},
    {"3G", kIgdRouted, kIgdStatic, true},
    {"3G", kIgdBridged, kIgdPppoe, false},
    {"3G", kIgdRoutedAndBridged, kIgdDhcp, true},
    {"Repeator", kIgdRouted, kIgdPppoe, false},
    {"Repeator", kIgdBridged, kIgdDhcp, true},
    {"Repeator", kIgdRoutedAndBridged, kIgdStatic, false},
    {"DSL", kIgdRouted, kIgdDhcp, true},
    {"DSL", kIgdBridged, kIgdStatic, false},
    {"DSL", kIgdRoutedAndBridged, kIgdPppoe, true},
};

/// "create_3g_routed_static_tagged"
std::string name_of(const CreateRow& row);

}  // namespace transcripts

#endif  // IGD_TESTS_CREATE_ROWS_H
