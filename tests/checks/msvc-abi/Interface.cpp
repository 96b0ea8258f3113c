// Makes a compiler lay out the interface's table: the constructor of a derived class refers to it.

#include "vantix/IVantixDataCenter.h"

class Derived : public vantix::IVantixDataCenter {
protected:
    Derived();
};

Derived::Derived() {}
