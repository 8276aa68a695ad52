// Names that the fragments of code in the documents take as given.
#include <common_util.h>
#include <host_platform.h>
#include <host_store.h>
#include <igd_api.h>
#include <igd_c_api.h>

#include <cstdio>
#include <string>
#include <vector>

extern const std::string path;  // of a connection
extern const bool agreed;       // what somebody decided
void show(const host::WriteStep& step);
