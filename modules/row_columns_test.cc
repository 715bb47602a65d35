// The rows of the table modules against the schema: every column that a
// module's row forms derive (patterns/row_columns.h) is a column of its
// table, of the same type, width and nullability, and a whole row holds
// every column of its table. A row that restates the schema wrongly fails here, not in a
// statement at run time.
#include <set>
#include <span>
#include <string>

#include <gtest/gtest.h>

#include "modules/biological_part/biological_part_views.h"
#include "modules/geologic_unit/geologic_unit_views.h"
#include "modules/lab_remark/lab_remark_views.h"
#include "modules/lithologic_unit/lithologic_unit_views.h"
#include "modules/permitted_value/permitted_value_views.h"
#include "modules/project_station_role/project_station_role_views.h"
#include "modules/standard_industrial_class/standard_industrial_class_views.h"
#include "modules/unit_of_measure/unit_of_measure_preview.h"
#include "modules/unit_of_measure/unit_of_measure_views.h"
#include "patterns/row_columns.h"
#include "store/schema.h"
#include "store/statement.h"

namespace lk {
namespace {

struct TableRow {
  const char* table;
  std::span<const store::HostColumn> columns;
  bool whole;  // the row holds every column of the table
};

const TableRow kRows[] = {
    {"TSMGEOUN", patterns::RowColumns<geologic_unit::UnitForms>::kAll, true},
    {"TSMGEOUN", patterns::RowColumns<geologic_unit::UnitListForms>::kAll, false},
    {"TSMLTHUN", patterns::RowColumns<lithologic_unit::LithForms>::kAll, true},
    {"TSMLTHUN", patterns::RowColumns<lithologic_unit::LithListForms>::kAll, true},
    {"TSRLBRMK", patterns::RowColumns<lab_remark::RemarkForms>::kAll, true},
    {"TSRLBRMK", patterns::RowColumns<lab_remark::RemarkListForms>::kAll, false},
    {"TSRBIOPT", patterns::RowColumns<biological_part::BioPartForms>::kAll, true},
    {"TSRBIOPT", patterns::RowColumns<biological_part::BioPartListForms>::kAll, false},
    {"TSRUOM", patterns::RowColumns<unit_of_measure::UomForms>::kAll, true},
    {"TSRUOM", patterns::RowColumns<unit_of_measure::UomPreviewForms>::kAll, false},
    {"TSMPSR", patterns::RowColumns<project_station_role::RoleForms>::kAll, true},
    {"TSMSIC", patterns::RowColumns<standard_industrial_class::SicForms>::kAll, true},
    {"TSMPRMVL", patterns::RowColumns<permitted_value::PvForms>::kAll, true},
    {"TSMPRMVL", patterns::RowColumns<permitted_value::PvTablesForms>::kAll, false},
};

bool SameType(const store::HostColumn& host, const store::Column& column) {
  switch (host.type) {
    case store::HostType::kChar:
      return column.type == store::ColumnType::kChar && column.width == host.width;
    case store::HostType::kVarchar:
      return column.type == store::ColumnType::kVarchar && column.width == host.width;
    case store::HostType::kNumber:
      return column.type == store::ColumnType::kNumber12 ||
             column.type == store::ColumnType::kNumber14_4;
    case store::HostType::kSmall:
      return column.type == store::ColumnType::kNumber3;
    case store::HostType::kDate:
      return column.type == store::ColumnType::kDate;
  }
  return false;
}

TEST(RowColumnsTest, EveryRowAgreesWithItsTable) {
  for (const TableRow& row : kRows) {
    SCOPED_TRACE(row.table);
    const store::Table* table = store::FindTable(row.table);
    ASSERT_NE(nullptr, table);
    std::set<std::string> held;
    for (const store::HostColumn& host : row.columns) {
      SCOPED_TRACE(host.name);
      const store::Column* column = table->Find(host.name);
      ASSERT_NE(nullptr, column) << "no such column";
      EXPECT_TRUE(SameType(host, *column)) << "width " << host.width << " against "
                                           << column->width;
      // A column that may be NULL is read with an indicator.
      EXPECT_EQ(column->nullable, (host.flags & store::kNullable) != 0);
      held.insert(host.name);
    }
    if (row.whole) {
      for (const store::Column& column : table->columns)
        EXPECT_EQ(1u, held.count(column.name)) << "the row lacks " << column.name;
    }
  }
}

// The check itself: a column of another width is refused.
TEST(RowColumnsTest, AWrongWidthIsSeen) {
  const store::Table* table = store::FindTable("TSMPSR");
  ASSERT_NE(nullptr, table);
  store::HostColumn wrong = patterns::RowColumns<project_station_role::RoleForms>::kAll[2];
  ASSERT_STREQ("TYPE_NAME", wrong.name);
  EXPECT_TRUE(SameType(wrong, *table->Find("TYPE_NAME")));
  wrong.width = 31;
  EXPECT_FALSE(SameType(wrong, *table->Find("TYPE_NAME")));
}

}  // namespace
}  // namespace lk
