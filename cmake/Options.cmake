# Compiler settings that every target of ours shares, gathered in one interface library.
add_library(ornivo_options INTERFACE)
target_compile_options(ornivo_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)

# GCC 12 warns of its own std::string operator+ when it optimises.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(ornivo_options INTERFACE -Wno-restrict)
endif()

if(ORNIVO_SANITIZE)
  target_compile_options(ornivo_options INTERFACE
    -fsanitize=${ORNIVO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(ornivo_options INTERFACE -fsanitize=${ORNIVO_SANITIZE})
endif()

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()
