#include "store/shared_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "store/cut_memory.h"
#include "store/store_access.h"
#include "store/store_error.h"

namespace host {
namespace {

constexpr int kFirstFree = STDERR_FILENO + 1;

[[noreturn]] void fail(const std::string& path, int number) {
  throw StoreFailure(error_of_system(number), path + ": " + std::strerror(number));
}

[[noreturn]] void refuse(const std::string& path, const std::string& reason) {
  throw StoreFailure(StoreError::kNotOpened, path + ": " + reason);
}

// A program may have closed its standard output. What it prints then must not end up here.
int above_standard_streams(int descriptor) {
  if (descriptor < 0 || descriptor >= kFirstFree) return descriptor;
  const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, kFirstFree);
  const int number = errno;
  (void)close(descriptor);
  errno = number;
  return moved;
}

// -1 when it is only to be read and not there.
int opened(const std::string& path, SharedFile::Use use) {
  const bool writes = use == SharedFile::kWrite;
  const int flags = (writes ? O_RDWR | O_CREAT : O_RDONLY) | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
  const int descriptor = above_standard_streams(open(path.c_str(), flags, kOwnerOnly));
  if (descriptor >= 0 || (!writes && errno == ENOENT)) return descriptor;
  if (errno == ELOOP) refuse(path, "it is a symbolic link, which the store does not follow");
  fail(path, errno);
}

// It belongs to the owner of the store, also when an administrator was the first to need it, and to
// nobody else whatever the umask.
void give_to(const struct stat& owner, int descriptor, struct stat& status) {
  const bool is_new = status.st_size == 0 && status.st_uid == geteuid();
  if (!is_new) return;
  (void)fchmod(descriptor, kOwnerOnly);
  if (status.st_uid != owner.st_uid) (void)fchown(descriptor, owner.st_uid, owner.st_gid);
  (void)fstat(descriptor, &status);
}

void check(const std::string& path, const struct stat& status, uid_t owner) {
  const std::string repair = "; remove it while no program uses the store";
  if (!S_ISREG(status.st_mode)) refuse(path, "it is not a file");
  if (status.st_nlink != 1) refuse(path, "it has another name, too" + repair);
  require_private(path, status, owner);
}

}  // namespace

SharedFile::SharedFile(const std::string& store_path, std::size_t size, Use use)
    : path_(store_path + "-shared"), size_(size), descriptor_(opened(path_, use)) {
  if (descriptor_ < 0) return;
  try {
    map(use);
  } catch (const StoreFailure&) {
    (void)close(descriptor_);
    throw;
  }
}

void SharedFile::map(Use use) {
  struct stat status = {};
  if (fstat(descriptor_, &status) != 0) fail(path_, errno);
  struct stat store = {};
  const std::string store_path = path_.substr(0, path_.rfind('-'));
  if (stat(store_path.c_str(), &store) != 0) store.st_uid = geteuid();  // is still to be made
  if (use == kWrite) give_to(store, descriptor_, status);
  check(path_, status, store.st_uid);
  is_reserved_ = status.st_blocks > 0 && status.st_size >= static_cast<off_t>(size_);
  const bool is_short = use == kWrite && status.st_size < static_cast<off_t>(size_);
  if (is_short && ftruncate(descriptor_, static_cast<off_t>(size_)) != 0) fail(path_, errno);
  const int protection = use == kWrite ? PROT_READ | PROT_WRITE : PROT_READ;
  void* const mapped = mmap(nullptr, size_, protection, MAP_SHARED, descriptor_, 0);
  if (mapped == MAP_FAILED) fail(path_, errno);
  memory_ = mapped;
  survive_cuts(memory_);
}

SharedFile::~SharedFile() { close_all(); }

void SharedFile::reserve() {
  int number = EINTR;
  while (number == EINTR) number = posix_fallocate(descriptor_, 0, static_cast<off_t>(size_));
  // Where the C library does not stand in for a file system that cannot, it goes without.
  if (number != 0 && number != EOPNOTSUPP) fail(path_, number);
  is_reserved_ = true;
}

// The mapping, too, would keep the locks of the file's description alive.
void SharedFile::close_all() {
  if (descriptor_ < 0) return;
  forget_cuts(memory_);
  (void)munmap(std::exchange(memory_, nullptr), size_);
  (void)close(std::exchange(descriptor_, -1));
}

}  // namespace host
