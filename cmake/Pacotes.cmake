# Debian packages: libkxldadoscm1, libkxldadoscm-dev and kxdados, one for each component of
# Instalacao.cmake. cpack makes them in the build folder.
if(KX_ESTATICA)
  message(FATAL_ERROR "KX_PACOTES builds both libraries: it does not go with KX_ESTATICA")
endif()
set(versao ${PROJECT_VERSION}-1)
set(pacote_biblioteca libkxldadoscm${PROJECT_VERSION_MAJOR})
set(pacote_desenvolvimento libkxldadoscm-dev)
set(pacote_ferramentas kxdados)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kxldadoscm)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_PACKAGE_CONTACT "${KX_CONTATO}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL biblioteca desenvolvimento ferramentas)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/ComprimeDocumentos.cmake)

set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE kxldadoscm)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# dpkg-shlibdeps finds the dependencies of the programs; the tool's library is in the build folder.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_DEBIAN_BIBLIOTECA_PACKAGE_NAME ${pacote_biblioteca})
set(CPACK_DEBIAN_BIBLIOTECA_PACKAGE_SECTION libs)
# Debian's way to renew the loader's cache; cpack adds scripts that call ldconfig, unasked.
set(CPACK_DEBIAN_BIBLIOTECA_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)
file(WRITE ${PROJECT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_BIBLIOTECA_DESCRIPTION "data objects of the purchasing module
The documents that the purchasing module's data-entry programs and server
exchange: requests, quotations, orders, approvals, goods receipts, freight
bills and contracts, with their conversion to and from flat records.")
set(CPACK_DEBIAN_DESENVOLVIMENTO_PACKAGE_NAME ${pacote_desenvolvimento})
set(CPACK_DEBIAN_DESENVOLVIMENTO_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DESENVOLVIMENTO_PACKAGE_DEPENDS "${pacote_biblioteca} (= ${versao})")
set(CPACK_DEBIAN_DESENVOLVIMENTO_DESCRIPTION
    "data objects of the purchasing module (development files)
C++20 headers, the static library, and the files by which CMake and
pkg-config find the library; its pages and examples.")
set(CPACK_DEBIAN_FERRAMENTAS_PACKAGE_NAME ${pacote_ferramentas})
set(CPACK_DEBIAN_FERRAMENTAS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_FERRAMENTAS_PACKAGE_DEPENDS "${pacote_biblioteca} (= ${versao})")
set(CPACK_DEBIAN_FERRAMENTAS_DESCRIPTION
    "importer of Brazilian electronic invoices and freight bills
kxdados reads NF-e, NFS-e and CT-e documents as entries of the purchasing module,
reports what it read, and shows the layout of the module's records.")

string(TIMESTAMP data "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(CONFIGURE OUTPUT changelog.Debian @ONLY CONTENT
"kxldadoscm (@versao@) bookworm; urgency=medium

  * Release @PROJECT_VERSION@; what is new in it is listed in changelog.gz.

 -- @KX_CONTATO@  @data@
")
foreach(componente ${CPACK_COMPONENTS_ALL})
  set(pasta ${CMAKE_INSTALL_DATADIR}/doc/${pacote_${componente}})
  install(FILES ${PROJECT_BINARY_DIR}/changelog.Debian DESTINATION ${pasta}
          COMPONENT ${componente})
  install(FILES ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION ${pasta} RENAME changelog
          COMPONENT ${componente})
endforeach()

include(CPack)
