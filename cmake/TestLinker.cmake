# lld links the programs that only tests run, in a twentieth of the time; what ships has the compiler's own linker.
function(mirovel_link_fast name)
  find_program(MIROVEL_LLD ld.lld)
  if(NOT MIROVEL_LLD)
    return()
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND NOT WIN32)
    target_link_options(${name} PRIVATE -fuse-ld=lld)
  elseif(MINGW AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_HOST_UNIX)
    # A relative path: GCC splits this option at commas, which a folder's name may hold.
    file(RELATIVE_PATH wrapper ${CMAKE_BINARY_DIR} ${PROJECT_SOURCE_DIR}/cmake/link-with-lld)
    target_link_options(${name} PRIVATE -fno-use-linker-plugin "SHELL:-wrapper ${wrapper}")
  endif()
endfunction()
