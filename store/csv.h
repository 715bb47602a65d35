// CSV files of the tables: the reader and writer of RFC 4180 records, and
// the load and dump of `watrix db load` and `watrix db dump`.
//
// The file: UTF-8 (a leading byte order mark is passed over), one record a
// line, fields separated by commas, a field that holds a comma, a double
// quote, CR or LF in double quotes with its quotes doubled. Lines end in LF
// when written; the reader takes LF or CRLF. The first record names the
// columns exactly as the schema does, in any order; a file may leave out
// columns that allow NULL.
//
// Values: an empty field is NULL where the column allows it and a blank
// otherwise; a quoted empty field ("") is an empty text. Dates are
// "YYYY-MM-DD HH:MM:SS". The rest is as in store/column_value.h. The dump
// writes NULL as an empty field, an empty text as "", and rows in primary
// key order, so that what it writes loads back to the same rows.
//
// A load is all or nothing: one transaction; an unknown or repeated column,
// a missing column that does not allow NULL, a record with the wrong number
// of fields, a value that does not fit its column, or a row the database
// refuses (a duplicate key, a reference to no row) loads nothing, and the
// error names the line on which the record begins, the header being line 1:
// "line 3: SHORT_NAME: the value is 7 characters long; SHORT_NAME holds 6".
// References are checked row by row, so a row must come after the rows it
// refers to in the same table.
//
// REQUIRES for LoadCsv and DumpCsv: the schema stands (CreateSchema), and an
// SQLite session runs with foreign keys on (OpenSession does it). LoadCsv
// runs its own transaction: none may be open on the session.
#ifndef WATRIX_STORE_CSV_H_
#define WATRIX_STORE_CSV_H_

#include <cstdint>
#include <functional>
#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "store/connection.h"

namespace lk::store {

struct CsvField {
  std::string text;
  bool quoted = false;  // it stood in double quotes
};

// Reads records from a stream. Not thread safe.
class CsvReader {
 public:
  explicit CsvReader(std::istream* in) : in_(in) {}

  // Reads the next record into *fields. Returns false at the end of the
  // input (with *error empty) or on a malformed record (with the reason in
  // *error). An empty last line ends the input; an empty line elsewhere is
  // a record of one empty field.
  bool Next(std::vector<CsvField>* fields, std::string* error);

  // The line on which the record last read began, from 1.
  int line() const { return record_line_; }

  // Bytes consumed so far.
  std::uint64_t bytes() const { return bytes_; }

 private:
  int Get();
  int Peek();

  std::istream* in_;
  std::string pending_;  // bytes read ahead at the start, not a byte order mark
  std::size_t pending_at_ = 0;
  int line_ = 1;
  int record_line_ = 0;
  std::uint64_t bytes_ = 0;
  bool started_ = false;
};

// Writes one record: nullopt as an empty field, an empty text as "", and
// quotes wherever a field needs them. Ends it with LF.
void WriteCsvRecord(std::ostream& out, const std::vector<std::optional<std::string>>& fields);

// Told how a load goes: rows loaded so far, bytes read so far, and the
// size of the input (0 when unknown). Called every 1000 rows and once at
// the end.
using LoadProgress =
    std::function<void(std::uint64_t rows, std::uint64_t bytes, std::uint64_t total_bytes)>;

// Appends the rows of `in` to `table`. `total_bytes` is passed on to
// `progress` (which may be empty). Returns false with the reason in *error
// when nothing was loaded; else *rows (if not null) is the number of rows.
bool LoadCsv(const Connection& connection, const std::string& table, std::istream& in,
             std::uint64_t total_bytes, const LoadProgress& progress, std::uint64_t* rows,
             std::string* error);

// The same from the file at `path`.
bool LoadCsvFile(const Connection& connection, const std::string& table, const std::string& path,
                 const LoadProgress& progress, std::uint64_t* rows, std::string* error);

// Writes the header and every row of `table`, in primary key order. Returns
// false with the reason in *error.
bool DumpCsv(const Connection& connection, const std::string& table, std::ostream& out,
             std::string* error);

}  // namespace lk::store

#endif  // WATRIX_STORE_CSV_H_
