tarvik_fuzz_target(kal_file ${CMAKE_CURRENT_SOURCE_DIR}/kal_file.cpp tarvik_maps)
