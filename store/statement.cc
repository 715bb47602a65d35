// The statement frame: reads on the backend's own C API where the
// connection keeps them (store/native_read.h), everything else over SOCI.
//
// Over SOCI every statement is prepared for one execution (PostgreSQL: one
// PQexecParams, no server-side prepared statement), since nothing of SOCI's
// may outlive a call. The text's
// :name placeholders are renumbered :p1, :p2, ... one per occurrence and
// bound by position, so that a name may stand twice on both backends.
// Outputs are always bound with an indicator; the frame itself decides what
// a NULL means.
#include "store/statement.h"

#include <cstdio>
#include <cstring>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "frame/host_port.h"
#include "services/cp1252.h"
#include "services/host_text.h"
#include "services/text.h"
#include "services/timestamp.h"
#include "store/host_values.h"
#include "store/native_read.h"
#include "store/soci.h"

#include <soci/postgresql/soci-postgresql.h>
#include <soci/sqlite3/soci-sqlite3.h>

namespace lk::store {

using namespace internal;  // NOLINT: the frame's own value helpers

namespace {

constexpr char kRowIdName[] = "lk_row_id";

// SQLite's extended result codes of a unique violation.
constexpr int kSqliteConstraintPrimaryKey = 1555;
constexpr int kSqliteConstraintUnique = 2067;

// One host variable.
struct HostValue {
  std::string text;
  double number = 0;
  short small = 0;
  std::tm date{};
  soci::indicator ind = soci::i_ok;
};

// A statement text with its placeholders renumbered, and for each
// occurrence the name it had.
struct Rewritten {
  std::string text;
  std::vector<std::string> names;
};

bool IdentifierChar(char c, bool first) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         (!first && c >= '0' && c <= '9');
}

Rewritten Renumber(const std::string& text) {
  Rewritten out;
  out.text.reserve(text.size() + 16);
  char quote = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quote != 0) {
      out.text.push_back(c);
      if (c == quote) quote = 0;
      continue;
    }
    if (c == '\'' || c == '"') {
      quote = c;
      out.text.push_back(c);
      continue;
    }
    if (c == ':' && i + 1 < text.size() && text[i + 1] == ':') {
      out.text.append("::");
      ++i;
      continue;
    }
    if (c == ':' && i + 1 < text.size() && IdentifierChar(text[i + 1], true)) {
      std::size_t end = i + 1;
      while (end < text.size() && IdentifierChar(text[end], false)) ++end;
      out.names.push_back(text.substr(i + 1, end - i - 1));
      out.text += ":p" + std::to_string(out.names.size());
      i = end - 1;
      continue;
    }
    out.text.push_back(c);
  }
  return out;
}

bool StartsWithSelect(const char* text) {
  static const char kSelect[] = "SELECT ";
  for (int i = 0; kSelect[i] != '\0'; ++i) {
    char c = text[i];
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (c != kSelect[i]) return false;
  }
  return true;
}

// The sqlcode of a statement that threw `e`, with the database's own code
// and words in `area`.
int Failure(const Connection* connection, const std::exception& e, SqlArea* area) {
  if (const auto* lite = dynamic_cast<const soci::sqlite3_soci_error*>(&e)) {
    int code = lite->result();
    std::string message = e.what();
    if (connection != nullptr && connection->sql != nullptr &&
        connection->dialect == Dialect::kSqlite) {
      auto* backend =
          static_cast<soci::sqlite3_session_backend*>(connection->sql->get_backend());
      if (backend != nullptr && backend->conn_ != nullptr) {
        code = sqlite_api::sqlite3_extended_errcode(backend->conn_);
        message = sqlite_api::sqlite3_errmsg(backend->conn_);
      }
    }
    const bool unique = code == kSqliteConstraintUnique || code == kSqliteConstraintPrimaryKey;
    PutArea(area, unique ? kSqlUnique : kSqlFailed, std::to_string(code), FirstLine(message));
    return area->sqlcode;
  }
  if (const auto* pg = dynamic_cast<const soci::postgresql_soci_error*>(&e)) {
    const std::string state = pg->sqlstate();
    // SOCI's words wrap the server's: "Cannot execute query. Fatal error.
    // ERROR:  duplicate key value ..." and a line of where it ran.
    std::string message = e.what();
    for (const char* lead : {"ERROR:  ", "FATAL:  ", "Fatal error. "}) {
      const std::size_t at = message.find(lead);
      if (at != std::string::npos) {
        message = message.substr(at + std::strlen(lead));
        break;
      }
    }
    PutArea(area, state == "23505" ? kSqlUnique : kSqlFailed, state, FirstLine(message));
    return area->sqlcode;
  }
  PutArea(area, kSqlFailed, "", FirstLine(e.what()));
  return area->sqlcode;
}

int NoDatabase(SqlArea* area) {
  PutArea(area, kSqlFailed, "", "the session has no database");
  return area->sqlcode;
}

// A write that fails undoes itself alone, and the unit of work goes on.
// SQLite does so by itself; PostgreSQL would abort the whole transaction, so
// there each write runs behind a savepoint of its own, released when the
// write stood and rolled back to when it did not (the scope left by a throw
// or an early return).
class WriteSavepoint {
 public:
  explicit WriteSavepoint(const Connection& c)
      : sql_(c.dialect == Dialect::kPostgres ? c.sql : nullptr) {
    if (sql_ != nullptr) *sql_ << "SAVEPOINT lk_statement";
  }
  WriteSavepoint(const WriteSavepoint&) = delete;
  WriteSavepoint& operator=(const WriteSavepoint&) = delete;
  ~WriteSavepoint() {
    if (sql_ == nullptr) return;
    try {
      *sql_ << "ROLLBACK TO SAVEPOINT lk_statement";
    } catch (...) {
      // The connection is gone; the commit will say so.
    }
  }
  void Keep() {
    if (sql_ != nullptr) *sql_ << "RELEASE SAVEPOINT lk_statement";
    sql_ = nullptr;
  }

 private:
  soci::session* sql_;
};

const HostColumn* FindInput(const StatementDef& s, const std::string& name) {
  for (const HostColumn& c : s.inputs)
    if (name == c.name) return &c;
  return nullptr;
}

// Fills the host variable of input `c` from `record`.
void LoadInput(const HostColumn& c, const char* record, HostValue* v) {
  const char* at = record + c.place.offset;
  v->ind = soci::i_ok;
  switch (c.type) {
    case HostType::kChar:
    case HostType::kVarchar:
      v->text = Cp1252ToUtf8(TextToWrite(c, at));
      break;
    case HostType::kNumber:
      std::memcpy(&v->number, at, sizeof(double));
      break;
    case HostType::kSmall:
      v->small = GetSmall(c, at);
      break;
    case HostType::kDate:
      v->text = DateToWrite(at);
      break;
  }
  if ((c.flags & kWriteNull) != 0) v->ind = soci::i_null;
}

void BindInput(soci::statement* st, const HostColumn& c, HostValue* v) {
  switch (c.type) {
    case HostType::kNumber:
      st->exchange(soci::use(v->number, v->ind));
      break;
    case HostType::kSmall:
      st->exchange(soci::use(v->small, v->ind));
      break;
    default:
      st->exchange(soci::use(v->text, v->ind));
      break;
  }
}

void BindOutput(soci::statement* st, const HostColumn& c, HostValue* v) {
  switch (c.type) {
    case HostType::kNumber:
      st->exchange(soci::into(v->number, v->ind));
      break;
    case HostType::kSmall:
      st->exchange(soci::into(v->small, v->ind));
      break;
    case HostType::kDate:
      st->exchange(soci::into(v->date, v->ind));
      break;
    default:
      st->exchange(soci::into(v->text, v->ind));
      break;
  }
}

// Moves a fetched row from its host variables into `record`, with `texts`
// as scratch room. Answers the sqlcode of the move: 0, kSqlNullFetched or
// kSqlNotInCodePage; on a failure `record` is left as it was.
int StoreOutputs(const StatementDef& s, const std::vector<HostValue>& values,
                 std::vector<std::string>& texts, char* record, SqlArea* area) {
  texts.resize(s.outputs.size());
  for (std::size_t i = 0; i < s.outputs.size(); ++i) {
    const HostColumn& c = s.outputs[i];
    const HostValue& v = values[i];
    if (v.ind == soci::i_null) {
      if ((c.flags & kNullable) == 0) {
        PutArea(area, kSqlNullFetched, "",
                std::string("fetched column value is NULL: ") + c.name);
        return area->sqlcode;
      }
      continue;
    }
    if (c.type == HostType::kChar || c.type == HostType::kVarchar) {
      std::string why;
      if (!ToCp1252(v.text, &texts[i], &why)) {
        PutArea(area, kSqlNotInCodePage, "", std::string(c.name) + ": " + why);
        return area->sqlcode;
      }
    }
  }
  for (std::size_t i = 0; i < s.outputs.size(); ++i) {
    const HostColumn& c = s.outputs[i];
    const HostValue& v = values[i];
    char* at = record + c.place.offset;
    const int size = static_cast<int>(c.place.size);
    const bool null = v.ind == soci::i_null;
    switch (c.type) {
      case HostType::kChar:
        TextMove(at, null ? "" : texts[i].c_str(), size);
        break;
      case HostType::kVarchar:
        // Blanked first, then copied by its length, at most size - 1.
        if (null) {
          TextMove(at, "", size);
        } else {
          BoundedCopy(at, texts[i].c_str(), size);
        }
        break;
      case HostType::kNumber: {
        const double number = null ? 0.0 : v.number;
        std::memcpy(at, &number, sizeof number);
        break;
      }
      case HostType::kSmall:
        PutSmall(c, at, null ? 0 : static_cast<std::int16_t>(v.small));
        break;
      case HostType::kDate:
        if (null) {
          std::memcpy(at, kEmptyTimestamp, sizeof kEmptyTimestamp);
        } else {
          PutDate(v.date, at);
        }
        break;
    }
  }
  return kSqlOk;
}

// A statement ready to run: its SOCI statement and host variables.
struct Prepared {
  std::optional<soci::statement> st;
  std::vector<HostValue> inputs;   // one per placeholder occurrence
  std::vector<HostValue> outputs;  // one per output column
  HostValue row_id;                // the row id of a FOR UPDATE cursor
  std::vector<std::string> texts;  // scratch room of a fetch
};

enum class RowId { kNone, kSelect, kWhere };

// Builds the statement `s` over `in`, with the dialect's additions. Answers
// false, with the area filled, when a placeholder has no input.
bool Build(const Connection& connection, const StatementDef& s, const void* in, RowId row_id,
           const std::string* current_row, Prepared* p, SqlArea* area) {
  const bool postgres = connection.dialect == Dialect::kPostgres;
  std::string text = s.text;
  if (row_id == RowId::kSelect) {
    if (!StartsWithSelect(s.text)) {
      PutArea(area, kSqlFailed, "", "a cursor for update must begin with SELECT");
      return false;
    }
    text = std::string("SELECT ") + (postgres ? "ctid" : "rowid") + ", " + (s.text + 7);
    if (postgres) text += " FOR UPDATE";
  } else if (row_id == RowId::kWhere) {
    text += postgres ? std::string(" WHERE ctid = CAST(:") + kRowIdName + " AS tid) RETURNING ctid"
                     : std::string(" WHERE rowid = CAST(:") + kRowIdName + " AS INTEGER)";
  }
  const Rewritten r = Renumber(text);
  BeforeWrites(connection);
  p->st.emplace(*connection.sql);
  soci::statement& st = *p->st;
  p->inputs.resize(r.names.size());
  p->outputs.resize(s.outputs.size());
  if (row_id == RowId::kSelect) st.exchange(soci::into(p->row_id.text, p->row_id.ind));
  for (std::size_t i = 0; i < s.outputs.size(); ++i) BindOutput(&st, s.outputs[i], &p->outputs[i]);
  if (row_id == RowId::kWhere && postgres) st.exchange(soci::into(p->row_id.text, p->row_id.ind));
  for (std::size_t i = 0; i < r.names.size(); ++i) {
    HostValue* v = &p->inputs[i];
    if (r.names[i] == kRowIdName && current_row != nullptr) {
      v->text = *current_row;
      v->ind = soci::i_ok;
      st.exchange(soci::use(v->text, v->ind));
      continue;
    }
    const HostColumn* c = FindInput(s, r.names[i]);
    if (c == nullptr) {
      PutArea(area, kSqlFailed, "", "no host variable for :" + r.names[i]);
      p->st.reset();
      return false;
    }
    LoadInput(*c, static_cast<const char*>(in), v);
    BindInput(&st, *c, v);
  }
  st.alloc();
  st.prepare(r.text, soci::details::st_one_time_query);
  st.define_and_bind();
  return true;
}

// Starts a statement: its number into RunContext, the area cleared.
SqlArea* Begin(Block& block, const StatementDef& s) {
  block.rc()->statement = s.number;
  block.set_last_site(s.site);
  SqlArea* area = &ModuleSqlArea();
  ClearSqlArea(area);
  return area;
}

bool HasDatabase(const Block& block) {
  return block.connection() != nullptr && block.connection()->sql != nullptr;
}

}  // namespace

// ---- Block ----

Block::Block(HandleA a, HandleB b, RunContext* rc) : a_(a), b_(b), rc_(rc), connection_(nullptr) {
  const auto* session = static_cast<const SessionPort*>(a);
  if (session != nullptr) connection_ = static_cast<const Connection*>(session->store);
}

// ---- Statement kinds ----

int SelectInto(Block& block, const StatementDef& s, const void* in, void* out) {
  SqlArea* area = Begin(block, s);
  if (!HasDatabase(block)) return NoDatabase(area);
  if (block.connection()->native != nullptr && !s.for_update)
    return block.connection()->native->SelectInto(s, in, out, area);
  Prepared p;
  try {
    if (!Build(*block.connection(), s, in, RowId::kNone, nullptr, &p, area)) return area->sqlcode;
    if (!p.st->execute(true)) {
      area->sqlcode = kSqlNotFound;
      return area->sqlcode;
    }
  } catch (const std::exception& e) {
    return Failure(block.connection(), e, area);
  }
  area->rows = 1;
  area->sqlcode = StoreOutputs(s, p.outputs, p.texts, static_cast<char*>(out), area);
  return area->sqlcode;
}

int Execute(Block& block, const StatementDef& s, const void* in) {
  SqlArea* area = Begin(block, s);
  if (!HasDatabase(block)) return NoDatabase(area);
  Prepared p;
  try {
    WriteSavepoint savepoint(*block.connection());
    if (!Build(*block.connection(), s, in, RowId::kNone, nullptr, &p, area)) return area->sqlcode;
    p.st->execute(true);
    area->rows = p.st->get_affected_rows();
    savepoint.Keep();
  } catch (const std::exception& e) {
    return Failure(block.connection(), e, area);
  }
  area->sqlcode = kSqlOk;
  return area->sqlcode;
}

// ---- Cursor ----

struct Cursor::State {
  const Connection* connection = nullptr;
  const StatementDef* def = nullptr;
  std::unique_ptr<NativeReads::Rows> native;  // a read on the C API, or
  Prepared prepared;                          // one through SOCI
  std::int64_t fetched = 0;
  bool has_row = false;
};

Cursor::~Cursor() { Close(); }

int Cursor::Open(Block& block, const StatementDef& s, const void* in) {
  SqlArea* area = Begin(block, s);
  if (!HasDatabase(block)) return NoDatabase(area);
  Close();
  auto* state = new State;
  state->connection = block.connection();
  state->def = &s;
  if (block.connection()->native != nullptr && !s.for_update) {
    state->native = block.connection()->native->Open(s, in, area);
    if (state->native == nullptr) {
      delete state;
      return area->sqlcode;
    }
    state_ = state;
    return area->sqlcode = kSqlOk;
  }
  try {
    if (!Build(*block.connection(), s, in, s.for_update ? RowId::kSelect : RowId::kNone, nullptr,
               &state->prepared, area)) {
      delete state;
      return area->sqlcode;
    }
    state->prepared.st->execute(false);
  } catch (const std::exception& e) {
    delete state;
    return Failure(block.connection(), e, area);
  }
  state_ = state;
  area->sqlcode = kSqlOk;
  return area->sqlcode;
}

int Cursor::Fetch(Block& block, void* out) {
  if (state_ == nullptr) {
    SqlArea* area = &ModuleSqlArea();
    ClearSqlArea(area);
    PutArea(area, kSqlFailed, "", "fetch from a cursor that is not open");
    return area->sqlcode;
  }
  SqlArea* area = Begin(block, *state_->def);
  area->rows = state_->fetched;
  if (state_->native != nullptr) {
    const int code = state_->native->Fetch(out, area);
    // A row came, whether or not the record could take it.
    if (code == kSqlOk || code == kSqlNullFetched || code == kSqlNotInCodePage)
      area->rows = ++state_->fetched;
    state_->has_row = code == kSqlOk;
    return area->sqlcode = code;
  }
  try {
    if (!state_->prepared.st->fetch()) {
      state_->has_row = false;
      area->sqlcode = kSqlNotFound;
      return area->sqlcode;
    }
  } catch (const std::exception& e) {
    state_->has_row = false;
    return Failure(state_->connection, e, area);
  }
  area->rows = ++state_->fetched;
  area->sqlcode = StoreOutputs(*state_->def, state_->prepared.outputs, state_->prepared.texts,
                               static_cast<char*>(out), area);
  state_->has_row = area->sqlcode == kSqlOk;
  return area->sqlcode;
}

void Cursor::Close() {
  State* state = state_;
  state_ = nullptr;
  if (state == nullptr) return;
  try {
    delete state;
  } catch (...) {
    // The close is unchecked.
  }
}

int Cursor::UpdateCurrent(Block& block, const StatementDef& s, const void* in) {
  SqlArea* area = Begin(block, s);
  if (!HasDatabase(block)) return NoDatabase(area);
  if (state_ == nullptr || !state_->def->for_update || !state_->has_row ||
      state_->prepared.row_id.ind == soci::i_null) {
    PutArea(area, kSqlFailed, "", "no row under the cursor");
    return area->sqlcode;
  }
  Prepared p;
  try {
    WriteSavepoint savepoint(*block.connection());
    const std::string row = state_->prepared.row_id.text;
    if (!Build(*block.connection(), s, in, RowId::kWhere, &row, &p, area)) return area->sqlcode;
    const bool got = p.st->execute(true);
    savepoint.Keep();
    if (block.connection()->dialect == Dialect::kPostgres) {
      // The row's new version has a new ctid: a second update finds it.
      area->rows = got ? 1 : 0;
      if (got) state_->prepared.row_id.text = p.row_id.text;
    } else {
      area->rows = p.st->get_affected_rows();
    }
  } catch (const std::exception& e) {
    return Failure(block.connection(), e, area);
  }
  area->sqlcode = kSqlOk;
  return area->sqlcode;
}

void CopyWritten(const StatementDef& s, const void* in, void* entity) {
  const char* from = static_cast<const char*>(in);
  char* to = static_cast<char*>(entity);
  for (const HostColumn& c : s.inputs) {
    const char* src = from + c.place.offset;
    char* dest = to + c.place.offset;
    const bool null = (c.flags & kWriteNull) != 0;
    const int size = static_cast<int>(c.place.size);
    switch (c.type) {
      case HostType::kChar: {
        const std::string value = null ? std::string() : TextToWrite(c, src);
        TextMove(dest, value.c_str(), size);
        break;
      }
      case HostType::kVarchar: {
        const std::string value = null ? std::string() : TextToWrite(c, src);
        if (null) {
          TextMove(dest, "", size);
        } else {
          BoundedCopy(dest, value.c_str(), size);
        }
        break;
      }
      case HostType::kNumber: {
        double number = 0;
        if (!null) std::memcpy(&number, src, sizeof number);
        std::memcpy(dest, &number, sizeof number);
        break;
      }
      case HostType::kSmall:
        PutSmall(c, dest, null ? 0 : GetSmall(c, src));
        break;
      case HostType::kDate:
        if (null) {
          std::memcpy(dest, kEmptyTimestamp, sizeof kEmptyTimestamp);
        } else {
          char host[19];
          TimestampToHost(src, host);
          TimestampFromHost(host, dest);
        }
        break;
    }
  }
}

// ---- Permitted values ----

namespace {

bool Permitted(const char* const* list, const char* value) {
  for (const char* const* p = list; *p != nullptr; ++p)
    if (TextCompare(*p, value) == 0) return true;
  return false;
}

bool IsText(const HostColumn& c) {
  return c.type == HostType::kChar || c.type == HostType::kVarchar;
}

void Refuse(Block& block, EntityState* entity, const char* status, const HostColumn& c) {
  if (entity != nullptr) SetState(entity->status, status);
  block.rc()->fail_detail = c.attribute;
}

}  // namespace

bool CheckWrite(Block& block, const StatementDef& s, const void* in, EntityState* entity) {
  const char* record = static_cast<const char*>(in);
  for (const HostColumn& c : s.inputs) {
    if (c.permitted == nullptr || !IsText(c) || (c.flags & kWriteNull) != 0) continue;
    const std::string value = TextToWrite(c, record + c.place.offset);
    if ((c.flags & kNullable) != 0 && TextIsBlank(value.c_str())) continue;
    if (!Permitted(c.permitted, value.c_str())) {
      Refuse(block, entity, "BP", c);
      return false;
    }
  }
  return true;
}

bool CheckRead(Block& block, const StatementDef& s, const void* out, EntityState* entity) {
  const char* record = static_cast<const char*>(out);
  for (const HostColumn& c : s.outputs) {
    if (c.permitted == nullptr || !IsText(c)) continue;
    const char* value = record + c.place.offset;
    if ((c.flags & kNullable) != 0 && TextIsBlank(value)) continue;
    if (!Permitted(c.permitted, value)) {
      Refuse(block, entity, "IA", c);
      return false;
    }
  }
  return true;
}

// ---- The fatal path ----

namespace {

void CopyArea(RunContext* rc) {
  if (rc->database_area != nullptr)
    FormatSqlArea(ModuleSqlArea(), rc->database_area, kDatabaseAreaSize);
}

}  // namespace

void FailStatement(Block& block, const StatementDef& s, EntityState* entity) {
  RunContext* rc = block.rc();
  rc->statement = s.number;
  CopyArea(rc);
  if (entity != nullptr) SetState(entity->status, "DB");
  Fail(rc, "FE", "DB", s.site, 0x100);
}

void FailOnStatus(Block& block, const EntityState& entity) {
  RunContext* rc = block.rc();
  CopyArea(rc);
  rc->run_mode = 'Y';
  Fail(rc, "FE", entity.status, block.last_site(), -1);
}

// ---- Entering an action block ----

namespace internal {

CursorCloser::CursorCloser(std::initializer_list<Cursor*> cursors) {
  std::size_t i = 0;
  for (Cursor* c : cursors) {
    if (i == sizeof cursors_ / sizeof cursors_[0]) break;
    cursors_[i++] = c;
  }
}

CursorCloser::~CursorCloser() {
  for (Cursor* c : cursors_)
    if (c != nullptr && c->open()) c->Close();
}

}  // namespace internal

}  // namespace lk::store
