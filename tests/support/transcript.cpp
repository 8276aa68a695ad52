#include "transcript.h"

#include <regex>
#include <sstream>

#include "host_platform.h"

namespace support {
namespace {

std::string quoted(const std::string& value) { return '"' + value + '"'; }

// Lines whose number is whatever the source says today: progress and value lines of the reading
// and the writing operation, and the two log lines without a number of their own.
std::string mask_floating_lines(const std::string& line) {
  static const std::regex kProgress("^(\\| vornik igd_wan_(?:get|set)_params:)[0-9]+");
  static const std::regex kLog("^(log igd_api:)[0-9]+( (?:INDEX=|Matched Ifname ).*)");
  return std::regex_replace(std::regex_replace(line, kProgress, "$1#"), kLog, "$1#$2");
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
