#include "cli/input_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr std::size_t kLargest = std::size_t{64} << 20U;

[[noreturn]] void fail_to_read(const std::string& file, const std::string& reason) {
  throw Failure(ExitCode::kBadInput,
                "cannot read " + in_quotes(source_name_of(file)) + ": " + reason,
                "name a file that you can read, or - for standard input");
}

std::string content_of(std::FILE* stream, const std::string& file) {
  std::string content;
  constexpr std::size_t kBlock = 65536;
  char block[kBlock];
  std::size_t length = 0;
  while ((length = std::fread(block, 1, sizeof(block), stream)) > 0) {
    content.append(block, length);
    if (content.size() > kLargest) fail_to_read(file, "it is larger than 64 MiB");
  }
  if (std::ferror(stream) != 0) fail_to_read(file, std::strerror(errno));
  return content;
}

}  // namespace

std::string content_of_file(const std::string& file) {
  if (file == "-") return content_of(stdin, file);
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file.c_str(), "rbe"),
                                                               &std::fclose);
  if (stream == nullptr) fail_to_read(file, std::strerror(errno));
  return content_of(stream.get(), file);
}

std::string source_name_of(const std::string& file) {
  return file == "-" ? "standard input" : file;
}

}  // namespace igdctl
