#include "dump/dump_notes.h"

#include <utility>

namespace host {
namespace {

using Kind = ImportNote::Kind;

// Devices have a few roots; a hostile file could have one a row.
constexpr std::size_t kForeignRootsTold = 20;
constexpr char kNotOurs[] = "not below InternetGatewayDevice";

std::string rows(std::size_t number) {
  return std::to_string(number) + (number == 1 ? " row" : " rows") + " skipped";
}

}  // namespace

void DumpNotes::boolean(const std::string& name, const std::string& from, const std::string& to) {
  notes_.push_back(
      {Kind::kBoolean, name, from + " became " + to, "booleans in the tree are true and false"});
}

void DumpNotes::extension(const std::string& name) {
  notes_.push_back({Kind::kExtension, name, "kept", "not in the data model"});
}

void DumpNotes::unknown_type(const std::string& name, const std::string& type) {
  notes_.push_back({Kind::kType, name, "became a string", "the type " + type + " is unknown"});
}

void DumpNotes::count(const std::string& name, const std::string& computed,
                      const std::string& stated) {
  notes_.push_back({Kind::kCount, name, "is " + computed + ", not \"" + stated + "\"",
                    "the instances are counted"});
}

void DumpNotes::foreign(const std::string& name) {
  const std::string root = name.substr(0, name.find('.'));
  const auto told = foreign_rows_.find(root);
  if (told != foreign_rows_.end()) {
    ++told->second;
  } else if (foreign_rows_.size() < kForeignRootsTold) {
    foreign_rows_.emplace(root, 1);
  } else {
    ++other_foreign_rows_;
  }
}

std::vector<ImportNote> DumpNotes::take() {
  tell_foreign_rows();
  return std::move(notes_);
}

void DumpNotes::tell_foreign_rows() {
  for (const auto& [root, number] : foreign_rows_) {
    notes_.push_back({Kind::kForeign, root, rows(number), kNotOurs});
  }
  if (other_foreign_rows_ == 0) return;
  notes_.push_back({Kind::kForeign, "other roots", rows(other_foreign_rows_), kNotOurs});
}

}  // namespace host
