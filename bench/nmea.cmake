tarvik_add_benchmark(bench_nmea SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/nmea_bench.cpp LIBS tarvik_gps)
add_executable(nmea_checksum_pass ${CMAKE_CURRENT_SOURCE_DIR}/nmea_checksum_pass.cpp)
