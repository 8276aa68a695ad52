#include "row_codec.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace host {
namespace {

constexpr unsigned kBefore = 1;
constexpr unsigned kAfter = 2;
constexpr unsigned kMore = 0x80;  // in a byte of a number: another one follows
constexpr unsigned kBits = 7;

std::size_t shared_beginning(std::string_view one, std::string_view other) {
  constexpr std::size_t kStep = 16;  // neighbours share most of a long path
  const std::size_t most = std::min(one.size(), other.size());
  std::size_t shared = 0;
  while (shared + kStep <= most && std::memcmp(&one[shared], &other[shared], kStep) == 0) {
    shared += kStep;
  }
  while (shared < most && one[shared] == other[shared]) ++shared;
  return shared;
}

void put_number(std::string& bytes, std::size_t number) {
  for (; number >= kMore; number >>= kBits) {
    bytes.push_back(static_cast<char>((number & (kMore - 1)) | kMore));
  }
  bytes.push_back(static_cast<char>(number));
}

void put_text(std::string& bytes, std::string_view text) {
  put_number(bytes, text.size());
  bytes.append(text);
}

void put_row(std::string& bytes, const std::optional<Row>& row) {
  if (!row) return;
  put_text(bytes, row->text);
  put_text(bytes, row->type);
}

/// Takes one thing after the other off the front; once the bytes do not fit, nothing does.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  bool at_end() const { return bytes_.empty(); }
  bool failed() const { return failed_; }
  void fail() {
    failed_ = true;
    bytes_ = {};
  }

  std::size_t number() {
    std::uint32_t number = 0;
    for (unsigned shift = 0; shift < 4 * kBits; shift += kBits) {
      if (bytes_.empty()) break;
      const auto byte = static_cast<unsigned char>(bytes_.front());
      bytes_.remove_prefix(1);
      number |= (byte & (kMore - 1)) << shift;
      if (byte < kMore) return number;
    }
    fail();
    return 0;
  }

  std::string text() {
    const std::size_t size = number();
    if (size > bytes_.size()) {
      fail();
      return {};
    }
    std::string text(bytes_.substr(0, size));
    bytes_.remove_prefix(size);
    return text;
  }

  std::optional<Row> row(bool is_there) {
    if (!is_there) return std::nullopt;
    Row row;
    row.text = text();
    row.type = text();
    return row;
  }

 private:
  std::string_view bytes_;
  bool failed_ = false;
};

}  // namespace

std::string encoded(const RowChanges& changes) {
  constexpr std::size_t kUsualSize = 48;
  std::string bytes;
  bytes.reserve(changes.size() * kUsualSize);
  std::string_view previous;
  for (const RowChange& change : changes) {
    const std::size_t shared = shared_beginning(previous, change.name);
    put_number(bytes, shared);
    put_text(bytes, std::string_view(change.name).substr(shared));
    put_number(bytes, (change.before ? kBefore : 0) | (change.after ? kAfter : 0));
    put_row(bytes, change.before);
    put_row(bytes, change.after);
    previous = change.name;
  }
  return bytes;
}

std::optional<RowChanges> decoded(std::string_view bytes) {
  RowChanges changes;
  Reader reader(bytes);
  std::string previous;
  while (!reader.at_end()) {
    const std::size_t shared = reader.number();
    if (shared > previous.size()) return std::nullopt;
    RowChange change;
    change.name = previous.substr(0, shared) + reader.text();
    const std::size_t sides = reader.number();
    change.before = reader.row((sides & kBefore) != 0);
    change.after = reader.row((sides & kAfter) != 0);
    if (reader.failed() || sides > (kBefore | kAfter) || change.name.empty()) return std::nullopt;
    previous = change.name;
    changes.push_back(std::move(change));
  }
  return changes;
}

}  // namespace host
