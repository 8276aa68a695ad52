/// The file beside a store that its processes map into their memory.
#ifndef PLATFORM_HOST_SHARED_FILE_H
#define PLATFORM_HOST_SHARED_FILE_H

#include <cstddef>
#include <string>

namespace host {

/// A file of a few bytes, made for the owner of the store alone. Nothing else passes for it: no
/// link, no file of another user. Its descriptor is none of the three that programs print to.
///
/// Whoever cuts a mapped file short takes the memory away under the processes that have it. They
/// then find zeros there, and go on.
class SharedFile {
 public:
  enum Use { kWrite, kRead };

  /// Throws StoreFailure.
  /// @param size  of what is mapped; the file gets it when it is shorter
  /// @param use   kRead makes no file and changes none
  SharedFile(const std::string& store_path, std::size_t size, Use use);
  SharedFile(const SharedFile&) = delete;
  SharedFile& operator=(const SharedFile&) = delete;
  ~SharedFile();

  void* memory() const { return memory_; }  ///< null when there is no file to read
  int descriptor() const { return descriptor_; }

  /// Sees to it that the file has its place on the disk: the first write to a mapped file that has
  /// none kills the process when the disk is full. File systems that cannot reserve get a byte of
  /// the file written anew, so nobody else may write to it meanwhile. Throws StoreFailure.
  void reserve();
  bool is_reserved() const { return is_reserved_; }

  /// Gives the file up, so that in a child after fork its locks end with the parent.
  void close_all();

 private:
  void map(Use use);

  const std::string path_;
  const std::size_t size_;
  int descriptor_ = -1;
  bool is_reserved_ = false;
  void* memory_ = nullptr;
};

}  // namespace host

#endif  // PLATFORM_HOST_SHARED_FILE_H
