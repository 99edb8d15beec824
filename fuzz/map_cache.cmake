tarvik_fuzz_target(map_cache ${CMAKE_CURRENT_SOURCE_DIR}/map_cache.cpp tarvik_maps)
