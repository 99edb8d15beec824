tarvik_fuzz_target(doc_replay ${CMAKE_CURRENT_SOURCE_DIR}/doc_replay.cpp tarvik_gps)
