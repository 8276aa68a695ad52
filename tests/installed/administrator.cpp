// A program outside this project that looks into the reference platform's trees.
#include <host_platform.h>

int main() {
  const host::Tree tree = host::Tree::factory();
  return tree.has_object("InternetGatewayDevice.WANDevice.") ? 0 : 1;
}
