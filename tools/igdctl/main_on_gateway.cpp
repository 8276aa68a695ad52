// igdctl as a gateway has it.
#include "backend/on_gateway/gateway_backend.h"
#include "program.h"

int main(int argc, char** argv) {
  igdctl::GatewayBackend backend;
  return igdctl::run_program(argc, argv, backend, {});
}
