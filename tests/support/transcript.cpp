#include "transcript.h"

#include <sstream>

#include "host_platform.h"

namespace support {
namespace {

std::string quoted(const std::string& value) { return '"' + value + '"'; }

// Replaces the number that stands behind a start; texts without that start stay as they are.
std::string mask_number(const std::string& line, const std::string& start) {
  if (line.rfind(start, 0) != 0) return line;
  const std::size_t end = line.find_first_not_of("0123456789", start.size());
  if (end == start.size()) return line;
  return start + '#' + (end == std::string::npos ? std::string() : line.substr(end));
}

// Lines whose number is whatever the source says today: progress and value lines of the reading
// and the writing operation, and the two log lines without a number of their own.
std::string mask_floating_lines(const std::string& line) {
  for (const char* start : {"| vornik igd_wan_get_params:", "| vornik igd_wan_set_params:"}) {
    const std::string masked = mask_number(line, start);
    if (masked != line) return masked;
  }
  const std::string masked = mask_number(line, "log igd_api:");
  for (const char* text : {"log igd_api:# INDEX=", "log igd_api:# Matched Ifname "}) {
    if (masked.rfind(text, 0) == 0) return masked;
  }
  return line;
}

bool is_write(const std::string& line) {
  for (const char* verb : {"add ", "set ", "delete ", "commit ", "apply "}) {
    if (line.rfind(verb, 0) == 0) return true;
  }
  return false;
}

}  // namespace

Transcript::Transcript() : Transcript(host::mib_access()) {}

Transcript::Transcript(MibAccess& next) : MibDecorator(next) {
  put_behind_switchboard(this);
  host::set_debug_sink([this](const char* file, int line, const std::string& text) {
    note(std::string("log ") + file + ':' + std::to_string(line) + ' ' + text);
  });
}

Transcript::~Transcript() {
  host::set_debug_sink({});
  put_behind_switchboard(nullptr);
}

std::string Transcript::text() {
  note_printed();
  return text_;
}

std::string Transcript::writes() {
  std::istringstream lines(text());
  std::string writes;
  for (std::string line; std::getline(lines, line);) {
    if (is_write(line)) writes += line + '\n';
  }
  return writes;
}

int Transcript::addObject(const std::string& table_path, int* instance, int access_level) {
  const int result = next().addObject(table_path, instance, access_level);
  note("add " + table_path +
       (result == 0 ? " -> " + std::to_string(*instance) : std::string(" failed")));
  return result;
}

int Transcript::deleteObject(const std::string& object_path) {
  note("delete " + object_path);
  return next().deleteObject(object_path);
}

InstanceIterator* Transcript::openInstanceIterator(int type) {
  note("open " + std::to_string(type));
  return next().openInstanceIterator(type);
}

void Transcript::closeInstanceIterator(InstanceIterator* iterator) {
  note("close");
  next().closeInstanceIterator(iterator);
}

std::string Transcript::getValue(const std::string& name) {
  std::string value = next().getValue(name);
  note("get " + name + " -> " + quoted(value));
  return value;
}

int Transcript::setValue(const std::string& name, const std::string& value, int flags) {
  note("set " + name + " = " + quoted(value));
  return next().setValue(name, value, flags);
}

int Transcript::commit(int mode) {
  note("commit " + std::to_string(mode));
  return next().commit(mode);
}

int Transcript::applyChanges(const std::string& scope) {
  note("apply " + quoted(scope));
  return next().applyChanges(scope);
}

void Transcript::note(const std::string& line) {
  note_printed();
  text_ += mask_floating_lines(line) + '\n';
}

void Transcript::note_printed() {
  std::istringstream lines(printed_.drain());
  for (std::string line; std::getline(lines, line);) {
    text_ += mask_floating_lines("| " + line) + '\n';
  }
}

}  // namespace support
