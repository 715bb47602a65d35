// UOM1_UNIT_OF_MEASURE_PREVIEW (392; dialog 395): the units of measure of
// one type, entered from elsewhere with a characteristic's UOM_TYPE in
// EXPORT.CHARACTERISTIC (patterns/preview_list.h). No flow of this module
// reaches it; it has one view name row, its name.
//
//   Open        the dialog made 450 high; the characteristic from the
//               import view, its ORG ID := "ZZZZZZZZ";
//               READ_UNIT_OF_MEASURE_PREVIEW with the type; the rows into
//               the group.
//   "Show All Units" Changed (UOM1_SHOW_ALL_FLAG_CHG)  FLAG "Y": the read
//               of every type ("AL"), else of the characteristic's type
//               again; ORG ID "ZZZZZZZZ".
//   Click, DoubleClick (UOM1_GROUP_LB_CLK)  the preview's marking of a row.
//   "C&lose"    EXIT_RETURN: the link ends.
//
// Views: EXPORT.CHARACTERISTIC (UOM_TYPE, TSRCHAR_ORG_ID),
// EXPORT.RUNTIME_SUPPLIED (SUBSCRIPT, FLAG), GRP_EXPORT.RUNTIME_SUPPLIED
// (the marks) and GRP_EXPORT.UNIT_OF_MEASURE, 2000 rows.
#ifndef WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_PREVIEW_H_
#define WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_PREVIEW_H_

#include <cstddef>
#include <cstdint>

#include "frame/design_rows.h"
#include "frame/entry.h"
#include "frame/tables.h"
#include "frame/unit.h"
#include "frame/views.h"
#include "frame/window_decl.h"
#include "modules/unit_of_measure/unit_of_measure_views.h"
#include "patterns/first_page_list.h"
#include "patterns/row_forms.h"
#include "patterns/stack_views.h"

namespace lk::unit_of_measure {

inline constexpr char kPreviewName[] = "UOM1_UNIT_OF_MEASURE_PREVIEW";
inline constexpr char kPreviewTitle[] = "UOM1 Unit of Measure Preview";

// A row of the preview, in the order of the list's columns (the cursor
// selects the short form before the type; its columns bind by name).
#define LK_UOM_PREVIEW(X)                     \
  X(TSRUOM_IS_NUMBER, kIsNumberType, false)   \
  X(TSRUOM_ORG_ID, kOrgIdType, false)         \
  X(UOM_TYPE, kUomTypeType, true)             \
  X(SHORT_FORM_NAME, kShortFormType, true)    \
  X(DESCRIPTION_TEXT, kDescriptionType, false)
LK_ROW_FORMS(UomPreview, kPreviewRows, store::columns::kTsruom, LK_UOM_PREVIEW,
             TSRUOM_IS_NUMBER, TSRUOM_ORG_ID);
#undef LK_UOM_PREVIEW

struct PreviewImport {
  char reserved[4];
  struct {
    char UOM_TYPE[6];
    char TSRCHAR_ORG_ID[9];
  } CHARACTERISTIC;
  struct {
    char SUBSCRIPT[8];
    char FLAG[2];
  } RUNTIME_SUPPLIED;
  patterns::MarksImportGroup<kPreviewRows> GRP_EXPORT;
};

struct PreviewExport {
  std::uint32_t reserved;
  struct {
    Shown<6> UOM_TYPE;
    Shown<9> TSRCHAR_ORG_ID;
  } CHARACTERISTIC;
  struct {
    Shown<8> SUBSCRIPT;
    Shown<2> FLAG;
  } RUNTIME_SUPPLIED;
  UomPreviewForms::Group GRP_EXPORT;
};

struct PreviewDictionary {
  using Import = PreviewImport;
  using Export = PreviewExport;
  static const ViewRow kViewRows[];
  static const GroupRow kGroupRows[];
  static const ViewShape kShape;
};

inline constexpr ViewNameRow kPreviewViews = {kPreviewName, PreviewDictionary::kViewRows,
                                              PreviewDictionary::kGroupRows, 392};

// The units of UOM1.
struct Preview {
  static void Body(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Open(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void ShowAll(HandleA a, HandleB b, RunContext* rc, void* import_view,
                      void* export_view);
  static void Click(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Close(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
};

char* PreviewRowAddress(void* export_view, int row);

// ---- UOM1: the list 399 under the statics 396 to 398, "Show All Units",
// "C&lose", "&Help" ----

inline constexpr u32 kPreviewTypeEnd = kDisplayWidth + 6;
inline constexpr u32 kPreviewShortEnd = kPreviewTypeEnd + kDisplayWidth + 11;
inline constexpr u32 kPreviewRowSize = kPreviewShortEnd + kDisplayWidth + 51;
inline constexpr ListColumnRow kPreviewColumns[] = {
    {9u | (7u << 16), 40u | (7u << 16), 42, 'L', kDisplayWidth, kPreviewTypeEnd, kUomTypeType, 0,
     396, {0, 0}},
    {44u | (7u << 16), 90u | (7u << 16), 92, 'L', kPreviewTypeEnd + kDisplayWidth,
     kPreviewShortEnd, kShortFormType, 0, 397, {0, 0}},
    {94u | (7u << 16), 250u | (7u << 16), 252, 'L', kPreviewShortEnd + kDisplayWidth,
     kPreviewRowSize, kDescriptionType, 0, 398, {0, 0}},
    {},
};
inline constexpr ListDescriptor kPreviewList = {(kPreviewRowSize << 16) | kTagList,
                                                kPreviewColumns, 0, PreviewRowAddress};
inline constexpr const char* kPreviewColumnNames[] = {
    "GRP_EXPORT.UNIT_OF_MEASURE.UOM_TYPE", "GRP_EXPORT.UNIT_OF_MEASURE.SHORT_FORM_NAME",
    "GRP_EXPORT.UNIT_OF_MEASURE.DESCRIPTION_TEXT", nullptr};
inline constexpr ValueDictionary kShowAllValues = {patterns::kYesNoList, "S ", 1, 0, nullptr, 0};
inline constexpr CheckDescriptor kShowAll = {(1u << 16) | kTagCheck, 2, &kShowAllValues};

inline constexpr UnitId kPreviewBodyId = {"0000012801", "UOM1_UNIT_OF_MEASURE_PREVIEW"};
inline constexpr UnitId kPreviewOpenId = {"0000012802", "UOM1_UNIT_OF_MEASURE_PREVIEW_OPEN"};
inline constexpr UnitId kShowAllId = {"0000012803", "UOM1_SHOW_ALL_FLAG_CHG"};
inline constexpr UnitId kPreviewClickId = {"0000012804", "UOM1_GROUP_LB_CLK"};
inline constexpr UnitId kPreviewCloseId = {"0000012805", "UOM1_PB_CLOSE_CLK"};

inline constexpr ControlDecl kPreviewControls[] = {
    ListBox(399, "ListBox1", &kPreviewList, kPreviewColumnNames,
            "GRP_EXPORT.RUNTIME_SUPPLIED.SELECT_CHAR", Preview::Click, Preview::Click),
    Field(400, "FLAG1", &kShowAll, 0, "EXPORT.RUNTIME_SUPPLIED.FLAG",
          {"Changed", Preview::ShowAll, nullptr, 'Y'}),
    Button(401, "Button1", Click(Preview::Close)),
    HelpButton(402, "Button2"),
};
inline constexpr WindowDecl kPreviewWindow =
    DeclareWindow(392, 395, "DD", kPreviewName, kPreviewViews, kPreviewControls,
                  {"Open", Preview::Open});

}  // namespace lk::unit_of_measure

#endif  // WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_PREVIEW_H_
