// Put in front of a source in which each block says that it is entered, to a file that every
// process of a test shares: also one that is killed.
#pragma once

#include <fcntl.h>
#include <sys/mman.h>

namespace mutation_reach {

inline unsigned char* open_map() {
  const int file = open(MUTATION_REACH, O_RDWR | O_CLOEXEC);
  void* map = mmap(nullptr, MUTATION_BLOCKS, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  return map == MAP_FAILED ? nullptr : static_cast<unsigned char*>(map);
}

inline unsigned char* const map = open_map();

// Before `map` is set, a global's constructor runs: it reaches what every test reaches.
inline void enter(unsigned block) {
  unsigned char* const blocks = map != nullptr ? map : open_map();
  if (blocks != nullptr) blocks[block] = 1;
}

}  // namespace mutation_reach
