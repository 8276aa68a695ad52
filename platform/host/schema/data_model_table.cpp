// Prints the data model as docs/data-model.md: scripts/check-docs --update writes it there.
#include <cstdio>
#include <string>

#include "schema/schema.h"

namespace {

using host::SchemaRow;

constexpr char kIntroduction[] = R"(# The data model

Every object and parameter of the reference platform's tree, generated from the schema in
`platform/host` by `scripts/check-docs --update`. Names follow TR-098; those beginning with
`X_`, the MTU of a connection and PortOption60 are the operator's and the gateway's own.

`{i}` stands for the number of an instance. *Access* is what a management server may do; the
tree itself does not enforce it. Counts are computed. *Number* is the `ObjectType` by which
libigd enumerates the objects, or this parameter of each object.
)";

std::string code(std::string_view text) {
  return text.empty() ? std::string() : '`' + std::string(text) + '`';
}

std::string number_of(const SchemaRow& row) {
  return row.identifier == 0 ? std::string() : std::to_string(row.identifier);
}

const char* access_of(const SchemaRow& row) {
  return row.access == host::kReadWrite ? "read, write" : "read";
}

void print_object(const SchemaRow& row) {
  std::printf("\n## %s%s\n\n", host::kRootPath.data(), std::string(row.name).c_str());
  if (row.kind == host::kObjectRow) {
    std::printf("A single object, present wherever its parent is.\n");
    return;
  }
  std::printf("A table; a management server may %s instances.",
              row.access == host::kReadWrite ? "add and delete" : "not add or delete");
  if (row.identifier != 0) std::printf(" Number of the instances: %d.", row.identifier);
  std::printf("\n");
}

void print_parameter(const SchemaRow& row) {
  const std::string initial = row.kind == host::kCountRow
                                  ? "count of " + code(std::string(row.counted) + '.')
                                  : code(row.initial);
  std::printf("| `%s` | %s | %s | %s | %s |\n", std::string(row.name).c_str(),
              std::string(host::type_name(row.type)).c_str(), access_of(row), initial.c_str(),
              number_of(row).c_str());
}

void print_rows(host::SchemaRows rows) {
  bool in_table = false;
  for (const SchemaRow& row : rows) {
    const bool parameter = row.kind == host::kParameterRow || row.kind == host::kCountRow;
    if (!parameter) print_object(row);
    if (parameter && !in_table) {
      std::printf("\n| Parameter | Type | Access | Default | Number |\n|---|---|---|---|---|\n");
    }
    if (parameter) print_parameter(row);
    in_table = parameter;
  }
}

}  // namespace

int main() {
  std::fputs(kIntroduction, stdout);
  print_rows(host::device_rows());
  print_rows(host::wan_rows());
  print_rows(host::bridging_rows());
  return 0;
}
