tarvik_fuzz_target(reg_import ${CMAKE_CURRENT_SOURCE_DIR}/reg_import.cpp tarvik_settings)
