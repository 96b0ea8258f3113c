// A shared object with nothing in it: what loading costs at least.
