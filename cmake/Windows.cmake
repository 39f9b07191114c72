# What Windows asks of the build beyond the other systems.

# The compiler's runtime libraries are shared, and lie beside whatever uses them: exceptions cross
# from the library into the program, and both must count them in one place. They are copied by
# name, and the licences under which they may be passed on go with them.
set(KX_RUNTIME "")
if(MINGW AND NOT KX_ESTATICA)
  foreach(nome libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${nome}
                    OUTPUT_VARIABLE arquivo OUTPUT_STRIP_TRAILING_WHITESPACE
                    COMMAND_ERROR_IS_FATAL ANY)
    if(NOT EXISTS ${arquivo})  # not the compiler's own, but of the system library that it uses
      find_file(KX_${nome} ${nome} PATHS /usr/x86_64-w64-mingw32/lib REQUIRED
                NO_CMAKE_FIND_ROOT_PATH NO_DEFAULT_PATH)
      set(arquivo ${KX_${nome}})
    endif()
    list(APPEND KX_RUNTIME ${arquivo})
  endforeach()
  if(PROJECT_IS_TOP_LEVEL)
    file(COPY ${KX_RUNTIME} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  endif()
endif()

# kx_biblioteca_windows(TARGET): named as the suite's own libraries are, kxldadoscm.dll.
function(kx_biblioteca_windows alvo)
  get_target_property(tipo ${alvo} TYPE)
  if(tipo STREQUAL "SHARED_LIBRARY")
    set_target_properties(${alvo} PROPERTIES PREFIX "")
  endif()
  # The task allocator, and the window messages.
  target_link_libraries(${alvo} PRIVATE ole32 user32)
endfunction()

# kx_pacote_windows(): the ZIP that ./dev windows makes, by the rules of Instalacao.cmake: what runs in
# bin, runtime libraries included, what a program is built with, and the licences of what is linked
# in or lies beside.
function(kx_pacote_windows)
  install(FILES ${KX_RUNTIME} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT biblioteca)
  install(FILES ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION . COMPONENT biblioteca)
  foreach(pacote gcc-mingw-w64-base mingw-w64-common libpugixml-dev libcli11-dev nlohmann-json3-dev
                 libsqlite3-dev libzstd-dev)
    set(licenca /usr/share/doc/${pacote}/copyright)
    if(EXISTS ${licenca})
      string(REGEX REPLACE "^lib|-dev$" "" nome ${pacote})
      install(FILES ${licenca} DESTINATION licencas RENAME ${nome}.txt COMPONENT biblioteca)
    endif()
  endforeach()
  if(EXISTS /usr/share/common-licenses/GPL-3)  # which the licence of the compiler's runtime names
    install(FILES /usr/share/common-licenses/GPL-3 DESTINATION licencas RENAME GPL-3.txt
            COMPONENT biblioteca)
  endif()

  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_NAME kxldadoscm)
  set(CPACK_PACKAGE_FILE_NAME kxldadoscm-${PROJECT_VERSION}-windows-x64)
  set(CPACK_STRIP_FILES ON)
  include(CPack)
endfunction()

# kx_vetores_windows(SOURCE): GCC aligns the stack of Windows to 16 bytes only, and then moves values
# of 32 as if it had aligned them (its bug 54412).
function(kx_vetores_windows fonte)
  if(MINGW)
    set_source_files_properties(${fonte} PROPERTIES
      COMPILE_OPTIONS -Wa,-muse-unaligned-vector-move)
  endif()
endfunction()
