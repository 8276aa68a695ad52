// Exports into a file that appears whole or not at all.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

#include "host_platform.h"

namespace host {
namespace {

// A file beside the place it is meant for, gone again unless it was moved there.
class NewFile {
 public:
  explicit NewFile(const std::string& path)
      : path_(path), draft_(path + ".XXXXXX"), file_(mkostemp(draft_.data(), O_CLOEXEC)) {}
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() {
    if (file_ < 0) return;
    (void)close(file_);
    if (!in_place_) (void)unlink(draft_.c_str());
  }

  bool is_open() const { return file_ >= 0; }  // mkostemp gives it mode 0600

  bool write_all(const std::string& text) const {
    std::size_t done = 0;
    while (done < text.size()) {
      const ssize_t written = write(file_, text.data() + done, text.size() - done);
      if (written < 0 && errno != EINTR) return false;
      if (written > 0) done += static_cast<std::size_t>(written);
    }
    return fsync(file_) == 0;
  }

  bool put_in_place() {
    in_place_ = rename(draft_.c_str(), path_.c_str()) == 0;
    return in_place_;
  }

 private:
  std::string path_;
  std::string draft_;
  int file_;
  bool in_place_ = false;
};

// Why what stands at a path must stay. A link is not followed, because somebody else may have put
// it there, and not replaced, because then its target would silently stay behind.
std::string why_not_replaced(const std::string& path) {
  struct stat there {};
  if (lstat(path.c_str(), &there) != 0 || S_ISREG(there.st_mode)) return {};
  if (S_ISLNK(there.st_mode)) return path + ": is a symbolic link";
  if (S_ISDIR(there.st_mode)) return path + ": is a folder";
  return path + ": is not a regular file";
}

// Replaces a file by this text. Returns why it could not, or "".
std::string replaced(const std::string& path, const std::string& text) {
  std::string reason = why_not_replaced(path);
  if (!reason.empty()) return reason;
  NewFile file(path);
  const bool done = file.is_open() && file.write_all(text) && file.put_in_place();
  return done ? std::string() : path + ": cannot be written: " + std::strerror(errno);
}

using Export = ExportResult (*)(const Tree&, std::ostream&);

ExportResult export_file(Export write, const Tree& tree, const std::string& path) {
  std::ostringstream text;
  const ExportResult written = write(tree, text);
  ExportResult failed;
  failed.error = written.ok ? replaced(path, text.str()) : path + ": " + written.error;
  return failed.error.empty() ? written : failed;
}

}  // namespace

ExportResult export_csv_file(const Tree& tree, const std::string& path) {
  return export_file(&export_csv, tree, path);
}

ExportResult export_json_file(const Tree& tree, const std::string& path) {
  return export_file(&export_json, tree, path);
}

}  // namespace host
