# json11::json11 as a static, position-independent library of this build, from the two source files that
# scripts/setup took out of a Debian source package. Compiled here, and not once for all, so that sanitizers and
# cross builds get their own.
#
#   VANTIX_JSON11_DIR   the folder with include/json11.hpp and src/json11.cpp
#
# A package manager's own json11 (a config package) is used when it offers one.

if(TARGET json11::json11)
    return()
endif()

if(DEFINED ENV{XDG_CACHE_HOME})
    set(_json11_cache "$ENV{XDG_CACHE_HOME}")
else()
    set(_json11_cache "$ENV{HOME}/.cache")
endif()
set(VANTIX_JSON11_DIR "${_json11_cache}/vantix-datacenter/json11"
    CACHE PATH "Folder with include/json11.hpp and src/json11.cpp, as scripts/setup leaves it")
unset(_json11_cache)

if(NOT EXISTS "${VANTIX_JSON11_DIR}/src/json11.cpp")
    find_package(json11 CONFIG QUIET)
    if(TARGET json11::json11)
        return()
    endif()
endif()

include(FindPackageHandleStandardArgs)
find_file(JSON11_SOURCE json11.cpp PATHS "${VANTIX_JSON11_DIR}/src" NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
find_path(JSON11_INCLUDE_DIR json11.hpp PATHS "${VANTIX_JSON11_DIR}/include" NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
find_package_handle_standard_args(json11
    REQUIRED_VARS JSON11_SOURCE JSON11_INCLUDE_DIR
    REASON_FAILURE_MESSAGE "json11 is not in ${VANTIX_JSON11_DIR}: run scripts/setup once, or set VANTIX_JSON11_DIR")
mark_as_advanced(JSON11_SOURCE JSON11_INCLUDE_DIR)

if(json11_FOUND)
    add_library(json11 STATIC "${JSON11_SOURCE}")
    add_library(json11::json11 ALIAS json11)
    target_include_directories(json11 SYSTEM PUBLIC "${JSON11_INCLUDE_DIR}")
    target_compile_features(json11 PUBLIC cxx_std_11)
    set_target_properties(json11 PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_CLANG_TIDY "" CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_compile_options(json11 PRIVATE $<IF:$<CXX_COMPILER_ID:MSVC>,/w,-w>)
endif()
