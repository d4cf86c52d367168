# Thin wrapper over CMake/CTest; everything here also works with plain cmake and ctest.
SHELL := /bin/bash
QT_MAJORS ?= 6 5
BUILD ?= build
JOBS ?= $(shell nproc)
FUZZ_SECONDS ?= 60
export QT_QPA_PLATFORM ?= offscreen

.PHONY: all deps build demo test bench fuzz sanitize clean

all: build

# Installs whatever is missing (Debian 12, as root or with sudo).
deps:
	@bash cmake/install-deps.sh

build: deps
	cmake -S . -B $(BUILD)/qt6 -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZEMSUB_QT_MAJOR=6
	cmake --build $(BUILD)/qt6 -j $(JOBS)

# The main job: the tool over the bundled samples.
demo: build
	@bash tools/demo.sh $(BUILD)/qt6

# Configures, builds and runs the whole suite once with Qt 6 and once with Qt 5.
test: deps
	@set -e; for q in $(QT_MAJORS); do \
	  echo "=== Qt $$q ==="; \
	  cmake -S . -B $(BUILD)/qt$$q -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZEMSUB_QT_MAJOR=$$q; \
	  cmake --build $(BUILD)/qt$$q -j $(JOBS); \
	  ctest --test-dir $(BUILD)/qt$$q --output-on-failure -j $(JOBS); \
	done

# Benchmarks (optimised build); prints the targets as ratios at the end.
bench:
	@bash cmake/install-deps.sh libass-dev
	cmake -S . -B $(BUILD)/bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DZEMSUB_QT_MAJOR=6 -DZEMSUB_BUILD_BENCH=ON -DZEMSUB_BUILD_TESTS=OFF
	cmake --build $(BUILD)/bench -j $(JOBS) --target zemsub_bench
	$(BUILD)/bench/bench/zemsub_bench $(BENCH_ARGS)

sanitize: deps
	cmake -S . -B $(BUILD)/asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DZEMSUB_SANITIZE=ON
	cmake --build $(BUILD)/asan -j $(JOBS)
	ASAN_OPTIONS=detect_leaks=1 LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp \
	  ctest --test-dir $(BUILD)/asan --output-on-failure -j $(JOBS)

clean:
	rm -rf $(BUILD) out
