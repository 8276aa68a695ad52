// A program of a gateway: does what its arguments say to the store of its process, in their order.
//
//   get NAME · set NAME TEXT · add TABLE · commit · walk (opens one, keeps it to the end) · context
//   exchange (puts another tree into place, then the one that was there)
//   fork (a child goes on with the rest) · die (as in a power cut) · wait-for FILE · make FILE
//
// Prints a line for each result. Ends at the first that needs a store when there is none.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "common_util.h"
#include "host_platform.h"

namespace {

class Client {
 public:
  explicit Client(std::vector<std::string> words) : words_(std::move(words)) {}

  int run() {
    while (at_ < words_.size()) {
      const std::string verb = next();
      if (!know(verb)) {
        std::fprintf(stderr, "unknown: %s\n", verb.c_str());
        return 2;
      }
    }
    if (walk_ != nullptr) mib().closeInstanceIterator(walk_);
    return 0;
  }

 private:
  std::string next() { return at_ < words_.size() ? words_[at_++] : std::string(); }
  static MibAccess& mib() {
    PlatformContext* const context = getContext();
    if (context == nullptr) std::exit(1);  // the log has said why
    return *context->mibAccess();
  }

  static void say(const std::string& text) {
    std::printf("%s\n", text.c_str());
    std::fflush(stdout);
  }

  bool know(const std::string& verb) {
    if (verb == "get") {
      say(mib().getValue(next()));
    } else if (verb == "set") {
      const std::string name = next();
      say(std::to_string(mib().setValue(name, next(), 0)));
    } else if (verb == "add") {
      int number = 0;
      (void)mib().addObject(next(), &number, 255);
      say(std::to_string(number));
    } else if (verb == "commit") {
      say(std::to_string(mib().commit(1)));
    } else if (verb == "walk") {
      walk_ = mib().openInstanceIterator(kBridgeName);
    } else if (verb == "context") {
      say(getContext() != nullptr ? "context" : "none");
    } else if (verb == "exchange") {
      host::Tree other;
      (void)host::exchange_active_tree(host::exchange_active_tree(&other));
    } else {
      return knows_of_processes(verb);
    }
    return true;
  }

  bool knows_of_processes(const std::string& verb) {
    if (verb == "fork") {
      const pid_t child = fork();
      if (child == 0) return true;
      int status = 0;
      (void)waitpid(child, &status, 0);
      std::exit(WEXITSTATUS(status));
    } else if (verb == "die") {
      (void)raise(SIGKILL);
    } else if (verb == "make") {
      (void)close(open(next().c_str(), O_CREAT | O_WRONLY, 0600));
    } else if (verb == "wait-for") {
      const std::string file = next();
      while (access(file.c_str(), F_OK) != 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
      }
    } else {
      return false;
    }
    return true;
  }

  std::vector<std::string> words_;
  std::size_t at_ = 0;
  InstanceIterator* walk_ = nullptr;
};

}  // namespace

int main(int count, char** arguments) {
  host::set_debug_sink([](const char* /*file*/, int /*line*/, const std::string& text) {
    std::printf("log: %s\n", text.c_str());
  });
  return Client(std::vector<std::string>(arguments + 1, arguments + count)).run();
}
