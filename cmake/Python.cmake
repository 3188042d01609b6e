# MIROVEL_PYTHON, for generators and tests. Debian's own comes first, since the packages that some of them use are installed
# for it, whatever else the PATH names.
find_program(MIROVEL_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH)
if(NOT MIROVEL_PYTHON)
  find_program(MIROVEL_PYTHON NAMES python3 python REQUIRED)
endif()
