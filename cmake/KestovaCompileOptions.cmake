# Language level, warnings and sanitizers shared by every target of the project.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)

add_compile_definitions(QT_NO_CAST_TO_ASCII QT_NO_FOREACH)

if(KESTOVA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# Applies the project's warnings to one of our own targets, as errors unless another project builds it with
# a compiler that we have not seen. Generated sources (moc, rcc) come through the same command line and are
# clean under these flags.
function(kestova_warnings target)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    return()
  endif()
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(KESTOVA_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# Has a target's sources find Qt's headers read already, which takes half of the time that they take to
# compile. Only in the builds beside the usual ones: in those, sources are held to naming what they use.
function(kestova_precompile target)
  if(KESTOVA_SANITIZE OR CMAKE_CROSSCOMPILING)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()
