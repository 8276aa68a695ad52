#include "nodes/listing.h"

namespace host {

Listing::Listing(const Enumeration& enumeration, const std::vector<const Node*>& objects) {
  if (objects.empty()) return;
  const std::string_view parameter = enumeration.parameter;
  // The last number is the longest.
  names_.reserve(objects.size() * (objects.back()->path.size() + parameter.size()));
  ends_.reserve(objects.size());
  if (!parameter.empty()) cells_.reserve(objects.size());
  for (const Node* object : objects) {
    names_.append(object->path).append(parameter);
    ends_.push_back(names_.size());
    if (!parameter.empty()) cells_.push_back(cell_of(*object, parameter));
  }
}

}  // namespace host
