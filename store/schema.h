// The schema of the tables the system writes and of those it only reads: one
// declarative description from which the DDL of both dialects, the CSV load
// and dump, and the checks of values against column widths are made.
//
// Contract: column names exactly as the warehouse names them; every table has
// its identity columns as primary key, a unique constraint per business key,
// the references between the tables, and an index behind every paging key of
// the lists. Fixed char columns compare blank padded and everything sorts by
// byte value on both backends. CreateSchema is idempotent.
//
// References are foreign keys. On PostgreSQL they are DEFERRABLE INITIALLY
// DEFERRED, so that a cascade may delete a parent before its dependants
// inside one transaction. On SQLite they are plain clauses, enforced only
// where the session runs with PRAGMA foreign_keys = ON (OpenSession in
// store/url.h sets it), and the store must run
// PRAGMA defer_foreign_keys = ON in every transaction that deletes through
// a cascade, before its first write (BeforeWrites in store/connection.h),
// since SQLite resets it at each COMMIT and ROLLBACK.
#ifndef WATRIX_STORE_SCHEMA_H_
#define WATRIX_STORE_SCHEMA_H_

#include <string>
#include <vector>

#include "store/columns.h"
#include "store/connection.h"

namespace lk::store {

struct Table {
  const char* name;
  std::vector<Column> columns;
  std::vector<const char*> primary_key;
  std::vector<std::vector<const char*>> unique_keys;   // business keys
  struct Reference {
    std::vector<const char*> columns;
    const char* table;
    std::vector<const char*> table_columns;
  };
  std::vector<Reference> references;
  std::vector<std::vector<const char*>> paging_keys;   // indexed for the lists
  bool written;  // the system writes it (else only reads it)

  const Column* Find(const std::string& column) const;
};

// All tables, parents before children.
const std::vector<Table>& Tables();
const Table* FindTable(const std::string& name);

// The DDL statements that create every table and index in `dialect`.
std::vector<std::string> SchemaStatements(Dialect dialect);

// Creates what is missing of the schema; running it twice changes nothing.
void CreateSchema(const Connection& connection);

// Whether the schema stands in the database (all tables present).
bool SchemaExists(const Connection& connection);

}  // namespace lk::store

#endif  // WATRIX_STORE_SCHEMA_H_
