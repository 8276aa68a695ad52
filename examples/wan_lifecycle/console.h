// The example's output for people, separate from the library's trace.
#ifndef IGD_EXAMPLES_CONSOLE_H
#define IGD_EXAMPLES_CONSOLE_H

#include <cstdio>
#include <string>
#include <vector>

/// libigd writes its trace, passwords included, to standard output. A Console redirects that to a
/// file that only the user can read, and keeps the terminal for itself.
class Console {
 public:
  explicit Console(std::string trace_file);  ///< exits if the file cannot be written
  ~Console();
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  void heading(const std::string& text);
  void line(const std::string& text);

  using Row = std::vector<std::string>;
  void table(const Row& titles, const std::vector<Row>& rows);

  const std::string& trace_file() const { return trace_file_; }

 private:
  std::string trace_file_;
  std::FILE* terminal_ = nullptr;
};

/// "LAN1, LAN2", or "-" for none.
std::string joined(const std::vector<std::string>& names);

#endif  // IGD_EXAMPLES_CONSOLE_H
