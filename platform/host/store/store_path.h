/// The name under which all processes know a store.
#ifndef PLATFORM_HOST_STORE_PATH_H
#define PLATFORM_HOST_STORE_PATH_H

#include <string>

namespace host {

/// The file behind symbolic links, so that all processes find the same neighbours of it, also when
/// the file is still to be made. Throws StoreFailure.
std::string resolved(const std::string& path);

}  // namespace host

#endif  // PLATFORM_HOST_STORE_PATH_H
