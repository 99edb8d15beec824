tarvik_fuzz_target(tk_reader ${CMAKE_CURRENT_SOURCE_DIR}/tk_reader.cpp tarvik_nav)
