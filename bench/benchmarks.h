/// The benchmarks, the same for every subject.
///
/// A subject is a class made from a Workload, with
///   static std::string key(const std::string& name)   how it spells a name; never timed
///   std::string get(const std::string& key)
///   void set(const std::string& key, const std::string& value)   of a parameter that is there
///   std::vector<std::string> enumerate_values()       of kAddressingType, from its own list
///   std::string add()                                 an instance in kAddedTable; its key path
///   void remove(const std::string& path)              what add() made
/// Calls are not virtual, so that a map is as fast as it would be in a program of its own.
#ifndef BENCH_BENCHMARKS_H
#define BENCH_BENCHMARKS_H

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <chrono>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "workload.h"

namespace bench {

struct Access {
  std::string key;
  std::string first;
  std::string second;
};

template <typename Subject>
std::vector<Access> accesses(const std::vector<Entry>& entries) {
  std::vector<Access> made;
  made.reserve(entries.size());
  for (const Entry& entry : entries) {
    made.push_back({Subject::key(entry.name), entry.first, entry.second});
  }
  return made;
}

/// A subject with its keys; made at first use and kept for all repeats.
template <typename Subject>
struct Fixture {
  explicit Fixture(int connections)
      : subject(workload(connections)),
        reads(accesses<Subject>(workload(connections).shuffled)),
        writes(accesses<Subject>(workload(connections).shuffled_writes)),
        added_writes(accesses<Subject>(bench::added_writes())) {}

  static Fixture& of(const benchmark::State& state) {
    static std::map<long, std::unique_ptr<Fixture>> made;
    auto& fixture = made[state.range(0)];
    if (!fixture) fixture = std::make_unique<Fixture>(static_cast<int>(state.range(0)));
    return *fixture;
  }

  Subject subject;
  std::vector<Access> reads, writes, added_writes;
};

template <typename Subject>
void get(benchmark::State& state) {
  auto& fixture = Fixture<Subject>::of(state);
  std::size_t next = 0;
  for (auto iteration : state) {
    (void)iteration;
    benchmark::DoNotOptimize(fixture.subject.get(fixture.reads[next].key));
    if (++next == fixture.reads.size()) next = 0;
  }
}

template <typename Subject>
void set(benchmark::State& state) {
  auto& fixture = Fixture<Subject>::of(state);
  std::size_t next = 0;
  bool second = true;
  for (auto iteration : state) {
    (void)iteration;
    const Access& write = fixture.writes[next];
    fixture.subject.set(write.key, second ? write.second : write.first);
    if (++next < fixture.writes.size()) continue;
    next = 0;
    second = !second;
  }
}

template <typename Subject>
void enumerate(benchmark::State& state) {
  auto& fixture = Fixture<Subject>::of(state);
  for (auto iteration : state) {
    (void)iteration;
    benchmark::DoNotOptimize(fixture.subject.enumerate_values());
  }
}

template <typename Work>
double seconds(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Adds a batch, does `then` with each path, removes the batch; notes the time of one half.
template <typename Subject, typename Then>
void add_and_remove(benchmark::State& state, bool adding_is_timed, const Then& then) {
  auto& fixture = Fixture<Subject>::of(state);
  std::vector<std::string> paths(kBatch);
  for (auto iteration : state) {
    (void)iteration;
    const double adding = seconds([&] {
      for (auto& path : paths) then(fixture, path = fixture.subject.add());
    });
    const double removing = seconds([&] {
      for (const auto& path : paths) fixture.subject.remove(path);
    });
    state.SetIterationTime(adding_is_timed ? adding : removing);
  }
}

template <typename Subject>
void add(benchmark::State& state) {
  add_and_remove<Subject>(state, true, [](auto&, const std::string&) {});
}

template <typename Subject>
void add_and_write(benchmark::State& state) {
  add_and_remove<Subject>(state, true, [](auto& fixture, const std::string& path) {
    std::string key;
    for (const Access& write : fixture.added_writes) {
      key.assign(path).append(write.key);
      fixture.subject.set(key, write.first);
    }
  });
}

template <typename Subject>
void remove(benchmark::State& state) {
  add_and_remove<Subject>(state, false, [](auto&, const std::string&) {});
}

/// Memory that the process has from the allocator, with the allocator's own share of it.
inline std::size_t allocated() {
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

/// What a subject takes to hold each workload, as a benchmark that does nothing else.
template <typename Subject>
void bytes(benchmark::State& state) {
  const Workload& work = workload(static_cast<int>(state.range(0)));
  for (auto iteration : state) {
    (void)iteration;
    const std::size_t before = allocated();
    const auto subject = std::make_unique<Subject>(work);
    state.counters["bytes"] =
        static_cast<double>(allocated() - before) / static_cast<double>(work.entries.size());
  }
}

template <typename Subject>
void register_subject(const std::string& name) {
  const std::pair<const char*, void (*)(benchmark::State&)> timed[] = {
      {"get", get<Subject>}, {"set", set<Subject>}, {"enumerate", enumerate<Subject>}};
  const std::pair<const char*, void (*)(benchmark::State&)> timed_by_hand[] = {
      {"add", add<Subject>},
      {"add and write", add_and_write<Subject>},
      {"delete", remove<Subject>}};
  for (const int connections : kSizes) {
    benchmark::RegisterBenchmark(("bytes/" + name).c_str(), bytes<Subject>)
        ->Arg(connections)
        ->Iterations(1);
    for (const auto& [work, function] : timed) {
      benchmark::RegisterBenchmark((work + ("/" + name)).c_str(), function)->Arg(connections);
    }
    for (const auto& [work, function] : timed_by_hand) {
      benchmark::RegisterBenchmark((work + ("/" + name)).c_str(), function)
          ->Arg(connections)
          ->UseManualTime();
    }
  }
}

void register_augeas();
void register_durable();  ///< the tree's store, and SQLite's file
void register_libyang();
void register_lmdb();
void register_map();
void register_sqlite();
void register_tree();

}  // namespace bench

#endif  // BENCH_BENCHMARKS_H
