#include "recorder.h"

#include <new>

#include "allocations.h"

namespace operations {

class Recorder::Walk final : public InstanceIterator {
 public:
  Walk(Recorder& recorder, InstanceIterator& inner) : recorder_(&recorder), inner_(&inner) {}

  int next() override {
    const allocations::NotCounted pause;
    return inner_->next();
  }

  std::string fullName() override {
    const allocations::NotCounted pause;
    (void)recorder_->next_failure(Call::kName);
    return inner_->fullName();
  }

  InstanceIterator* inner() { return inner_; }

 private:
  Recorder* recorder_;
  InstanceIterator* inner_;
};

// Its text is there from the start, so that it is not taken for a leak.
Recorder::Recorder(MibAccess& next) : MibDecorator(next) { text_.reserve(1024); }

void Recorder::start(const Fault& fault) {
  fault_ = fault;
  failed_ = false;
  counts_ = {};
  text_.clear();
}

bool Recorder::wrote() const {
  long changes = 0;
  for (const Call call : {Call::kSet, Call::kAdd, Call::kDelete, Call::kCommit, Call::kApply}) {
    changes += counts_[static_cast<std::size_t>(call)];
  }
  return changes != 0;
}

Failure Recorder::next_failure(Call call) {
  const long count = ++counts_[static_cast<std::size_t>(call)];
  if (fault_.failure == Failure::kNone || fault_.call != call || fault_.nth != count) {
    return Failure::kNone;
  }
  failed_ = true;
  if (fault_.failure == Failure::kThrows) throw std::bad_alloc();
  return fault_.failure;
}

template <typename Action>
int Recorder::changing(Call call, const std::string& line, const Action& action) {
  note(line);
  const Failure failure = next_failure(call);
  if (failure == Failure::kRefused) return -1;
  const int result = action();
  return failure == Failure::kMisreported ? -1 : result;
}

int Recorder::addObject(const std::string& table_path, int* instance, int access_level) {
  const allocations::NotCounted pause;
  const std::string line =
      "add " + table_path + ' ' + std::to_string(*instance) + ' ' + std::to_string(access_level);
  return changing(Call::kAdd, line,
                  [&] { return next().addObject(table_path, instance, access_level); });
}

int Recorder::deleteObject(const std::string& object_path) {
  const allocations::NotCounted pause;
  return changing(Call::kDelete, "delete " + object_path,
                  [&] { return next().deleteObject(object_path); });
}

InstanceIterator* Recorder::openInstanceIterator(int type) {
  const allocations::NotCounted pause;
  note("open " + std::to_string(type));
  if (next_failure(Call::kOpen) != Failure::kNone) return nullptr;
  InstanceIterator* const inner = next().openInstanceIterator(type);
  return inner == nullptr ? nullptr : *open_.insert(new Walk(*this, *inner)).first;
}

void Recorder::closeInstanceIterator(InstanceIterator* iterator) {
  const allocations::NotCounted pause;
  note("close");
  Walk* const walk = static_cast<Walk*>(iterator);
  if (open_.erase(walk) == 0) {
    closed_wrongly_ = true;
    return;
  }
  next().closeInstanceIterator(walk->inner());
  delete walk;
}

std::string Recorder::getValue(const std::string& name) {
  const allocations::NotCounted pause;
  note("get " + name);
  if (next_failure(Call::kGet) != Failure::kNone) return {};
  return next().getValue(name);
}

int Recorder::setValue(const std::string& name, const std::string& value, int flags) {
  const allocations::NotCounted pause;
  return changing(Call::kSet, "set " + name + " = " + value + ' ' + std::to_string(flags),
                  [&] { return next().setValue(name, value, flags); });
}

int Recorder::commit(int mode) {
  const allocations::NotCounted pause;
  return changing(Call::kCommit, "commit " + std::to_string(mode),
                  [&] { return next().commit(mode); });
}

int Recorder::applyChanges(const std::string& scope) {
  const allocations::NotCounted pause;
  return changing(Call::kApply, "apply \"" + scope + '"',
                  [&] { return next().applyChanges(scope); });
}

void Recorder::note(const std::string& line) { text_ += line + '\n'; }

void Recorder::close_all() {
  for (Walk* walk : open_) {
    next().closeInstanceIterator(walk->inner());
    delete walk;
  }
}

}  // namespace operations
