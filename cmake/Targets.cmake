# The house has one target per folder. A target's public include directory is its own folder and nothing above it, so
# code that includes a header from a folder it does not depend on does not compile.
#
# The folders below MIROVEL_SHIPPED make what is shipped and are compiled with the options of mirovel_hardening.
#
# Portable targets also build natively, where they run under sanitizers; Windows targets vanish from a native build.

function(mirovel_portable_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${arg_DEPENDS} PRIVATE mirovel_options)
  if(MIROVEL_SHIPPED)
    target_link_libraries(${name} PRIVATE mirovel_hardening)
  endif()
endfunction()

function(mirovel_windows_library name)
  if(WIN32)
    mirovel_portable_library(${name} ${ARGN})
  endif()
endfunction()

# Compiles the code of a target, which is never shipped, as fast as the compiler can.
function(mirovel_unoptimised name)
  if(NOT MSVC)
    target_compile_options(${name} PRIVATE -O0)
  endif()
endfunction()

# The same for such code that runs for long. With -O3 and a precompiled header g++ 12 also sees overlaps in its own
# library that are not there.
function(mirovel_moderately_optimised name)
  if(NOT MSVC)
    target_compile_options(${name} PRIVATE -O2)
  endif()
endfunction()

# A test program: GoogleTest, one CTest entry, or as many as SHARDS says, which share the tests and run side by side,
# each in a Wine prefix of its own. TIMEOUT is a guard against hanging, not a measure. With DISPLAY it is run where
# windows are drawn and take input. The test's own code is not optimised, unless it is OPTIMISED: most of it runs
# once, and compiling it takes longer than running it.
function(mirovel_portable_test name)
  cmake_parse_arguments(arg "DISPLAY;OPTIMISED" "TIMEOUT;SHARDS" "SOURCES;DEPENDS" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE mirovel_options ${arg_DEPENDS} mirovel_test_main)
  mirovel_link_fast(${name})
  if(arg_OPTIMISED)
    target_precompile_headers(${name} REUSE_FROM mirovel_optimised_tests)
  else()
    mirovel_unoptimised(${name})
    target_precompile_headers(${name} REUSE_FROM mirovel_test_main)
  endif()
  if(arg_DISPLAY AND CMAKE_CROSSCOMPILING_EMULATOR)
    set_target_properties(${name} PROPERTIES CROSSCOMPILING_EMULATOR "${CMAKE_CROSSCOMPILING_EMULATOR};--display")
  endif()
  set(entries ${name})
  if(arg_SHARDS)
    set(entries "")
    foreach(number RANGE 1 ${arg_SHARDS})
      list(APPEND entries ${name}_${number})
    endforeach()
  endif()
  set(index 0)
  foreach(entry IN LISTS entries)
    add_test(NAME ${entry} COMMAND ${name})
    set_tests_properties(${entry} PROPERTIES TIMEOUT ${arg_TIMEOUT})
    if(arg_DISPLAY)
      # Beside others the simulated user's input has gone astray, once in some hundred runs.
      set_tests_properties(${entry} PROPERTIES RUN_SERIAL ON LABELS display)
    endif()
    if(arg_SHARDS)
      set_tests_properties(${entry} PROPERTIES ENVIRONMENT
        "GTEST_TOTAL_SHARDS=${arg_SHARDS};GTEST_SHARD_INDEX=${index};WINEPREFIX=${CMAKE_BINARY_DIR}/wine/${entry}")
      math(EXPR index "${index} + 1")
    endif()
    if(WIN32)
      set_tests_properties(${entry} PROPERTIES FIXTURES_REQUIRED wine_prefix)
    endif()
  endforeach()
endfunction()

function(mirovel_windows_test name)
  if(WIN32)
    mirovel_portable_test(${name} ${ARGN})
  endif()
endfunction()

# A libFuzzer target; in the tests it runs a fixed number of inputs from a fixed seed, so that a run repeats exactly. A long
# run (make soak) takes a new seed each time, and says which.
function(mirovel_fuzzer name)
  if(NOT MIROVEL_FUZZERS)
    return()
  endif()
  cmake_parse_arguments(arg "" "RUNS" "SOURCES;DEPENDS" ${ARGN})
  if(NOT arg_RUNS)
    set(arg_RUNS 20000)
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  mirovel_link_fast(${name})
  target_link_libraries(${name} PRIVATE mirovel_options ${arg_DEPENDS})
  add_test(NAME ${name} COMMAND ${name} -runs=${arg_RUNS} -seed=1 -verbosity=0)
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
  add_test(NAME ${name}_long COMMAND ${name} -max_total_time=300 CONFIGURATIONS soak)
  set_tests_properties(${name}_long PROPERTIES LABELS soak TIMEOUT 900)
endfunction()
