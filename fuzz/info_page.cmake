tarvik_fuzz_target(info_page ${CMAKE_CURRENT_SOURCE_DIR}/info_page.cpp tarvik_integrations)
