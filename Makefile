# The front door. Everything a run makes lies in build/ and out/; packages are installed when one is missing.
.DEFAULT_GOAL := build
.PHONY: help bootstrap configure build native demo docs settings package check test soak bench lint tidy clean

# Tools come from Debian's packages, whatever else the PATH would find first.
export PATH := /usr/sbin:/usr/bin:/sbin:/bin
jobs := $(shell nproc)

help:
	@echo 'make           install what is missing, build for Windows (build/mingw-release)'
	@echo 'make demo      build what it takes, write a report through COM and show it: results in out/demo/'
	@echo 'make docs      make the documentation as a site with search: build/mingw-release/packaging/documentation/html'
	@echo 'make settings  show the settings program; needs a display'
	@echo 'make package   make the installer and the archive, and build them a second time: results in out/package/'
	@echo 'make check     the quick part of make test: natively, in process under Wine without a display, formatting'
	@echo 'make test      build and run all tests: natively under sanitizers, and under Wine'
	@echo 'make soak      what takes long: long runs of the fuzzers, every failure at every Word call, a second build'
	@echo 'make bench     measure; the results are described in docs/performance.md'
	@echo 'make lint      formatting, line endings, headers that compile alone, a second compiler'
	@echo 'make tidy      clang-tidy over the portable code'
	@echo 'make clean     remove build/ and out/'

bootstrap:
	@scripts/bootstrap

configure: bootstrap
	@mkdir -p build
	@cmake --preset mingw-release >build/configure.log 2>&1 || { cat build/configure.log; false; }

build: configure
	@cmake --build --preset mingw-release

native: bootstrap
	@mkdir -p build
	@cmake --preset native-asan -DCMAKE_EXPORT_COMPILE_COMMANDS=ON >build/configure-native.log 2>&1 || { cat build/configure-native.log; false; }
	@cmake --build --preset native-asan

# It installs and builds less than the others, by itself.
demo:
	@scripts/demo

docs: configure
	@cmake --build --preset mingw-release --target documentation

settings: build
	@scripts/settings

package: build
	@scripts/package
	@ctest --preset mingw-release -C soak -R '^package_reproducible$$'

# End-to-end tests start clients and take their time; those with a display run alone, and take theirs.
check: native build
	@scripts/lint --quick
	@scripts/run-tests -LE "endtoend|display"

test: native build
	@scripts/lint --quick
	@scripts/run-tests

soak: native build
	@ctest --preset native-asan -C soak -L soak -j$(jobs)
	@ctest --preset mingw-release -C soak -L soak

bench: build
	@scripts/bench

lint: build
	@scripts/lint

tidy: native
	@scripts/bootstrap tidy
	@scripts/tidy

clean:
	@rm -rf build out
