# SPDX-License-Identifier: Apache-2.0
# Builds for 64-bit ARM with Debian's cross compiler. The programs run here in an emulator.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc-12)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++-12)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64)
# The emulator then needs no libraries of the other architecture.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
