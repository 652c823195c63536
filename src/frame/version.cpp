#include "arguments.h"

// The version as text, for bindings that load the library: they compare it with the version that
// they were written for. It is data, so that the routines are all that can be called.
#define KEZ_TEXT_OF(x) #x
#define KEZ_TEXT(x) KEZ_TEXT_OF(x)

extern "C" {

KEZ_API extern const char kezlib_version[];
const char kezlib_version[] =
    KEZ_TEXT(KEZ_VERSION_MAJOR) "." KEZ_TEXT(KEZ_VERSION_MINOR) "." KEZ_TEXT(KEZ_VERSION_PATCH);

}  // extern "C"
