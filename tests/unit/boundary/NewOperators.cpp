#ifndef _WIN32
#include "support/FailingNewCFunctions.inc"
#endif
#include "support/FailingNewOperators.inc"
