// What the reference platform's sources include of others, compiled once for all mutants. A
// template that is instantiated here is compiled in no source.
#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

template class std::basic_string<char>;
template class std::vector<std::string>;
template class nlohmann::basic_json<nlohmann::ordered_map>;
