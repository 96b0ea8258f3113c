# Every slot of the interface is called by the tests that talk to the loopback cloud, and by those that hand in hostile
# arguments.

set(_exercised "${CMAKE_CURRENT_SOURCE_DIR}/checks/exercised-slots.py")
add_test(NAME exercised_slots COMMAND "${Python3_EXECUTABLE}" "${_exercised}" "${CMAKE_CURRENT_SOURCE_DIR}/data/slots.txt"
    "${PROJECT_SOURCE_DIR}/include/vantix/IVantixDataCenter.h" "${CMAKE_CURRENT_SOURCE_DIR}/support/Operations.cpp"
    "${CMAKE_CURRENT_SOURCE_DIR}/integration" "${CMAKE_CURRENT_SOURCE_DIR}/unit/boundary")
add_test(NAME exercised_slots_self_test COMMAND "${Python3_EXECUTABLE}" "${_exercised}" --self-test)
