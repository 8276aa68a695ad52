/// Row changes as bytes: how the store's file keeps changes, objects and whole trees.
#ifndef PLATFORM_HOST_ROW_CODEC_H
#define PLATFORM_HOST_ROW_CODEC_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "rows/row.h"

namespace host {

/// A row whose texts lie elsewhere.
struct RowView {
  std::string_view text;
  std::string_view type;
};

inline RowView view_of(const Row& row) { return {row.text, row.type}; }

/// Puts one change behind the other. Names share their beginnings, which stand only once.
class RowWriter {
 public:
  void put(std::string_view name, const std::optional<RowView>& before,
           const std::optional<RowView>& after);
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
  std::string previous_;
};

/// Takes one change after the other, without memory for each.
class RowReader {
 public:
  explicit RowReader(std::string_view bytes) : rest_(bytes) {}

  bool next();  ///< false at the end, and as soon as the bytes are not what a RowWriter makes
  bool failed() const { return failed_; }

  const std::string& name() const { return name_; }
  const std::optional<RowView>& before() const { return before_; }
  const std::optional<RowView>& after() const { return after_; }

 private:
  std::size_t number();
  std::string_view text();
  std::optional<RowView> row(bool is_there);
  void fail();

  std::string_view rest_;
  bool failed_ = false;
  std::string name_;
  std::optional<RowView> before_, after_;
};

std::string encoded(const RowChanges& changes);
std::string encoded(const RowSet& rows);  ///< as changes that bring them

/// None when the bytes are not what encoded() makes.
std::optional<RowChanges> decoded(std::string_view bytes);

}  // namespace host

#endif  // PLATFORM_HOST_ROW_CODEC_H
