// A fresh process loads a library and makes its first handle:   bench_load LIBRARY FACTORY [LIBRARY_LOADED_BEFORE...]
// Prints the seconds that the load and the first call took. Without a factory ("-") the load alone.

#include <dlfcn.h>

#include <chrono>
#include <cstdio>
#include <cstring>

int main(int argc, char** argv) {
    if (argc < 3) {
        return 2;
    }
    for (int i = 3; i < argc; ++i) {
        if (dlopen(argv[i], RTLD_NOW) == nullptr) {
            std::puts(dlerror());
            return 1;
        }
    }
    const auto start = std::chrono::steady_clock::now();
    void* library = dlopen(argv[1], RTLD_NOW);
    if (library == nullptr) {
        std::puts(dlerror());
        return 1;
    }
    if (std::strcmp(argv[2], "-") != 0) {
        using Factory = void* (*)();
        const auto factory = reinterpret_cast<Factory>(dlsym(library, argv[2]));
        if (factory == nullptr || factory() == nullptr) {
            std::puts("no handle");
            return 1;
        }
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    std::printf("{\"seconds\": %.9f}\n", seconds.count());
    return 0;
}
