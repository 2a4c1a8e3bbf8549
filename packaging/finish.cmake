# Run by cpack on the laid-out files: what Debian's policy asks of a package beyond the files of an installation.
unset(ENV{DESTDIR}) # cpack leaves that of the last part

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} COMPONENT)
  set(root ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
  set(name ${CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME})
  file(INSTALL ${CPACK_TOLK_PACKAGING}/copyright DESTINATION ${root}/share/doc/${name})
  file(INSTALL ${CPACK_TOLK_PACKAGING}/changelog DESTINATION ${root}/share/doc/${name} RENAME changelog.Debian)
  file(INSTALL ${CPACK_TOLK_PACKAGING}/lintian-overrides DESTINATION ${root}/share/lintian/overrides RENAME ${name})
  file(GLOB_RECURSE pages ${root}/share/man/* ${root}/share/doc/${name}/changelog.Debian)
  run(gzip -9n ${pages})
endforeach()

# The system's loader finds the library; the path beside the program is for other prefixes.
set(tool ${CPACK_TEMPORARY_DIRECTORY}/tools/usr/bin/tolk)
if(EXISTS ${tool})
  file(RPATH_REMOVE FILE ${tool})
endif()
