// The delete rules behind the cascade entries, as data, and the machinery
// that runs a rule. Internal to the store: the entries of store/cascade.h
// are one line each over these.
//
// A root rule names its table, where its key columns stand in the key
// record, what becomes of the rows of every table that refers to it, and its
// dependent step rules. A step rule names its relationships: for each, the
// referring table (or none, where the referrer is not a table of this
// schema), the referring columns, the dependant's own key, and whether the
// step deletes the dependant or cuts its reference.
//
// Contract: the rules cover every reference of the schema (store/schema.h)
// to a table that a root rule deletes; store/cascade_test.cc holds them to
// it. All texts are table and column names exactly as the schema spells
// them.
#ifndef WATRIX_STORE_CASCADE_RULES_H_
#define WATRIX_STORE_CASCADE_RULES_H_

#include <cstddef>
#include <array>
#include <cstdint>
#include <span>

#include "store/cascade.h"

namespace lk::store::cascade {

// Where one key column stands in a key record.
enum class KeyKind { kNumber, kText };
struct KeyField {
  const char* column;
  KeyKind kind;
  std::size_t offset;  // offsetof in the key record
  std::size_t width;   // bytes of the field: 8 for a number, N+1 for a text
};

// What becomes of the rows that refer to a deleted row.
enum class Fate {
  kRefuse,  // nothing: the database refuses the delete while such a row exists
  kDelete,  // the referring rows are deleted first
  kCut,     // the referring columns are set to NULL first (the reference is optional)
};

// A table that refers to a root rule's table and has no step.
struct Referrer {
  const char* table;
  std::span<const char* const> columns;  // referring columns, in the order of the root key
  Fate fate;
};

// One relationship of a step rule.
struct Relationship {
  std::uint32_t number;
  const char* table;                      // nullptr: the referrer is no table of this schema
  std::span<const char* const> columns;   // referring columns, in the order of the root key
  std::span<const char* const> key;       // the dependant's IS number and ORG ID columns
  Fate fate;                              // kDelete or kCut
};

struct StepRule {
  const char* entry;
  std::uint32_t rule;
  const char* root_table;
  std::span<const Relationship> relationships;
};

struct RootRule {
  const char* entry;
  const char* table;
  std::span<const KeyField> key;
  std::span<const Referrer> referrers;
  std::span<const StepRule* const> steps;  // empty: the rule has no dependent steps
};

// All rules, in the order of the entries' table.
std::span<const RootRule> RootRules();
std::span<const StepRule* const> StepRules();

// Runs a root rule: refuses a token other than 0 and a last cascade flag
// other than 'Y'; cuts and deletes the referring rows its rule says; for a
// rule with steps, collects the dependants into the record's pending queue
// and defers the foreign key checks; deletes the row; for a rule without
// steps, has the database check the references at once.
void RunRoot(const RootRule& rule, HandleA a, RunContext* rc, CascadeRecord* record,
             const void* key, const std::uint32_t* token);

// Runs one dependent step: the token names the relationship, `key` is an
// IsNumberKey of the dependant, and the root row's key is the one kept with
// the record's pending queue; deletes the dependant, or cuts its reference,
// if it still refers to the root row.
void RunStep(const StepRule& rule, HandleA a, RunContext* rc, const CascadeRecord* record,
             const void* key, const std::uint32_t* token);

// The disassociation of F3020987.
void RunDisassociation(HandleA a, RunContext* rc, const ProcedureLinkRecord* procedure,
                       const IsNumberKey* equipment);

}  // namespace lk::store::cascade

#endif  // WATRIX_STORE_CASCADE_RULES_H_
