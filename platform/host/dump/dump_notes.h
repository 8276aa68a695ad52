/// Gathers what an import has to tell.
#ifndef PLATFORM_HOST_DUMP_NOTES_H
#define PLATFORM_HOST_DUMP_NOTES_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "host_platform.h"

namespace host {

class DumpNotes {
 public:
  void boolean(const std::string& name, const std::string& from, const std::string& to);
  void extension(const std::string& name);
  void unknown_type(const std::string& name, const std::string& type);
  void count(const std::string& name, const std::string& computed, const std::string& stated);
  void foreign(const std::string& name);  ///< a row; told by root in the end

  /// Everything noted, the foreign roots last; nothing is left here.
  std::vector<ImportNote> take();

 private:
  void tell_foreign_rows();

  std::vector<ImportNote> notes_;
  std::map<std::string, std::size_t> foreign_rows_;  ///< by root; the first few roots
  std::size_t other_foreign_rows_ = 0;
};

}  // namespace host

#endif  // PLATFORM_HOST_DUMP_NOTES_H
