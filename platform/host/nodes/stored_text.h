/// The text of a parameter in little memory, most often beside its neighbours'.
#ifndef PLATFORM_HOST_STORED_TEXT_H
#define PLATFORM_HOST_STORED_TEXT_H

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace host {

/// A text of any bytes, or none. Most parameters of a tree keep their defaults, and most others are
/// numbers, short words and IPv4 addresses, so all of these lie in the parameter itself: whoever
/// reads them touches no other memory. A longer text lies in a block of its own behind its length.
class StoredText {
 public:
  StoredText() = default;
  StoredText(const StoredText&) = delete;
  StoredText& operator=(const StoredText&) = delete;
  ~StoredText() { clear(); }

  bool has_text() const { return tag_ != kNone; }
  std::string_view view() const {  ///< only when there is one; good until the next write
    if (tag_ != kInBlock) return {inline_, short_length()};
    Length length = 0;
    std::memcpy(&length, block(), sizeof length);
    return {block() + sizeof length, length};
  }
  std::string copy() const {  ///< only when there is one
    return tag_ != kInBlock ? short_copy() : std::string(view());
  }
  void assign(std::string_view text) {
    if (text.size() <= sizeof inline_) {
      clear();
      put_short(text);
    } else {
      put_into_block(text);
    }
  }
  void clear() {
    if (tag_ == kInBlock) delete[] block();
    tag_ = kNone;
  }

 private:
  using Length = std::size_t;

  static constexpr std::size_t kSize = 16;
  static constexpr unsigned char kNone = 0;
  static constexpr unsigned char kShort = 1;  ///< and one more for each byte of it
  static constexpr unsigned char kInBlock = 0xff;

  std::size_t short_length() const { return static_cast<std::size_t>(tag_ - kShort); }
  char* block() const {
    char* block = nullptr;
    std::memcpy(&block, inline_, sizeof block);
    return block;
  }
  void set_block(char* block) {
    std::memcpy(inline_, &block, sizeof block);
    tag_ = kInBlock;
  }

  std::string short_copy() const {
    std::string text(inline_, sizeof inline_);  // a fixed number of bytes is copied without a call
    text.erase(short_length());
    return text;
  }

  static std::size_t block_size(std::size_t length);
  void put_short(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) inline_[at] = text[at];
    tag_ = static_cast<unsigned char>(kShort + text.size());
  }
  void put_into_block(std::string_view text);

  char inline_[kSize - 1] = {};  ///< a short text, or the pointer to a block
  unsigned char tag_ = kNone;    ///< which of them
};

}  // namespace host

#endif  // PLATFORM_HOST_STORED_TEXT_H
