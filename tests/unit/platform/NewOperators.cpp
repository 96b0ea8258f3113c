#include "support/FailingNewOperators.inc"
