/// The three connection objects that a connection has side by side.
#ifndef IGDCTL_CONNECTION_OBJECTS_H
#define IGDCTL_CONNECTION_OBJECTS_H

#include <string>

namespace igdctl {

/// Paths of the objects; "" for one that is missing.
struct ConnectionObjects {
  std::string dhcp;
  std::string ppp;
  std::string fixed;  ///< the one with a static address
};

/// The path of the object of a mode (kIgdDhcp, kIgdStatic, kIgdPppoe); "" for another mode.
std::string object_of_mode(const ConnectionObjects& objects, int connect_mode);

/// Finds the objects of the connection with this path.
ConnectionObjects connection_objects(const std::string& wan_path);

}  // namespace igdctl

#endif  // IGDCTL_CONNECTION_OBJECTS_H
