#include "disk.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <utility>

namespace proof {
namespace {

constexpr std::size_t kSector = 512;

void carry_out(std::string& content, const File::Change& change) {
  if (change.is_length) {
    content.resize(change.offset);
    return;
  }
  const std::size_t end = change.offset + change.data.size();
  if (content.size() < end) content.resize(end);
  std::copy(change.data.begin(), change.data.end(),
            content.begin() + static_cast<std::ptrdiff_t>(change.offset));
}

// How a power cut treats what was not synced: all of it is there, nothing, or each piece by chance.
class Cut {
 public:
  explicit Cut(std::uint32_t seed) : random_(seed) {
    const int outcomes[] = {0, 100, 10, 50, 50, 90};
    percent_kept_ = outcomes[pick(std::size(outcomes))];
    leaves_junk_ = pick(2) == 0;
  }

  std::size_t pick(std::size_t count) { return random_() % count; }
  bool keeps() { return pick(100) < static_cast<std::size_t>(percent_kept_); }

  // That sectors are kept or not independently covers every order in which they may be written:
  // what a later write leaves of an earlier one is what a disk has that did the later one last.
  std::string image(const File& file) {
    std::string image = file.synced;
    for (const File::Change& change : file.unsynced) {
      if (change.is_length) {
        if (keeps()) carry_out(image, change);
      } else {
        write_some(image, change);
      }
    }
    // A file system may note a length before it writes the data.
    if (image.size() < file.content.size() && keeps()) lengthen(image, file.content.size());
    return image;
  }

 private:
  void write_some(std::string& image, const File::Change& change) {
    const std::size_t end = change.offset + change.data.size();
    for (std::size_t at = change.offset; at < end;) {
      const std::size_t next = std::min(end, (at / kSector + 1) * kSector);
      if (keeps()) {
        lengthen(image, at);
        carry_out(image, {false, at, change.data.substr(at - change.offset, next - at)});
      }
      at = next;
    }
  }

  void lengthen(std::string& image, std::size_t length) {
    while (image.size() < length) {
      image.push_back(leaves_junk_ ? static_cast<char>(random_()) : '\0');
    }
  }

  std::mt19937 random_;
  int percent_kept_ = 0;
  bool leaves_junk_ = false;
};

Disk::FileRef file_with(std::string content) {
  auto file = std::make_shared<File>();
  file->content = content;
  file->synced = std::move(content);
  return file;
}

}  // namespace

void Disk::arm(const Fault& fault) {
  fault_ = fault;
  counted_ = 0;
  struck_ = false;
  losing_power_ = false;
  system_code_ = 0;
}

void Disk::cut_power_at(int nth) {
  arm({kChanges, kEverything, nth, SQLITE_IOERR, EIO, true});
  losing_power_ = true;
}

/// Counts an operation, and tells whether it fails.
int Disk::admit(Kind kind) {
  const bool counts = (fault_.counted & kind) != 0;
  if (counts) ++counted_;
  const bool strikes = counts && counted_ == fault_.nth;
  const bool goes_on = struck_ && fault_.lasts && (fault_.failing & kind) != 0;
  if (strikes) struck_ = true;
  if (!strikes && !goes_on) return SQLITE_OK;
  system_code_ = fault_.system_code;
  return fault_.code;
}

Disk::FileRef Disk::find(const std::string& name) const {
  const auto found = names_.find(name);
  return found != names_.end() ? found->second : nullptr;
}

int Disk::make(const std::string& name, FileRef& file) {
  const int code = admit(kName);
  if (code != SQLITE_OK) return code;
  file = names_[name] = std::make_shared<File>();
  unsynced_names_.push_back({name, file});
  return SQLITE_OK;
}

int Disk::remove(const std::string& name, bool sync_too) {
  const int code = admit(kName);
  if (code != SQLITE_OK) return code;
  if (names_.erase(name) == 0) return SQLITE_IOERR_DELETE_NOENT;
  unsynced_names_.push_back({name, nullptr});
  return sync_too ? sync_names() : SQLITE_OK;
}

int Disk::read(const FileRef& file, std::size_t offset, char* data, std::size_t size) {
  const int code = admit(kRead);
  if (code != SQLITE_OK) return code;
  const std::size_t length = file->content.size();
  const std::size_t available = offset < length ? std::min(size, length - offset) : 0;
  if (available > 0) std::memcpy(data, file->content.data() + offset, available);
  if (available == size) return SQLITE_OK;
  std::memset(data + available, 0, size - available);
  return SQLITE_IOERR_SHORT_READ;
}

void Disk::put_unsynced(File& file, File::Change change) {
  carry_out(file.content, change);
  file.unsynced.push_back(std::move(change));
}

int Disk::write(const FileRef& file, std::size_t offset, std::string_view data) {
  const bool was_struck = struck_;
  const int code = admit(kWrite);
  if (code == SQLITE_OK) {
    put_unsynced(*file, {false, offset, std::string(data)});
  } else if (!was_struck) {
    // The one that fails first was on its way: whole when the power goes, half on a full disk.
    const std::string_view begun = losing_power_ ? data : data.substr(0, data.size() / 2);
    put_unsynced(*file, {false, offset, std::string(begun)});
  }
  return code;
}

int Disk::set_length(const FileRef& file, std::size_t length) {
  const int code = admit(kWrite);
  if (code == SQLITE_OK) put_unsynced(*file, {true, length, {}});
  return code;
}

int Disk::sync(const FileRef& file) {
  const int code = admit(kSync);
  const bool decides = code == SQLITE_OK ? honesty_ != Honesty::kSyncsNothing : !losing_power_;
  if (!decides) return code;
  if (code == SQLITE_OK) {
    for (const File::Change& change : file->unsynced) carry_out(file->synced, change);
  }
  // What a failed sync did not write counts as written from then on, as on Linux: users of the file
  // see it, no later sync tries again.
  file->unsynced.clear();
  return code;
}

int Disk::sync_names() {
  const int code = admit(kSync);
  if (code != SQLITE_OK || honesty_ != Honesty::kHonest) return code;
  synced_names_ = names_;
  unsynced_names_.clear();
  return SQLITE_OK;
}

std::unique_ptr<Disk> Disk::after_power_cut(std::uint32_t seed) const {
  Cut cut(seed);
  Names left = synced_names_;
  for (const NameChange& change : unsynced_names_) {
    if (cut.keeps()) left[change.name] = change.file;
  }
  auto disk = std::make_unique<Disk>();
  for (const auto& [name, file] : left) {
    if (file != nullptr) disk->names_[name] = file_with(cut.image(*file));
  }
  disk->synced_names_ = disk->names_;
  return disk;
}

std::unique_ptr<Disk> Disk::copy() const {
  auto disk = std::make_unique<Disk>();
  for (const auto& [name, file] : names_) disk->names_[name] = file_with(file->content);
  disk->synced_names_ = disk->names_;
  return disk;
}

std::map<std::string, std::string> Disk::contents() const {
  std::map<std::string, std::string> contents;
  for (const auto& [name, file] : names_) contents[name] = file->content;
  return contents;
}

}  // namespace proof
