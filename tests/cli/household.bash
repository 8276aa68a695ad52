# Gateways to look at and to repair: `load household` after `load helper`.
#
# EDIT_TREE names the program; ctest sets it.

# Brings the store into states that igdctl would not make; edit_tree.cpp tells how.
edit_tree() { "$EDIT_TREE" "$@"; }
value_of() { edit_tree get "$1" 2>&1; }

# Internet (1.1, VLAN 100, LAN1 and LAN2 bound), Television (1.2, VLAN 200, LAN3 in its own bridge)
# and Management (1.3, VLAN 46).
household() {
  edit_tree create Internet 100 INTERNET LAN1,LAN2 -
  edit_tree create Television 200 OTHER - LAN3
  edit_tree create Management 46 TR069 - -
}
