// Reads parameter dumps for comparison with what an import made of them.
#ifndef TESTS_HOST_CSV_DUMP_H
#define TESTS_HOST_CSV_DUMP_H

#include <string>
#include <vector>

namespace host_tests {

struct DumpRow {
  std::string name;
  bool is_object;
  std::string value;
  std::string type;
};

// The rows of the gateway's own tree. A reader of its own, so that it does not share a mistake
// with the import; it takes well-formed files only.
std::vector<DumpRow> read_dump(const std::string& file);

// A file of the folder with gateway dumps: the one IGD_DUMP_DIR names, else the one beside the
// repository. "" when it is not there.
std::string dump_file(const std::string& name);

}  // namespace host_tests

#endif  // TESTS_HOST_CSV_DUMP_H
