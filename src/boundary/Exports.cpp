// The two exported functions.

#include "boundary/CVantixDataCenterWrapper.h"
#include "core/CoreInstance.h"
#include "vantix/IVantixDataCenter.h"

vantix::IVantixDataCenter* CreateVantixDataCenterInstance() {
    return new vantix::CVantixDataCenterWrapper(&vantix::CoreInstance());
}

void DestroyVantixDataCenterInstance(vantix::IVantixDataCenter* instance) { delete instance; }
