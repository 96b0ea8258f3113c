#include "support/TestJson.h"

template class nlohmann::basic_json<>;
