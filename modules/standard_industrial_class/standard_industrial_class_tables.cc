// The view functions that RT32's list and its traits need beyond what the
// declaration in standard_industrial_class.h derives.
#include "modules/standard_industrial_class/standard_industrial_class.h"

namespace lk::standard_industrial_class {

const ViewNameRow& SicList::Views() { return kListViews; }
const ViewNameRow& SicEntry::Views() { return kEntryViews; }

}  // namespace lk::standard_industrial_class
