// Which folders were synced, by the code of the platform that the tests are linked with.
#ifndef TESTS_STORE_SYNCED_FOLDERS_H
#define TESTS_STORE_SYNCED_FOLDERS_H

#include <sys/stat.h>

#include <vector>

namespace store_tests {

// In the order of the calls, since the process began.
const std::vector<ino_t>& synced_folders();

}  // namespace store_tests

#endif  // TESTS_STORE_SYNCED_FOLDERS_H
