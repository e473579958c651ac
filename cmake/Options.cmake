option(QUILLMARSH_TESTS "Build the tests" OFF)
option(QUILLMARSH_BENCH "Build the benchmarks" OFF)
option(QUILLMARSH_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(QUILLMARSH_TSAN "Build with the thread sanitizer" OFF)
option(QUILLMARSH_FUZZ "Build the fuzz targets, with clang" OFF)
option(QUILLMARSH_WERROR "Treat warnings as errors" OFF)
option(QUILLMARSH_HEADER_CHECK "Compile every header alone" OFF)

set(QUILLMARSH_BUNDLE_IDENTIFIER "org.quillmarsh.Quillmarsh")

# What the program says it is, and what updates are compared with.
option(QUILLMARSH_BETA "Build a beta of the version, which is older than the version itself" OFF)
set(QUILLMARSH_VERSION ${PROJECT_VERSION})
if(QUILLMARSH_BETA)
  string(APPEND QUILLMARSH_VERSION b)
endif()

# Where updates come from; both or neither (docs/publishing.md).
set(QUILLMARSH_FEED_URL "" CACHE STRING "HTTPS address of the update feed")
set(QUILLMARSH_FEED_KEY "" CACHE STRING "Ed25519 public key of the update feed, base64")
if(QUILLMARSH_FEED_URL AND NOT QUILLMARSH_FEED_URL MATCHES "^https://[^\"\\]+$")
  message(FATAL_ERROR "QUILLMARSH_FEED_URL must be an https address")
endif()
if(QUILLMARSH_FEED_URL AND NOT QUILLMARSH_FEED_KEY MATCHES "^[A-Za-z0-9+/]+=$")
  message(FATAL_ERROR "QUILLMARSH_FEED_URL needs QUILLMARSH_FEED_KEY, a public key in base64")
endif()

# Where feedback and reports go; without it they become a file and a mail.
set(QUILLMARSH_FEEDBACK_URL "" CACHE STRING "HTTPS address that receives feedback and reports")
if(QUILLMARSH_FEEDBACK_URL AND NOT QUILLMARSH_FEEDBACK_URL MATCHES "^https://[^\"\\]+$")
  message(FATAL_ERROR "QUILLMARSH_FEEDBACK_URL must be an https address")
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

# Everything compiled here obeys the same warnings; a third party's headers are system headers.
add_library(quillmarsh_flags INTERFACE)
target_compile_options(quillmarsh_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual
  -Wformat=2 -Wduplicated-cond -Wlogical-op -Wnull-dereference)
if(QUILLMARSH_WERROR)
  target_compile_options(quillmarsh_flags INTERFACE -Werror)
endif()
if(QUILLMARSH_SANITIZE)
  # What the sanitizers put in between hides from g++ 14 that an empty optional is not read; a
  # release build, which has nothing in between, is the one that looks for this.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
    -fno-omit-frame-pointer -Wno-maybe-uninitialized)
  add_link_options(-fsanitize=address,undefined)
endif()
if(QUILLMARSH_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address -fno-omit-frame-pointer
    -Wno-unknown-warning-option)
  add_link_options(-fsanitize=address)
endif()
if(QUILLMARSH_TSAN)
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()
target_compile_definitions(quillmarsh_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
