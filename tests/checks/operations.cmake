# The one table of all operations is true of the interface, and the page about them is what the table makes.

set(_operations "${CMAKE_CURRENT_SOURCE_DIR}/checks/operations.py")
add_test(NAME operations_page COMMAND "${Python3_EXECUTABLE}" "${PROJECT_SOURCE_DIR}/scripts/generate-docs" --check)
add_test(NAME operations_table COMMAND "${Python3_EXECUTABLE}" "${_operations}" "${PROJECT_SOURCE_DIR}")
add_test(NAME operations_self_test COMMAND "${Python3_EXECUTABLE}" "${_operations}" --self-test)
