tarvik_fuzz_target(ov2_reader ${CMAKE_CURRENT_SOURCE_DIR}/ov2_reader.cpp tarvik_nav)
