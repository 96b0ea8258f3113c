# JsonCpp::JsonCpp, from JsonCpp's own package files or by looking for its header and library.

if(NOT TARGET JsonCpp::JsonCpp)
    find_path(JSONCPP_INCLUDE_DIR json/json.h PATH_SUFFIXES jsoncpp)
    find_library(JSONCPP_LIBRARY NAMES jsoncpp jsoncpp_static)
    include(FindPackageHandleStandardArgs)
    find_package_handle_standard_args(JsonCpp REQUIRED_VARS JSONCPP_LIBRARY JSONCPP_INCLUDE_DIR)
    if(JsonCpp_FOUND)
        add_library(JsonCpp::JsonCpp UNKNOWN IMPORTED)
        set_target_properties(JsonCpp::JsonCpp PROPERTIES
            IMPORTED_LOCATION "${JSONCPP_LIBRARY}" INTERFACE_INCLUDE_DIRECTORIES "${JSONCPP_INCLUDE_DIR}")
    endif()
    mark_as_advanced(JSONCPP_INCLUDE_DIR JSONCPP_LIBRARY)
endif()
