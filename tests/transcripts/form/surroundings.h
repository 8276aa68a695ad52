// What a gateway has: the part of its tree that libigd is about.
#ifndef IGD_TESTS_SURROUNDINGS_H
#define IGD_TESTS_SURROUNDINGS_H

#include "host_platform.h"
#include "lines.h"

namespace transcripts {

/// One line for each connection device with its objects, each bridge with its ports, each route.
Lines surroundings(const host::Tree& tree);

}  // namespace transcripts

#endif  // IGD_TESTS_SURROUNDINGS_H
