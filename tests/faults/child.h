// Processes of the tests, and how they wait for each other.
#ifndef TESTS_PROOF_CHILD_H
#define TESTS_PROOF_CHILD_H

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>

#include "store/store_file.h"

namespace proof {

// A process that runs an action and ends; what it writes to the pipe can be read here.
class Child {
 public:
  using Action = std::function<int(int pipe)>;
  explicit Child(const Action& action) {
    int ends[2] = {};
    if (pipe(ends) != 0) std::abort();
    process_ = fork();
    if (process_ == 0) _exit(action(ends[1]));
    (void)close(ends[1]);
    output_ = ends[0];
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child() {
    if (process_ > 0) kill_it();
    (void)close(output_);
  }

  void kill_it() {
    (void)kill(process_, SIGKILL);
    (void)wait();
  }

  int wait() {
    int status = 0;
    (void)waitpid(process_, &status, 0);
    process_ = 0;
    return status;
  }

  // Until it has written something, or has ended.
  void wait_for_output() const {
    pollfd waited = {output_, POLLIN, 0};
    (void)poll(&waited, 1, -1);
  }

  // The last number it wrote; 0 when none. Only when it has ended.
  int last_number() const {
    int last = 0;
    for (int number = 0; read(output_, &number, sizeof number) == sizeof number;) last = number;
    return last;
  }

 private:
  pid_t process_ = 0;
  int output_ = -1;
};

inline std::string integrity_of(const std::string& path) {
  host::StoreFile file(path, {});
  return file.database().text("PRAGMA integrity_check");
}

// Files tell the others how far a process is.
inline void wait_for(const std::string& file) {
  while (access(file.c_str(), F_OK) != 0) usleep(1000);
}

inline void make(const std::string& file) { std::ofstream(file) << "done"; }

inline bool is_made_soon(const std::string& file) {
  constexpr int kPatienceMs = 10000;
  for (int i = 0; i < kPatienceMs && access(file.c_str(), F_OK) != 0; ++i) usleep(1000);
  return access(file.c_str(), F_OK) == 0;
}

}  // namespace proof

#endif  // TESTS_PROOF_CHILD_H
