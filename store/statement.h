// The statement frame: how an action block runs its statements against the
// session's database and what their outcome is called.
//
// A statement is constant data of its action block (StatementDef): its
// ten-digit number, its SQL text with :name placeholders, and the columns
// it writes from and reads into an entity record, a flat struct of view
// attributes. The text is plain SQL that both dialects read; the frame adds
// what differs: FOR UPDATE (PostgreSQL only; on SQLite the host's BEGIN
// IMMEDIATE has serialised the writers already), the row id of the row
// under a cursor (SQLite rowid, PostgreSQL ctid) and the form of a
// timestamp. A placeholder may stand more than once in a text.
//
// How values cross, column by column (the host variables are the frame's):
//   char(N)     text move to N characters (an overlong value is cut before
//               the statement), host text prepare; stored without trailing
//               blanks, which a fixed char column does not count (a blank
//               value as one blank); read back blank padded.
//   varchar(N)  at most N characters, trailing blanks dropped, host text
//               prepare (a blank value goes in as one blank); read back by
//               its length, at most the attribute's width - 1.
//   number      a double; number(3) a 2-byte integer (a double in the
//               record goes through that integer both ways).
//   date        the 20-digit timestamp through timestamp to host; the
//               database holds 'YYYY-MM-DD HH:MM:SS' (SQLite text,
//               PostgreSQL timestamp(0)); it comes back through timestamp
//               from host, so the fraction reads "000000".
// Texts are code page 1252 in the record and UTF-8 in the database. A
// nullable column (kNullable) reads NULL as blanks, zero or the timestamp
// "00000000000000000000"; a NULL in any other column is the failure
// kSqlNullFetched. kWriteNull binds NULL through an indicator of -1.
//
// Outcomes: every statement sets the module's SQL area (store/sql_area.h)
// and answers its sqlcode; it never throws. Before a statement runs, the
// frame stores its number in RunContext.statement. A select into takes the
// first row and never looks for a second one.
//
// Cursors: SQLite hands rows over one by one; PostgreSQL hands the whole
// answer over at the open. A list statement therefore says LIMIT with its
// group's size, so that a page costs the same in a table of any size.
//
// The fatal path (FailStatement, FailOnStatus) fills RunContext and throws
// UnitAbort, which the action block's own entry catches (RunActionBlock).
//
// Thread safety: none; one thread runs the module. The statics of an action
// block (cursors, entity states) make it non-reentrant, as every unit is.
#ifndef WATRIX_STORE_STATEMENT_H_
#define WATRIX_STORE_STATEMENT_H_

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/unit.h"
#include "store/connection.h"
#include "store/entity_state.h"
#include "store/sql_area.h"

namespace lk::store {

// How a column crosses between the database and its attribute.
enum class HostType : std::uint8_t { kChar, kVarchar, kNumber, kSmall, kDate };

// Column flags.
constexpr std::uint8_t kNullable = 1;   // read with an indicator
constexpr std::uint8_t kWriteNull = 2;  // written as NULL through its indicator

// Where an attribute stands in an entity record.
struct Place {
  std::uint32_t offset;
  std::uint32_t size;
};
#define LK_PLACE(Record, member) \
  (::lk::store::Place{offsetof(Record, member), sizeof(static_cast<Record*>(nullptr)->member)})

// One column of a statement, tied to an attribute of an entity record.
struct HostColumn {
  const char* name;     // an input's placeholder (without ':'); an output's column
  HostType type;
  std::uint16_t width;  // N of char(N) and varchar(N)
  Place place;
  std::uint8_t flags;
  const char* const* permitted;  // closed list ended by nullptr, or nullptr
  std::uint32_t attribute;       // the attribute's number, for fail_detail
};

namespace internal {
// Refuses, at compile time in a constant initialiser, an attribute that
// cannot hold its column.
constexpr Place Checked(Place p, std::uint32_t least, std::uint32_t exact) {
  if (exact != 0 && p.size != exact) throw "attribute size does not fit the column type";
  if (p.size < least) throw "attribute is narrower than its column";
  return p;
}
}  // namespace internal

constexpr HostColumn HostChar(const char* name, int width, Place p, std::uint8_t flags = 0,
                      const char* const* permitted = nullptr, std::uint32_t attribute = 0) {
  return {name, HostType::kChar, static_cast<std::uint16_t>(width),
          internal::Checked(p, static_cast<std::uint32_t>(width) + 1, 0), flags, permitted,
          attribute};
}
constexpr HostColumn HostVarchar(const char* name, int width, Place p, std::uint8_t flags = 0,
                         const char* const* permitted = nullptr, std::uint32_t attribute = 0) {
  return {name, HostType::kVarchar, static_cast<std::uint16_t>(width),
          internal::Checked(p, static_cast<std::uint32_t>(width) + 1, 0), flags, permitted,
          attribute};
}
constexpr HostColumn HostNumber(const char* name, Place p, std::uint8_t flags = 0) {
  return {name, HostType::kNumber, 0, internal::Checked(p, 0, sizeof(double)), flags, nullptr, 0};
}
// A number(3) bound as a 2-byte integer, held in the record either as that
// integer or, as views hold every number, as a double.
constexpr HostColumn HostSmall(const char* name, Place p, std::uint8_t flags = 0) {
  return {name, HostType::kSmall, 0,
          internal::Checked(p, 0, p.size == sizeof(double) ? sizeof(double) : sizeof(std::int16_t)),
          flags, nullptr, 0};
}
constexpr HostColumn HostDate(const char* name, Place p, std::uint8_t flags = 0) {
  return {name, HostType::kDate, 0, internal::Checked(p, 0, 21), flags, nullptr, 0};
}

// One statement of an action block.
struct StatementDef {
  const char* number;   // its StatementNumber, "0000000003"
  std::uint32_t site;   // the same as a number, for fail_site
  const char* text;     // SQL with :name placeholders
  std::span<const HostColumn> inputs;   // by placeholder name
  std::span<const HostColumn> outputs;  // in the order of the select list
  bool for_update = false;          // a cursor that locks its rows
};

// The running action block as its statements see it: the run handles, the
// RunContext and the session's connection.
class Block {
 public:
  Block(HandleA a, HandleB b, RunContext* rc);

  HandleA a() const { return a_; }
  HandleB b() const { return b_; }
  RunContext* rc() const { return rc_; }
  // The session's database, or null when the session has none.
  const Connection* connection() const { return connection_; }
  // The number of the last statement run, for the fatal path.
  std::uint32_t last_site() const { return last_site_; }
  void set_last_site(std::uint32_t site) { last_site_ = site; }

 private:
  HandleA a_;
  HandleB b_;
  RunContext* rc_;
  const Connection* connection_;
  std::uint32_t last_site_ = 0;
};

// ---- Statement kinds: each answers its sqlcode ----

// A select into: the first row of the answer into the outputs of `out`;
// 100 when there is none. `in` holds the inputs.
int SelectInto(Block& block, const StatementDef& s, const void* in, void* out);

// An insert or an update by key: writes the inputs of `in`. The rows
// processed stand in the SQL area.
int Execute(Block& block, const StatementDef& s, const void* in);

// A cursor of an action block, with its open flag. It lives in the block's
// static storage; a FOR UPDATE cursor keeps the row id of the row it
// fetched last, for UpdateCurrent.
class Cursor {
 public:
  constexpr Cursor() = default;
  ~Cursor();
  Cursor(const Cursor&) = delete;
  Cursor& operator=(const Cursor&) = delete;

  // The open flag: "Y" while open.
  bool open() const { return state_ != nullptr; }

  // Opens the cursor of `s` with the inputs of `in`. A FOR UPDATE cursor
  // waits here for rows that another client holds, without a time limit.
  // There is no 100 on an open.
  // REQUIRES: !open().
  int Open(Block& block, const StatementDef& s, const void* in);

  // The next row into the outputs of `out`; 100 at the end.
  // REQUIRES: open().
  int Fetch(Block& block, void* out);

  // Closes the cursor; unchecked, and harmless when it is not open.
  void Close();

  // Updates the row fetched last (where current of): `s` is an UPDATE
  // without a WHERE clause, its inputs from `in`; rows processed in the
  // SQL area.
  // REQUIRES: open(), a FOR UPDATE cursor that has fetched a row.
  int UpdateCurrent(Block& block, const StatementDef& s, const void* in);

 private:
  struct State;
  State* state_ = nullptr;
};

// Copies the inputs of `s` from `in` into the same attributes of `entity`
// as they went to the database: texts cut to their column (a varying text
// without trailing blanks, one blank for a blank one), timestamps with the
// fraction "000000", a column written NULL blank or zero. `in` and `entity`
// may be the same record.
void CopyWritten(const StatementDef& s, const void* in, void* entity);

// ---- Permitted values ----

// The write side: every input of `in` with a permitted list must hold one
// of its values (a blank value of a nullable column passes). Otherwise
// status "BP", RunContext.fail_detail the attribute's number, and false.
bool CheckWrite(Block& block, const StatementDef& s, const void* in, EntityState* entity);

// The read side, over the outputs of `out`: status "IA" and the
// attribute's number in fail_detail, and false. A NULL read is not checked.
bool CheckRead(Block& block, const StatementDef& s, const void* out, EntityState* entity);

// ---- The fatal path ----

// A statement's outcome that the block does not expect: status "FE",
// detail "DB", fail_site, the SQL area into database_area, entity status
// "DB" (when given); jumps with 0x100.
[[noreturn]] void FailStatement(Block& block, const StatementDef& s, EntityState* entity);

// The end of a body, for a status that has no branch: status "FE", detail
// the entity's status, run_mode 'Y', the SQL area into database_area;
// jumps with -1.
[[noreturn]] void FailOnStatus(Block& block, const EntityState& entity);

// ---- Entering an action block ----

namespace internal {
// Closes the cursors it was given when it goes out of scope.
class CursorCloser {
 public:
  explicit CursorCloser(std::initializer_list<Cursor*> cursors);
  ~CursorCloser();

 private:
  Cursor* cursors_[4] = {};
};
}  // namespace internal

// Whether the statement `text` ends with "LIMIT n": a list's cursor asks for
// one row more than its group holds, and a static_assert says so.
constexpr bool EndsWithLimit(const char* text, int n) {
  char digits[12] = {};
  int d = 0;
  for (; n > 0; n /= 10) digits[d++] = static_cast<char>('0' + n % 10);
  int end = 0;
  while (text[end] != '\0') ++end;
  for (int i = 0; i < d; ++i)
    if (text[end - 1 - i] != digits[i]) return false;
  const char kWord[] = "LIMIT ";
  for (int i = 0; i < 6; ++i)
    if (text[end - d - 6 + i] != kWord[i]) return false;
  return true;
}

// The entry of an action block: stores the run handles; returns at once on
// run_mode 'L'; counts the nesting and arms the abort frame; records the
// unit's number and name and runs body(Block&). On every way out, by the
// abort frame too, the cursors named are closed if open: a FOR UPDATE
// cursor stays open to here; a list's cursor is closed by its read, and
// here only after a fatal stop. Name every cursor of the block, so that none
// outlives the call (the host may replace the connection between events).
template <typename Body>
void RunActionBlock(UnitStorage* unit, const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                    std::initializer_list<Cursor*> cursors, Body&& body) {
  unit->a = a;
  unit->b = b;
  unit->rc = rc;
  if (rc->run_mode == 'L') return;
  internal::CursorCloser closer(cursors);
  EnterActionBlock(unit, a, b, rc, [&] {
    StoreUnitId(rc, id);
    Block block(a, b, rc);
    body(block);
  });
}

}  // namespace lk::store

#endif  // WATRIX_STORE_STATEMENT_H_
