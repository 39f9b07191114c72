# What `cmake --install` puts where, in three components: biblioteca (what a program needs to run),
# desenvolvimento (what it needs to be built) and ferramentas.
include(CMakePackageConfigHelpers)

set(alvos kxldadoscm)
if(KX_PACOTES)
  list(APPEND alvos kxldadoscm_estatica)
endif()
install(TARGETS ${alvos} EXPORT kxldadoscm
  RUNTIME COMPONENT biblioteca
  LIBRARY COMPONENT biblioteca NAMELINK_COMPONENT desenvolvimento
  ARCHIVE COMPONENT desenvolvimento)

# Headers keep their rooms, since they include each other by them.
foreach(arquivo ${KX_CABECALHOS} ${KX_TABELAS})
  cmake_path(GET arquivo PARENT_PATH sala)
  install(FILES ${arquivo} DESTINATION ${KX_PASTA_CABECALHOS}/${sala} COMPONENT desenvolvimento)
endforeach()

# The library needs no other package, so the list of its targets is the whole configuration.
set(pasta ${CMAKE_INSTALL_LIBDIR}/cmake/kxldadoscm)
install(EXPORT kxldadoscm NAMESPACE kxldadoscm:: FILE kxldadoscmConfig.cmake DESTINATION ${pasta}
        COMPONENT desenvolvimento)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/kxldadoscmConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/kxldadoscmConfigVersion.cmake DESTINATION ${pasta}
        COMPONENT desenvolvimento)

# The file finds its prefix from its own place, so that the installed tree can be moved.
file(RELATIVE_PATH KX_PC_PREFIXO ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" KX_PC_PREFIXO "\${pcfiledir}/${KX_PC_PREFIXO}")
set(KX_PC_CFLAGS "")
set(KX_PC_LIBS "")
if(KX_ESTATICA)
  set(KX_PC_CFLAGS " -DKX_ESTATICA")
  set(KX_PC_LIBS " -lstdc++ -ldl")
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/kxldadoscm.pc.in kxldadoscm.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kxldadoscm.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT desenvolvimento)

# The pages and the examples, beside each other as in the project, so that their links hold.
set(pasta ${CMAKE_INSTALL_DATADIR}/doc/kxldadoscm)
if(KX_PACOTES)
  set(pasta ${CMAKE_INSTALL_DATADIR}/doc/libkxldadoscm-dev)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/LEIAME.md
              ${PROJECT_SOURCE_DIR}/CHANGELOG.md
        DESTINATION ${pasta} COMPONENT desenvolvimento)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${pasta} COMPONENT desenvolvimento
        FILES_MATCHING PATTERN "*.md" PATTERN doxygen EXCLUDE)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${pasta} COMPONENT desenvolvimento)

if(KX_FERRAMENTAS)
  install(TARGETS kxdados COMPONENT ferramentas)
endif()
if(WIN32)
  kx_pacote_windows()
elseif(KX_FERRAMENTAS)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/kxdados/kxdados.bash RENAME kxdados
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT ferramentas)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/kxdados/kxdados.1
          DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ferramentas)
endif()
