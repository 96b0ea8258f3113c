# Cross-building for 64-bit Windows with MinGW-w64 (posix threads). scripts/windows leaves the libraries where this file
# looks for them, and the Wine runner starts what the build makes.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(_triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${_triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${_triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${_triplet}-windres)
unset(_triplet)

if(DEFINED ENV{XDG_CACHE_HOME})
    set(_libraries "$ENV{XDG_CACHE_HOME}/vantix-datacenter/windows")
else()
    set(_libraries "$ENV{HOME}/.cache/vantix-datacenter/windows")
endif()
set(VANTIX_WINDOWS_LIBRARIES "${_libraries}" CACHE PATH "Folder with the libraries built for Windows, one folder each")
unset(_libraries)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
foreach(_name curl jsoncpp googletest nlohmann-json)
    list(APPEND CMAKE_FIND_ROOT_PATH "${VANTIX_WINDOWS_LIBRARIES}/${_name}")
endforeach()
unset(_name)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VANTIX_WINDOWS_LIBRARIES)

# Windows 10 and later. The compiler's run-time libraries go into every program and DLL: nothing but the system's own
# DLLs is needed beside them.
set(CMAKE_C_FLAGS_INIT "-D_WIN32_WINNT=0x0A00")
set(CMAKE_CXX_FLAGS_INIT "-D_WIN32_WINNT=0x0A00")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")

set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../../scripts/lib/wine-run")
