# Thin wrapper over CMake/CTest; everything here also works with plain cmake and ctest.
SHELL := /bin/bash
QT_MAJORS ?= 6 5
BUILD ?= build
JOBS ?= $(shell nproc)
FUZZ_SECONDS ?= 60
FUZZ_JOBS ?= 1
export QT_QPA_PLATFORM ?= offscreen

.PHONY: all deps build demo test bench pictures-accuracy fuzz sanitize memcheck clean

all: build

# Installs whatever is missing (Debian 12, as root or with sudo).
deps:
	@bash cmake/install-deps.sh

CONFIGURE_QT6 = cmake -S . -B $(BUILD)/qt6 -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZEMSUB_QT_MAJOR=6

build: deps
	$(CONFIGURE_QT6)
	cmake --build $(BUILD)/qt6 -j $(JOBS)

# The main job: the tool over the bundled samples. Builds what it runs (the library, zemsub
# and the example host), none of the test suite.
demo: deps
	$(CONFIGURE_QT6)
	cmake --build $(BUILD)/qt6 -j $(JOBS) --target zemsub zemsub-host
	@bash tools/demo.sh $(BUILD)/qt6
	@bash tools/demo-fix.sh $(BUILD)/qt6

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

# Real picture tracks (../shared/pictures, when it is there) read by zemsub convert and
# scored by their judge: per track and overall (tools/measure-pictures.sh).
pictures-accuracy: build
	@bash tools/measure-pictures.sh $(BUILD)/qt6 $(PICTURES)

# libFuzzer targets (clang): builds them, then runs each for FUZZ_SECONDS seconds (FUZZ_JOBS
# at a time) from its seeds, the samples, the generated quirk set, the stored outputs' odd
# corners and its regression corpus; exits non-zero on any finding (fuzz/run.sh).
fuzz:
	@bash cmake/install-deps.sh clang libclang-rt-14-dev
	cmake -S fuzz -B $(BUILD)/fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DZEMSUB_QT_MAJOR=6
	cmake --build $(BUILD)/fuzz -j $(JOBS)
	FUZZ_SECONDS=$(FUZZ_SECONDS) FUZZ_JOBS=$(FUZZ_JOBS) bash fuzz/run.sh $(BUILD)/fuzz

# The whole suite under AddressSanitizer, UndefinedBehaviorSanitizer and LeakSanitizer (Qt 6).
# The one leak suppressed is the storage destroySubtitle leaves on purpose (tests/lsan.supp).
sanitize: export ASAN_OPTIONS = detect_leaks=1:fast_unwind_on_malloc=0:detect_stack_use_after_return=1:check_initialization_order=1
sanitize: export LSAN_OPTIONS = suppressions=$(CURDIR)/tests/lsan.supp:print_suppressions=0
sanitize: export UBSAN_OPTIONS = print_stacktrace=1:halt_on_error=1
sanitize: deps
	cmake -S . -B $(BUILD)/asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-g -O1" \
	  -DZEMSUB_SANITIZE=ON -DZEMSUB_QT_MAJOR=6
	cmake --build $(BUILD)/asan -j $(JOBS)
	ctest --test-dir $(BUILD)/asan --output-on-failure -j $(JOBS)

# valgrind memcheck of zemsub over the samples, on the plain build (tools/memcheck.sh).
memcheck: build
	@bash cmake/install-deps.sh valgrind
	bash tools/memcheck.sh $(BUILD)/qt6

clean:
	rm -rf $(BUILD) out
