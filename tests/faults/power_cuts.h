// A gateway loses power at each change of its disk, and its store has to be whole afterwards.
#ifndef TESTS_PROOF_POWER_CUTS_H
#define TESTS_PROOF_POWER_CUTS_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "disk.h"
#include "gateway.h"
#include "state.h"

namespace proof {

class PowerCuts {
 public:
  // Lives once without a cut, to know what the store is after each step.
  // @param folder  a folder to work in; the small file that processes share is there, and the
  //                files of a cut disk that is opened with SQLite's own VFS
  explicit PowerCuts(std::string folder, Honesty honesty = Honesty::kHonest);

  // The changes that a life makes to the disk: the power may go at each, from 1.
  int stops() const { return stops_; }
  // The states that were reported to be on disk, the new store among them.
  std::size_t states() const { return restarted_.size() - 1; }

  // Lives until the stop, and checks what the store is after each of some power cuts there.
  // Returns what is wrong, "" when nothing is. Each seed is another outcome of the cut.
  std::string check(int stop, std::uint32_t first_seed, std::uint32_t count);

 private:
  struct Stopped {
    std::unique_ptr<Disk> disk;
    std::size_t done = 0;  // steps that were reported done
  };

  Stopped lived_until(int stop);
  std::string check_once(const Stopped& stopped, std::uint32_t seed);
  std::unique_ptr<Disk> cut_again_while_opening(std::unique_ptr<Disk> disk, std::uint32_t seed);
  std::string check_on(Disk& disk, std::size_t done);
  std::string check_on_files(const Disk& disk, std::size_t done);
  std::string check_store(const host::StoreOptions& options, std::size_t done);
  std::string wrong_state(const State& found, std::size_t done) const;
  void upset_shared_file(std::uint32_t seed) const;

  std::string path_;
  Honesty honesty_;
  int stops_ = 0;
  std::vector<State> restarted_;  // what a restart makes of each step's state; first a new store
};

}  // namespace proof

#endif  // TESTS_PROOF_POWER_CUTS_H
