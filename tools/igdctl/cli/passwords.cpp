#include "cli/passwords.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

#include "cli/input_file.h"
#include "igd_vocabulary.h"
#include "term/failure.h"

namespace igdctl {

namespace {

std::string without_line_end(std::string text) {
  if (!text.empty() && text.back() == '\n') text.pop_back();
  if (!text.empty() && text.back() == '\r') text.pop_back();
  return text;
}

// What a signal handler needs to give the terminal its echo back.
int terminal_descriptor = -1;
termios terminal_settings{};

void restore_echo() { (void)tcsetattr(terminal_descriptor, TCSAFLUSH, &terminal_settings); }

void restore_echo_and_end(int signal_number) {
  restore_echo();
  (void)std::signal(signal_number, SIG_DFL);
  (void)raise(signal_number);
}

// A terminal without echo for as long as it lives, also when a signal ends the process.
class EchoOff {
 public:
  explicit EchoOff(int descriptor) {
    terminal_descriptor = descriptor;
    (void)tcgetattr(descriptor, &terminal_settings);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
      (void)std::signal(number, restore_echo_and_end);
    }
    termios silent = terminal_settings;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    (void)tcsetattr(descriptor, TCSAFLUSH, &silent);
  }
  EchoOff(const EchoOff&) = delete;
  EchoOff& operator=(const EchoOff&) = delete;
  ~EchoOff() {
    restore_echo();
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
      (void)std::signal(number, SIG_DFL);
    }
  }
};

std::string line_of(int descriptor) {
  std::string line;
  char letter = '\0';
  while (read(descriptor, &letter, 1) == 1 && letter != '\n') line += letter;
  return line;
}

}  // namespace

std::string password_from_file(const std::string& file) {
  std::string password = without_line_end(content_of_file(file));
  if (password.size() > igd::kLongestText || password.find('\0') != std::string::npos) {
    throw Failure(ExitCode::kBadInput,
                  "the password is longer than 255 bytes or contains a zero byte",
                  "put nothing but the password into the file");
  }
  return password;
}

std::string password_from_prompt(const std::string& question) {
  const int terminal = open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (terminal < 0) {
    throw Failure(ExitCode::kBadInput, "there is no terminal to ask for a password on",
                  "use --password-file FILE, or - for standard input");
  }
  std::string answer;
  {
    // Going silent drops what was typed before, so the question comes after it.
    const EchoOff echo_off(terminal);
    (void)dprintf(terminal, "%s: ", question.c_str());
    answer = line_of(terminal);
  }
  (void)dprintf(terminal, "\n");
  (void)close(terminal);
  return answer;
}

}  // namespace igdctl
