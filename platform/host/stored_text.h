/// The text of a parameter in as little memory as it takes.
#ifndef PLATFORM_HOST_STORED_TEXT_H
#define PLATFORM_HOST_STORED_TEXT_H

#include <cstddef>
#include <cstring>
#include <string_view>

namespace host {

/// A text of any bytes, or none. Most parameters of a tree keep their defaults, and most others are
/// numbers and short words, so all of these take the room of one pointer. A longer text lies in a
/// block of its own behind its length.
class StoredText {
 public:
  StoredText() = default;
  StoredText(const StoredText&) = delete;
  StoredText& operator=(const StoredText&) = delete;
  ~StoredText() { clear(); }

  bool has_text() const { return is_short() || block() != nullptr; }
  std::string_view view() const {  ///< only when there is one; good until the next write
    if (is_short()) return {room_ + kShortText, short_length()};
    Length length = 0;
    std::memcpy(&length, block(), sizeof length);
    return {block() + sizeof length, length};
  }
  void assign(std::string_view text) {
    if (text.size() <= kLongestShort && (is_short() || block() == nullptr)) {
      put_short(text);
    } else {
      put_anywhere(text);
    }
  }
  void clear() {
    if (!is_short()) delete[] block();
    set_block(nullptr);
  }

 private:
  using Length = std::size_t;

  // The room holds a pointer to a block, or a short text beside the byte with its length. That is
  // the byte with the lowest bits of the pointer: blocks begin at even addresses, so an odd one
  // tells a short text.
  static constexpr bool kBigEndian = __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__;
  static constexpr std::size_t kRoom = sizeof(char*);
  static constexpr std::size_t kLengthByte = kBigEndian ? kRoom - 1 : 0;
  static constexpr std::size_t kShortText = kBigEndian ? 0 : 1;
  static constexpr std::size_t kLongestShort = kRoom - 1;

  bool is_short() const { return (room_[kLengthByte] & 1) != 0; }
  std::size_t short_length() const { return static_cast<unsigned char>(room_[kLengthByte]) >> 1U; }
  char* block() const {
    char* block = nullptr;
    std::memcpy(&block, room_, sizeof block);
    return block;
  }
  void set_block(char* block) { std::memcpy(room_, &block, sizeof block); }

  static std::size_t block_size(std::size_t length);
  void put_short(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) room_[kShortText + at] = text[at];
    room_[kLengthByte] = static_cast<char>(text.size() << 1U | 1U);
  }
  void put_anywhere(std::string_view text);

  alignas(char*) char room_[kRoom] = {};
};

}  // namespace host

#endif  // PLATFORM_HOST_STORED_TEXT_H
