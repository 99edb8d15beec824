tarvik_add_benchmark(bench_poi SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/poi_bench.cpp LIBS tarvik_nav)
