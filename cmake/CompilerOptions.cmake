# Everything that depends on the compiler stands here, once per compiler.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_library(mirovel_options INTERFACE)
if(MSVC)
  target_compile_options(mirovel_options INTERFACE /W4 /WX /permissive- /utf-8 /EHa)
else()
  target_compile_options(mirovel_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
endif()

if(WIN32)
  target_compile_definitions(mirovel_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN
                                                       _WIN32_WINNT=0x0601)
endif()

if(MINGW)
  # comdef.h and the generated interface headers are full of what -Wpedantic and -Wshadow report, so they are
  # included as system headers; -Wno-unknown-pragmas is for their #pragma lines that only Microsoft's compiler knows.
  target_compile_options(mirovel_options INTERFACE -Wno-unknown-pragmas
    # g++ 12 sees an overlap in std::string's operator+ where there is none (GCC bug 105651).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # g++ takes the anonymous namespaces of files that are compiled together for a header's.
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wno-subobject-linkage>
    # g++ takes an inline function that it did not inline to be the one that the linker keeps, and keeps values in registers
    # that another file's copy of it, compiled with other options, overwrites.
    $<$<CXX_COMPILER_ID:GNU>:-fno-ipa-ra>
    # A hardware fault inside a Word call becomes a C++ exception (CSignal2Exception); the unwinder needs tables for
    # every instruction that can fault.
    -fnon-call-exceptions -fasynchronous-unwind-tables)
  # -static: the shipped DLL depends on nothing but Windows. No timestamp: the same sources give the same bytes.
  target_link_options(mirovel_options INTERFACE -static -Wl,--no-insert-timestamp)
endif()

# What ships is compiled with this as well; see MIROVEL_SHIPPED in Targets.cmake.
add_library(mirovel_hardening INTERFACE)
if(MINGW)
  target_compile_options(mirovel_hardening INTERFACE -fstack-protector-strong)
  # The linker's defaults today. They are stated so that no other linker's defaults ship.
  target_link_options(mirovel_hardening INTERFACE -Wl,--high-entropy-va,--dynamicbase,--nxcompat)
elseif(MSVC)
  target_compile_options(mirovel_hardening INTERFACE /GS)
  target_link_options(mirovel_hardening INTERFACE /HIGHENTROPYVA /DYNAMICBASE /NXCOMPAT)
endif()

if(MIROVEL_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

if(MIROVEL_FUZZERS)
  # Coverage in the code under test, not only in the fuzzer's own file: without it the inputs stay blind.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
