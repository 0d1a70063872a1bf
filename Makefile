# The front door. Each goal installs the packages it misses, builds what it needs and runs.
.PHONY: run test build pictures translations bench wire package format format-check asan fuzz failover hosts clean

BOOKS ?= books

run: build/build.ninja
	cmake --build --preset dev --target qmhost qmscreens
	@tools/run $(BOOKS)

test: build
	ctest --preset dev --output-junit junit.xml
	@echo "Cases that were skipped, by their reasons:"; grep -oh 'skipped: .*' build/junit.xml | sort | uniq -c

build: build/build.ninja
	cmake --build --preset dev

# The build configures itself again when its own files change; only the presets stand outside.
build/build.ninja: CMakePresets.json | deps
	@cmake --preset dev > build.log 2>&1 || { cat build.log; rm -f build.log; exit 1; }; rm -f build.log
	@touch $@

pictures: build
	@tools/pictures

# The texts of the desk in each language, from its sources.
translations: deps
	@tools/translations

bench: deps
	cmake --preset release
	cmake --build --preset release --target qmbench qmhost poster slow_disk
	tools/bench

# What users wait for where the server is 0.7 and 5.4 ms away.
wire: deps
	cmake --preset release
	cmake --build --preset release --target qmwire
	tools/wire

# The Debian package, in the project's folder.
package: deps
	@tools/install-deps package
	cmake --preset package
	cmake --build --preset package
	cd build-package && cpack --config CPackConfig.cmake
	mv build-package/*.deb .

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

format-check: deps-ci
	git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror

# The tests of platform and core under the address and undefined-behaviour sanitizers.
asan: deps
	cmake --preset asan
	cmake --build --preset asan
	ctest --preset asan

# Every fuzzer for FUZZ_SECONDS each.
FUZZ_SECONDS ?= 30
fuzz: deps-ci
	tools/fuzz $(FUZZ_SECONDS)

# The primary of two servers is killed while hosts post, RUNS times.
RUNS ?= 10
failover: deps-ci trials
	tests/outside/failover.py build/tests/poster build/bin/qmhost $(RUNS)

# 20 hosts post at once for SECONDS, and the rates of 1 and 16.
SECONDS ?= 60
hosts: deps-ci trials
	tests/outside/many_hosts.py build/tests/poster build/bin/qmhost build/tests/slow_disk.so $(SECONDS)

.PHONY: trials
trials: build/build.ninja
	cmake --build --preset dev --target poster qmhost slow_disk

clean:
	rm -rf build build-asan build-release build-fuzz build-package

.PHONY: deps deps-ci
deps:
	@tools/install-deps
deps-ci:
	@tools/install-deps ci
