tarvik_fuzz_target(shape_layer ${CMAKE_CURRENT_SOURCE_DIR}/shape_layer.cpp tarvik_maps)
