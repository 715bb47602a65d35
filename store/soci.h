// SOCI, as the store includes it: every file of this project that needs SOCI
// includes this header rather than <soci/soci.h>.
//
// Debian's build of SOCI announces Boost in soci-config.h, and then
// bind-values.h wants Boost.Fusion headers for its optional Boost type
// conversions. The store uses none of them, and they change no layout of a
// SOCI class (only templates inside bind-values.h look at the macro), so the
// macro is withdrawn here, before any other SOCI header reads it.
#ifndef WATRIX_STORE_SOCI_H_
#define WATRIX_STORE_SOCI_H_

#include <soci/soci-config.h>
#undef SOCI_HAVE_BOOST
#undef SOCI_HAVE_BOOST_DATE_TIME

#include <soci/soci.h>

#endif  // WATRIX_STORE_SOCI_H_
