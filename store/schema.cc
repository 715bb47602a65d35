// The tables of the warehouse that the system writes and reads, and the DDL
// made from them (see schema.h).
//
// Decisions the warehouse leaves to this database:
//
//  - Types. SQLite: char(N) is TEXT COLLATE RTRIM, so that trailing blanks do
//    not count in comparisons, and varchar(N) is TEXT with the default
//    BINARY collation; both carry CHECK(length(col) <= N), which counts
//    characters. number(12) and number(3) are INTEGER, number(14,4) is REAL,
//    each with a CHECK on its storage class and range; a date is TEXT
//    'YYYY-MM-DD HH:MM:SS', checked by datetime(), which gives back exactly
//    that text for a real moment and something else for anything else.
//    PostgreSQL: char(N) and varchar(N) COLLATE "C" (char compares blank
//    padded by its type), numeric(12), numeric(14,4), smallint with a CHECK
//    for number(3), timestamp(0). Both backends sort text by byte value.
//
//  - Business keys that hold a nullable column (TSMVSTC.SECONDARY_TYPE_CD,
//    TSMPRMVL.SEQUENCE_NUMBER and FIELD_VALUE, TSMGEOPA.FIPS_COUNTY_CODE and
//    COUNTY_NAME) treat NULL as one value, as the warehouse's own unique
//    keys do for a key that is partly NULL: two rows that agree on the other
//    columns and are both NULL in the same places are duplicates. NULL and a
//    blank stay different values. PostgreSQL (15 or later) says so with
//    UNIQUE NULLS NOT DISTINCT; SQLite, whose UNIQUE lets NULLs differ,
//    gets a unique index over (col IS NULL, ifnull(col, '')) for each such
//    column.
//
//  - A business key that is the primary key, or holds all of its columns
//    (TSMFHU's business key is NAME and STATES_NAME under the row's own
//    identity), is enforced by the primary key and gets no constraint of its
//    own.
//
//  - References are foreign keys. On PostgreSQL they are DEFERRABLE
//    INITIALLY DEFERRED, since a cascade delete removes a parent before its
//    dependants inside one transaction; on SQLite they are plain clauses and
//    the session defers them per transaction (schema.h). A reference with a
//    NULL in any of its columns refers to nothing.
//
//  - Indexes: one behind every paging key of the lists (each names the list
//    it serves), left out where the primary key or a unique key already
//    begins with the same columns; and one behind the columns of every
//    reference, for the reads that ask whether a row is still in use.
//
//  - The read-only tables hold the columns the statements use. Where those
//    columns do not make a key, key columns are added: TSRCHALS_ORG_ID (the
//    ORG ID half of the alias's identity) and TSRCALT_IS_NUMBER,
//    TSRCALT_ORG_ID (its alias type, through which the alias search joins
//    TSRCALT). TSMFSA is keyed by its station and class; TSMSPRNG, TSRRCI and
//    TSRDQL, which extend a station or a result, by that station or result.
//    Only TSMALP's references allow NULL, since a location row refers to an
//    area, a second area or a land as the case may be.
#include "store/schema.h"

#include <algorithm>
#include <set>
#include <span>

#include "store/soci.h"

namespace lk::store {

namespace {

using namespace columns;

std::vector<Column> Columns(std::span<const Column> columns) {
  return {columns.begin(), columns.end()};
}

std::vector<Table> MakeTables() {
  std::vector<Table> t;

  // ---- Tables the system writes (and, for TSRCITN and TSRCHAR, the two
  // read-only parents they refer to, placed before them).

  t.push_back({"TSMEISN",
               Columns(kTsmeisn),
               {"TSMEISN_NAME", "TSMEISN_ORG_ID"},
               {{"TSMEISN_NAME", "TSMEISN_ORG_ID"}},
               {},
               {},
               true});

  t.push_back(
      {"TSRLBRMK",
       Columns(kTsrlbrmk),
       {"TSRLBRMK_IS_NUMBER", "TSRLBRMK_ORG_ID"},
       {{"SHORT_NAME"}},
       {},
       // LIST_LAB_REMARKS (RT50): SHORT_NAME range over all
       // organisations; the unique key serves it.
       {{"SHORT_NAME"}},
       true});

  t.push_back({"TSRBIOPT",
               Columns(kTsrbiopt),
               {"TSRBIOPT_IS_NUMBER", "TSRBIOPT_ORG_ID"},
               {{"NAME"}},
               {},
               // LIST_BIOLOGICAL_PART (RT48): NAME order; the unique key
               // serves it.
               {{"NAME"}},
               true});

  t.push_back({"TSMPSR",
               Columns(kTsmpsr),
               {"TSMPSR_IS_NUMBER", "TSMPSR_ORG_ID"},
               {{"TSMPSR_ORG_ID", "TYPE_NAME"}},
               {},
               // READ_PROJECT_STN_ROLE_REF_TABLE (RT40): TYPE_NAME within the
               // ORG ID; the unique key serves it.
               {{"TSMPSR_ORG_ID", "TYPE_NAME"}},
               true});

  t.push_back({"TSRUOM",
               Columns(kTsruom),
               {"TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID"},
               {{"UOM_TYPE", "SHORT_FORM_NAME", "TSRUOM_ORG_ID"}},
               {},
               // READ_UOM_REF_TABLE_LIST (RT34) and
               // READ_UNIT_OF_MEASURE_PREVIEW: UOM_TYPE, SHORT_FORM_NAME
               // within the ORG ID.
               {{"TSRUOM_ORG_ID", "UOM_TYPE", "SHORT_FORM_NAME"}},
               true});

  t.push_back({"TSMLTHUN",
               Columns(kTsmlthun),
               {"TSMLTHUN_CD", "TSMLTHUN_ORG_ID"},
               {{"TSMLTHUN_CD", "TSMLTHUN_ORG_ID"}},
               {},
               // READ_LITHOLOGIC_LIST (RT42): code order within the ORG ID,
               // by code or by name (the name path sorts by code, then name).
               {{"TSMLTHUN_ORG_ID", "TSMLTHUN_CD", "NAME"}},
               true});

  t.push_back({"TSMGEOUN",
               Columns(kTsmgeoun),
               {"TSMGEOUN_CD", "TSMGEOUN_ORG_ID"},
               {{"TSMGEOUN_CD", "TSMGEOUN_ORG_ID"}},
               {},
               // LIST_GEOLOGIC_UNIT (RT46), over all organisations: sort
               // "CODE" (code, name) and sort "NAME" (name, code).
               {{"TSMGEOUN_CD", "NAME"}, {"NAME", "TSMGEOUN_CD"}},
               true});

  t.push_back({"TSMSIC",
               Columns(kTsmsic),
               {"TSMSIC_CODE", "TSMSIC_ORG_ID"},
               {{"TSMSIC_CODE", "NAME", "TSMSIC_ORG_ID"}},
               {},
               // READ_STANDARD_INDUSTRIAL_CODE (RT32): code, name within the
               // ORG ID.
               {{"TSMSIC_ORG_ID", "TSMSIC_CODE", "NAME"}},
               true});

  t.push_back(
      {"TSMFHU",
       Columns(kTsmfhu),
       {"TSMFHU_IS_NUMBER", "TSMFHU_ORG_ID"},
       // NAME and STATES_NAME under the row's identity: the primary
       // key enforces it.
       {{"TSMFHU_IS_NUMBER", "TSMFHU_ORG_ID", "NAME", "STATES_NAME"}},
       {},
       // READ_FIPS_HUC_REF_TABLE_LIST (RT36): code, name within the
       // ORG ID.
       {{"TSMFHU_ORG_ID", "HYDROLOGIC_UNIT_CD", "NAME"}},
       true});

  t.push_back({"TSMNAL",
               Columns(kTsmnal),
               {"TSMNAL_CD", "TSMNAL_STATE", "TSMNAL_ORG_ID"},
               {{"TSMNAL_CD", "TSMNAL_STATE", "TSMNAL_ORG_ID"}},
               {},
               // READ_NATIVE_LIST and READ_NATIVE_LIST_PREVIOUS (RT28), within
               // the ORG ID: state and code order, and name order.
               {{"TSMNAL_ORG_ID", "TSMNAL_STATE", "TSMNAL_CD"}, {"TSMNAL_ORG_ID", "NAME"}},
               true});

  t.push_back({"TSMVSTC",
               Columns(kTsmvstc),
               {"TSMVSTC_IS_NUMBER", "TSMVSTC_ORG_ID"},
               {{"PRIMARY_TYPE_CD", "NATURAL_IND_CD", "SECONDARY_TYPE_CD"}},
               {},
               // READ_VSTC_REF_TABLE_LIST (RT30) and
               // READ_VALID_STATION_COMBINATIONS: natural, primary, secondary
               // within the ORG ID. READ_FOR_SECONDARY_STATION_TYPE: the
               // secondaries of one primary within the ORG ID.
               {{"TSMVSTC_ORG_ID", "NATURAL_IND_CD", "PRIMARY_TYPE_CD", "SECONDARY_TYPE_CD"},
                {"TSMVSTC_ORG_ID", "PRIMARY_TYPE_CD", "SECONDARY_TYPE_CD"}},
               true});

  t.push_back(
      {"TSRFLDGR",
       Columns(kTsrfldgr),
       {"TSRFLDGR_IS_NUMBER", "TSRFLDGR_ORG_ID"},
       {{"TSRFLDGR_ORG_ID", "ID_CODE", "TYPE_NAME", "NAME"}},
       {},
       // READ_NATIONAL_FIELD_GEAR_LIST (RT18): ID_CODE, NAME within
       // the ORG ID.
       {{"TSRFLDGR_ORG_ID", "ID_CODE", "NAME"}},
       true});

  t.push_back(
      {"TSRANLEQ",
       Columns(kTsranleq),
       {"TSRANLEQ_IS_NUMBER", "TSRANLEQ_ORG_ID"},
       {{"NAME", "TYPE_NAME"}},
       {},
       // READ_NATL_ANALYTICAL_EQUIP_LIST (RT14): TYPE_NAME, NAME
       // within the ORG ID.
       {{"TSRANLEQ_ORG_ID", "TYPE_NAME", "NAME"}},
       true});

  // Read only; the citations of procedures refer to it.
  t.push_back({"TSRCITN",
               Columns(kTsrcitn),
               {"TSRCITN_IS_NUMBER", "TSRCITN_ORG_ID"},
               {},
               {},
               {},
               false});

  t.push_back(
      {"TSRANLPR",
       Columns(kTsranlpr),
       {"TSRANLPR_IS_NUMBER", "TSRANLPR_ORG_ID"},
       {{"PROCEDURE_ID", "TSRANLPR_ORG_ID", "OWNER_TYPE_CODE"}},
       {{{"TSRCITN_IS_NUMBER", "TSRCITN_ORG_ID"},
         "TSRCITN",
         {"TSRCITN_IS_NUMBER", "TSRCITN_ORG_ID"}},
        {{"TSRANLEQ_IS_NUMBER", "TSRANLEQ_ORG_ID"},
         "TSRANLEQ",
         {"TSRANLEQ_IS_NUMBER", "TSRANLEQ_ORG_ID"}},
        {{"TSRANLPR0IS_NUMBER", "TSRANLPR0ORG_ID"},
         "TSRANLPR",
         {"TSRANLPR_IS_NUMBER", "TSRANLPR_ORG_ID"}}},
       // READ_NEXT_NATL_ANAL_PROC_LIST and READ_PREV_NATL_ANAL_PROC_LIST
       // (RT16): SOURCE_ACR, PROCEDURE_ID within the ORG ID and owner.
       {{"TSRANLPR_ORG_ID", "OWNER_TYPE_CODE", "SOURCE_ACR", "PROCEDURE_ID"}},
       true});

  t.push_back(
      {"TSRLSPP",
       Columns(kTsrlspp),
       {"TSRLSPP_IS_NUMBER", "TSRLSPP_ORG_ID"},
       {{"OWNER_TYPE_CODE", "TSRLSPP_ORG_ID", "PREPARATION_ID"}},
       {{{"TSRCITN_IS_NUMBER", "TSRCITN_ORG_ID"},
         "TSRCITN",
         {"TSRCITN_IS_NUMBER", "TSRCITN_ORG_ID"}}},
       // READ_NAT_LAB_SAMPLE_PREP_LIST (RT20): SOURCE_ACR,
       // PREPARATION_ID within the ORG ID and owner.
       {{"TSRLSPP_ORG_ID", "OWNER_TYPE_CODE", "SOURCE_ACR", "PREPARATION_ID"}},
       true});

  t.push_back({"TSMPRMVL",
               Columns(kTsmprmvl),
               {"TSMPRMVL_IS_NUMBER", "TSMPRMVL_ORG_ID"},
               {{"TABLE_NAME", "FIELD_NAME", "SEQUENCE_NUMBER"},
                {"TABLE_NAME", "FIELD_NAME", "FIELD_VALUE"}},
               {},
               // READ_PERMITTED_VALUE_LIST (RT2): its "PREV" read has no ORG
               // ID; the others, LIST_PERMITTED_VALUES_FROM_TABLE and
               // READ_DISTINCT_PV_TABLE_NAMES read within the ORG ID.
               // READ_COMMON_FIELD_NAME_TABLES: one field name in table order.
               {{"TABLE_NAME", "FIELD_NAME", "SEQUENCE_NUMBER"},
                {"TSMPRMVL_ORG_ID", "TABLE_NAME", "FIELD_NAME", "SEQUENCE_NUMBER"},
                {"FIELD_NAME", "TABLE_NAME"}},
               true});

  t.push_back({"TSRCHTYP",
               Columns(kTsrchtyp),
               {"TSRCHTYP_CATEGORY", "TSRCHTYP_SUBCATGRY", "TSRCHTYP_ORG_ID"},
               {{"TSRCHTYP_CATEGORY", "TSRCHTYP_SUBCATGRY"}},
               {},
               // LIST_CATEGORY_SUBCATEGORY (RT11): category, subcategory over
               // all organisations; the unique key serves it.
               {{"TSRCHTYP_CATEGORY", "TSRCHTYP_SUBCATGRY"}},
               true});

  // Read only; category assignments and aliases refer to it.
  t.push_back({"TSRCHAR",
               Columns(kTsrchar),
               {"TSRCHAR_IS_NUMBER", "TSRCHAR_ORG_ID"},
               {},
               {},
               // READ_BY_CHAR_NAME (RT4): SEARCH_NAME, IS number within the
               // ORG ID.
               {{"TSRCHAR_ORG_ID", "SEARCH_NAME", "TSRCHAR_IS_NUMBER"}},
               false});

  t.push_back({"TSRCTCA",
               Columns(kTsrctca),
               {"TSRCHAR_IS_NUMBER", "TSRCHAR_ORG_ID", "TSRCHTYP_CATEGORY", "TSRCHTYP_SUBCATGRY",
                "TSRCHTYP_ORG_ID"},
               {{"TSRCHAR_IS_NUMBER", "TSRCHAR_ORG_ID", "TSRCHTYP_CATEGORY", "TSRCHTYP_SUBCATGRY",
                 "TSRCHTYP_ORG_ID"}},
               {{{"TSRCHAR_IS_NUMBER", "TSRCHAR_ORG_ID"},
                 "TSRCHAR",
                 {"TSRCHAR_IS_NUMBER", "TSRCHAR_ORG_ID"}},
                {{"TSRCHTYP_CATEGORY", "TSRCHTYP_SUBCATGRY", "TSRCHTYP_ORG_ID"},
                 "TSRCHTYP",
                 {"TSRCHTYP_CATEGORY", "TSRCHTYP_SUBCATGRY", "TSRCHTYP_ORG_ID"}}},
               {},
               true});

  t.push_back(
      {"TSMGEOPA",
       Columns(kTsmgeopa),
       {"TSMGEOPA_IS_NUMBER", "TSMGEOPA_ORG_ID"},
       {{"COUNTRY_CODE", "STATE_NAME", "STATE_FIPS_CODE", "COUNTY_NAME", "FIPS_COUNTY_CODE",
         "TSMGEOPA_ORG_ID"}},
       {},
       // LIST_GEO_POL_AREA (RT44): state, county, county code within
       // the country, over all organisations.
       {{"COUNTRY_CODE", "STATE_NAME", "COUNTY_NAME", "FIPS_COUNTY_CODE"}},
       true});

  // ---- Tables the system only reads.

  t.push_back({"TSRCALT",
               Columns(kTsrcalt),
               {"TSRCALT_IS_NUMBER", "TSRCALT_ORG_ID"},
               {},
               {},
               {},
               false});

  t.push_back({"TSRCHALS",
               Columns(kTsrchals),
               {"TSRCHALS_IS_NUMBER", "TSRCHALS_ORG_ID"},
               {},
               {{{"TSRCHAR_IS_NUMBER", "TSRCHAR_ORG_ID"},
                 "TSRCHAR",
                 {"TSRCHAR_IS_NUMBER", "TSRCHAR_ORG_ID"}},
                {{"TSRCALT_IS_NUMBER", "TSRCALT_ORG_ID"},
                 "TSRCALT",
                 {"TSRCALT_IS_NUMBER", "TSRCALT_ORG_ID"}}},
               // READ_BY_CHAR_ALIAS (RT4): alias SEARCH_NAME, IS number.
               {{"SEARCH_NAME", "TSRCHALS_IS_NUMBER"}},
               false});

  t.push_back({"TSMSTATN",
               Columns(kTsmstatn),
               {"TSMSTATN_IS_NUMBER", "TSMSTATN_ORG_ID"},
               {},
               {{{"TSMVSTC_IS_NUMBER", "TSMVSTC_ORG_ID"},
                 "TSMVSTC",
                 {"TSMVSTC_IS_NUMBER", "TSMVSTC_ORG_ID"}}},
               {},
               false});

  t.push_back({"TSMFSA",
               Columns(kTsmfsa),
               {"TSMSTATN_IS_NUMBER", "TSMSTATN_ORG_ID", "TSMSIC_CODE", "TSMSIC_ORG_ID"},
               {},
               {{{"TSMSTATN_IS_NUMBER", "TSMSTATN_ORG_ID"},
                 "TSMSTATN",
                 {"TSMSTATN_IS_NUMBER", "TSMSTATN_ORG_ID"}},
                {{"TSMSIC_CODE", "TSMSIC_ORG_ID"}, "TSMSIC", {"TSMSIC_CODE", "TSMSIC_ORG_ID"}}},
               {},
               false});

  t.push_back(
      {"TSMSPRNG",
       Columns(kTsmsprng),
       {"TSMSTATN_IS_NUMBER", "TSMSTATN_ORG_ID"},
       {},
       {{{"TSMSTATN_IS_NUMBER", "TSMSTATN_ORG_ID"},
         "TSMSTATN",
         {"TSMSTATN_IS_NUMBER", "TSMSTATN_ORG_ID"}},
        {{"TSMGEOUN_CD", "TSMGEOUN_ORG_ID"}, "TSMGEOUN", {"TSMGEOUN_CD", "TSMGEOUN_ORG_ID"}}},
       {},
       false});

  t.push_back(
      {"TSMIGUA",
       Columns(kTsmigua),
       {"TSMIGUA_IS_NUMBER", "TSMIGUA_ORG_ID"},
       {},
       {{{"TSMGEOUN_CD", "TSMGEOUN_ORG_ID"}, "TSMGEOUN", {"TSMGEOUN_CD", "TSMGEOUN_ORG_ID"}}},
       {},
       false});

  // One table for the locations that refer to areas and to lands.
  t.push_back({"TSMALP",
               Columns(kTsmalp),
               {"TSMALP_IS_NUMBER", "TSMALP_ORG_ID"},
               {},
               {{{"TSMGEOPA_IS_NUMBER", "TSMGEOPA_ORG_ID"},
                 "TSMGEOPA",
                 {"TSMGEOPA_IS_NUMBER", "TSMGEOPA_ORG_ID"}},
                {{"TSMGEOPA0IS_NUMBER", "TSMGEOPA0ORG_ID"},
                 "TSMGEOPA",
                 {"TSMGEOPA_IS_NUMBER", "TSMGEOPA_ORG_ID"}},
                {{"TSMNAL_CD", "TSMNAL_STATE", "TSMNAL_ORG_ID"},
                 "TSMNAL",
                 {"TSMNAL_CD", "TSMNAL_STATE", "TSMNAL_ORG_ID"}}},
               {},
               false});

  t.push_back({"TSRFDACT",
               Columns(kTsrfdact),
               {"TSRFDACT_IS_NUMBER", "TSRFDACT_ORG_ID"},
               {},
               {{{"TSRBIOPT_IS_NUMBER", "TSRBIOPT_ORG_ID"},
                 "TSRBIOPT",
                 {"TSRBIOPT_IS_NUMBER", "TSRBIOPT_ORG_ID"}}},
               {},
               false});

  t.push_back(
      {"TSRRSULT",
       Columns(kTsrrsult),
       {"TSRRSULT_IS_NUMBER", "TSRRSULT_ORG_ID"},
       {},
       {{{"TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID"}, "TSRUOM", {"TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID"}}},
       {},
       false});

  t.push_back(
      {"TSRRCI",
       Columns(kTsrrci),
       {"TSRRSULT_IS_NUMBER", "TSRRSULT_ORG_ID"},
       {},
       {{{"TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID"}, "TSRUOM", {"TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID"}},
        {{"TSRRSULT_IS_NUMBER", "TSRRSULT_ORG_ID"},
         "TSRRSULT",
         {"TSRRSULT_IS_NUMBER", "TSRRSULT_ORG_ID"}}},
       {},
       false});

  t.push_back(
      {"TSRRQCAF",
       Columns(kTsrrqcaf),
       {"TSRRQCAF_IS_NUMBER", "TSRRQCAF_ORG_ID"},
       {},
       {{{"TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID"}, "TSRUOM", {"TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID"}}},
       {},
       false});

  t.push_back(
      {"TSRDQL",
       Columns(kTsrdql),
       {"TSRRSULT_IS_NUMBER", "TSRRSULT_ORG_ID"},
       {},
       {{{"TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID"}, "TSRUOM", {"TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID"}},
        {{"TSRRSULT_IS_NUMBER", "TSRRSULT_ORG_ID"},
         "TSRRSULT",
         {"TSRRSULT_IS_NUMBER", "TSRRSULT_ORG_ID"}}},
       {},
       false});

  return t;
}

using Names = std::vector<const char*>;

std::string JoinNames(const Names& names) {
  std::string out;
  for (const char* n : names) {
    if (!out.empty()) out += ", ";
    out += n;
  }
  return out;
}

bool SameSet(const Names& a, const Names& b) {
  std::set<std::string> x(a.begin(), a.end());
  std::set<std::string> y(b.begin(), b.end());
  return x == y;
}

bool HoldsAll(const Names& key, const Names& part) {
  std::set<std::string> x(key.begin(), key.end());
  for (const char* p : part) {
    if (x.count(p) == 0) return false;
  }
  return true;
}

bool HasNullable(const Table& table, const Names& key) {
  for (const char* name : key) {
    if (table.Find(name)->nullable) return true;
  }
  return false;
}

// Whether `index` begins with the columns of `prefix`, in that order.
bool BeginsWith(const Names& index, const Names& prefix) {
  if (index.size() < prefix.size()) return false;
  for (std::size_t i = 0; i < prefix.size(); ++i) {
    if (std::string(index[i]) != prefix[i]) return false;
  }
  return true;
}

// Whether `columns`, as a set, make the leading columns of `index`.
bool LeadsWith(const Names& index, const Names& columns) {
  if (index.size() < columns.size()) return false;
  return SameSet(Names(index.begin(), index.begin() + columns.size()), columns);
}

std::string ColumnDdl(const Column& c, Dialect dialect) {
  const std::string name = c.name;
  const std::string width = std::to_string(c.width);
  std::string type;
  std::string check;
  if (dialect == Dialect::kSqlite) {
    switch (c.type) {
      case ColumnType::kChar:
        type = "TEXT COLLATE RTRIM";
        check = "length(" + name + ") <= " + width;
        break;
      case ColumnType::kVarchar:
        type = "TEXT";
        check = "length(" + name + ") <= " + width;
        break;
      case ColumnType::kNumber12:
        type = "INTEGER";
        check = name + " IS NULL OR (typeof(" + name + ") = 'integer' AND " + name +
                " BETWEEN -999999999999 AND 999999999999)";
        break;
      case ColumnType::kNumber14_4:
        type = "REAL";
        check = name + " IS NULL OR (typeof(" + name + ") = 'real' AND abs(" + name +
                ") < 10000000000)";
        break;
      case ColumnType::kNumber3:
        type = "INTEGER";
        check = name + " IS NULL OR (typeof(" + name + ") = 'integer' AND " + name +
                " BETWEEN -999 AND 999)";
        break;
      case ColumnType::kDate:
        type = "TEXT";
        // The modifier makes datetime() work the moment out afresh, so
        // that "2023-02-29" comes back as "2023-03-01" and is refused.
        check = name + " IS NULL OR datetime(" + name + ", '+0 seconds') IS " + name;
        break;
    }
  } else {
    switch (c.type) {
      case ColumnType::kChar:
        type = "char(" + width + ") COLLATE \"C\"";
        break;
      case ColumnType::kVarchar:
        type = "varchar(" + width + ") COLLATE \"C\"";
        break;
      case ColumnType::kNumber12:
        type = "numeric(12)";
        break;
      case ColumnType::kNumber14_4:
        type = "numeric(14,4)";
        break;
      case ColumnType::kNumber3:
        type = "smallint";
        check = name + " BETWEEN -999 AND 999";
        break;
      case ColumnType::kDate:
        type = "timestamp(0)";
        break;
    }
  }
  std::string ddl = name + " " + type;
  if (!c.nullable) ddl += " NOT NULL";
  if (!check.empty()) ddl += " CHECK (" + check + ")";
  return ddl;
}

// The unique keys that need a constraint of their own: not the primary key
// nor a superset of it.
std::vector<Names> OwnUniqueKeys(const Table& table) {
  std::vector<Names> keys;
  for (const Names& key : table.unique_keys) {
    if (!HoldsAll(key, table.primary_key)) keys.push_back(key);
  }
  return keys;
}

// Whether an index made for the primary key or a unique key already begins
// with `columns` (in order when `ordered`, else as a set). On SQLite a
// unique key with a nullable column is an index over expressions and
// serves nothing.
bool Covered(const Table& table, const Names& columns, bool ordered, Dialect dialect) {
  std::vector<Names> indexes = {table.primary_key};
  for (const Names& key : OwnUniqueKeys(table)) {
    if (dialect == Dialect::kPostgres || !HasNullable(table, key)) indexes.push_back(key);
  }
  for (const Names& index : indexes) {
    if (ordered ? BeginsWith(index, columns) : LeadsWith(index, columns)) return true;
  }
  return false;
}

std::string CreateTable(const Table& table, Dialect dialect) {
  const std::string name = table.name;
  std::string ddl = "CREATE TABLE IF NOT EXISTS " + name + " (\n";
  for (const Column& c : table.columns) ddl += "  " + ColumnDdl(c, dialect) + ",\n";
  ddl += "  CONSTRAINT " + name + "_PK PRIMARY KEY (" + JoinNames(table.primary_key) + ")";
  int n = 0;
  for (const Names& key : OwnUniqueKeys(table)) {
    ++n;
    if (dialect == Dialect::kSqlite && HasNullable(table, key)) continue;  // an index below
    ddl += ",\n  CONSTRAINT " + name + "_UK" + std::to_string(n) + " UNIQUE ";
    if (dialect == Dialect::kPostgres && HasNullable(table, key)) ddl += "NULLS NOT DISTINCT ";
    ddl += "(" + JoinNames(key) + ")";
  }
  n = 0;
  for (const Table::Reference& r : table.references) {
    ddl += ",\n  CONSTRAINT " + name + "_FK" + std::to_string(++n) + " FOREIGN KEY (" +
           JoinNames(r.columns) + ") REFERENCES " + r.table + " (" + JoinNames(r.table_columns) +
           ")";
    if (dialect == Dialect::kPostgres) ddl += " DEFERRABLE INITIALLY DEFERRED";
  }
  ddl += "\n)";
  return ddl;
}

std::vector<std::string> CreateIndexes(const Table& table, Dialect dialect) {
  const std::string name = table.name;
  std::vector<std::string> out;
  // SQLite: a unique key with a nullable column, NULL taken as one value.
  if (dialect == Dialect::kSqlite) {
    int n = 0;
    for (const Names& key : OwnUniqueKeys(table)) {
      ++n;
      if (!HasNullable(table, key)) continue;
      std::string terms;
      for (const char* column : key) {
        const Column* c = table.Find(column);
        if (!terms.empty()) terms += ", ";
        if (!c->nullable) {
          terms += column;
          continue;
        }
        const bool text = c->type == ColumnType::kChar || c->type == ColumnType::kVarchar;
        terms +=
            std::string(column) + " IS NULL, ifnull(" + column + ", " + (text ? "''" : "0") + ")";
        if (c->type == ColumnType::kChar) terms += " COLLATE RTRIM";
      }
      out.push_back("CREATE UNIQUE INDEX IF NOT EXISTS " + name + "_UK" + std::to_string(n) +
                    " ON " + name + " (" + terms + ")");
    }
  }
  int n = 0;
  for (const Names& key : table.paging_keys) {
    ++n;
    if (Covered(table, key, /*ordered=*/true, dialect)) continue;
    out.push_back("CREATE INDEX IF NOT EXISTS " + name + "_IX" + std::to_string(n) + " ON " + name +
                  " (" + JoinNames(key) + ")");
  }
  n = 0;
  for (const Table::Reference& r : table.references) {
    ++n;
    if (Covered(table, r.columns, /*ordered=*/false, dialect)) continue;
    bool paged = false;
    for (const Names& key : table.paging_keys) paged = paged || LeadsWith(key, r.columns);
    if (paged) continue;
    out.push_back("CREATE INDEX IF NOT EXISTS " + name + "_FK" + std::to_string(n) + "_IX ON " +
                  name + " (" + JoinNames(r.columns) + ")");
  }
  return out;
}

std::string Lower(std::string text) {
  for (char& ch : text) {
    if (ch >= 'A' && ch <= 'Z') ch = static_cast<char>(ch - 'A' + 'a');
  }
  return text;
}

}  // namespace

const Column* Table::Find(const std::string& column) const {
  for (const Column& c : columns) {
    if (column == c.name) return &c;
  }
  return nullptr;
}

const std::vector<Table>& Tables() {
  static const std::vector<Table> tables = MakeTables();
  return tables;
}

const Table* FindTable(const std::string& name) {
  for (const Table& t : Tables()) {
    if (name == t.name) return &t;
  }
  return nullptr;
}

std::vector<std::string> SchemaStatements(Dialect dialect) {
  std::vector<std::string> statements;
  for (const Table& t : Tables()) statements.push_back(CreateTable(t, dialect));
  for (const Table& t : Tables()) {
    for (std::string& s : CreateIndexes(t, dialect)) statements.push_back(std::move(s));
  }
  return statements;
}

void CreateSchema(const Connection& connection) {
  soci::session& sql = *connection.sql;
  soci::transaction transaction(sql);
  // PostgreSQL notes every "IF NOT EXISTS" that finds its object standing.
  if (connection.dialect == Dialect::kPostgres) sql << "SET LOCAL client_min_messages = warning";
  for (const std::string& statement : SchemaStatements(connection.dialect)) sql << statement;
  transaction.commit();
}

bool SchemaExists(const Connection& connection) {
  soci::session& sql = *connection.sql;
  std::string names;
  for (const Table& t : Tables()) {
    if (!names.empty()) names += ", ";
    // Unquoted names: SQLite keeps them as written and compares them
    // without case; PostgreSQL folds them to lower case.
    names +=
        "'" + (connection.dialect == Dialect::kSqlite ? std::string(t.name) : Lower(t.name)) + "'";
  }
  long long count = 0;
  if (connection.dialect == Dialect::kSqlite) {
    sql << "SELECT count(*) FROM sqlite_master WHERE type = 'table' AND upper(name) IN (" + names +
               ")",
        soci::into(count);
  } else {
    sql << "SELECT count(*) FROM information_schema.tables WHERE table_schema = current_schema() "
           "AND table_name IN (" +
               names + ")",
        soci::into(count);
  }
  return count == static_cast<long long>(Tables().size());
}

}  // namespace lk::store
