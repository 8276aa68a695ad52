#include "cli/input_file.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>

#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr std::size_t kLargest = std::size_t{64} << 20U;

[[noreturn]] void fail_to_read(const std::string& file, const std::string& reason) {
  throw Failure(ExitCode::kBadInput,
                "cannot read " + in_quotes(source_name_of(file)) + ": " + reason,
                "give a file that you can read, or - for standard input");
}

}  // namespace

std::string content_of_file(const std::string& file) {
  std::ifstream opened;
  if (file != "-") opened.open(file, std::ios::binary);
  std::istream& input = file == "-" ? std::cin : opened;
  if (file != "-" && !opened.is_open()) fail_to_read(file, std::strerror(errno));
  std::string content;
  constexpr std::size_t kBlock = 65536;
  char block[kBlock];
  while (input.good()) {
    input.read(block, kBlock);
    content.append(block, static_cast<std::size_t>(input.gcount()));
    if (content.size() > kLargest) fail_to_read(file, "it is larger than 64 MiB");
  }
  if (input.bad()) fail_to_read(file, std::strerror(errno));
  return content;
}

std::string source_name_of(const std::string& file) {
  return file == "-" ? "standard input" : file;
}

}  // namespace igdctl
