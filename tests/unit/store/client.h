// Runs the program store_client.
#ifndef TESTS_STORE_CLIENT_H
#define TESTS_STORE_CLIENT_H

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace store_tests {

using Words = std::vector<std::string>;

// A running client. Its output is read to the end when it is asked for.
class Client {
 public:
  // @param environment   pairs NAME=TEXT beside those of this process
  // @param longest_file  as long as a file may be that it writes
  Client(const Words& environment, Words words, rlim_t longest_file = RLIM_INFINITY) {
    int ends[2] = {};
    if (pipe(ends) != 0) std::abort();
    process_ = fork();
    if (process_ == 0) {
      const rlimit limit = {longest_file, longest_file};
      if (longest_file != RLIM_INFINITY && setrlimit(RLIMIT_FSIZE, &limit) != 0) _exit(127);
      become(ends[1], environment, std::move(words));
    }
    (void)close(ends[1]);
    output_ = ends[0];
  }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;
  ~Client() { (void)finish(); }

  // What it printed; "killed" at the end when a signal ended it.
  std::string finish() {
    if (process_ == 0) return printed_;
    char buffer[4096];
    for (ssize_t size = 0; (size = read(output_, buffer, sizeof buffer)) > 0;) {
      printed_.append(buffer, static_cast<std::size_t>(size));
    }
    (void)close(output_);
    int status = 0;
    (void)waitpid(process_, &status, 0);
    if (WIFSIGNALED(status)) printed_ += "killed";
    process_ = 0;
    return printed_;
  }

 private:
  [[noreturn]] static void become(int output, const Words& environment, Words words) {
    (void)dup2(output, STDOUT_FILENO);
    for (const std::string& pair : environment) (void)putenv(const_cast<char*>(pair.c_str()));
    std::string program = STORE_CLIENT;
    std::vector<char*> arguments = {program.data()};
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    execv(program.c_str(), arguments.data());
    _exit(127);
  }

  pid_t process_ = 0;
  int output_ = -1;
  std::string printed_;
};

}  // namespace store_tests

#endif  // TESTS_STORE_CLIENT_H
