/// Memory of a mapped file that somebody may cut short.
#ifndef PLATFORM_HOST_CUT_MEMORY_H
#define PLATFORM_HOST_CUT_MEMORY_H

namespace host {

/// From now on a page whose file was cut short holds zeros that only this process sees, instead of
/// ending the process with SIGBUS. Other reasons for that signal go where they went before.
///
/// @param page  the start of a mapping; not more than its first page is looked after
void survive_cuts(void* page);

void forget_cuts(void* page);

}  // namespace host

#endif  // PLATFORM_HOST_CUT_MEMORY_H
