# The order of the interface's slots, under both C++ ABIs: read from the built library here, and, where clang is
# installed, laid out from the header for the other one.

set(_slots "${CMAKE_CURRENT_SOURCE_DIR}/data/slots.txt")

if(UNIX AND NOT CMAKE_CROSSCOMPILING)
    add_test(NAME slot_order_library COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/checks/slots.py"
        library "${CMAKE_NM}" "${CMAKE_READELF}" "$<TARGET_FILE:vantixdatacenter>" "${_slots}")
endif()

find_program(VANTIX_CLANG NAMES clang++ DOC "A clang that can lay tables out for other systems")
if(VANTIX_CLANG)
    add_test(NAME slot_order_msvc COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/checks/slots.py"
        msvc "${VANTIX_CLANG}" "${CMAKE_CURRENT_SOURCE_DIR}/checks/msvc-abi/Interface.cpp"
        "${CMAKE_CURRENT_SOURCE_DIR}/checks/msvc-abi/stand-in" "${PROJECT_SOURCE_DIR}/include" "${_slots}")
    # Beside the interface, what hosts fill and read passes that compiler family's rules as well.
    file(GLOB _headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/include/vantix/records/*.h")
    list(TRANSFORM _headers PREPEND "-include;" OUTPUT_VARIABLE _included)
    add_test(NAME msvc_records COMMAND "${VANTIX_CLANG}" --target=x86_64-pc-windows-msvc -std=c++17 -fsyntax-only
        -Wall -Wextra -Werror -nostdinc "-I${CMAKE_CURRENT_SOURCE_DIR}/checks/msvc-abi/stand-in"
        "-I${PROJECT_SOURCE_DIR}/include" "-I${PROJECT_SOURCE_DIR}/src" ${_included}
        "${CMAKE_CURRENT_SOURCE_DIR}/checks/msvc-abi/Interface.cpp")
else()
    message(STATUS "No clang++: the slot order is not checked for the other C++ ABI")
endif()
