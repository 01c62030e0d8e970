# Compiler settings that every target of ours shares, gathered in one interface library.
add_library(ornivo_options INTERFACE)
target_compile_options(ornivo_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)

if(ORNIVO_SANITIZE)
  target_compile_options(ornivo_options INTERFACE
    -fsanitize=${ORNIVO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(ornivo_options INTERFACE -fsanitize=${ORNIVO_SANITIZE})
endif()

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()
