// The host's database connection of one session: the SOCI session behind a
// Connection whose address stays put, one transaction per event, and a new
// connection after the database has dropped the old one.
//
// Transactions: Begin starts one (SQLite: BEGIN IMMEDIATE, so that writers
// serialise and a read for update waits as a row lock would, with foreign
// keys checked at commit; PostgreSQL: BEGIN), Commit ends it keeping its
// work, Rollback ends it undoing its work. Rollback never fails: on a dead
// connection it only notes that the connection is lost.
//
// Reconnection: when the connection is known to be lost (a rollback or
// commit failed on it, or libpq says so), or when BEGIN fails, Begin opens a
// new connection with the same URL and begins there. Connection::sql then
// points at the new SOCI session; the Connection itself stays where it was,
// so SessionPort.store keeps pointing at it. The session is replaced only in
// Begin, between events, never while a unit runs.
//
// When Begin cannot begin (the database is gone), it answers false with the
// reason and the SOCI session is left closed, so that a statement run anyway
// fails rather than run outside a transaction. The next Begin tries again.
//
// Thread safety: none; a Database belongs to one session, and is used by one
// thread at a time.
#ifndef WATRIX_STORE_DATABASE_H_
#define WATRIX_STORE_DATABASE_H_

#include <memory>
#include <string>

#include "store/connection.h"
#include "store/native_read.h"

namespace lk::store {

class Database {
 public:
  // Connects to `url` ("sqlite:PATH", "postgresql://..."). Answers null and
  // the database's reason in *error when it cannot.
  static std::unique_ptr<Database> Open(const std::string& url, std::string* error);

  // Rolls back a transaction still open.
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // What the module's statements use; valid as long as this Database.
  Connection* connection() { return &connection_; }
  Dialect dialect() const { return connection_.dialect; }
  const std::string& url() const { return url_; }

  // Starts a transaction, reconnecting first where needed. Answers false
  // with the reason in *error (may be null) when none could be started.
  // REQUIRES: no transaction open.
  bool Begin(std::string* error);

  // Commits the open transaction. Answers false with the reason when the
  // work did not stand (the commit failed, or on PostgreSQL an earlier
  // error had already aborted the transaction); the transaction is then
  // rolled back. Without an open transaction: false.
  bool Commit(std::string* error);

  // Undoes the open transaction, if any. Never throws.
  void Rollback();

  bool in_transaction() const { return in_transaction_; }
  // Whether the next Begin will make a new connection first.
  bool lost() const { return lost_; }
  // How many new connections Begin has made.
  int reconnections() const { return reconnections_; }

 private:
  Database(std::string url, std::unique_ptr<soci::session> sql, Dialect dialect);
  // Whether libpq knows the connection to be broken (or the session is
  // closed). No round trip to the server.
  bool Broken();
  bool TryBegin(std::string* error);
  bool Reconnect(std::string* error);

  // Makes the kept reads of the session there is now (after the old ones,
  // which belong to the session before, are gone).
  void KeepReads();

  std::string url_;
  std::unique_ptr<soci::session> sql_;
  // Destroyed before sql_: its statements belong to that session.
  std::unique_ptr<NativeReads> native_;
  Connection connection_;
  bool in_transaction_ = false;
  bool lost_ = false;
  int reconnections_ = 0;
};

// `url` with the user and password of a login in place of its own, for
// sessions opened with the user's database credentials. PostgreSQL URIs get
// them percent-encoded in the authority (a user or password parameter of the
// query goes); keyword/value strings get user and password keywords at the
// end, which take precedence. An SQLite URL has no logins and stays as it
// is.
std::string WithCredentials(const std::string& url, const std::string& user,
                            const std::string& password);

}  // namespace lk::store

#endif  // WATRIX_STORE_DATABASE_H_
