# Run by cpack between installing and packing: Debian keeps manual pages and changelogs compressed.
file(GLOB_RECURSE documentos ${CPACK_TEMPORARY_DIRECTORY}/kxdados.1
     ${CPACK_TEMPORARY_DIRECTORY}/changelog ${CPACK_TEMPORARY_DIRECTORY}/changelog.Debian)
execute_process(COMMAND gzip -9nf ${documentos} COMMAND_ERROR_IS_FATAL ANY)
