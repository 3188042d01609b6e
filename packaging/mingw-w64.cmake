# Builds clients for 64-bit Windows on Debian, with the package g++-mingw-w64-x86-64-posix:
#   cmake -S . -B build -DCMAKE_TOOLCHAIN_FILE=<this file>
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
