/// The text of a parameter in as little memory as it takes.
#ifndef PLATFORM_HOST_STORED_TEXT_H
#define PLATFORM_HOST_STORED_TEXT_H

#include <cstddef>
#include <memory>
#include <string_view>

namespace host {

/// A text of any bytes, or none. Most parameters of a tree keep their defaults, so having none
/// costs one pointer; a text lies in a block of its own behind its length.
class StoredText {
 public:
  bool has_text() const { return block_ != nullptr; }
  std::string_view view() const;  ///< only when there is one
  void assign(std::string_view text);
  void clear() { block_.reset(); }

 private:
  std::unique_ptr<char[]> block_;
};

}  // namespace host

#endif  // PLATFORM_HOST_STORED_TEXT_H
