# The two commands of the README, and a few more. Every target installs what is missing first.
BUILD ?= build
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=Debug
JOBS ?= $(shell nproc)

.PHONY: all bootstrap build run demo test bench asan format format-check clean

all: build

bootstrap:
	@scripts/bootstrap

# Again when the list of packages grows, so that an existing build folder gets them too.
$(BUILD)/build.ninja: scripts/bootstrap
	@scripts/bootstrap
	cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS)

build: $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS)

# The desktop program; with no display it says so and runs the demo instead.
run: build
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ] || [ -n "$$QT_QPA_PLATFORM" ]; then \
		$(BUILD)/src/vor $(ARGS); \
	else \
		echo "vor: no display found (neither DISPLAY nor WAYLAND_DISPLAY is set); running the headless demo instead."; \
		$(MAKE) --no-print-directory demo; \
	fi

demo: build
	@scripts/demo $(BUILD)/src/vor

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

# The import of 10,000 joined files beside a plain bulk insert of the same rows (REGISTERS=N
# for another size). Not part of the tests. Built as a release for figures that mean something.
REGISTERS ?= 10000
bench:
	$(MAKE) --no-print-directory build-bench/build.ninja BUILD=build-bench CMAKE_FLAGS="-DCMAKE_BUILD_TYPE=Release"
	cmake --build build-bench --target import_bench -j $(JOBS)
	build-bench/bench/import_bench $(REGISTERS)

# The same tests under AddressSanitizer and UBSan, in a build directory of their own.
asan:
	$(MAKE) --no-print-directory test BUILD=build-asan CMAKE_FLAGS="-DCMAKE_BUILD_TYPE=Debug -DVOR_SANITIZE=ON"

format:
	clang-format -i $$(git ls-files '*.cpp' '*.h')

format-check:
	clang-format --dry-run --Werror $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf build build-asan build-bench
