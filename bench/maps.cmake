tarvik_add_benchmark(bench_maps SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/maps_bench.cpp LIBS tarvik_maps)
