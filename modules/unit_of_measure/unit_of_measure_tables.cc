// The row address of RT34's list, for the list's transport.
#include "modules/unit_of_measure/unit_of_measure.h"

namespace lk::unit_of_measure {

char* ListRowAddress(void* export_view, int row) {
  return static_cast<ListExport*>(export_view)->EXPORT_LIST.UOM_TYPE.display[row];
}

}  // namespace lk::unit_of_measure
