#include "gateway/names.h"

#include "igd_vocabulary.h"
#include "term/text.h"

namespace igdctl {

std::string parent_of(std::string_view name) {
  if (!name.empty() && name.back() == '.') name.remove_suffix(1);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string() : std::string(name.substr(0, dot + 1));
}

std::string_view own_name_of(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? name : name.substr(dot + 1);
}

std::string full_name_of(std::string_view name) {
  const std::string root = igd::kRootObject;
  const bool full = begins_with(name, root) || name == root.substr(0, root.size() - 1);
  return (full ? "" : root) + std::string(name);
}

}  // namespace igdctl
