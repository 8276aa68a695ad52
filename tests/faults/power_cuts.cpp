#include "power_cuts.h"

#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <utility>

#include "disk_vfs.h"
#include "life.h"
#include "rows/tree_rows.h"
#include "tree/tree_access.h"

namespace proof {
namespace {

namespace fs = std::filesystem;

host::StoreOptions options_in_boot(const char* boot) {
  host::StoreOptions options;
  options.vfs = kDiskVfs;
  options.clock = [boot] { return host::BootTime{boot, 1000}; };
  return options;
}

// SQLite salts its logs at random; the same life has to write the same.
void repeat_random_numbers() {
  constexpr int kSeed = 1;
  (void)sqlite3_test_control(SQLITE_TESTCTRL_PRNG_SEED, kSeed, nullptr);
}

State read_state(const std::string& path, const host::StoreOptions& options) {
  host::StoreFile file(path, options);
  return state_of(file);
}

// As the store makes its files: for their owner alone.
void write_private(const std::string& name, const std::string& content) {
  std::ofstream(name, std::ios::binary) << content;
  fs::permissions(name, fs::perms::owner_read | fs::perms::owner_write);
}

}  // namespace

PowerCuts::PowerCuts(std::string folder, Honesty honesty)
    : path_(std::move(folder) + "/gateway.db"), honesty_(honesty) {
  Disk disk;
  use_disk(disk);
  disk.arm({kChanges, 0, 0, 0, 0, false});
  std::vector<State> states;  // after each step; first of a new store
  Gateway gateway(path_, options_in_boot("first"), [&] {
    const std::unique_ptr<Disk> copy = disk.copy();
    use_disk(*copy);
    states.push_back(read_state(path_, options_in_boot("first")));
    use_disk(disk);
    if (states.size() == 1) states.push_back(states.front());
  });
  repeat_random_numbers();
  live(gateway);
  stops_ = gateway.failure().ok() ? disk.counted() : 0;
  for (std::size_t step = 0; step < states.size(); ++step) {
    restarted_.push_back(after_restart(states[step], states[step == 0 ? 0 : step - 1]));
  }
}

PowerCuts::Stopped PowerCuts::lived_until(int stop) {
  Stopped stopped;
  stopped.disk = std::make_unique<Disk>();
  stopped.disk->set_honesty(honesty_);
  use_disk(*stopped.disk);
  stopped.disk->cut_power_at(stop);
  repeat_random_numbers();
  Gateway gateway(path_, options_in_boot("first"), [&] {
    if (gateway.failure().ok()) ++stopped.done;
  });
  live(gateway);
  return stopped;
}

std::string PowerCuts::check(int stop, std::uint32_t first_seed, std::uint32_t count) {
  const Stopped stopped = lived_until(stop);
  std::string problems;
  for (std::uint32_t seed = first_seed; seed < first_seed + count; ++seed) {
    const std::string problem = check_once(stopped, seed);
    if (problem.empty()) continue;
    problems += "stop " + std::to_string(stop) + ", seed " + std::to_string(seed) + ", " +
                std::to_string(stopped.done) + " steps done:\n" + problem;
  }
  return problems;
}

std::string PowerCuts::check_once(const Stopped& stopped, std::uint32_t seed) {
  constexpr std::uint32_t kCutAgain = 4;  // every so many
  constexpr std::uint32_t kOnFiles = 17;
  std::unique_ptr<Disk> disk = stopped.disk->after_power_cut(seed);
  upset_shared_file(seed);
  if (seed % kCutAgain == 0) disk = cut_again_while_opening(std::move(disk), seed);
  return seed % kOnFiles == 0 ? check_on_files(*disk, stopped.done) : check_on(*disk, stopped.done);
}

/// The power comes back and goes again before the store is open, or soon after.
std::unique_ptr<Disk> PowerCuts::cut_again_while_opening(std::unique_ptr<Disk> disk,
                                                         std::uint32_t seed) {
  constexpr std::uint32_t kLatest = 13;
  use_disk(*disk);
  disk->set_honesty(honesty_);
  disk->cut_power_at(static_cast<int>(1 + seed % kLatest));
  (void)host::Store::open(path_, options_in_boot("second"), nullptr);
  return disk->after_power_cut(seed);
}

std::string PowerCuts::check_on(Disk& disk, std::size_t done) {
  use_disk(disk);
  return check_store(options_in_boot("third"), done);
}

/// With SQLite's own VFS, on a real file system.
std::string PowerCuts::check_on_files(const Disk& disk, std::size_t done) {
  for (const auto& [name, content] : disk.contents()) {
    write_private(name, content);
  }
  host::StoreOptions options = options_in_boot("third");
  options.vfs.clear();
  std::string problem = check_store(options, done);
  for (const char* ending : {"", "-wal", "-journal", "-shm"}) fs::remove(path_ + ending);
  return problem;
}

std::string PowerCuts::check_store(const host::StoreOptions& options, std::size_t done) try {
  host::StoreResult result;
  const auto store = host::Store::open(path_, options, &result);
  if (store == nullptr) return "  does not open: " + result.text + "\n";
  std::string problem;
  {
    host::StoreFile file(path_, options);
    const State found = state_of(file);
    problem = wrong_state(found, done);
    if (host::rows_of(host::TreeAccess::store(store->tree())) != found.rows) {
      problem += "  the tree is not what the file says\n";
    }
    const std::string verdict = file.database().text("PRAGMA integrity_check");
    if (verdict != "ok") problem += "  integrity: " + verdict + "\n";
  }
  (void)store->tree().set_value("InternetGatewayDevice.ManagementServer.Username", "afterwards");
  result = store->commit("afterwards");
  if (!result.ok()) problem += "  does not go on: " + result.text + "\n";
  return problem;
} catch (const host::StoreFailure& failure) {
  return "  cannot be read: " + failure.result().text + "\n";
}

/// What was reported done is there, and nothing but what was going on when the power went.
std::string PowerCuts::wrong_state(const State& found, std::size_t done) const {
  const State& before = restarted_[done];
  if (found == before) return {};
  if (done + 1 < restarted_.size() && found == restarted_[done + 1]) return {};
  return "  neither before nor after the step; from before it:\n" + difference(before, found);
}

/// After a cut the file that processes share is as it was, gone, cut short, or full of anything.
void PowerCuts::upset_shared_file(std::uint32_t seed) const {
  constexpr std::uint32_t kOutcomes = 4;
  constexpr std::uint32_t kLength = 16;
  const std::string shared = path_ + "-shared";
  std::mt19937 random(seed);
  const std::uint32_t outcome = random() % kOutcomes;
  if (outcome == 0) return;
  fs::remove(shared);
  if (outcome == 1) return;
  std::string content(outcome == 2 ? random() % kLength : kLength, '\0');
  for (char& byte : content) byte = static_cast<char>(random());
  write_private(shared, content);
}

}  // namespace proof
