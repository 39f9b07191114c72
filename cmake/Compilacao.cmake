# How this project compiles its own sources: kx_opcoes carries it, and nothing of it reaches those
# who link the library. Warnings are errors in the presets alone: compilers and options that nobody
# here tried warn where there is no fault.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release)
endif()

add_library(kx_opcoes INTERFACE)
if(MSVC)
  target_compile_options(kx_opcoes INTERFACE /W4 /utf-8 /permissive- /Zc:__cplusplus
    /Zc:preprocessor)
else()
  target_compile_options(kx_opcoes INTERFACE -Wall -Wextra -Wpedantic -Wconversion)
endif()
target_include_directories(kx_opcoes INTERFACE ${PROJECT_BINARY_DIR})  # gerado/

if(KX_SANITIZADORES)
  set(sanitizadores -fsanitize=${KX_SANITIZADORES} -fno-sanitize-recover=all)
  target_compile_options(kx_opcoes INTERFACE ${sanitizadores} -fno-omit-frame-pointer)
  target_link_options(kx_opcoes INTERFACE ${sanitizadores})
  # The instrumented code makes GCC see uninitialised memory where there is none (in std::regex).
  target_compile_options(kx_opcoes INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()

if(KX_FUZZ)  # what guides a fuzzer
  target_compile_options(kx_opcoes INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(KX_COBERTURA)
  target_compile_options(kx_opcoes INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(kx_opcoes INTERFACE --coverage)
endif()

# The own sources of tests and fuzzers: optimised templates over every class would take most of the build, and so
# would the checks of undefined behaviour, which the library and the tool keep.
set(KX_OPCOES_DE_TESTE -O0)
if(KX_SANITIZADORES MATCHES "undefined")
  list(APPEND KX_OPCOES_DE_TESTE -fno-sanitize=undefined)
endif()
