// Draws how calls and instructions grow with the connections, as a scalable picture.
#ifndef IGD_TESTS_CALLS_PLOT_H
#define IGD_TESTS_CALLS_PLOT_H

#include <string>
#include <vector>

namespace operations {

struct Curve {
  std::string name;
  std::vector<long> values;  ///< one for each size; 0 is not drawn
};

struct Panel {
  std::string title;
  std::vector<Curve> curves;
};

/// One panel beside the other, both axes logarithmic, the same colours in each. `sizes` are the
/// numbers of connections.
std::string plot(const std::vector<long>& sizes, const std::vector<Panel>& panels);

}  // namespace operations

#endif  // IGD_TESTS_CALLS_PLOT_H
