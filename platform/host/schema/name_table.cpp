#include "schema/name_table.h"

namespace host {

NameTable::NameTable(const std::vector<std::string_view>& names) {
  std::size_t size = 2;
  while (size < 2 * names.size()) size *= 2;
  slots_.resize(size);
  for (std::size_t place = 0; place < names.size(); ++place) {
    std::size_t at = TextHash::of_ends(names[place]) % size;
    while (slots_[at].place != kNone) at = (at + 1) % size;
    slots_[at] = {names[place], place};
  }
}

}  // namespace host
