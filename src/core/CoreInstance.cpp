#include "core/CoreInstance.h"

#include "core/CVantixDataCenter.h"

namespace vantix {

CVantixDataCenter& CoreInstance() {
    static CVantixDataCenter core;
    return core;
}

}  // namespace vantix
