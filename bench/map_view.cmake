tarvik_add_benchmark(bench_map_view SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/map_view_bench.cpp LIBS tarvik_maps_ui)
