tarvik_fuzz_target(import_scanner ${CMAKE_CURRENT_SOURCE_DIR}/import_scanner.cpp tarvik_nav)
