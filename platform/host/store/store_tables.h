/// The tables of a store's file.
#ifndef PLATFORM_HOST_STORE_TABLES_H
#define PLATFORM_HOST_STORE_TABLES_H

#include "store/database.h"

namespace host {

/// Needs a write transaction. Throws StoreFailure.
void make_tables(Database& database);

/// Throws StoreFailure (kForeign) when the file has anything but the tables of a store, as
/// make_tables() makes them: a view, a trigger or an index of somebody else would be run by reading
/// or writing the tables.
void require_own_tables(Database& database);

}  // namespace host

#endif  // PLATFORM_HOST_STORE_TABLES_H
