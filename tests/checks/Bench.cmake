# How benchmarks are judged, and that the page on performance is what its kept results say. None of these measures.

add_test(NAME bench_self_test
    COMMAND "${Python3_EXECUTABLE}" -B "${CMAKE_CURRENT_SOURCE_DIR}/checks/bench-self-test.py" "${PROJECT_SOURCE_DIR}")
add_test(NAME performance_page COMMAND "${Python3_EXECUTABLE}" -B -m bench --check)
set_tests_properties(performance_page PROPERTIES WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}/scripts/lib")
