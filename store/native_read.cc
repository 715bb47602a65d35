// The read side of the statement frame on SQLite's and libpq's C APIs.
//
// A statement is prepared the first time a connection runs it and kept by
// its StatementDef, which is constant data of its action block. A kept
// SQLite statement in use by an open cursor is not shared: a second open of
// the same statement prepares one of its own for the while.
#include "store/native_read.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "services/cp1252.h"
#include "services/text.h"
#include "store/host_values.h"
#include "store/soci.h"

#include <soci/postgresql/soci-postgresql.h>
#include <soci/sqlite3/soci-sqlite3.h>

namespace lk::store {

using namespace internal;  // NOLINT: the frame's own value helpers

namespace {

constexpr int kSqliteConstraintPrimaryKey = 1555;
constexpr int kSqliteConstraintUnique = 2067;

// One output column as the backend gives it.
struct Value {
  bool null = false;
  const char* text = nullptr;  // texts and dates; every value from PostgreSQL
  std::size_t length = 0;
  double number = 0;  // numbers from SQLite
  bool has_number = false;
};

bool Ascii(const char* text, std::size_t length) {
  for (std::size_t i = 0; i < length; ++i)
    if (static_cast<unsigned char>(text[i]) >= 0x80) return false;
  return true;
}

// Moves one fetched row, its columns in `values`, into `record`: first
// every check (a NULL where the column allows none, a text outside code
// page 1252), then the values, so that a refused row leaves the record as
// it was. A text of plain ASCII, the common case, goes straight from the
// backend's buffer into the record; others through `texts`.
int StoreRow(const StatementDef& s, Value* values, std::vector<std::string>& texts, char* record,
             SqlArea* area) {
  const std::size_t n = s.outputs.size();
  if (texts.size() < n) texts.resize(n);
  for (std::size_t i = 0; i < n; ++i) {
    const HostColumn& c = s.outputs[i];
    Value& v = values[i];
    if (v.null) {
      if ((c.flags & kNullable) == 0) {
        PutArea(area, kSqlNullFetched, "", std::string("fetched column value is NULL: ") + c.name);
        return area->sqlcode;
      }
      continue;
    }
    if ((c.type == HostType::kChar || c.type == HostType::kVarchar) &&
        !Ascii(v.text, v.length)) {
      std::string why;
      if (!ToCp1252(v.text, v.length, &texts[i], &why)) {
        PutArea(area, kSqlNotInCodePage, "", std::string(c.name) + ": " + why);
        return area->sqlcode;
      }
      v.text = texts[i].c_str();
      v.length = texts[i].size();
    }
  }
  for (std::size_t i = 0; i < n; ++i) {
    const HostColumn& c = s.outputs[i];
    const Value& v = values[i];
    char* at = record + c.place.offset;
    const std::size_t size = c.place.size;
    switch (c.type) {
      case HostType::kChar:
      case HostType::kVarchar: {
        // A fixed text blank padded to its size less the NUL; a varying
        // text likewise when NULL, else at most size - 1 characters and a
        // NUL, as the bounded copy leaves it.
        if (v.null || c.type == HostType::kChar) {
          const std::size_t k = v.null ? 0 : std::min(v.length, size - 1);
          if (k > 0) std::memcpy(at, v.text, k);
          std::memset(at + k, ' ', size - 1 - k);
          at[size - 1] = '\0';
        } else {
          const std::size_t k = strnlen(v.text, size - 1);
          std::memcpy(at, v.text, k);
          std::memset(at + k, '\0', size - k);
        }
        break;
      }
      case HostType::kNumber: {
        double number = 0;
        if (!v.null) number = v.has_number ? v.number : std::strtod(v.text, nullptr);
        std::memcpy(at, &number, sizeof number);
        break;
      }
      case HostType::kSmall: {
        long small = 0;
        if (!v.null)
          small = v.has_number ? static_cast<long>(v.number) : std::strtol(v.text, nullptr, 10);
        PutSmall(c, at, static_cast<std::int16_t>(small));
        break;
      }
      case HostType::kDate:
        if (v.null || !PutDateText(v.text, v.length, at))
          std::memcpy(at, kEmptyTimestamp, sizeof kEmptyTimestamp);
        break;
    }
  }
  return kSqlOk;
}

// The text of input `c` of `in` as it goes to the database (UTF-8), or
// false for NULL.
bool InputText(const HostColumn& c, const char* in, std::string* out) {
  const char* at = in + c.place.offset;
  if ((c.flags & kWriteNull) != 0) return false;
  switch (c.type) {
    case HostType::kChar:
    case HostType::kVarchar:
      *out = Cp1252ToUtf8(TextToWrite(c, at));
      break;
    case HostType::kNumber: {
      double v;
      std::memcpy(&v, at, sizeof v);
      char text[40];
      std::snprintf(text, sizeof text, "%.17g", v);
      *out = text;
      break;
    }
    case HostType::kSmall:
      *out = std::to_string(GetSmall(c, at));
      break;
    case HostType::kDate:
      *out = DateToWrite(at);
      break;
  }
  return true;
}

const HostColumn* FindInput(const StatementDef& s, const char* name) {
  for (const HostColumn& c : s.inputs)
    if (std::strcmp(name, c.name) == 0) return &c;
  return nullptr;
}

bool IdentifierChar(char c, bool first) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         (!first && c >= '0' && c <= '9');
}

// ---- SQLite ----

namespace lite = sqlite_api;

int SqliteFailure(lite::sqlite3* db, SqlArea* area) {
  const int code = lite::sqlite3_extended_errcode(db);
  const bool unique = code == kSqliteConstraintUnique || code == kSqliteConstraintPrimaryKey;
  PutArea(area, unique ? kSqlUnique : kSqlFailed, std::to_string(code),
          FirstLine(lite::sqlite3_errmsg(db)));
  return area->sqlcode;
}

class SqliteReads final : public NativeReads {
 public:
  explicit SqliteReads(lite::sqlite3* db) : db_(db) {}
  ~SqliteReads() override {
    for (auto& [def, kept] : kept_) lite::sqlite3_finalize(kept.stmt);
  }

  int SelectInto(const StatementDef& s, const void* in, void* out, SqlArea* area) override {
    Statement* st = Take(s, area);
    if (st == nullptr) return area->sqlcode;
    int code = Bind(st, s, in, area);
    if (code == kSqlOk) {
      const int rc = lite::sqlite3_step(st->stmt);
      if (rc == SQLITE_ROW) {
        area->rows = 1;
        code = Store(st, s, out, area);
      } else if (rc == SQLITE_DONE) {
        code = area->sqlcode = kSqlNotFound;
      } else {
        code = SqliteFailure(db_, area);
      }
    }
    Give(st);
    return code;
  }

  std::unique_ptr<Rows> Open(const StatementDef& s, const void* in, SqlArea* area) override {
    Statement* st = Take(s, area);
    if (st == nullptr) return nullptr;
    if (Bind(st, s, in, area) != kSqlOk) {
      Give(st);
      return nullptr;
    }
    area->sqlcode = kSqlOk;
    return std::make_unique<Cursor>(this, st, s);
  }

 private:
  // What one parameter of a kept statement holds now.
  struct Bound {
    enum Kind { kNone, kNull, kNumber, kSmall, kText } kind = kNone;
    double number = 0;
    int small = 0;
    std::string text;
  };

  // A prepared statement, its bound values and its scratch room.
  struct Statement {
    lite::sqlite3_stmt* stmt = nullptr;
    std::vector<std::pair<int, const HostColumn*>> params;  // index, input
    std::vector<Bound> bound;
    std::string scratch;
    std::vector<std::string> texts;
    std::vector<Value> values;
    bool busy = false;
    bool kept = false;
  };

  class Cursor final : public Rows {
   public:
    Cursor(SqliteReads* owner, Statement* st, const StatementDef& s)
        : owner_(owner), st_(st), s_(s) {}
    ~Cursor() override { owner_->Give(st_); }
    int Fetch(void* out, SqlArea* area) override {
      const int rc = lite::sqlite3_step(st_->stmt);
      if (rc == SQLITE_DONE) return area->sqlcode = kSqlNotFound;
      if (rc != SQLITE_ROW) return SqliteFailure(owner_->db_, area);
      return owner_->Store(st_, s_, out, area);
    }

   private:
    SqliteReads* owner_;
    Statement* st_;
    const StatementDef& s_;
  };

  // The kept statement of `s`, prepared on its first use; a fresh one while
  // the kept one is busy. Null with the area filled when it cannot prepare.
  Statement* Take(const StatementDef& s, SqlArea* area) {
    auto found = kept_.find(&s);
    if (found != kept_.end() && !found->second.busy) {
      found->second.busy = true;
      return &found->second;
    }
    Statement fresh;
    if (lite::sqlite3_prepare_v3(db_, s.text, -1, SQLITE_PREPARE_PERSISTENT, &fresh.stmt,
                                 nullptr) != SQLITE_OK) {
      SqliteFailure(db_, area);
      lite::sqlite3_finalize(fresh.stmt);
      return nullptr;
    }
    const int n = lite::sqlite3_bind_parameter_count(fresh.stmt);
    for (int k = 1; k <= n; ++k) {
      const char* name = lite::sqlite3_bind_parameter_name(fresh.stmt, k);
      const HostColumn* c = name != nullptr ? FindInput(s, name + 1) : nullptr;
      if (c == nullptr) {
        PutArea(area, kSqlFailed, "", std::string("no host variable for ") + (name ? name : "?"));
        lite::sqlite3_finalize(fresh.stmt);
        return nullptr;
      }
      fresh.params.emplace_back(k, c);
    }
    fresh.bound.resize(fresh.params.size());
    fresh.busy = true;
    if (found == kept_.end()) {
      fresh.kept = true;
      Statement& st = kept_[&s];
      st = std::move(fresh);
      return &st;
    }
    return new Statement(std::move(fresh));
  }

  void Give(Statement* st) {
    lite::sqlite3_reset(st->stmt);
    st->busy = false;
    if (!st->kept) {
      lite::sqlite3_finalize(st->stmt);
      delete st;
    }
  }

  // Binds the inputs of `in`. A parameter whose value is the one it holds
  // from the statement's last run is left as it is: binding anew would make
  // SQLite plan the statement again for values it has already planned for.
  int Bind(Statement* st, const StatementDef& s, const void* in, SqlArea* area) {
    (void)s;
    const char* record = static_cast<const char*>(in);
    for (std::size_t i = 0; i < st->params.size(); ++i) {
      const auto& [index, c] = st->params[i];
      const char* at = record + c->place.offset;
      Bound& b = st->bound[i];
      int rc = SQLITE_OK;
      if ((c->flags & kWriteNull) != 0) {
        if (b.kind == Bound::kNull) continue;
        b.kind = Bound::kNull;
        rc = lite::sqlite3_bind_null(st->stmt, index);
      } else if (c->type == HostType::kNumber) {
        double v;
        std::memcpy(&v, at, sizeof v);
        if (b.kind == Bound::kNumber && std::memcmp(&b.number, &v, sizeof v) == 0) continue;
        b.kind = Bound::kNumber;
        b.number = v;
        rc = lite::sqlite3_bind_double(st->stmt, index, v);
      } else if (c->type == HostType::kSmall) {
        const int v = GetSmall(*c, at);
        if (b.kind == Bound::kSmall && b.small == v) continue;
        b.kind = Bound::kSmall;
        b.small = v;
        rc = lite::sqlite3_bind_int(st->stmt, index, v);
      } else {
        InputText(*c, record, &st->scratch);
        if (b.kind == Bound::kText && b.text == st->scratch) continue;
        b.kind = Bound::kText;
        b.text.swap(st->scratch);
        rc = lite::sqlite3_bind_text(st->stmt, index, b.text.data(),
                                     static_cast<int>(b.text.size()), SQLITE_STATIC);
      }
      if (rc != SQLITE_OK) {
        b.kind = Bound::kNone;
        return SqliteFailure(db_, area);
      }
    }
    return kSqlOk;
  }

  // Takes each column as the statement's own value: one call that holds
  // the connection's mutex per column, and the value's type, number or text
  // read from it without. The connection is used by one thread at a time,
  // so nothing changes the value meanwhile.
  int Store(Statement* st, const StatementDef& s, void* out, SqlArea* area) {
    lite::sqlite3_stmt* stmt = st->stmt;
    const int n = static_cast<int>(s.outputs.size());
    if (static_cast<int>(st->values.size()) < n) st->values.resize(n);
    for (int i = 0; i < n; ++i) {
      Value& v = st->values[i];
      v = Value{};
      lite::sqlite3_value* value = lite::sqlite3_column_value(stmt, i);
      switch (lite::sqlite3_value_type(value)) {
        case SQLITE_NULL:
          v.null = true;
          break;
        case SQLITE_INTEGER:
        case SQLITE_FLOAT:
          if (s.outputs[i].type == HostType::kNumber || s.outputs[i].type == HostType::kSmall) {
            v.number = lite::sqlite3_value_double(value);
            v.has_number = true;
            break;
          }
          [[fallthrough]];
        default:
          v.text = reinterpret_cast<const char*>(lite::sqlite3_value_text(value));
          v.length = static_cast<std::size_t>(lite::sqlite3_value_bytes(value));
          if (v.text == nullptr) v.text = "";
          break;
      }
    }
    return StoreRow(s, st->values.data(), st->texts, static_cast<char*>(out), area);
  }

  lite::sqlite3* db_;
  std::map<const StatementDef*, Statement> kept_;
};

// ---- PostgreSQL ----

int PgFailure(PGconn* conn, const PGresult* result, SqlArea* area) {
  const char* state = result != nullptr ? PQresultErrorField(result, PG_DIAG_SQLSTATE) : nullptr;
  const char* primary =
      result != nullptr ? PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY) : nullptr;
  std::string message = primary != nullptr ? primary : PQerrorMessage(conn);
  const std::string code = state != nullptr ? state : "";
  PutArea(area, code == "23505" ? kSqlUnique : kSqlFailed, code, FirstLine(message));
  return area->sqlcode;
}

class PgReads final : public NativeReads {
 public:
  // A kept statement is planned anew for its values at each run, as a
  // statement prepared for one run is: a generic plan may read a keyset
  // page of a big table through a worse path.
  explicit PgReads(PGconn* conn) : conn_(conn) {
    PQclear(PQexec(conn_, "SET plan_cache_mode = force_custom_plan"));
  }

  int SelectInto(const StatementDef& s, const void* in, void* out, SqlArea* area) override {
    PGresult* result = Run(s, in, area);
    if (result == nullptr) return area->sqlcode;
    int code = kSqlNotFound;
    if (PQntuples(result) > 0) {
      area->rows = 1;
      code = Store(result, 0, s, out, area);
    } else {
      area->sqlcode = kSqlNotFound;
    }
    PQclear(result);
    return code;
  }

  std::unique_ptr<Rows> Open(const StatementDef& s, const void* in, SqlArea* area) override {
    PGresult* result = Run(s, in, area);
    if (result == nullptr) return nullptr;
    area->sqlcode = kSqlOk;
    return std::make_unique<Cursor>(this, result, s);
  }

 private:
  struct Statement {
    std::string name;
    std::vector<const HostColumn*> params;  // $1, $2, ... in order
  };

  class Cursor final : public Rows {
   public:
    Cursor(PgReads* owner, PGresult* result, const StatementDef& s)
        : owner_(owner), result_(result), s_(s), rows_(PQntuples(result)) {}
    ~Cursor() override { PQclear(result_); }
    int Fetch(void* out, SqlArea* area) override {
      if (next_ >= rows_) return area->sqlcode = kSqlNotFound;
      return owner_->Store(result_, next_++, s_, out, area);
    }

   private:
    PgReads* owner_;
    PGresult* result_;
    const StatementDef& s_;
    int rows_;
    int next_ = 0;
  };

  // The kept statement of `s`: the text with its :names renumbered $1, $2,
  // ... one per distinct name, prepared on the server on its first use.
  Statement* Prepare(const StatementDef& s, SqlArea* area) {
    auto found = kept_.find(&s);
    if (found != kept_.end()) return &found->second;
    Statement st;
    std::string text;
    std::vector<std::string> names;
    const std::string source = s.text;
    char quote = 0;
    for (std::size_t i = 0; i < source.size(); ++i) {
      const char c = source[i];
      if (quote != 0) {
        text.push_back(c);
        if (c == quote) quote = 0;
        continue;
      }
      if (c == '\'' || c == '"') {
        quote = c;
        text.push_back(c);
        continue;
      }
      if (c == ':' && i + 1 < source.size() && source[i + 1] == ':') {
        text.append("::");
        ++i;
        continue;
      }
      if (c == ':' && i + 1 < source.size() && IdentifierChar(source[i + 1], true)) {
        std::size_t end = i + 1;
        while (end < source.size() && IdentifierChar(source[end], false)) ++end;
        const std::string name = source.substr(i + 1, end - i - 1);
        std::size_t n = 0;
        while (n < names.size() && names[n] != name) ++n;
        if (n == names.size()) {
          const HostColumn* input = FindInput(s, name.c_str());
          if (input == nullptr) {
            PutArea(area, kSqlFailed, "", "no host variable for :" + name);
            return nullptr;
          }
          names.push_back(name);
          st.params.push_back(input);
        }
        text += "$" + std::to_string(n + 1);
        i = end - 1;
        continue;
      }
      text.push_back(c);
    }
    st.name = "lk_read_" + std::to_string(kept_.size() + 1);
    PGresult* result = PQprepare(conn_, st.name.c_str(), text.c_str(),
                                 static_cast<int>(st.params.size()), nullptr);
    if (result == nullptr || PQresultStatus(result) != PGRES_COMMAND_OK) {
      PgFailure(conn_, result, area);
      PQclear(result);
      return nullptr;
    }
    PQclear(result);
    return &(kept_[&s] = std::move(st));
  }

  // Runs `s` with the inputs of `in`: its whole answer, or null with the
  // area filled.
  PGresult* Run(const StatementDef& s, const void* in, SqlArea* area) {
    Statement* st = Prepare(s, area);
    if (st == nullptr) return nullptr;
    const char* record = static_cast<const char*>(in);
    bound_.resize(st->params.size());
    values_.resize(st->params.size());
    for (std::size_t i = 0; i < st->params.size(); ++i)
      values_[i] = InputText(*st->params[i], record, &bound_[i]) ? bound_[i].c_str() : nullptr;
    PGresult* result =
        PQexecPrepared(conn_, st->name.c_str(), static_cast<int>(values_.size()), values_.data(),
                       nullptr, nullptr, 0);
    if (result == nullptr || PQresultStatus(result) != PGRES_TUPLES_OK) {
      PgFailure(conn_, result, area);
      PQclear(result);
      return nullptr;
    }
    return result;
  }

  int Store(const PGresult* result, int row, const StatementDef& s, void* out, SqlArea* area) {
    const int n = static_cast<int>(s.outputs.size());
    if (static_cast<int>(values_out_.size()) < n) values_out_.resize(n);
    for (int i = 0; i < n; ++i) {
      Value& v = values_out_[i];
      v = Value{};
      if (PQgetisnull(result, row, i)) {
        v.null = true;
      } else {
        v.text = PQgetvalue(result, row, i);
        v.length = static_cast<std::size_t>(PQgetlength(result, row, i));
      }
    }
    return StoreRow(s, values_out_.data(), texts_, static_cast<char*>(out), area);
  }

  PGconn* conn_;
  std::map<const StatementDef*, Statement> kept_;
  std::vector<std::string> bound_;
  std::vector<const char*> values_;
  std::vector<std::string> texts_;
  std::vector<Value> values_out_;
};

}  // namespace

std::unique_ptr<NativeReads> NativeReads::Make(soci::session* sql, Dialect dialect) {
  if (sql == nullptr || sql->get_backend() == nullptr) return nullptr;
  if (dialect == Dialect::kSqlite) {
    auto* backend = static_cast<soci::sqlite3_session_backend*>(sql->get_backend());
    if (backend->conn_ == nullptr) return nullptr;
    return std::make_unique<SqliteReads>(backend->conn_);
  }
  auto* backend = static_cast<soci::postgresql_session_backend*>(sql->get_backend());
  if (backend->conn_ == nullptr) return nullptr;
  return std::make_unique<PgReads>(backend->conn_);
}

}  // namespace lk::store
