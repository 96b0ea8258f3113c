#pragma once

#include "vantix/records/DevDetailInfo.h"

namespace vantix {

/// Copies what a parser read, except the bookkeeping: cache time and marks, elapsed time, the host's flag.
void TakeOver(DevDetailInfo fresh, DevDetailInfo& device);

/// Marks the record as just fetched, if it was.
void MarkFetched(int result, DevDetailInfo& device);

}  // namespace vantix
