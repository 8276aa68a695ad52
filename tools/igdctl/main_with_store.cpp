// igdctl for the reference platform.
#include "backend/with_store/store_backend.h"
#include "program.h"
#include "store/store_commands.h"
#include "tree/tree_commands.h"

int main(int argc, char** argv) {
  igdctl::StoreBackend backend;
  return igdctl::run_program(argc, argv, backend,
                             {igdctl::add_tree_model_commands, igdctl::add_store_commands});
}
