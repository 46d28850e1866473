# Runs after the components have been installed into their folders, and before they are packed.
if(NOT CPACK_GENERATOR STREQUAL DEB)
  return()
endif()

set(version ${CPACK_PACKAGE_VERSION})
# SOURCE_DATE_EPOCH, when it is set.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} upper)
  set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  set(root ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
  set(documents ${root}/share/doc/${package})
  file(MAKE_DIRECTORY ${documents})

  # The licence is said in Debian's own form.
  file(GLOB_RECURSE licences ${root}/share/doc/*/LICENSE)
  foreach(licence IN LISTS licences)
    file(REMOVE ${licence})
    get_filename_component(folder ${licence} DIRECTORY)
    file(GLOB rest ${folder}/*)
    if(NOT rest)
      file(REMOVE_RECURSE ${folder})
    endif()
  endforeach()
  file(COPY ${CPACK_AUDIOANALYZER_SOURCE_DIR}/packaging/debian/copyright DESTINATION ${documents})
  if(component STREQUAL link)
    file(READ ${CPACK_AUDIOANALYZER_SOURCE_DIR}/packaging/debian/copyright-link addition)
    file(APPEND ${documents}/copyright "${addition}")
  endif()

  set(changelog "${CPACK_PACKAGE_NAME} (${version}) stable; urgency=medium\n\n")
  string(APPEND changelog "  * See CHANGELOG.md in libaudioanalyzer-dev.\n\n")
  string(APPEND changelog " -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
  file(WRITE ${documents}/changelog "${changelog}")

  file(GLOB_RECURSE pages ${root}/share/man/*.1)
  execute_process(COMMAND gzip -9 -n -f ${documents}/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
