tarvik_fuzz_target(ozi_map ${CMAKE_CURRENT_SOURCE_DIR}/ozi_map.cpp tarvik_maps)
