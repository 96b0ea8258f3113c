# What the README and the other documents say of the sources is true of them: the quoted host, the return codes, and
# the files that they link to.

set(_readme "${CMAKE_CURRENT_SOURCE_DIR}/checks/readme.py")
add_test(NAME readme COMMAND "${Python3_EXECUTABLE}" "${_readme}" "${PROJECT_SOURCE_DIR}")
add_test(NAME readme_self_test COMMAND "${Python3_EXECUTABLE}" "${_readme}" --self-test)
