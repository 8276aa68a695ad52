#include "platform.h"

#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace foreign {
namespace {

// The library looks at no result of a write or a commit, so this platform calls all of them failed.
constexpr int kNobodyLooks = -9;

constexpr int kEveryAccess = 255;

std::string content_of(std::FILE* file) {
  std::string text;
  std::rewind(file);
  for (int c = std::getc(file); c != EOF; c = std::getc(file)) text += static_cast<char>(c);
  return text;
}

}  // namespace

// Walks over the names that existed when it was opened.
class NameIterator final : public InstanceIterator {
 public:
  explicit NameIterator(std::vector<std::string> names) : names_(std::move(names)) {}

  int next() override {
    complain_when(closed_ || position_ >= names_.size(), "next of a finished iterator");
    ++position_;
    return position_ < names_.size() ? 1 : 0;
  }

  std::string fullName() override {
    const bool lost = closed_ || position_ >= names_.size();
    complain_when(lost, "fullName of a finished iterator");
    return lost ? "" : names_[position_];
  }

  void close() {
    complain_when(closed_, "an iterator closed twice");
    closed_ = true;
  }

  bool closed() const { return closed_; }

 private:
  static void complain_when(bool wrong, const char* complaint) {
    if (wrong) Platform::instance().complain(complaint);
  }

  std::vector<std::string> names_;
  std::size_t position_ = 0;
  bool closed_ = false;
};

Platform& Platform::instance() {
  static auto* const platform = new Platform;  // outlives every destructor of the library
  return *platform;
}

void Platform::reset() {
  tree_ = Tree();
  complaints_.clear();
  iterators_.clear();
  offer(true, true);
}

std::string Platform::printed_by(const std::function<void()>& call) {
  logged_.clear();
  std::FILE* const file = std::tmpfile();
  if (file == nullptr) std::abort();
  std::fflush(stdout);
  const int terminal = dup(STDOUT_FILENO);
  dup2(fileno(file), STDOUT_FILENO);
  call();
  std::fflush(stdout);
  dup2(terminal, STDOUT_FILENO);
  close(terminal);
  const std::string printed = content_of(file);
  std::fclose(file);
  for (const auto& iterator : iterators_) {
    if (!iterator->closed()) complain("an iterator was left open");
  }
  iterators_.clear();
  return printed;
}

PlatformContext* Platform::give_context() {
  ++contexts_asked_;
  return offers_context_ ? this : nullptr;
}

void Platform::offer(bool context, bool tree_access) {
  offers_context_ = context;
  offers_tree_access_ = tree_access;
}

MibAccess* Platform::mib_access() {
  ++accesses_asked_;
  return offers_tree_access_ ? this : nullptr;
}

void* Platform::second_service() {
  if (accesses_asked_ == 0) complain("the second service was asked for first");
  ++services_asked_;
  static int service = 0;
  return &service;
}

int Platform::addObject(const std::string& table_path, int* number, int access) {
  if (access != kEveryAccess) complain("addObject with " + std::to_string(access));
  *number = tree_.add(table_path);
  return *number != 0 ? 0 : -7;
}

InstanceIterator* Platform::openInstanceIterator(int type) {
  std::vector<std::string> names = tree_.names_of(type);
  if (names.empty()) return nullptr;
  iterators_.push_back(std::make_unique<NameIterator>(std::move(names)));
  return iterators_.back().get();
}

void Platform::closeInstanceIterator(InstanceIterator* iterator) {
  for (const auto& opened : iterators_) {
    if (opened.get() == iterator) return opened->close();
  }
  complain("closed an iterator that was never opened");
}

int Platform::setValue(const std::string& name, const std::string& value, int flag) {
  if (flag != 0) complain("setValue of " + name + " with " + std::to_string(flag));
  tree_.set(name, value);
  return kNobodyLooks;
}

int Platform::commit(int flag) {
  log("commit " + std::to_string(flag));
  return kNobodyLooks;
}

int Platform::applyChanges(const std::string& text) {
  log("apply " + text);
  return kNobodyLooks;
}

}  // namespace foreign

void reserved_slot_called(const char* slot) {
  foreign::Platform::instance().complain(std::string("reserved slot called: ") + slot);
}

PlatformContext* getContext() { return foreign::Platform::instance().give_context(); }

// Some lines of the source are fixed and told; those of these two logs may move.
extern "C" void c_debug_out(const char* file, int line, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  char text[4096];
  std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  const std::string said = text;
  const bool moves = line > 0 && (said.rfind("INDEX=", 0) == 0 || said.rfind("Matched", 0) == 0);
  const std::string place = moves ? "#" : std::to_string(line);
  foreign::Platform::instance().log(std::string(file) + ":" + place + " " + said);
}
