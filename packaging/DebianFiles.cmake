# Run by CPack on the staged tree of the Debian package before it is packed: Debian wants the
# man pages and the changelog compressed with "gzip -9n", beside the copyright.
set(root ${CPACK_TEMPORARY_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX})
file(GLOB pages ${root}/${CPACK_VOR_MAN_DIR}/man*/*.[0-9])
set(changelog ${root}/${CPACK_VOR_DOC_DIR}/changelog)
file(COPY_FILE ${CPACK_VOR_CHANGELOG} ${changelog})
foreach(file IN LISTS pages changelog)
  execute_process(COMMAND gzip -9nf ${file} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
