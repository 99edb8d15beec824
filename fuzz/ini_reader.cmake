tarvik_fuzz_target(ini_reader ${CMAKE_CURRENT_SOURCE_DIR}/ini_reader.cpp tarvik_settings)
