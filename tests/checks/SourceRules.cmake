# Rules that only the sources show, such as what is never called on another system.

set(_source_rules "${CMAKE_CURRENT_SOURCE_DIR}/checks/source-rules.py")
add_test(NAME source_rules COMMAND "${Python3_EXECUTABLE}" "${_source_rules}" "${PROJECT_SOURCE_DIR}")
add_test(NAME source_rules_self_test COMMAND "${Python3_EXECUTABLE}" "${_source_rules}" --self-test)
