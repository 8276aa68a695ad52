// The library on a gateway in factory state: does what steps say and tells what the caller sees.
#ifndef IGD_TESTS_MODEL_GATEWAY_H
#define IGD_TESTS_MODEL_GATEWAY_H

#include <string>

#include "host_platform.h"
#include "step.h"

namespace model {

class Gateway {
 public:
  Gateway();
  ~Gateway();  ///< what the library remembers goes too
  Gateway(const Gateway&) = delete;
  Gateway& operator=(const Gateway&) = delete;

  /// @param path  of the connection that the step means
  std::string perform(const Step& step, const std::string& path);
  host::Tree& tree() { return tree_; }

 private:
  std::string perform_on_connection(const Step& step, const std::string& path);
  std::string perform_lookup(const Step& step, const std::string& path);
  std::string perform_bridge(const Step& step, const std::string& path);
  std::string perform_setting(const Step& step);
  std::string perform_beside(const Step& step, const std::string& path);
  std::string bridge_named(const std::string& name) const;  ///< its path
  void line_up(const std::string& path, const std::string& enabled);

  host::Tree tree_ = host::Tree::factory();
};

}  // namespace model

#endif  // IGD_TESTS_MODEL_GATEWAY_H
