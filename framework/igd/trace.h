/// The line shapes of the library's trace on standard output. Field tools read these lines: their
/// texts, blanks and fixed numbers stay as they are.
#ifndef IGD_TRACE_H
#define IGD_TRACE_H

#include <cstdio>
#include <string>

namespace igd {

inline constexpr char kUnit[] = "igd_api";  ///< source unit as trace and log lines name it

/// "vornik <operation>:<line>": the operation got this far.
inline void trace_progress(const char* operation, int line = __builtin_LINE()) {
  std::printf("vornik %s:%d\n", operation, line);
}

/// "vornik <operation>:<line>  <label>:<value> "
inline void trace_value(const char* operation, const char* label, const std::string& value,
                        int line = __builtin_LINE()) {
  std::printf("vornik %s:%d  %s:%s \n", operation, line, label, value.c_str());
}

inline void trace_value(const char* operation, const char* label, int value,
                        int line = __builtin_LINE()) {
  std::printf("vornik %s:%d  %s:%d \n", operation, line, label, value);
}

/// "vornik: <label> = <value>"
inline void trace_found(const char* label, const std::string& value) {
  std::printf("vornik: %s = %s\n", label, value.c_str());
}

/// "<operation>  igd_wan_print_params(info) :<line>": announces the dump of a record.
inline void trace_dump_follows(const char* operation, int fixed_line) {
  std::printf("%s  igd_wan_print_params(info) :%d\n", operation, fixed_line);
}

}  // namespace igd

#endif  // IGD_TRACE_H
