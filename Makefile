# make run    sets up, builds, and takes the shipped example through
# make test   sets up, builds, and runs all tests
# make bench  the benchmarks: ratios against a peer in the same run
# make format clang-format over our sources;  make clean  removes what was built

PRESET ?= release
BUILD  := build/$(PRESET)
JOBS   ?= $(shell nproc)

.PHONY: run test bench format clean setup build headers

run: build
	$(BUILD)/bin/orlo run $(BUILD)/examples/bracket/study.yaml --out out/bracket

test: build
	ctest --preset $(PRESET)

bench: setup
	@cmake --preset bench --log-level=WARNING $(CMAKE_ARGS)
	cmake --build --preset bench -j $(JOBS)
	cmake --build --preset bench --target bench -j 1 -- -k 0

setup:
	@scripts/setup.sh

build: setup
	@cmake --preset $(PRESET) --log-level=WARNING $(CMAKE_ARGS)
	cmake --build --preset $(PRESET) -j $(JOBS)

# Compiles every public header on its own.
headers: build
	cmake --build --preset $(PRESET) -j $(JOBS) --target all_verify_interface_header_sets

format:
	git ls-files -z -- '*.h' '*.cpp' | xargs -0 clang-format -i

clean:
	rm -rf build out
