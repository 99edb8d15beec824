tarvik_fuzz_target(vantrel_command ${CMAKE_CURRENT_SOURCE_DIR}/vantrel_command.cpp tarvik_gps)
