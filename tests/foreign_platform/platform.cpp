#include "platform.h"

#include <cstdarg>
#include <cstdio>
#include <utility>

#include "stdout_capture.h"
#include "transcript.h"

namespace foreign {
namespace {

// The library looks at no result of a write or a commit, so this platform calls all of them failed.
constexpr int kNobodyLooks = -9;

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
  recording_ = false;
  complaints_.clear();
  iterators_.clear();
  offer(true, true);
}

std::string Platform::record(const std::function<void()>& call) {
  transcript_.clear();
  {
    const StdoutCapture capture;
    recording_ = true;
    call();
    drain();
    recording_ = false;
  }
  for (const auto& iterator : iterators_) {
    if (!iterator->closed()) complain("an iterator was left open");
  }
  iterators_.clear();
  return transcript_;
}

void Platform::drain() { append_printed(transcript_, StdoutCapture::drain()); }

void Platform::note(const std::string& line) {
  if (!recording_) return;
  drain();
  transcript_ += line + "\n";
}

PlatformContext* Platform::give_context() {
  ++contexts_asked_;
  return offers_context_ ? this : nullptr;
}

void Platform::offer(bool context, bool tree_access) {
  offers_context_ = context;
  offers_tree_access_ = tree_access;
}

void Platform::debug(const char* file, int line, const std::string& text) {
  if (!recording_) return;
  drain();
  append_debug(transcript_, file, line, text);
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
  // Routes apart, the library starts every add with the number 0.
  const bool route = table_path == "InternetGatewayDevice.Layer3Forwarding.Forwarding.";
  if (!route && *number != 0) complain("the number was not 0 before adding to " + table_path);
  const int added = tree_.add(table_path);
  if (added != 0) *number = added;
  const std::string outcome = added != 0 ? std::to_string(added) : "refused";
  note("add " + table_path + " " + std::to_string(access) + ": " + outcome);
  return added != 0 ? 0 : -7;
}

int Platform::deleteObject(const std::string& object_path) {
  note("delete " + object_path);
  return tree_.erase(object_path);
}

InstanceIterator* Platform::openInstanceIterator(int type) {
  note("open " + std::to_string(type));
  std::vector<std::string> names = tree_.names_of(type);
  if (names.empty()) return nullptr;
  iterators_.push_back(std::make_unique<NameIterator>(std::move(names)));
  return iterators_.back().get();
}

void Platform::closeInstanceIterator(InstanceIterator* iterator) {
  note("close");
  for (const auto& opened : iterators_) {
    if (opened.get() == iterator) return opened->close();
  }
  complain("closed an iterator that was never opened");
}

std::string Platform::getValue(const std::string& name) {
  note("get " + name);
  return tree_.get(name);
}

int Platform::setValue(const std::string& name, const std::string& value, int flag) {
  if (flag != 0) complain("setValue of " + name + " with " + std::to_string(flag));
  note("set " + name + " = " + value);
  tree_.set(name, value);
  return kNobodyLooks;
}

int Platform::commit(int flag) {
  note("commit " + std::to_string(flag));
  return kNobodyLooks;
}

int Platform::applyChanges(const std::string& text) {
  note("apply \"" + text + "\"");
  return kNobodyLooks;
}

}  // namespace foreign

void reserved_slot_called(const char* slot) {
  foreign::Platform::instance().complain(std::string("reserved slot called: ") + slot);
}

PlatformContext* getContext() { return foreign::Platform::instance().give_context(); }

extern "C" void c_debug_out(const char* file, int line, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  char text[4096];
  std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  foreign::Platform::instance().debug(file, line, text);
}
