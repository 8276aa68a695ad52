// The tree in a store's file. The rows of an object stand together in one entry, so that a change
// of many parameters of few objects, as nearly all are, writes few entries.
#include <map>
#include <string_view>
#include <utility>

#include "nodes/names.h"
#include "rows/row_codec.h"
#include "store/store_file.h"

namespace host {
namespace {

using Changed = std::vector<const RowChange*>;

// What reading the objects of a sound file always finds: each stands behind the one before, and has
// bytes of its own.
class ObjectOrder {
 public:
  explicit ObjectOrder(std::int64_t file_size) : bytes_left_(file_size) {}

  void require_next(std::string_view path, std::string_view entry) {
    bytes_left_ -= static_cast<std::int64_t>(path.size() + entry.size());
    if ((!is_first_ && path <= path_) || bytes_left_ < 0) {
      throw StoreFailure(StoreError::kCorrupt, "the table of objects is damaged");
    }
    path_ = path;
    is_first_ = false;
  }

 private:
  std::int64_t bytes_left_;
  std::string path_;
  bool is_first_ = true;
};

// Calls `visit(name, row)` for each row of an entry.
template <typename Visit>
void for_each_row_in(std::string_view entry, std::string_view path, const Visit& visit) {
  RowReader reader(entry);
  bool sound = true;
  while (sound && reader.next()) {
    sound = !reader.before() && reader.after() && object_of(reader.name()) == path;
    if (sound) visit(reader.name(), *reader.after());
  }
  if (sound && !reader.failed()) return;
  throw StoreFailure(StoreError::kCorrupt, "the rows of " + std::string(path) + " are damaged");
}

void put_new(RowWriter& writer, const RowChange& change) {
  if (change.after) writer.put(change.name, std::nullopt, view_of(*change.after));
}

// An entry with the changes made in it; both are in byte order of the names.
std::string changed(std::string_view entry, std::string_view path, const Changed& changes) {
  RowWriter writer;
  auto next = changes.begin();
  for_each_row_in(entry, path, [&](const std::string& name, const RowView& row) {
    for (; next != changes.end() && (*next)->name < name; ++next) put_new(writer, **next);
    if (next == changes.end() || (*next)->name != name) {
      writer.put(name, std::nullopt, row);
    } else {
      put_new(writer, **next++);
    }
  });
  for (; next != changes.end(); ++next) put_new(writer, **next);
  return writer.bytes();
}

void insert(Database& database, std::string_view path, const std::string& entry) {
  if (entry.empty()) return;
  database.statement("INSERT INTO object(path, rows) VALUES(?, ?)")
      .bind_text(0, path)
      .bind_bytes(1, entry)
      .run();
}

void update(Database& database, std::int64_t number, const std::string& entry) {
  if (entry.empty()) {
    database.statement("DELETE FROM object WHERE number = ?").bind(0, number).run();
    return;
  }
  database.statement("UPDATE object SET rows = ? WHERE number = ?")
      .bind_bytes(0, entry)
      .bind(1, number)
      .run();
}

// The entry that an object has, with the changes made in it; its number is 0 when there is none.
std::pair<std::int64_t, std::string> changed_entry(Database& database, std::string_view path,
                                                   const Changed& changes) {
  Statement& found = database.statement("SELECT number, rows FROM object WHERE path = ?");
  const Reading reading(found);
  if (!found.bind_text(0, path).next()) return {0, changed({}, path, changes)};
  return {found.number(0), changed(found.view(1), path, changes)};
}

void write_object(Database& database, std::string_view path, const Changed& changes) {
  const auto [number, entry] = changed_entry(database, path, changes);
  if (number == 0) {
    insert(database, path, entry);
  } else {
    update(database, number, entry);
  }
}

}  // namespace

void StoreFile::write_rows(const RowChanges& changes) {
  std::map<std::string_view, Changed> objects;
  for (const RowChange& change : changes) objects[object_of(change.name)].push_back(&change);
  for (const auto& [path, of_object] : objects) write_object(database_, path, of_object);
}

void StoreFile::for_each_row(
    const std::function<void(const std::string& name, const Row& row)>& visit) {
  Row row;  // takes one text after the other, without memory for each
  Statement& objects = database_.statement("SELECT path, rows FROM object ORDER BY path");
  const Reading reading(objects);
  bool more = objects.next();
  ObjectOrder order(database_.size());
  for (; more; more = objects.next()) {
    order.require_next(objects.view(0), objects.view(1));
    for_each_row_in(objects.view(1), objects.view(0),
                    [&visit, &row](const std::string& name, const RowView& view) {
                      row.text = view.text;
                      row.type = view.type;
                      visit(name, row);
                    });
  }
}

RowSet StoreFile::rows() {
  RowSet rows;
  for_each_row([&rows](const std::string& name, const Row& row) { rows.emplace(name, row); });
  return rows;
}

}  // namespace host
