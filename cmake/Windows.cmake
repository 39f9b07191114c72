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
