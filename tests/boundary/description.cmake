# libKestovaBoundary.so: what the exported classes are made of, compiled once more with what a debugger
# reads, of which abidw makes the description of the binary interface. The library itself and the objects
# that the tests link stay free of that. All sources are one here, which takes a few seconds (so two of
# them must not give the same name to different things, not even in unnamed namespaces).
#
# The compiler is asked to tell the insides of a type only if the file that declares it is named like the
# source (-femit-struct-debug-baseonly), and is told that our exported headers are: types of Qt, of the
# standard library and of the library's inside are known by their names alone. So the description is small,
# and the same whichever version of Qt is used.
set(folder ${CMAKE_CURRENT_BINARY_DIR}/description)
set(exports ${PROJECT_SOURCE_DIR}/timeline/KestovaTimelineQU.map)

file(GLOB sources CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/timeline/model/*.cpp ${PROJECT_SOURCE_DIR}/timeline/api/*.cpp)
list(TRANSFORM sources REPLACE "(.+)" "#include \"\\1\"")
list(APPEND sources "#include \"TimelineKeyValues.h\"")
list(JOIN sources "\n" KESTOVA_BOUNDARY_SOURCES)
configure_file(KestovaBoundary.cpp.in ${folder}/KestovaBoundary.cpp @ONLY)

file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_BINARY_DIR}/include/KestovaTimelineQU
  ${PROJECT_BINARY_DIR}/include/KestovaTimelineQU/*.h)
list(TRANSFORM headers REPLACE "[.]h$" "")
list(JOIN headers "|" headers)

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${exports})
file(READ ${exports} text)
string(REPLACE "global:" "global:\n    KestovaBoundaryTypes;" text "${text}")
file(CONFIGURE OUTPUT ${folder}/KestovaBoundary.map CONTENT "${text}" @ONLY)

set(definitions $<TARGET_PROPERTY:KestovaTimelineObjects,COMPILE_DEFINITIONS>)
set(includes $<TARGET_PROPERTY:KestovaTimelineObjects,INCLUDE_DIRECTORIES>)
separate_arguments(given UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
set(compile ${CMAKE_CXX_COMPILER} ${given} -std=c++17 -fPIC -fvisibility=hidden -fvisibility-inlines-hidden)
add_custom_command(OUTPUT ${folder}/libKestovaBoundary.so
  COMMAND ${compile} "-D$<JOIN:${definitions},;-D>" "-I$<JOIN:${includes},;-I>"
    -E -MD -MF headers.d -MT ${folder}/libKestovaBoundary.so ${folder}/KestovaBoundary.cpp -o KestovaBoundary.ii
  COMMAND sed -E -i "s,^(# [0-9]+ )\".*/(${headers})[.]h\",\\1\"KestovaBoundary.h\"," KestovaBoundary.ii
  COMMAND ${compile} -g -O0 -femit-struct-debug-baseonly -shared -Wl,--version-script=KestovaBoundary.map
    KestovaBoundary.ii -o libKestovaBoundary.so
  DEPENDS ${folder}/KestovaBoundary.cpp ${folder}/KestovaBoundary.map
  DEPFILE ${folder}/headers.d WORKING_DIRECTORY ${folder}
  COMMENT "Describing the boundary" COMMAND_EXPAND_LISTS VERBATIM)
add_custom_target(KestovaBoundary DEPENDS ${folder}/libKestovaBoundary.so)
set(KESTOVA_BOUNDARY_LIBRARY ${folder}/libKestovaBoundary.so)
