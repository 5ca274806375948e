# Gathers everything that a program needs on Windows in one folder of the build, bin/: our programs and the
# library go there, and Qt with its platform plugins and the compiler's run time are put beside them.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

# What is compiled into the tests as the place of a file: Wine shows this machine's files as drive Z.
set(KESTOVA_DRIVE Z:)

set(KESTOVA_WINDOWS_RUNTIME)
foreach(library IN ITEMS Qt5Core Qt5Gui Qt5Widgets Qt5Test)
  list(APPEND KESTOVA_WINDOWS_RUNTIME ${KESTOVA_QT_WINDOWS}/bin/${library}.dll)
endforeach()
foreach(library IN ITEMS libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll zlib1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
                  OUTPUT_VARIABLE found OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT IS_ABSOLUTE "${found}")
    message(FATAL_ERROR "${library} is not there; scripts/windows/fetch-tools.sh installs it")
  endif()
  list(APPEND KESTOVA_WINDOWS_RUNTIME ${found})
endforeach()
file(COPY ${KESTOVA_WINDOWS_RUNTIME} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY} FOLLOW_SYMLINK_CHAIN)
file(COPY ${KESTOVA_QT_WINDOWS}/plugins/platforms ${KESTOVA_QT_WINDOWS}/plugins/styles
     DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})

# Where Qt looks for the rest: here, and not where it was built. The platform without a screen knows no
# fonts but those in lib/fonts.
file(WRITE ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/qt.conf "[Paths]\nPrefix = .\nPlugins = .\n")
file(GLOB fonts /usr/share/fonts/truetype/dejavu/DejaVuSans*.ttf)
if(NOT fonts)
  message(FATAL_ERROR "The fonts DejaVu are not there; scripts/windows/fetch-tools.sh installs them")
endif()
file(COPY ${fonts} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/lib/fonts)

# The same for what is installed, less what only tests need: with it the programs run on a computer that has
# never seen Qt. The compiler's C++ library comes with ten times its size of debugging information.
function(kestova_install_windows_runtime)
  set(libraries ${KESTOVA_WINDOWS_RUNTIME})
  list(FILTER libraries EXCLUDE REGEX "/Qt5Test\\.dll$")
  install(FILES ${libraries} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/qt.conf
          DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime)
  install(FILES ${KESTOVA_QT_WINDOWS}/plugins/platforms/qwindows.dll
                ${KESTOVA_QT_WINDOWS}/plugins/platforms/qoffscreen.dll
          DESTINATION ${CMAKE_INSTALL_BINDIR}/platforms COMPONENT Runtime)
  install(DIRECTORY ${KESTOVA_QT_WINDOWS}/plugins/styles
          DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime FILES_MATCHING PATTERN *.dll)
  foreach(library IN LISTS libraries)
    get_filename_component(name ${library} NAME)
    set(installed "\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/${name}")
    install(CODE "execute_process(COMMAND \"${CMAKE_STRIP}\" \"${installed}\" COMMAND_ERROR_IS_FATAL ANY)"
            COMPONENT Runtime)
  endforeach()
endfunction()
