# mirovel_system_headers(TARGET PUBLIC|PRIVATE NAME...) lets a target include the header-only libraries of those names,
# <NAME/...>, that the system's packages put into its include folder.
#
# That folder itself must stay out of sight: it holds the C library of the machine that builds, which the cross-compiler
# would find before its own. So the target gets a folder in the build tree that holds a link to the library and nothing
# else. Where there are no packages, -D MIROVEL_HEADERS_NAME=FOLDER says which folder holds NAME.
function(mirovel_system_headers target visibility)
  foreach(name IN LISTS ARGN)
    find_path(MIROVEL_HEADERS_${name} ${name} PATHS /usr/include REQUIRED NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
              DOC "The folder that holds the headers of ${name} in a folder of that name")
    set(folder ${PROJECT_BINARY_DIR}/system-headers/${name})
    file(MAKE_DIRECTORY ${folder})
    if(NOT EXISTS ${folder}/${name})
      file(CREATE_LINK ${MIROVEL_HEADERS_${name}}/${name} ${folder}/${name} COPY_ON_ERROR SYMBOLIC)
    endif()
    target_include_directories(${target} SYSTEM ${visibility} ${folder})
  endforeach()
endfunction()
