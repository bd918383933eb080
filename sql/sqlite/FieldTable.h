// sms_fields(pdu, options), a table-valued function of SQLite.
#ifndef SQL_FIELDTABLE_H
#define SQL_FIELDTABLE_H

#include "sql/sqlite/Api.h"

namespace sql {

/// Gives a result code of SQLite.
int RegisterFieldTable(sqlite3* database);

} // namespace sql

#endif
