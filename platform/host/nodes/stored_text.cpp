#include "nodes/stored_text.h"

namespace host {

// The size of a text's block. Allocators hand out memory in steps of 16 bytes, some of which they
// need themselves; by taking what they would round up to, a text of nearly the same length can
// take an old one's block.
std::size_t StoredText::block_size(std::size_t length) {
  constexpr std::size_t kStep = 16;
  constexpr std::size_t kOverhead = sizeof(void*);
  return (sizeof(Length) + length + kOverhead + kStep - 1) / kStep * kStep - kOverhead;
}

void StoredText::put_into_block(std::string_view text) {
  const bool fits = tag_ == kInBlock && block_size(view().size()) == block_size(text.size());
  if (!fits) {
    char* const bigger = new char[block_size(text.size())];
    clear();
    set_block(bigger);
  }
  const Length length = text.size();
  std::memcpy(block(), &length, sizeof length);
  std::memcpy(block() + sizeof length, text.data(), length);
}

}  // namespace host
