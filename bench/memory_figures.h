/// What each subject takes to hold a workload; measured once, before the timed work.
#ifndef BENCH_MEMORY_FIGURES_H
#define BENCH_MEMORY_FIGURES_H

#include <malloc.h>

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

struct MemoryFigure {
  std::string subject;
  int connections;
  double bytes;  ///< a parameter
};

inline std::vector<MemoryFigure>& memory_figures() {
  static std::vector<MemoryFigure> figures;
  return figures;
}

/// Memory that the process has from the allocator, with the allocator's own share of it.
inline std::size_t allocated() {
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

}  // namespace bench

#endif  // BENCH_MEMORY_FIGURES_H
