#include "store/cut_memory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>

namespace host {
namespace {

// The handler of a signal may run at any moment, so entries are never freed, only used again.
struct WatchedPage {
  std::atomic<void*> page{nullptr};
  WatchedPage* next = nullptr;
};

std::atomic<WatchedPage*> first_page{nullptr};
std::uintptr_t page_size = 0;
struct sigaction action_before = {};

bool is_in(const void* address, const void* page) {
  const auto place = reinterpret_cast<std::uintptr_t>(address);
  const auto start = reinterpret_cast<std::uintptr_t>(page);
  return page != nullptr && place >= start && place - start < page_size;
}

// Puts a page of zeros in the place of one that is gone.
bool put_zeros_at(const void* address) {
  for (WatchedPage* entry = first_page.load(); entry != nullptr; entry = entry->next) {
    void* const page = entry->page.load();
    if (!is_in(address, page)) continue;
    constexpr int kFlags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED;
    return mmap(page, page_size, PROT_READ | PROT_WRITE, kFlags, -1, 0) != MAP_FAILED;
  }
  return false;
}

// What would have been done without this file.
void pass_on(int number, siginfo_t* info, void* context) {
  if ((action_before.sa_flags & SA_SIGINFO) != 0) {
    action_before.sa_sigaction(number, info, context);
  } else if (action_before.sa_handler != SIG_DFL && action_before.sa_handler != SIG_IGN) {
    action_before.sa_handler(number);
  } else {
    (void)signal(number, SIG_DFL);
    (void)raise(number);  // waits until this handler has returned
  }
}

void on_bus_error(int number, siginfo_t* info, void* context) {
  const int error = errno;
  const bool is_fault = info->si_code > 0;
  if (!is_fault || !put_zeros_at(info->si_addr)) pass_on(number, info, context);
  errno = error;
}

void install() {
  page_size = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  struct sigaction action = {};
  action.sa_sigaction = on_bus_error;
  action.sa_flags = SA_SIGINFO;
  (void)sigemptyset(&action.sa_mask);
  (void)sigaction(SIGBUS, &action, &action_before);
}

}  // namespace

void survive_cuts(void* page) {
  static const bool is_installed = (install(), true);
  (void)is_installed;
  for (WatchedPage* entry = first_page.load(); entry != nullptr; entry = entry->next) {
    void* none = nullptr;
    if (entry->page.compare_exchange_strong(none, page)) return;
  }
  auto* const entry = new WatchedPage;
  entry->page = page;
  entry->next = first_page.load();
  first_page = entry;
}

void forget_cuts(void* page) {
  for (WatchedPage* entry = first_page.load(); entry != nullptr; entry = entry->next) {
    void* mine = page;
    if (entry->page.compare_exchange_strong(mine, nullptr)) return;
  }
}

}  // namespace host
