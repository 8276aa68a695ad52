/// Points of time as text.
#ifndef IGDCTL_TIMES_H
#define IGDCTL_TIMES_H

#include <cstdint>
#include <string>

namespace igdctl {

// Both take seconds since 1970.
std::string local_time_text(std::int64_t seconds);  ///< "2024-02-29 12:30:00", for people
std::string utc_time_text(std::int64_t seconds);    ///< "2024-02-29T12:30:00Z", for programs

}  // namespace igdctl

#endif  // IGDCTL_TIMES_H
