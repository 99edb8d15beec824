tarvik_fuzz_target(nmea_interpreter ${CMAKE_CURRENT_SOURCE_DIR}/nmea_interpreter.cpp tarvik_gps)
