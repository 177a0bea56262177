# Before a package is made of what was installed: adds what Debian wants in each package's documents,
# and compresses manual pages and change logs.
function(velmora_debian_files component package)
  set(usr ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
  set(documents ${usr}/share/doc/${package})
  file(MAKE_DIRECTORY ${documents})
  file(REMOVE ${documents}/LICENSE)
  file(COPY_FILE ${CPACK_VELMORA_COPYRIGHT} ${documents}/copyright)
  execute_process(COMMAND date -u -R -d ${CPACK_VELMORA_RELEASE_DATE}
    OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  file(WRITE ${documents}/changelog.Debian "\
${package} (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) bookworm; urgency=medium

  * Velmora ${CPACK_PACKAGE_VERSION}; its own change log tells what is new.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
  if(EXISTS ${documents}/CHANGELOG.md)
    file(RENAME ${documents}/CHANGELOG.md ${documents}/changelog)
  endif()
  file(GLOB_RECURSE texts ${usr}/share/man/*.1 ${documents}/changelog*)
  execute_process(COMMAND gzip -n9 ${texts} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} upper)
  velmora_debian_files(${component} ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
endforeach()
