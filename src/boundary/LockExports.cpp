// Makes the library emit the inline lock classes of the runtime, which it exports.

#define TVL_EMIT_LOCK_CLASSES
#include "tvl/tvl.h"
