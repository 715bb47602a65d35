// The columns of every table of the warehouse that the system writes or
// reads, as constant data: the one description from which the schema
// (store/schema.h) makes its DDL and checks, and from which the modules take
// the storage of their rows' attributes (StorageOf), so that no module says
// a column's width again.
//
// Contract: constant expressions only; column names exactly as the warehouse
// names them, in the table's column order.
#ifndef WATRIX_STORE_COLUMNS_H_
#define WATRIX_STORE_COLUMNS_H_

#include <cstdint>
#include <span>

namespace lk::store {

// A column's notation: char(N), varchar(N), number(12), number(14,4),
// number(3), date.
enum class ColumnType { kChar, kVarchar, kNumber12, kNumber14_4, kNumber3, kDate };

struct Column {
  const char* name;
  ColumnType type;
  int width;      // characters for char and varchar, else 0
  bool nullable;
  const char* attribute = nullptr;  // the view attribute's name, where it differs
};

// The columns of each table, kTsrlbrmk for TSRLBRMK and so on, and the
// notation they are written in.
namespace columns {

inline constexpr bool kNull = true;

constexpr Column Char(const char* name, int width, bool nullable = false) {
  return {name, ColumnType::kChar, width, nullable};
}
constexpr Column Varchar(const char* name, int width, bool nullable = false) {
  return {name, ColumnType::kVarchar, width, nullable};
}
constexpr Column Number12(const char* name, bool nullable = false) {
  return {name, ColumnType::kNumber12, 0, nullable};
}
constexpr Column Number14_4(const char* name, bool nullable = false) {
  return {name, ColumnType::kNumber14_4, 0, nullable};
}
constexpr Column Number3(const char* name, bool nullable = false) {
  return {name, ColumnType::kNumber3, 0, nullable};
}
constexpr Column Date(const char* name, bool nullable = false) {
  return {name, ColumnType::kDate, 0, nullable};
}
// A column that the views hold under another name (FIELD_DESC as
// FIELD_DESCRIPTION).
constexpr Column Viewed(Column column, const char* attribute) {
  column.attribute = attribute;
  return column;
}

inline constexpr Column kTsmeisn[] = {
    Char("TSMEISN_NAME", 8), Char("TSMEISN_ORG_ID", 8), Number12("IS_NUMBER"),
    // Inserted NULL through its indicator, so NULL is allowed.
    Char("TABLE_VERSION", 12, kNull), Char("V_USERID_CODE", 8, kNull),
    Date("V_LAST_UPDATE_TS", kNull), Char("D_USERID_CODE", 8), Date("D_LAST_UPDT_TS"),
};
inline constexpr Column kTsrlbrmk[] = {
    Number12("TSRLBRMK_IS_NUMBER"), Char("TSRLBRMK_ORG_ID", 8), Char("SHORT_NAME", 6),
    Varchar("DESCRIPTION_TEXT", 60), Char("D_USERID_CODE", 8), Date("D_LAST_UPDATE_TS"),
};
inline constexpr Column kTsrbiopt[] = {
    Number12("TSRBIOPT_IS_NUMBER"), Char("TSRBIOPT_ORG_ID", 8), Varchar("NAME", 30),
    Char("D_USERID_CODE", 8), Viewed(Date("D_LAST_UPDT_TS"), "D_LAST_UPDATE_TIMESTAMP"),
};
inline constexpr Column kTsmpsr[] = {
    Number12("TSMPSR_IS_NUMBER"), Char("TSMPSR_ORG_ID", 8), Varchar("TYPE_NAME", 32),
    Char("D_USERID_CODE", 8), Date("D_LAST_UPDATE_TS"),
};
inline constexpr Column kTsruom[] = {
    Number12("TSRUOM_IS_NUMBER"), Char("TSRUOM_ORG_ID", 8), Char("UOM_TYPE", 5),
    Char("SHORT_FORM_NAME", 10), Varchar("DESCRIPTION_TEXT", 50),
    Char("D_USERID_CODE", 8), Date("D_LAST_UPDATE_TS"),
};
inline constexpr Column kTsmlthun[] = {
    Char("TSMLTHUN_CD", 12), Char("TSMLTHUN_ORG_ID", 8), Varchar("NAME", 120),
    Char("D_USERID_CODE", 8), Date("D_LAST_UPDT_TS"),
};
inline constexpr Column kTsmgeoun[] = {
    Char("TSMGEOUN_CD", 12), Char("TSMGEOUN_ORG_ID", 8), Char("TYPE_CODE", 1),
    Char("STATE_CODE", 2), Varchar("NAME", 80), Char("D_USERID_CODE", 8),
    Date("D_LAST_UPDT_TS"),
};
inline constexpr Column kTsmsic[] = {
    Char("TSMSIC_CODE", 4), Char("TSMSIC_ORG_ID", 8), Varchar("NAME", 120),
    Char("D_USERID_CODE", 8), Date("D_LAST_UPDT_TS"),
};
inline constexpr Column kTsmfhu[] = {
    Number12("TSMFHU_IS_NUMBER"), Char("TSMFHU_ORG_ID", 8), Char("HYDROLOGIC_UNIT_CD", 8),
    Varchar("TYPE_CODE", 7), Varchar("NAME", 200, kNull), Char("STATES_NAME", 16, kNull),
    Number14_4("LAT_MAX_DEGREE", kNull), Number14_4("LAT_MIN_DEGREE", kNull),
    Number14_4("LONG_MAX_DEGREE", kNull), Number14_4("LONG_MIN_DEGREE", kNull),
    Char("D_USERID_CODE", 8), Date("D_LAST_UPDT_TS"),
};
inline constexpr Column kTsmnal[] = {
    Char("TSMNAL_CD", 5), Char("TSMNAL_STATE", 2), Char("TSMNAL_ORG_ID", 8),
    Varchar("NAME", 40), Char("D_USERID_CODE", 8), Date("D_LAST_UPDT_TS"),
};
inline constexpr Column kTsmvstc[] = {
    Number12("TSMVSTC_IS_NUMBER"), Char("TSMVSTC_ORG_ID", 8),
    Varchar("PRIMARY_TYPE_CD", 30), Varchar("SECONDARY_TYPE_CD", 30, kNull),
    Char("NATURAL_IND_CD", 1), Char("D_USERID_CODE", 8), Date("D_LAST_UPDT_TS"),
};
inline constexpr Column kTsrfldgr[] = {
    Number12("TSRFLDGR_IS_NUMBER"), Char("TSRFLDGR_ORG_ID", 8), Char("ID_CODE", 10),
    Varchar("TYPE_NAME", 25), Varchar("NAME", 60), Varchar("DESCRIPTION_TEXT", 1999, kNull),
    Char("D_USERID_CODE", 8), Date("D_LAST_UPDATE_TS"),
};
inline constexpr Column kTsranleq[] = {
    Number12("TSRANLEQ_IS_NUMBER"), Char("TSRANLEQ_ORG_ID", 8), Varchar("TYPE_NAME", 32),
    Varchar("NAME", 60), Char("D_USERID_CODE", 8), Date("D_LAST_UPDATE_TS"),
};
inline constexpr Column kTsrcitn[] = {
    Number12("TSRCITN_IS_NUMBER"), Char("TSRCITN_ORG_ID", 8),
    Varchar("TITLE_NAME", 1999), Varchar("AUTHOR_NAME", 120),
    Char("PUBLICATION_YEAR", 18), Varchar("JRNL_OR_PBLSHR_NM", 120),
    Varchar("VOL_AND_PG_NUM", 20), Char("IDENTIFICATION_CD", 12, kNull),
};
inline constexpr Column kTsranlpr[] = {
    Number12("TSRANLPR_IS_NUMBER"), Char("TSRANLPR_ORG_ID", 8), Char("OWNER_TYPE_CODE", 3),
    Char("PROCEDURE_ID", 15), Varchar("NAME", 120), Varchar("SOURCE_NAME", 65),
    Char("SOURCE_ACR", 12, kNull), Varchar("DESCRIPTION_TEXT", 4000), Char("D_USERID_CODE", 8),
    Date("D_LAST_UPDATE_TS"), Number12("TSRCITN_IS_NUMBER", kNull),
    Char("TSRCITN_ORG_ID", 8, kNull), Number12("TSRANLPR0IS_NUMBER", kNull),
    Char("TSRANLPR0ORG_ID", 8, kNull), Number12("TSRANLEQ_IS_NUMBER", kNull),
    Char("TSRANLEQ_ORG_ID", 8, kNull),
};
inline constexpr Column kTsrlspp[] = {
    Number12("TSRLSPP_IS_NUMBER"), Char("TSRLSPP_ORG_ID", 8), Char("OWNER_TYPE_CODE", 3),
    Char("PREPARATION_ID", 15), Varchar("NAME", 120), Varchar("SOURCE_NAME", 65),
    Char("SOURCE_ACR", 12, kNull), Char("D_USERID_CODE", 8), Date("D_LAST_UPDATE_TS"),
    Number12("TSRCITN_IS_NUMBER", kNull), Char("TSRCITN_ORG_ID", 8, kNull),
};
inline constexpr Column kTsmprmvl[] = {
    Number12("TSMPRMVL_IS_NUMBER"), Char("TSMPRMVL_ORG_ID", 8), Char("TABLE_NAME", 8),
    Varchar("FIELD_NAME", 20), Number3("SEQUENCE_NUMBER", kNull),
    Varchar("FIELD_VALUE", 40, kNull),
    Viewed(Varchar("FIELD_DESC", 254, kNull), "FIELD_DESCRIPTION"),
    Char("D_USERID_CODE", 8), Date("D_LAST_UPDATE_TS"),
};
inline constexpr Column kTsrchtyp[] = {
    Char("TSRCHTYP_CATEGORY", 12), Varchar("TSRCHTYP_SUBCATGRY", 30),
    Char("TSRCHTYP_ORG_ID", 8), Char("D_USERID_CODE", 8), Date("D_LAST_UPDATE_TS"),
};
inline constexpr Column kTsrchar[] = {
    Number12("TSRCHAR_IS_NUMBER"), Char("TSRCHAR_ORG_ID", 8),
    Varchar("SEARCH_NAME", 60), Varchar("DISPLAY_NAME", 60), Char("CHAR_TYPE_CODE", 1),
    Varchar("TAXON_SORT_CODE", 45, kNull), Char("D_SCR_TYPE_CD", 4),
    Number12("EXTRNL_SERIAL_NUM", kNull), Char("UOM_TYPE", 5),
    Char("PROC_REQ_IND_CD", 1), Char("VALID_FOR_QC_IND", 1, kNull),
    Char("SAMP_FRAC_REQ_CD", 1), Char("TAXON_RANK_CODE", 8, kNull),
    Char("D_USERID_CODE", 8), Date("D_LAST_UPDATE_TS"), Char("STATUS", 3, kNull),
};
inline constexpr Column kTsrctca[] = {
    Number12("TSRCHAR_IS_NUMBER"), Char("TSRCHAR_ORG_ID", 8),
    Char("TSRCHTYP_CATEGORY", 12), Varchar("TSRCHTYP_SUBCATGRY", 30),
    Char("TSRCHTYP_ORG_ID", 8), Char("D_USERID_CODE", 8), Date("D_LAST_UPDATE_TS"),
};
inline constexpr Column kTsmgeopa[] = {
    Number12("TSMGEOPA_IS_NUMBER"), Char("TSMGEOPA_ORG_ID", 8),
    Number14_4("LAT_MIN_DEGREE", kNull), Number14_4("LAT_MAX_DEGREE", kNull),
    Number14_4("LONG_MIN_DEGREE", kNull), Number14_4("LONG_MAX_DEGREE", kNull),
    Char("FIPS_COUNTY_CODE", 3, kNull), Varchar("COUNTY_NAME", 25, kNull),
    Char("STATE_FIPS_CODE", 2), Varchar("STATE_NAME", 21), Char("STATE_POSTAL_CODE", 2, kNull),
    Char("COUNTRY_CODE", 2), Char("COUNTRY_NAME", 13), Char("COASTAL_IND_CD", 1),
    Char("GREAT_LAKE_IND_CD", 1), Char("D_USERID_CODE", 8), Date("D_LAST_UPDT_TS"),
};
inline constexpr Column kTsrcalt[] = {
    Number12("TSRCALT_IS_NUMBER"), Char("TSRCALT_ORG_ID", 8), Varchar("TYPE_NAME", 30),
    Char("TYPE_CATEGORY", 2),
};
inline constexpr Column kTsrchals[] = {
    Number12("TSRCHALS_IS_NUMBER"),
    // Added: the ORG ID half of the alias's identity.
    Char("TSRCHALS_ORG_ID", 8), Varchar("NAME", 500), Varchar("SEARCH_NAME", 500),
    Number12("TSRCHAR_IS_NUMBER"), Char("TSRCHAR_ORG_ID", 8),
    // Added: the alias type, through which the search joins
    // TSRCALT.
    Number12("TSRCALT_IS_NUMBER"), Char("TSRCALT_ORG_ID", 8),
};
inline constexpr Column kTsmstatn[] = {
    Number12("TSMSTATN_IS_NUMBER"), Char("TSMSTATN_ORG_ID", 8),
    Number12("TSMVSTC_IS_NUMBER"), Char("TSMVSTC_ORG_ID", 8),
};
inline constexpr Column kTsmfsa[] = {
    Char("D_USERID_CODE", 8), Date("D_LAST_UPDATE_TS"), Number12("TSMSTATN_IS_NUMBER"),
    Char("TSMSTATN_ORG_ID", 8), Char("TSMSIC_CODE", 4), Char("TSMSIC_ORG_ID", 8),
};
inline constexpr Column kTsmsprng[] = {
    Char("PERMANENCE_CODE", 1), Number12("TSMSTATN_IS_NUMBER"), Char("TSMSTATN_ORG_ID", 8),
    Char("TSMGEOUN_CD", 12), Char("TSMGEOUN_ORG_ID", 8),
};
inline constexpr Column kTsmigua[] = {
    Number12("TSMIGUA_IS_NUMBER"), Char("TSMIGUA_ORG_ID", 8), Char("TSMGEOUN_CD", 12),
    Char("TSMGEOUN_ORG_ID", 8),
};
inline constexpr Column kTsmalp[] = {
    Number12("TSMALP_IS_NUMBER"), Char("TSMALP_ORG_ID", 8),
    Number12("TSMGEOPA_IS_NUMBER", kNull), Char("TSMGEOPA_ORG_ID", 8, kNull),
    Number12("TSMGEOPA0IS_NUMBER", kNull), Char("TSMGEOPA0ORG_ID", 8, kNull),
    Char("TSMNAL_CD", 5, kNull), Char("TSMNAL_STATE", 2, kNull),
    Char("TSMNAL_ORG_ID", 8, kNull),
};
inline constexpr Column kTsrfdact[] = {
    Number12("TSRFDACT_IS_NUMBER"), Char("TSRFDACT_ORG_ID", 8),
    Number12("TSRBIOPT_IS_NUMBER"), Char("TSRBIOPT_ORG_ID", 8),
};
inline constexpr Column kTsrrsult[] = {
    Number12("TSRRSULT_IS_NUMBER"), Char("TSRRSULT_ORG_ID", 8), Number12("TSRUOM_IS_NUMBER"),
    Char("TSRUOM_ORG_ID", 8),
};
inline constexpr Column kTsrrci[] = {
    Char("D_USERID_CODE", 8), Char("TSRRSULT_ORG_ID", 8), Number12("TSRRSULT_IS_NUMBER"),
    Number12("TSRUOM_IS_NUMBER"), Char("TSRUOM_ORG_ID", 8),
};
inline constexpr Column kTsrrqcaf[] = {
    Number12("TSRRQCAF_IS_NUMBER"), Char("TSRRQCAF_ORG_ID", 8), Number12("TSRUOM_IS_NUMBER"),
    Char("TSRUOM_ORG_ID", 8),
};
inline constexpr Column kTsrdql[] = {
    Char("D_USERID_CODE", 8), Number12("TSRRSULT_IS_NUMBER"), Char("TSRRSULT_ORG_ID", 8),
    Number12("TSRUOM_IS_NUMBER"), Char("TSRUOM_ORG_ID", 8),
};

}  // namespace columns

// Lookups of a row's view attributes among a table's columns. A name the
// table does not hold stops the compilation.
constexpr bool SameName(const char* x, const char* y) {
  for (; *x != '\0' && *x == *y; ++x, ++y) {
  }
  return *x == *y;
}
// The column that view attribute `name` of a row of `table` stands for: the
// column of that name or of that view attribute name; the stamp
// D_LAST_UPDATE_TIMESTAMP is the column D_LAST_UPDATE_TS of a table, or
// D_LAST_UPDT_TS where the table names it so (the code tables TSMGEOUN,
// TSMSIC, TSMLTHUN).
constexpr const Column& ColumnOfAttribute(std::span<const Column> table, const char* name) {
  const char* attribute = name;
  if (SameName(name, "D_LAST_UPDATE_TIMESTAMP")) {
    name = "D_LAST_UPDATE_TS";
    for (const Column& c : table)
      if (SameName(c.name, "D_LAST_UPDT_TS")) name = "D_LAST_UPDT_TS";
  }
  for (const Column& c : table)
    if (SameName(c.name, name) || (c.attribute != nullptr && SameName(c.attribute, attribute)))
      return c;
  throw "a column that the table does not hold";
}

// Bytes that view attribute `name` takes: a text its width and the NUL, a
// timestamp 21, any number a double's 8 (number(3) too, which the statements
// bind as a 2-byte integer).
constexpr int StorageOf(std::span<const Column> table, const char* name) {
  const Column& c = ColumnOfAttribute(table, name);
  switch (c.type) {
    case ColumnType::kChar:
    case ColumnType::kVarchar: return c.width + 1;
    case ColumnType::kDate: return 21;
    default: return 8;
  }
}

}  // namespace lk::store

#endif  // WATRIX_STORE_COLUMNS_H_
