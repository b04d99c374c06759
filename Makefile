# The one face of the project for people; the build itself is CMake's (CMakePresets.json).

SHELL := /bin/bash
.DEFAULT_GOAL := help
.NOTPARALLEL:

# The spec file that `make run` opens: a name in .run/specs or a path.
SPEC ?= scrib_engine_mapping
# How long `make fuzz` stays with each target.
FUZZ_SECONDS ?= 60
# How many mutations `make mutate` tries; another seed chooses others.
MUTATIONS ?= 200
SEED ?= 1
# What it takes to show the window: nothing more where there is an X display.
DISPLAY_PACKAGES := $(if $(DISPLAY),,$(if $(WAYLAND_DISPLAY),wayland,display))

install = @scripts/install-packages $(1)

.PHONY: help run test bench fuzz asan mutate lint lint-quick package package-test clean

help:
	@echo 'make run           open an example in the editor, beside a demo platform (SPEC=NAME another)'
	@echo 'make test          build and run the tests'
	@echo 'make asan          the same with AddressSanitizer and UndefinedBehaviorSanitizer'
	@echo 'make bench         measure how the time grows with the document'
	@echo 'make fuzz          feed each fuzzer for FUZZ_SECONDS=$(FUZZ_SECONDS)'
	@echo 'make mutate        change MUTATIONS=$(MUTATIONS) single lines and see whether the tests notice'
	@echo 'make lint          check the format and the habits of the sources'
	@echo 'make lint-quick    the part of it that takes seconds'
	@echo 'make package       make the Debian packages, in build/packages'
	@echo 'make package-test  install and try them in a minimal Debian of their own'
	@echo 'make clean         remove what was built'
	@echo 'What a target needs and the machine lacks is installed first (Debian 12).'

run:
	$(call install,build $(DISPLAY_PACKAGES))
	cmake --preset release
	cmake --build --preset release --target scriboneditor marvane-desk
	@scripts/in-namespace --check
	scripts/run-desk build/release '$(SPEC)'

test:
	$(call install,build display test)
	cmake --preset release
	cmake --build --preset release
	@scripts/in-namespace --check
	ctest --preset release

asan:
	$(call install,build display test)
	cmake --preset asan
	cmake --build --preset asan
	. scripts/sanitizer-options && ctest --preset asan

bench:
	$(call install,build)
	cmake --preset release
	cmake --build --preset release
	scripts/run-benchmarks build/release

fuzz:
	$(call install,build fuzz)
	cmake --preset fuzz
	cmake --build --preset fuzz
	. scripts/sanitizer-options && scripts/run-fuzzers build/fuzz $(FUZZ_SECONDS)

mutate:
	$(call install,build display test mutate)
	@scripts/in-namespace --check
	scripts/mutate --count $(MUTATIONS) --seed $(SEED)

lint:
	$(call install,build fuzz format lint)
	scripts/lint

lint-quick:
	$(call install,format)
	scripts/lint --quick

package:
	$(call install,build)
	cmake --preset release -B build/package -DSCRIBON_BUILD_TESTS=OFF -DSCRIBON_BUILD_BENCH=OFF
	cmake --build build/package
	rm -rf build/packages
	cd build/package && cpack -B ../packages
	rm -rf build/packages/_CPack_Packages

package-test: package
	$(call install,display package)
	scripts/package-test build/packages

clean:
	rm -rf build
