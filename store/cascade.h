// The cascade delete entries: the only way a row of the reference tables is
// deleted. One entry per delete rule of the data model; each removes its row
// and what the rule says goes with it, as plain statements on the session's
// connection inside the caller's transaction.
//
// Contract:
//  - An entry takes HandleA, HandleB, the RunContext, the caller's cascade
//    record, a key record and a token: 0 for a root call, the relationship
//    number of the pending dependant for a dependent step. HandleA points at
//    a SessionPort whose `store` is an lk::store::Connection.
//  - An entry returns; it never throws. Failure is a non-blank RunContext
//    status "FE" with a detail: "DB" when the database refused or failed (its
//    own error text is in RunContext.database_area), "FE" when the call
//    itself is wrong (no database, a token the rule does not know, cascade
//    flags that do not fit the entry). On success status is untouched.
//  - Entries commit nothing and roll nothing back; the transaction is the
//    caller's. A root entry whose rule has dependent steps defers the foreign
//    key checks to the end of that transaction (its own row goes first, the
//    dependants follow one step at a time); every other root entry has the
//    database check the references at once, so that a row that is still
//    referred to is refused by the entry and not at commit.
//  - A row that is already gone is no failure: the entry deletes nothing.
//  - Root entries of rules with dependent steps fill the pending queue of
//    their cascade record, which the cascade step service answers from
//    (store/cascade_step.h); every root call starts that queue afresh.
//
// Which tables each rule touches, and why, is told with the rules in
// store/cascade_rules.cc. The loop with which a REMOVE action block walks a
// cascade is store/cascade_loop.h.
#ifndef WATRIX_STORE_CASCADE_H_
#define WATRIX_STORE_CASCADE_H_

#include <cstdint>

#include "frame/entry.h"
#include "frame/run_context.h"

namespace lk::store {

// The status record that a REMOVE action block shares with the entry it
// calls and with the cascade step service. One per action block.
struct CascadeRecord {
  char first;            // ' ' root call, 'N' ask for the next step, 'R' a step runs
  char result[2];        // "OK" while the cascade may go on
  char message[48];      // blanked before the root call; carries a step's dependent key
  std::uint32_t rule;          // after a step request: the pending delete rule
  std::uint32_t relationship;  // the relationship to follow; passed on as the token
};

// The five cascade flags of the RunContext. The last says, for a delete
// entry, 'Y' root of a cascade or 'N' dependent step; the disassociation
// entry is called with all five 'Y'.
constexpr int kCascadeFlagCount = sizeof(RunContext::cascade_flags);
constexpr int kCascadeRootFlag = kCascadeFlagCount - 1;
static_assert(kCascadeFlagCount == 5);

void SetCascadeRootFlag(RunContext* rc, char flag);   // 'Y' or 'N'
void SetAllCascadeFlags(RunContext* rc, char flag);

// Key records. Texts are NUL-terminated and blank padded to their width, as
// the text move service leaves them; an ORG ID is eight characters.

// The key of an IS-number table, and the dependent key that a step hands
// over: the row's IS number and ORG ID.
struct IsNumberKey {
  double is_number;
  char org_id[9];
};

// The key of a code table: the code (TSMLTHUN_CD, TSMGEOUN_CD of 12
// characters; TSMSIC_CODE of 4) and the ORG ID.
template <int kWidth>
struct CodeKey {
  char code[kWidth + 1];
  char org_id[9];
};
using Code12Key = CodeKey<12>;
using Code4Key = CodeKey<4>;

// TSMNAL: land code, state, ORG ID.
struct NativeAmericanLandKey {
  char code[6];
  char state[3];
  char org_id[9];
};

// TSRCHTYP: category, subcategory, ORG ID.
struct CharacteristicTypeKey {
  char category[13];
  char subcategory[31];
  char org_id[9];
};

// TSRCTCA: the whole row's key, the characteristic and the type it is
// assigned to.
struct CategoryAssignmentKey {
  double tsrchar_is_number;
  char tsrchar_org_id[9];
  char tsrchtyp_category[13];
  char tsrchtyp_subcatgry[31];
  char tsrchtyp_org_id[9];
};

// One nullable reference pair of a TSRANLPR row, with its indicator
// (-1: NULL).
struct ReferencePair {
  double is_number;
  char org_id[9];
  std::int16_t indicator;
};

// The procedure's record of the disassociation entry: its key and its three
// reference pairs as the row held them.
struct ProcedureLinkRecord {
  double tsranlpr_is_number;
  char tsranlpr_org_id[9];
  ReferencePair tsrcitn;
  ReferencePair tsranlpr0;
  ReferencePair tsranleq;
};

// The dependent key descriptor: what a step asks of the cascade step
// service, as text. "4.2." and four blanks, a four-digit size per key column
// ("%004d"), then per key column an eight-character field name and a
// two-character kind: "FL" a number passed as an 8-byte double, "CH" a text
// of the size's characters, blank padded. The service answers with the
// pending row's key laid out in the record's message area, field after
// field, each in its size.
struct KeyDescriptor {
  char version[4];    // "4.2."
  char blanks[4];     // "    "
  char sizes[2][4];   // "0008", "0008": filled before each step
  struct Field {
    char name[8];
    char kind[2];
  } fields[2];
  char end;           // NUL
};
static_assert(sizeof(KeyDescriptor) == 8 + 8 + 20 + 1);

// The text of a step request ("N"), and the descriptor template of the
// dependent key of every rule of this schema: IS number and ORG ID. The size
// fields are left blank for the caller to fill.
inline constexpr char kStepRequestText[] = "4.2.";
inline constexpr KeyDescriptor kDependentKeyDescriptor = {
    {'4', '.', '2', '.'},
    {' ', ' ', ' ', ' '},
    {{' ', ' ', ' ', ' '}, {' ', ' ', ' ', ' '}},
    {{{'I', 'S', '_', 'N', 'U', 'M', 'B', 'R'}, {'F', 'L'}},
     {{'O', 'R', 'G', '_', 'I', 'D', ' ', ' '}, {'C', 'H'}}},
    '\0'};

// The numbers of the delete rules that have dependent steps, and of their
// relationships, as the REMOVE action blocks and the step service know them.
// Where a relationship reaches a table is told in store/cascade_rules.cc.
constexpr std::uint32_t kGeologicUnitRule = 0x049C1467;           // TSMGEOUN
constexpr std::uint32_t kGeologicUnitSprings = 0x049C1477;        // TSMSPRNG
constexpr std::uint32_t kGeologicUnitIntervals = 0x049C1478;      // TSMIGUA
constexpr std::uint32_t kIndustrialClassRule = 0x035D0326;        // TSMSIC
constexpr std::uint32_t kIndustrialClassFacilities = 0x035D032A;  // TSMFSA
constexpr std::uint32_t kIndustrialClassOther = 0x035D032C;       // no table here
constexpr std::uint32_t kFieldGearRule = 0x12A43B80;              // TSRFLDGR
constexpr std::uint32_t kFieldGearRelationship = 0x12A43C11;      // no table here
constexpr std::uint32_t kFieldGearMethodRule = 0x1FA0287C;        // TSRFLDGR
constexpr std::uint32_t kFieldGearMethodRelationships[] = {       // no table here
    0x1FA02880, 0x32D800CF, 0x32D800D5, 0x32D800DA};
constexpr std::uint32_t kProcedureRule = 0x1FA03F3B;              // TSRANLPR
constexpr std::uint32_t kProcedureReferrers = 0x1FA03F40;         // TSRANLPR0 of TSRANLPR

// The shape of every delete entry. `key` points at the key record of the
// entry's table (root) or at an IsNumberKey of the dependant (step).
using DeleteEntry = void (*)(HandleA a, HandleB b, RunContext* rc, CascadeRecord* record,
                             const void* key, std::uint32_t* token);

// Root entries: the table each deletes and the key record it takes.
//   E2738301 TSRLBRMK  IsNumberKey         E2738391 TSRFLDGR  IsNumberKey
//   E0591960 TSRBIOPT  IsNumberKey         E2738397 TSRANLEQ  IsNumberKey
//   E4348087 TSMPSR    IsNumberKey         E2738402 TSRANLPR  IsNumberKey
//   E2738395 TSRUOM    IsNumberKey         E9555774 TSRLSPP   IsNumberKey
//   E2173100 TSMLTHUN  Code12Key           E3022453 TSMPRMVL  IsNumberKey
//   E2173103 TSMGEOUN  Code12Key           E2738406 TSRCHAR   IsNumberKey
//   E6427297 TSMSIC    Code4Key            E0595618 TSRCHTYP  CharacteristicTypeKey
//   E2167124 TSMFHU    IsNumberKey         E0595621 TSRCTCA   CategoryAssignmentKey
//   E6375965 TSMNAL    NativeAmericanLandKey
//   E9874205 TSMVSTC   IsNumberKey         E2174604 TSMGEOPA  IsNumberKey
void E2738301(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E0591960(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E4348087(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E2738395(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E2173100(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E2173103(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E6427297(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E2167124(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E6375965(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E9874205(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E2738391(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E2738397(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E2738402(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E9555774(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E3022453(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E2738406(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E0595618(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E0595621(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E2174604(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);

// Dependent steps: the rule of each, and the table whose dependants it
// takes. The key is an IsNumberKey of the dependant, the token its
// relationship.
//   E7337703 rule 0x049C1467 of TSMGEOUN    E2753024 rule 0x12A43B80 of TSRFLDGR
//   E6427302 rule 0x035D0326 of TSMSIC      E0589820 rule 0x1FA0287C of TSRFLDGR
//   E0595643 rule 0x1FA03F3B of TSRANLPR
void E7337703(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E6427302(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E2753024(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E0589820(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);
void E0595643(HandleA, HandleB, RunContext*, CascadeRecord*, const void*, std::uint32_t*);

// The disassociation of a procedure from its equipment: sets the TSRANLEQ
// reference pair of the TSRANLPR row to NULL where it names `equipment`;
// deletes nothing. Called with all five cascade flags 'Y'.
void F3020987(HandleA a, HandleB b, RunContext* rc, CascadeRecord* record,
              const ProcedureLinkRecord* procedure, const IsNumberKey* equipment);

}  // namespace lk::store

#endif  // WATRIX_STORE_CASCADE_H_
