# The two commands of the README, and a few more. Every target installs what is missing first.
BUILD ?= build
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=Debug
JOBS ?= $(shell nproc)

.PHONY: all bootstrap build run demo test package bench asan format format-check clean

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

# The Debian package vor_<version>_amd64.deb, into this folder: a release build with Debian's
# hardening flags, without the tests, in a build directory of its own; then lintian on it.
# Its dates are those of the last commit, so that the same commit gives the same package.
PACKAGE_BUILD ?= build-package
package:
	@scripts/bootstrap
	export DEB_BUILD_MAINT_OPTIONS=hardening=+all \
		SOURCE_DATE_EPOCH=$$(git log -1 --format=%ct 2>/dev/null || date +%s) && \
	cmake -S . -B $(PACKAGE_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Release -DVOR_TESTS=OFF \
		-DVOR_WERROR=OFF -DCMAKE_INSTALL_PREFIX=/usr \
		-DCMAKE_CXX_FLAGS="$$(dpkg-buildflags --get CXXFLAGS) $$(dpkg-buildflags --get CPPFLAGS)" \
		-DCMAKE_EXE_LINKER_FLAGS="$$(dpkg-buildflags --get LDFLAGS)"
	rm -f $(PACKAGE_BUILD)/*.deb
	cmake --build $(PACKAGE_BUILD) --target package -j $(JOBS)
	cp $(PACKAGE_BUILD)/vor_*.deb .
	lintian --fail-on error $$(basename $(PACKAGE_BUILD)/vor_*.deb)

# The import of 2,000 and of 10,000 joined files, each beside a bulk insert of the same rows
# through SQLite's own interface (REGISTERS=N for one other size). Not part of the tests. Built
# as a release for figures that mean something.
REGISTERS ?=
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
	rm -rf build build-asan build-bench build-package
