tarvik_fuzz_target(world_file ${CMAKE_CURRENT_SOURCE_DIR}/world_file.cpp tarvik_maps)
