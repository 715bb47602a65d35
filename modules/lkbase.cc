// The root of liblkbase.so: the head tables assembled from the declarations
// of every module built into it, and win_head over them. The list of modules
// is written by the build from the module folders (modules/CMakeLists.txt):
// a folder modules/NAME with a header NAME.h that declares lk::NAME::kModule
// is a module of liblkbase.so.
#include "frame/head/assemble.h"
#include "frame/head/head_image.h"
#include "modules/module_list.h"

namespace lk::head {

using Tables = HeadTables<LK_MODULE_DECLARATIONS>;

}  // namespace lk::head

LK_DEFINE_WIN_HEAD(::lk::head::Tables);
