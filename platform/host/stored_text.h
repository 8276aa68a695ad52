/// The text of a parameter in as little memory as it takes.
#ifndef PLATFORM_HOST_STORED_TEXT_H
#define PLATFORM_HOST_STORED_TEXT_H

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace host {

/// A text of any bytes, or none. Most parameters of a tree keep their defaults, so having none
/// costs one pointer; a text lies in a block of its own behind its length.
class StoredText {
 public:
  bool has_text() const { return block_ != nullptr; }
  std::string_view view() const {  ///< only when there is one
    Length length = 0;
    std::memcpy(&length, block_.get(), sizeof length);
    return {block_.get() + sizeof length, length};
  }
  void assign(std::string_view text);
  void clear() { block_.reset(); }

 private:
  using Length = std::size_t;

  static std::size_t block_size(std::size_t length);

  std::unique_ptr<char[]> block_;
};

}  // namespace host

#endif  // PLATFORM_HOST_STORED_TEXT_H
