# What `cmake --install` lays out, in four parts: the libraries, what a build against them needs, the tool, the pages.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
include(CMakePackageConfigHelpers)

install(TARGETS tolkcolor EXPORT tolkcolor-targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev)
if(TOLK_V3_LIBRARY)
  install(TARGETS tolkcolor_v3 COMPONENT runtime
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/${TOLK_V3_FOLDER} NAMELINK_SKIP)
endif()

install(FILES include/tolkcolor.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)
set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/tolkcolor)
set(config ${PROJECT_BINARY_DIR}/tolkcolor-config)
configure_package_config_file(cmake/tolkcolor-config.cmake.in ${config}.cmake INSTALL_DESTINATION ${config_folder}
                              NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${config}-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${config}.cmake ${config}-version.cmake DESTINATION ${config_folder} COMPONENT dev)
install(EXPORT tolkcolor-targets NAMESPACE tolkcolor:: DESTINATION ${config_folder} COMPONENT dev)

# The .pc file finds its prefix from where it lies.
file(RELATIVE_PATH TOLK_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/tolkcolor.pc.in ${PROJECT_BINARY_DIR}/tolkcolor.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/tolkcolor.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

set(man3 ${PROJECT_BINARY_DIR}/man3)
set(make_man ${PROJECT_SOURCE_DIR}/tools/man/make_man.py)
set(catalogue ${PROJECT_SOURCE_DIR}/tools/catalogue/make_table.py)
add_custom_command(
  OUTPUT ${man3}/tolkcolor.3
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${man3}
  COMMAND Python3::Interpreter -B ${make_man} ${PROJECT_SOURCE_DIR}/include/tolkcolor.h ${PROJECT_VERSION} ${man3}
  DEPENDS ${make_man} ${catalogue} include/tolkcolor.h
  VERBATIM)
add_custom_target(man ALL DEPENDS ${man3}/tolkcolor.3)
install(DIRECTORY ${man3} DESTINATION ${CMAKE_INSTALL_MANDIR} COMPONENT dev)

if(TOLK_TOOLS)
  install(TARGETS tolk RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
  install(FILES tools/tolk/completion.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME tolk
          COMPONENT tools)
  # Without help2man the tool has no pages.
  find_program(TOLK_HELP2MAN help2man)
  if(TOLK_HELP2MAN)
    set(man1 ${PROJECT_BINARY_DIR}/man1)
    add_custom_command(
      OUTPUT ${man1}/tolk.1
      COMMAND ${CMAKE_COMMAND} -E rm -rf ${man1}
      COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${TOLK_RELEASED} ${PROJECT_SOURCE_DIR}/tools/man/tool_pages.sh
              $<TARGET_FILE:tolk> ${PROJECT_VERSION} ${man1}
      DEPENDS tolk tools/man/tool_pages.sh
      VERBATIM)
    add_custom_target(tool_man ALL DEPENDS ${man1}/tolk.1)
    install(DIRECTORY ${man1} DESTINATION ${CMAKE_INSTALL_MANDIR} COMPONENT tools)
  endif()
endif()
install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT doc)
if(TARGET reference AND TOLK_REFERENCE)
  install(DIRECTORY ${TOLK_REFERENCE_HTML} DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT doc)
endif()
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT doc)
