#include "rows/row_codec.h"

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

void put_row(std::string& bytes, const std::optional<RowView>& row) {
  if (!row) return;
  put_text(bytes, row->text);
  put_text(bytes, row->type);
}

std::optional<RowView> view_of(const std::optional<Row>& row) {
  return row ? std::optional<RowView>(host::view_of(*row)) : std::nullopt;
}

std::optional<Row> row_from(const std::optional<RowView>& view) {
  return view ? std::optional<Row>({std::string(view->text), std::string(view->type)})
              : std::nullopt;
}

}  // namespace

void RowWriter::put(std::string_view name, const std::optional<RowView>& before,
                    const std::optional<RowView>& after) {
  const std::size_t shared = shared_beginning(previous_, name);
  put_number(bytes_, shared);
  put_text(bytes_, name.substr(shared));
  put_number(bytes_, (before ? kBefore : 0) | (after ? kAfter : 0));
  put_row(bytes_, before);
  put_row(bytes_, after);
  previous_ = name;
}

bool RowReader::next() {
  if (rest_.empty()) return false;
  const std::size_t shared = number();
  if (shared > name_.size()) fail();
  name_.resize(failed_ ? 0 : shared);
  name_.append(text());
  const std::size_t sides = number();
  before_ = row((sides & kBefore) != 0);
  after_ = row((sides & kAfter) != 0);
  if (sides > (kBefore | kAfter) || name_.empty()) fail();
  return !failed_;
}

// From now on nothing is taken any more.
void RowReader::fail() {
  failed_ = true;
  rest_ = {};
}

std::size_t RowReader::number() {
  std::uint32_t number = 0;
  for (unsigned shift = 0; shift < 4 * kBits; shift += kBits) {
    if (rest_.empty()) break;
    const auto byte = static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(1);
    number |= (byte & (kMore - 1)) << shift;
    if (byte < kMore) return number;
  }
  fail();
  return 0;
}

std::string_view RowReader::text() {
  const std::size_t size = number();
  if (size > rest_.size()) fail();
  const std::string_view text = rest_.substr(0, size);
  rest_.remove_prefix(text.size());
  return text;
}

std::optional<RowView> RowReader::row(bool is_there) {
  if (!is_there) return std::nullopt;
  const std::string_view row_text = text();
  return RowView{row_text, text()};
}

std::string encoded(const RowChanges& changes) {
  RowWriter writer;
  for (const RowChange& change : changes) {
    writer.put(change.name, view_of(change.before), view_of(change.after));
  }
  return writer.bytes();
}

std::string encoded(const RowSet& rows) {
  RowWriter writer;
  for (const auto& [name, row] : rows) writer.put(name, std::nullopt, view_of(row));
  return writer.bytes();
}

std::optional<RowChanges> decoded(std::string_view bytes) {
  RowChanges changes;
  RowReader reader(bytes);
  while (reader.next()) {
    changes.push_back({reader.name(), row_from(reader.before()), row_from(reader.after())});
  }
  if (reader.failed()) return std::nullopt;
  return changes;
}

}  // namespace host
