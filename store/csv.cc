// CSV records, and the load and dump of tables (see csv.h).
#include "store/csv.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>

#include "store/column_value.h"
#include "store/schema.h"
#include "store/soci.h"

namespace lk::store {

namespace {

constexpr std::uint64_t kProgressEvery = 1000;

// The database's words for a refusal, on one line, without SOCI's context
// ("while executing ...") and without the backend's function prefix.
std::string Reason(const soci::soci_error& e) {
  std::string text = e.get_error_message();
  if (std::size_t at = text.find(" while executing"); at != std::string::npos) text.resize(at);
  // "Cannot execute query. Fatal error. ERROR:  duplicate key value ..."
  if (std::size_t at = text.find("ERROR:"); at != std::string::npos) text = text.substr(at + 6);
  // "sqlite3_statement_backend::loadOne: UNIQUE constraint failed: ..."
  const std::size_t blank_at = text.find(' ');
  if (blank_at != std::string::npos && blank_at > 0 && text[blank_at - 1] == ':' &&
      text.substr(0, blank_at).find("::") != std::string::npos) {
    text = text.substr(blank_at + 1);
  }
  std::string out;
  bool blank = false;
  for (char ch : text) {
    if (ch == '\n' || ch == '\r' || ch == '\t' || ch == ' ') {
      blank = !out.empty();
      continue;
    }
    if (blank) out += ' ';
    blank = false;
    out += ch;
  }
  return out;
}

std::string LinePrefix(int line) { return "line " + std::to_string(line) + ": "; }

void Begin(const Connection& connection) {
  if (connection.dialect == Dialect::kSqlite) {
    *connection.sql << "BEGIN IMMEDIATE";
  } else {
    *connection.sql << "BEGIN";
    // Refusals of references come with the row that breaks them.
    *connection.sql << "SET CONSTRAINTS ALL IMMEDIATE";
  }
}

void RollbackQuietly(const Connection& connection) {
  try {
    *connection.sql << "ROLLBACK";
  } catch (const std::exception&) {
    // Nothing was committed; a lost connection loses the transaction too.
  }
}

// The value to bind for `field` of `column`, or false with a reason.
bool FieldValue(const Column& column, const CsvField& field, std::string* value,
                soci::indicator* indicator, std::string* error) {
  const bool text = column.type == ColumnType::kChar || column.type == ColumnType::kVarchar;
  *indicator = soci::i_ok;
  if (field.text.empty()) {
    if (text && field.quoted) {
      *value = "";
    } else if (column.nullable) {
      *indicator = soci::i_null;
      value->clear();
      return true;
    } else if (text) {
      *value = " ";
    } else {
      *error = "needs a value; it does not allow NULL";
      return false;
    }
  } else {
    *value = field.text;
  }
  return NormalizeValue(column, value, error);
}

}  // namespace

int CsvReader::Get() {
  if (pending_at_ < pending_.size()) {
    ++bytes_;
    return static_cast<unsigned char>(pending_[pending_at_++]);
  }
  const int c = in_->get();
  if (c == std::char_traits<char>::eof()) return EOF;
  ++bytes_;
  if (c == '\n') ++line_;
  return c;
}

int CsvReader::Peek() {
  if (pending_at_ < pending_.size()) return static_cast<unsigned char>(pending_[pending_at_]);
  const int c = in_->peek();
  return c == std::char_traits<char>::eof() ? EOF : c;
}

bool CsvReader::Next(std::vector<CsvField>* fields, std::string* error) {
  fields->clear();
  error->clear();
  if (!started_) {
    started_ = true;
    // A byte order mark is no part of the first field.
    if (in_->peek() == 0xEF) {
      std::string head;
      for (int i = 0; i < 3 && in_->peek() != std::char_traits<char>::eof(); ++i) {
        head += static_cast<char>(in_->get());
        if (head.back() != "\xEF\xBB\xBF"[i]) break;
      }
      if (head == "\xEF\xBB\xBF") {
        bytes_ += 3;
      } else {
        pending_ = head;
      }
    }
  }
  if (Peek() == EOF) return false;
  record_line_ = line_;
  // An empty last line ends the input.
  if (Peek() == '\r' || Peek() == '\n') {
    if (Get() == '\r' && Peek() == '\n') Get();
    if (Peek() == EOF) return false;
    fields->push_back(CsvField());
    return true;
  }
  CsvField field;
  bool at_start = true;
  for (;;) {
    int c = Get();
    if (at_start && c == '"') {
      field.quoted = true;
      for (;;) {
        c = Get();
        if (c == EOF) {
          *error = "a quoted field is not closed";
          return false;
        }
        if (c == '"') {
          if (Peek() != '"') break;
          Get();
        }
        field.text += static_cast<char>(c);
      }
      c = Get();
      if (c == '\r' && Peek() == '\n') c = Get();
      if (c == ',') {
        fields->push_back(std::move(field));
        field = CsvField();
        continue;
      }
      if (c == '\n' || c == EOF) {
        fields->push_back(std::move(field));
        return true;
      }
      *error = "text after the closing quote of a field";
      return false;
    }
    at_start = false;
    if (c == '\r') {
      if (Peek() != '\n') {
        *error = "a carriage return outside quotes";
        return false;
      }
      c = Get();
    }
    if (c == ',') {
      fields->push_back(std::move(field));
      field = CsvField();
      at_start = true;
      continue;
    }
    if (c == '\n' || c == EOF) {
      fields->push_back(std::move(field));
      return true;
    }
    if (c == '"') {
      *error = "a double quote inside a field that does not begin with one";
      return false;
    }
    field.text += static_cast<char>(c);
  }
}

void WriteCsvRecord(std::ostream& out, const std::vector<std::optional<std::string>>& fields) {
  bool first = true;
  for (const std::optional<std::string>& field : fields) {
    if (!first) out << ',';
    first = false;
    if (!field) continue;
    const std::string& text = *field;
    if (!text.empty() && text.find_first_of(",\"\r\n") == std::string::npos) {
      out << text;
      continue;
    }
    out << '"';
    for (char ch : text) {
      if (ch == '"') out << '"';
      out << ch;
    }
    out << '"';
  }
  out << '\n';
}

bool LoadCsv(const Connection& connection, const std::string& table_name, std::istream& in,
             std::uint64_t total_bytes, const LoadProgress& progress, std::uint64_t* rows,
             std::string* error) {
  const Table* table = FindTable(table_name);
  if (table == nullptr) {
    *error = "there is no table " + table_name + " in the schema";
    return false;
  }
  CsvReader reader(&in);
  std::vector<CsvField> record;
  std::string why;
  if (!reader.Next(&record, &why)) {
    *error = LinePrefix(1) + (why.empty() ? "the file is empty; it needs a header row" : why);
    return false;
  }

  std::vector<const Column*> columns;
  std::set<std::string> seen;
  for (const CsvField& f : record) {
    const Column* c = table->Find(f.text);
    if (c == nullptr) {
      *error = LinePrefix(1) + "unknown column \"" + f.text + "\" in " + table->name;
      return false;
    }
    if (!seen.insert(c->name).second) {
      *error = LinePrefix(1) + "column " + c->name + " stands twice";
      return false;
    }
    columns.push_back(c);
  }
  for (const Column& c : table->columns) {
    if (!c.nullable && seen.count(c.name) == 0) {
      *error = LinePrefix(1) + "column " + c.name + " is missing; it does not allow NULL";
      return false;
    }
  }

  std::string insert = std::string("INSERT INTO ") + table->name + " (";
  std::string placeholders;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (i > 0) {
      insert += ", ";
      placeholders += ", ";
    }
    insert += columns[i]->name;
    placeholders += ":v" + std::to_string(i);
  }
  insert += ") VALUES (" + placeholders + ")";

  std::vector<std::string> values(columns.size());
  std::vector<soci::indicator> indicators(columns.size(), soci::i_ok);
  std::uint64_t loaded = 0;
  soci::session& sql = *connection.sql;
  try {
    Begin(connection);
  } catch (const soci::soci_error& e) {
    *error = "cannot begin the load: " + Reason(e);
    return false;
  }
  try {
    soci::statement statement(sql);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      statement.exchange(soci::use(values[i], indicators[i]));
    }
    statement.alloc();
    statement.prepare(insert);
    statement.define_and_bind();

    for (;;) {
      if (!reader.Next(&record, &why)) {
        if (why.empty()) break;
        *error = LinePrefix(reader.line()) + why;
        RollbackQuietly(connection);
        return false;
      }
      const int line = reader.line();
      if (record.size() != columns.size()) {
        *error = LinePrefix(line) + std::to_string(record.size()) +
                 (record.size() == 1 ? " field" : " fields") + " where the header has " +
                 std::to_string(columns.size());
        RollbackQuietly(connection);
        return false;
      }
      for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!FieldValue(*columns[i], record[i], &values[i], &indicators[i], &why)) {
          *error = LinePrefix(line) + columns[i]->name + ": " + why;
          RollbackQuietly(connection);
          return false;
        }
      }
      try {
        statement.execute(true);
      } catch (const soci::soci_error& e) {
        *error = LinePrefix(line) + Reason(e);
        RollbackQuietly(connection);
        return false;
      }
      ++loaded;
      if (progress && loaded % kProgressEvery == 0) progress(loaded, reader.bytes(), total_bytes);
    }
  } catch (const soci::soci_error& e) {
    *error = "the database refused the load: " + Reason(e);
    RollbackQuietly(connection);
    return false;
  }
  try {
    sql << "COMMIT";
  } catch (const soci::soci_error& e) {
    *error = "the database refused the load at its end: " + Reason(e);
    RollbackQuietly(connection);
    return false;
  }
  if (progress) progress(loaded, reader.bytes(), total_bytes);
  if (rows != nullptr) *rows = loaded;
  return true;
}

bool LoadCsvFile(const Connection& connection, const std::string& table, const std::string& path,
                 const LoadProgress& progress, std::uint64_t* rows, std::string* error) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    *error = "cannot read " + path + ": " + std::strerror(errno);
    return false;
  }
  std::error_code ec;
  const std::uintmax_t size = std::filesystem::file_size(path, ec);
  return LoadCsv(connection, table, in, ec ? 0 : static_cast<std::uint64_t>(size), progress, rows,
                 error);
}

bool DumpCsv(const Connection& connection, const std::string& table_name, std::ostream& out,
             std::string* error) {
  const Table* table = FindTable(table_name);
  if (table == nullptr) {
    *error = "there is no table " + table_name + " in the schema";
    return false;
  }
  std::string query = "SELECT ";
  std::vector<std::optional<std::string>> header;
  for (std::size_t i = 0; i < table->columns.size(); ++i) {
    const Column& c = table->columns[i];
    if (i > 0) query += ", ";
    if (c.type == ColumnType::kDate && connection.dialect == Dialect::kPostgres) {
      query += std::string("to_char(") + c.name + ", 'YYYY-MM-DD HH24:MI:SS')";
    } else {
      query += c.name;
    }
    header.emplace_back(c.name);
  }
  query += std::string(" FROM ") + table->name + " ORDER BY ";
  for (std::size_t i = 0; i < table->primary_key.size(); ++i) {
    if (i > 0) query += ", ";
    query += table->primary_key[i];
  }

  std::vector<std::string> values(table->columns.size());
  std::vector<soci::indicator> indicators(table->columns.size(), soci::i_ok);
  std::vector<std::optional<std::string>> fields(table->columns.size());
  try {
    soci::statement statement(*connection.sql);
    for (std::size_t i = 0; i < values.size(); ++i) {
      statement.exchange(soci::into(values[i], indicators[i]));
    }
    statement.alloc();
    statement.prepare(query);
    statement.define_and_bind();
    statement.execute();
    WriteCsvRecord(out, header);
    while (statement.fetch()) {
      for (std::size_t i = 0; i < values.size(); ++i) {
        if (indicators[i] == soci::i_null) {
          fields[i].reset();
        } else {
          fields[i] = DumpForm(table->columns[i], values[i]);
        }
      }
      WriteCsvRecord(out, fields);
    }
  } catch (const soci::soci_error& e) {
    *error = "cannot read " + table_name + ": " + Reason(e);
    return false;
  }
  out.flush();
  if (!out) {
    *error = "cannot write the dump of " + table_name;
    return false;
  }
  return true;
}

}  // namespace lk::store
