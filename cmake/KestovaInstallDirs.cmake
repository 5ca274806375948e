# Where things lie below the prefix that the project is installed to. Programs and files find each other by
# paths relative to themselves, so that an installed tree may be moved.
foreach(folder IN ITEMS BINDIR LIBDIR INCLUDEDIR DATADIR)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${folder}}")
    message(FATAL_ERROR "CMAKE_INSTALL_${folder} is ${CMAKE_INSTALL_${folder}}: expected a folder below the prefix")
  endif()
endforeach()
set(KESTOVA_INSTALL_SKINS ${CMAKE_INSTALL_DATADIR}/KestovaTimelineQU/skins)
set(KESTOVA_INSTALL_SAMPLES ${CMAKE_INSTALL_DATADIR}/kestova-host/samples)
set(KESTOVA_INSTALL_DOCS ${CMAKE_INSTALL_DATADIR}/doc/KestovaTimelineQU)
set(KESTOVA_INSTALL_CMAKE ${CMAKE_INSTALL_LIBDIR}/cmake/KestovaTimelineQU)
set(KESTOVA_INSTALL_PKGCONFIG ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Gives RESULT the way from one installed folder to another, both below the prefix.
function(kestova_way result from to)
  file(RELATIVE_PATH way /prefix/${from} /prefix/${to})
  string(REGEX REPLACE "/$" "" way "${way}")
  set(${result} ${way} PARENT_SCOPE)
endfunction()
