// How a delete rule runs: the statements it makes from its rule, the two
// dialects' ways of deferring and of forcing the foreign key checks, and how
// a failure becomes the RunContext's status. The rules themselves are in
// cascade_rules.cc.
//
// Statements are built from the rule's names and bound by position; they run
// on the session's SOCI connection as they are, inside the caller's
// transaction. Nothing here begins, commits or rolls back.
//
// Foreign keys: the schema declares them deferrable. A rule with dependent
// steps deletes its row before the steps delete the dependants, so it defers
// the checks to the end of the transaction (PostgreSQL: SET CONSTRAINTS ALL
// DEFERRED; SQLite: PRAGMA defer_foreign_keys, which lasts to the end of the
// transaction). Every other root rule has the references checked at once,
// so that the database's refusal reaches the caller through the status:
// PostgreSQL checks the outstanding deferred constraints when they are set
// IMMEDIATE (and they are set back to DEFERRED, the schema's initial mode,
// afterwards); SQLite cannot be made to check early, but it counts the
// outstanding violations, and a count that the delete raised from none is
// the refusal. A check now would also fail on a violation left by an earlier
// unfinished cascade of the same transaction (PostgreSQL) or could not see
// one (SQLite, whose count was not zero before); a REMOVE action block runs
// its cascade to the end before anything else, so neither occurs.
#include "store/cascade.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "frame/host_port.h"
#include "services/cp1252.h"
#include "store/cascade_rules.h"
#include "store/cascade_step.h"
#include "store/connection.h"
#include "store/soci.h"

#include <soci/sqlite3/soci-sqlite3.h>

namespace lk::store {

void SetCascadeRootFlag(RunContext* rc, char flag) {
  rc->cascade_flags[kCascadeRootFlag] = flag;
}

void SetAllCascadeFlags(RunContext* rc, char flag) {
  std::memset(rc->cascade_flags, flag, kCascadeFlagCount);
}

namespace cascade {

namespace {

// A failure with its status detail: "FE" a wrong call, "DB" the database.
class EntryFailure : public std::runtime_error {
 public:
  EntryFailure(const char* detail, const std::string& text)
      : std::runtime_error(text), detail_(detail) {}
  const char* detail() const { return detail_; }

 private:
  const char* detail_;
};

[[noreturn]] void WrongCall(const std::string& text) { throw EntryFailure("FE", text); }

std::string Hex(std::uint32_t number) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X", number);
  return text;
}

void Report(RunContext* rc, const char* detail, const std::string& text) {
  std::memcpy(rc->status, "FE", 3);
  std::memcpy(rc->status_detail, detail, 2);
  rc->status_detail[2] = '\0';
  if (rc->database_area != nullptr) {
    std::memset(rc->database_area, 0, kDatabaseAreaSize);
    std::memcpy(rc->database_area, text.data(),
                std::min<std::size_t>(text.size(), kDatabaseAreaSize - 1));
  }
}

// Runs `body`; whatever it throws becomes the RunContext's status.
template <typename Body>
void Guard(RunContext* rc, Body&& body) {
  try {
    body();
  } catch (const EntryFailure& e) {
    Report(rc, e.detail(), e.what());
  } catch (const soci::soci_error& e) {
    Report(rc, "DB", e.get_error_message());
  } catch (const std::exception& e) {
    Report(rc, "DB", e.what());
  }
}

const Connection& StoreOf(HandleA a) {
  const auto* port = static_cast<const SessionPort*>(a);
  const auto* connection = port == nullptr ? nullptr
                                           : static_cast<const Connection*>(port->store);
  if (connection == nullptr || connection->sql == nullptr) {
    WrongCall("cascade entry: the session has no database");
  }
  return *connection;
}

// A key text of a record as the statements store it: without trailing
// blanks, a blank one as one blank (a varchar column compares them, a fixed
// char column does not).
std::string TextOf(const char* field, std::size_t width) {
  std::size_t n = strnlen(field, width);
  while (n > 0 && field[n - 1] == ' ') --n;
  return n == 0 ? std::string(" ") : std::string(field, n);
}

KeyValue Number(double number) {
  KeyValue v;
  v.number = number;
  return v;
}

KeyValue Text(std::string text) {
  KeyValue v;
  v.is_text = true;
  v.text = std::move(text);
  return v;
}

std::vector<KeyValue> ReadKey(std::span<const KeyField> fields, const void* record) {
  const char* base = static_cast<const char*>(record);
  std::vector<KeyValue> values;
  for (const KeyField& f : fields) {
    if (f.kind == KeyKind::kNumber) {
      double number;
      std::memcpy(&number, base + f.offset, sizeof number);
      values.push_back(Number(number));
    } else {
      values.push_back(Text(TextOf(base + f.offset, f.width)));
    }
  }
  return values;
}

std::vector<KeyValue> ReadIsNumberKey(const IsNumberKey& key) {
  return {Number(key.is_number), Text(TextOf(key.org_id, sizeof key.org_id))};
}

// "A = :p0 AND B = :p1", the placeholders counted from `first`.
template <typename Columns>
std::string Equal(const Columns& columns, std::size_t first) {
  std::string text;
  for (const char* column : columns) {
    if (!text.empty()) text += " AND ";
    text += column;
    text += " = :p" + std::to_string(first++);
  }
  return text;
}

// "A = NULL, B = NULL".
std::string SetNull(std::span<const char* const> columns) {
  std::string text;
  for (const char* column : columns) {
    if (!text.empty()) text += ", ";
    text += column;
    text += " = NULL";
  }
  return text;
}

std::string List(std::span<const char* const> columns) {
  std::string text;
  for (const char* column : columns) {
    if (!text.empty()) text += ", ";
    text += column;
  }
  return text;
}

// Binds `values` in order. Key texts are code page 1252, as the records
// hold them; the database holds UTF-8.
void Bind(soci::statement& statement, std::vector<KeyValue>& values) {
  for (KeyValue& v : values) {
    if (v.is_text) {
      v.text = Cp1252ToUtf8(v.text);
      statement.exchange(soci::use(v.text));
    } else {
      statement.exchange(soci::use(v.number));
    }
  }
}

// Runs a statement that returns no rows; answers the rows it touched.
long long Execute(const Connection& c, const std::string& text, std::vector<KeyValue> values) {
  soci::statement statement(*c.sql);
  Bind(statement, values);
  statement.alloc();
  statement.prepare(text);
  statement.define_and_bind();
  statement.execute(true);
  return statement.get_affected_rows();
}

void Execute(const Connection& c, const char* text) { *c.sql << text; }

double NumberOf(const soci::row& row, std::size_t i) {
  switch (row.get_properties(i).get_data_type()) {
    case soci::dt_double:
      return row.get<double>(i);
    case soci::dt_integer:
      return row.get<int>(i);
    case soci::dt_long_long:
      return static_cast<double>(row.get<long long>(i));
    case soci::dt_unsigned_long_long:
      return static_cast<double>(row.get<unsigned long long>(i));
    case soci::dt_string:
      return std::stod(row.get<std::string>(i));
    default:
      throw std::runtime_error("cascade entry: a key column that is no number");
  }
}

// The dependants that `relationship` reaches from the row `key` of
// `root_table`, as IS number and ORG ID; a row of the root table itself is
// left out (a self reference dies with the row).
std::vector<std::vector<KeyValue>> Dependants(const Connection& c, const Relationship& rel,
                                              const char* root_table,
                                              std::span<const KeyField> root_key,
                                              const std::vector<KeyValue>& key) {
  std::vector<KeyValue> values = key;
  std::string text = "SELECT " + List(rel.key) + " FROM " + rel.table + " WHERE " +
                     Equal(rel.columns, 0);
  if (std::strcmp(rel.table, root_table) == 0) {
    std::vector<const char*> own;
    for (const KeyField& f : root_key) own.push_back(f.column);
    text += " AND NOT (" + Equal(own, values.size()) + ")";
    values.insert(values.end(), key.begin(), key.end());
  }
  text += " ORDER BY " + List(rel.key);

  soci::row row;
  soci::statement statement(*c.sql);
  statement.exchange(soci::into(row));
  Bind(statement, values);
  statement.alloc();
  statement.prepare(text);
  statement.define_and_bind();
  statement.execute(false);
  std::vector<std::vector<KeyValue>> found;
  while (statement.fetch()) {
    std::string org_id;
    std::string error;
    if (!Utf8ToCp1252(row.get<std::string>(1), &org_id, &error)) {
      throw EntryFailure("DB", std::string(rel.table) + ": " + error);
    }
    found.push_back({Number(NumberOf(row, 0)), Text(std::move(org_id))});
  }
  return found;
}

// Whether SQLite holds foreign key violations that wait for the commit.
bool SqliteViolationsWait(const Connection& c) {
  auto* backend = static_cast<soci::sqlite3_session_backend*>(c.sql->get_backend());
  int current = 0;
  int highwater = 0;
  if (sqlite_api::sqlite3_db_status(backend->conn_, SQLITE_DBSTATUS_DEFERRED_FKS, &current,
                                    &highwater, 0) != SQLITE_OK) {
    throw EntryFailure("DB", "cascade entry: the foreign key state cannot be read");
  }
  return current != 0;
}

void DeferChecks(const Connection& c) {
  Execute(c, c.dialect == Dialect::kPostgres ? "SET CONSTRAINTS ALL DEFERRED"
                                             : "PRAGMA defer_foreign_keys = ON");
}

// Has the database check the references now (see the top of this file).
// `waited_before` is SqliteViolationsWait from before the rule's statements.
void CheckNow(const Connection& c, bool waited_before) {
  if (c.dialect == Dialect::kPostgres) {
    Execute(c, "SET CONSTRAINTS ALL IMMEDIATE");
    Execute(c, "SET CONSTRAINTS ALL DEFERRED");
  } else if (!waited_before && SqliteViolationsWait(c)) {
    throw EntryFailure("DB", "FOREIGN KEY constraint failed");
  }
}

}  // namespace

void RunRoot(const RootRule& rule, HandleA a, RunContext* rc, CascadeRecord* record,
             const void* key, const std::uint32_t* token) {
  Guard(rc, [&] {
    StartPendingQueue(record, {}, {});
    if (token != nullptr && *token != 0) {
      WrongCall(std::string(rule.entry) + ": root entry called with token " + Hex(*token));
    }
    if (rc->cascade_flags[kCascadeRootFlag] != 'Y') {
      WrongCall(std::string(rule.entry) + ": root entry called as a dependent step");
    }
    if (key == nullptr) WrongCall(std::string(rule.entry) + ": no key record");
    const Connection& c = StoreOf(a);
    BeforeWrites(c);
    const std::vector<KeyValue> values = ReadKey(rule.key, key);
    const bool steps = !rule.steps.empty();
    const bool waited_before = !steps && c.dialect == Dialect::kSqlite && SqliteViolationsWait(c);
    if (steps) DeferChecks(c);

    for (const Referrer& ref : rule.referrers) {
      if (ref.fate == Fate::kCut) {
        Execute(c, std::string("UPDATE ") + ref.table + " SET " + SetNull(ref.columns) +
                       " WHERE " + Equal(ref.columns, 0),
                values);
      } else if (ref.fate == Fate::kDelete) {
        Execute(c, std::string("DELETE FROM ") + ref.table + " WHERE " + Equal(ref.columns, 0),
                values);
      }
    }

    std::vector<PendingRow> pending;
    for (const StepRule* step : rule.steps) {
      for (const Relationship& rel : step->relationships) {
        if (rel.table == nullptr) continue;
        for (auto& dependant : Dependants(c, rel, rule.table, rule.key, values)) {
          pending.push_back({step->rule, rel.number, std::move(dependant)});
        }
      }
    }

    std::vector<const char*> own;
    for (const KeyField& f : rule.key) own.push_back(f.column);
    Execute(c, std::string("DELETE FROM ") + rule.table + " WHERE " + Equal(own, 0), values);
    if (!steps) CheckNow(c, waited_before);
    StartPendingQueue(record, values, std::move(pending));
  });
}

void RunStep(const StepRule& rule, HandleA a, RunContext* rc, const CascadeRecord* record,
             const void* key, const std::uint32_t* token) {
  Guard(rc, [&] {
    if (rc->cascade_flags[kCascadeRootFlag] != 'N') {
      WrongCall(std::string(rule.entry) + ": dependent step called as a root");
    }
    if (token == nullptr || key == nullptr) {
      WrongCall(std::string(rule.entry) + ": no token or no key record");
    }
    const Relationship* rel = nullptr;
    for (const Relationship& r : rule.relationships) {
      if (r.number == *token) rel = &r;
    }
    if (rel == nullptr) {
      WrongCall(std::string(rule.entry) + ": relationship " + Hex(*token) +
                " is not of rule " + Hex(rule.rule));
    }
    if (rel->table == nullptr) {
      WrongCall(std::string(rule.entry) + ": relationship " + Hex(*token) +
                " reaches no table of this schema");
    }
    const std::vector<KeyValue>* root = CascadeRootKey(record);
    if (root == nullptr || root->size() != rel->columns.size()) {
      WrongCall(std::string(rule.entry) + ": no cascade of rule " + Hex(rule.rule) +
                " is under way for this record");
    }
    const Connection& c = StoreOf(a);
    std::vector<KeyValue> values = ReadIsNumberKey(*static_cast<const IsNumberKey*>(key));
    values.insert(values.end(), root->begin(), root->end());
    const std::string where =
        " WHERE " + Equal(rel->key, 0) + " AND " + Equal(rel->columns, rel->key.size());
    if (rel->fate == Fate::kCut) {
      Execute(c, std::string("UPDATE ") + rel->table + " SET " + SetNull(rel->columns) + where,
              std::move(values));
    } else {
      Execute(c, std::string("DELETE FROM ") + rel->table + where, std::move(values));
    }
  });
}

void RunDisassociation(HandleA a, RunContext* rc, const ProcedureLinkRecord* procedure,
                       const IsNumberKey* equipment) {
  Guard(rc, [&] {
    if (std::memcmp(rc->cascade_flags, "YYYYY", kCascadeFlagCount) != 0) {
      WrongCall("F3020987: the cascade flags are not all 'Y'");
    }
    if (procedure == nullptr || equipment == nullptr) WrongCall("F3020987: no key record");
    const Connection& c = StoreOf(a);
    Execute(c,
            "UPDATE TSRANLPR SET TSRANLEQ_IS_NUMBER = NULL, TSRANLEQ_ORG_ID = NULL"
            " WHERE TSRANLPR_IS_NUMBER = :p0 AND TSRANLPR_ORG_ID = :p1"
            " AND TSRANLEQ_IS_NUMBER = :p2 AND TSRANLEQ_ORG_ID = :p3",
            {Number(procedure->tsranlpr_is_number),
             Text(TextOf(procedure->tsranlpr_org_id, sizeof procedure->tsranlpr_org_id)),
             Number(equipment->is_number),
             Text(TextOf(equipment->org_id, sizeof equipment->org_id))});
  });
}

}  // namespace cascade

}  // namespace lk::store
