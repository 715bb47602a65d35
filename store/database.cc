// The host's database connection: transactions, reconnection, logins.
#include "store/database.h"

#include <utility>

#include "store/soci.h"
#include "store/url.h"

// After store/soci.h, which settles SOCI's configuration first.
#include <soci/postgresql/soci-postgresql.h>

namespace lk::store {

namespace {

// The libpq connection under a SOCI session of the PostgreSQL backend, or
// null when the session is closed.
PGconn* PgConnection(soci::session& sql) {
  auto* backend = static_cast<soci::postgresql_session_backend*>(sql.get_backend());
  return backend != nullptr ? backend->conn_ : nullptr;
}

}  // namespace

std::unique_ptr<Database> Database::Open(const std::string& url, std::string* error) {
  Dialect dialect = Dialect::kSqlite;
  std::unique_ptr<soci::session> sql;
  try {
    sql = OpenSession(url, &dialect);
  } catch (const std::exception& e) {
    if (error != nullptr) *error = e.what();
    return nullptr;
  }
  if (sql == nullptr) {
    if (error != nullptr) *error = "cannot open the database " + url;
    return nullptr;
  }
  return std::unique_ptr<Database>(new Database(url, std::move(sql), dialect));
}

Database::Database(std::string url, std::unique_ptr<soci::session> sql, Dialect dialect)
    : url_(std::move(url)), sql_(std::move(sql)), connection_{sql_.get(), dialect} {
  KeepReads();
}

void Database::KeepReads() {
  native_.reset();
  connection_.native = nullptr;
  native_ = NativeReads::Make(sql_.get(), connection_.dialect);
  connection_.native = native_.get();
}

Database::~Database() { Rollback(); }

bool Database::Broken() {
  if (sql_->get_backend() == nullptr) return true;
  if (connection_.dialect != Dialect::kPostgres) return false;
  PGconn* conn = PgConnection(*sql_);
  return conn == nullptr || PQstatus(conn) != CONNECTION_OK;
}

bool Database::TryBegin(std::string* error) {
  try {
    if (connection_.dialect == Dialect::kSqlite) {
      // IMMEDIATE takes the write lock now: a second writer waits here, as a
      // read for update waits for a row lock. References are checked at
      // commit, so that the statements of one event may write rows in any
      // order that ends whole: BeforeWrites defers them before the first
      // write, to the end of this transaction.
      *sql_ << "BEGIN IMMEDIATE";
      in_transaction_ = true;
      connection_.defer_pending = true;
    } else {
      *sql_ << "BEGIN";
      in_transaction_ = true;
    }
    return true;
  } catch (const std::exception& e) {
    if (error != nullptr) *error = e.what();
    if (in_transaction_) Rollback();
    return false;
  }
}

bool Database::Reconnect(std::string* error) {
  Dialect dialect = connection_.dialect;
  std::unique_ptr<soci::session> sql;
  try {
    sql = OpenSession(url_, &dialect);
  } catch (const std::exception& e) {
    if (error != nullptr) *error = e.what();
    return false;
  }
  if (sql == nullptr) {
    if (error != nullptr) *error = "cannot open the database " + url_;
    return false;
  }
  // The old session's kept reads go before the old session does.
  native_.reset();
  connection_.native = nullptr;
  sql_ = std::move(sql);
  connection_.sql = sql_.get();
  connection_.dialect = dialect;
  KeepReads();
  lost_ = false;
  ++reconnections_;
  return true;
}

bool Database::Begin(std::string* error) {
  if (in_transaction_) Rollback();
  if (!lost_ && Broken()) lost_ = true;
  std::string why;
  if (!lost_ && TryBegin(&why)) return true;
  // The connection may have been dropped since the last event, and only
  // BEGIN found out: make a new one, and begin there.
  std::string reconnect_why;
  if (Reconnect(&reconnect_why)) {
    if (TryBegin(&why)) return true;
  } else {
    why = reconnect_why;
  }
  // No statement may run outside a transaction: close the session until the
  // next Begin brings a new one (its kept reads first).
  native_.reset();
  connection_.native = nullptr;
  try {
    sql_->close();
  } catch (const std::exception&) {
  }
  lost_ = true;
  if (error != nullptr) *error = why;
  return false;
}

bool Database::Commit(std::string* error) {
  if (!in_transaction_) {
    if (error != nullptr) *error = "no transaction is open";
    return false;
  }
  if (connection_.dialect == Dialect::kPostgres) {
    // COMMIT of an aborted transaction rolls back and reports success: tell
    // it here.
    PGconn* conn = PgConnection(*sql_);
    if (conn != nullptr && PQtransactionStatus(conn) == PQTRANS_INERROR) {
      if (error != nullptr)
        *error = std::string("the transaction was aborted by an earlier error and is rolled "
                             "back: ") + PQerrorMessage(conn);
      Rollback();
      return false;
    }
  }
  try {
    *sql_ << "COMMIT";
    in_transaction_ = false;
    connection_.defer_pending = false;
    return true;
  } catch (const std::exception& e) {
    if (error != nullptr) *error = e.what();
    // SQLite keeps the transaction open after a refused commit (a reference
    // checked at commit); PostgreSQL has ended it. Either way nothing stays.
    Rollback();
    if (Broken()) lost_ = true;
    in_transaction_ = false;
    return false;
  }
}

void Database::Rollback() {
  if (!in_transaction_) return;
  in_transaction_ = false;
  connection_.defer_pending = false;
  if (connection_.dialect == Dialect::kPostgres && sql_->get_backend() != nullptr) {
    // A failed COMMIT has already ended the transaction.
    PGconn* conn = PgConnection(*sql_);
    if (conn != nullptr && PQstatus(conn) == CONNECTION_OK &&
        PQtransactionStatus(conn) == PQTRANS_IDLE)
      return;
  }
  try {
    *sql_ << "ROLLBACK";
  } catch (const std::exception&) {
    // A dead connection has nothing left to undo; the next Begin makes a
    // new one. Any other refusal leaves the connection in doubt, and it is
    // renewed all the same.
    lost_ = true;
  }
}

namespace {

std::string PercentEncoded(const std::string& text) {
  static const char kHex[] = "0123456789ABCDEF";
  std::string out;
  for (unsigned char c : text) {
    if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' ||
        c == '.' || c == '_' || c == '~') {
      out.push_back(static_cast<char>(c));
    } else {
      out.push_back('%');
      out.push_back(kHex[c >> 4]);
      out.push_back(kHex[c & 0xF]);
    }
  }
  return out;
}

// A value of a keyword/value connection string: quoted, with backslash
// before quote and backslash.
std::string Quoted(const std::string& text) {
  std::string out = "'";
  for (char c : text) {
    if (c == '\'' || c == '\\') out.push_back('\\');
    out.push_back(c);
  }
  out.push_back('\'');
  return out;
}

bool StartsWith(const std::string& text, const char* prefix) {
  return text.rfind(prefix, 0) == 0;
}

}  // namespace

std::string WithCredentials(const std::string& url, const std::string& user,
                            const std::string& password) {
  if (StartsWith(url, "sqlite:")) return url;
  for (const char* scheme : {"postgresql://", "postgres://"}) {
    if (!StartsWith(url, scheme)) continue;
    const std::size_t start = std::string(scheme).size();
    std::size_t end = url.find_first_of("/?", start);
    if (end == std::string::npos) end = url.size();
    std::string authority = url.substr(start, end - start);
    const std::size_t at = authority.rfind('@');
    if (at != std::string::npos) authority = authority.substr(at + 1);
    std::string rest = url.substr(end);
    // Drop user and password parameters of the query: they would win.
    const std::size_t q = rest.find('?');
    if (q != std::string::npos) {
      std::string kept;
      std::size_t p = q + 1;
      while (p <= rest.size()) {
        std::size_t amp = rest.find('&', p);
        if (amp == std::string::npos) amp = rest.size();
        const std::string param = rest.substr(p, amp - p);
        if (!param.empty() && !StartsWith(param, "user=") && !StartsWith(param, "password=")) {
          kept += kept.empty() ? "" : "&";
          kept += param;
        }
        p = amp + 1;
      }
      rest = rest.substr(0, q) + (kept.empty() ? "" : "?" + kept);
    }
    return scheme + PercentEncoded(user) + ":" + PercentEncoded(password) + "@" + authority + rest;
  }
  // A keyword/value string, with or without the backend's name in front:
  // the last setting of a keyword is the one that counts.
  std::string conninfo = url;
  while (!conninfo.empty() && conninfo.back() == ' ') conninfo.pop_back();
  return conninfo + (conninfo.empty() || conninfo.back() == ':' ? "" : " ") + "user=" +
         Quoted(user) + " password=" + Quoted(password);
}

}  // namespace lk::store
