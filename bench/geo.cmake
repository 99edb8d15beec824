tarvik_add_benchmark(bench_geo SOURCES geo_bench.cpp LIBS tarvik_nav)
