# The two commands a person needs: `make run` and `make test`.
BUILD   ?= build
JOBS    ?= $(shell nproc)
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60

.PHONY: run test build deps bench fuzz format clean screenshots

run: build
	$(BUILD)/apps/tarvik/tarvik --demo

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

build: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
	cmake --build $(BUILD) -j $(JOBS)

deps:
	@scripts/install-deps

bench: build
	bench/run-all $(BUILD)

fuzz: deps
	CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) -DTARVIK_FUZZ=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
	cmake --build $(FUZZ_BUILD) -j $(JOBS)
	fuzz/run-all $(FUZZ_BUILD) $(FUZZ_SECONDS)

screenshots: build
	scripts/screenshots $(BUILD) docs/screenshots
	scripts/screenshots-overlays $(BUILD) docs/screenshots

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD) $(FUZZ_BUILD)
