#include "script.h"

#include <cstdarg>
#include <cstdio>

#include "transcript.h"

namespace foreign {
namespace {

std::string formatted(const char* format, va_list arguments) {
  char text[4096];
  std::vsnprintf(text, sizeof text, format, arguments);
  return text;
}

}  // namespace

void Script::start_from(const Tree& tree) {
  tree_ = tree;
  text_.clear();
}

std::string Script::get(const std::string& name) {
  text_ += "get " + name + "\n";
  return tree_.get(name);
}

void Script::set(const std::string& name, const std::string& value) {
  text_ += "set " + name + " = " + value + "\n";
  tree_.set(name, value);
}

int Script::add(const std::string& table) {
  const int number = tree_.add(table);
  text_ += "add " + table + " 255: " + (number != 0 ? std::to_string(number) : "refused") + "\n";
  return number;
}

int Script::erase(const std::string& path) {
  text_ += "delete " + path + "\n";
  return tree_.erase(path);
}

void Script::commit() { text_ += "commit 1\n"; }

void Script::apply() { text_ += "apply \"\"\n"; }

std::vector<std::string> Script::loop(const std::string& prefix, int type) {
  text_ += "open " + std::to_string(type) + "\n";
  std::vector<std::string> found;
  const std::vector<std::string> names = tree_.names_of(type);
  if (names.empty()) return found;
  for (const std::string& name : names) {
    if (name.compare(0, prefix.size(), prefix) == 0) found.push_back(name);
  }
  text_ += "close\n";
  return found;
}

std::string Script::find(const std::string& prefix, int type, const std::string& value) {
  for (const std::string& name : loop(prefix, type)) {
    if (get(name) == value) return name;
  }
  return "";
}

void Script::print(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  append_printed(text_, formatted(format, arguments));
  va_end(arguments);
}

void Script::debug(int line, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const std::string text = formatted(format, arguments);
  va_end(arguments);
  if (line != 0) {
    append_debug(text_, "igd_api", line, text);
  } else {
    text_ += "debug igd_api:# " + text + "\n";
  }
}

}  // namespace foreign
