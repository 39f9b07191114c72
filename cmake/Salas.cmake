# What the rooms hold, found by looking at them. cmake/salas.txt is the one list of rooms, a level of
# the house a line, the lowest first; a new room joins it.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/salas.txt)
file(STRINGS ${PROJECT_SOURCE_DIR}/cmake/salas.txt niveis)
list(JOIN niveis " " KX_SALAS)
separate_arguments(KX_SALAS)

# Sources; those of the operating system are one for each system.
set(KX_FONTES "")
# What those who use the library include: every header but those that say to be internal, and the
# tables, which headers expand.
set(KX_CABECALHOS "")
set(KX_TABELAS "")
foreach(sala ${KX_SALAS})
  file(GLOB da_sala RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS
       ${sala}/*.cpp ${sala}/*.h ${sala}/*.def ${sala}/tabela/*.h)
  foreach(arquivo ${da_sala})
    if(arquivo MATCHES "\\.cpp$")
      list(APPEND KX_FONTES ${arquivo})
    elseif(arquivo MATCHES "\\.def$|/tabela/")
      list(APPEND KX_TABELAS ${arquivo})
    else()
      file(STRINGS ${arquivo} interno REGEX "^// Internal to the library" LIMIT_COUNT 1)
      if(NOT interno)
        list(APPEND KX_CABECALHOS ${arquivo})
      endif()
    endif()
  endforeach()
endforeach()
if(WIN32)
  list(FILTER KX_FONTES EXCLUDE REGEX "^platform/.*Posix\\.cpp$")
else()
  list(FILTER KX_FONTES EXCLUDE REGEX "^platform/.*Windows\\.cpp$")
endif()

# Lists for the preprocessor, in gerado/: the records of the tables, and the classes with the headers
# that declare them, in the order of rooms and of their headers.
#   gerado/Registros.def   KX_REGISTRO(record)
#   gerado/Classes.def     KX_CLASSE_COM_REGISTRO(class, "header"), KX_CLASSE_OUTRA(class, "header")
#   gerado/Cabecalhos.inc  the includes of those headers
set(registros "")
set(classes "")
set(inclusoes "")
foreach(cabecalho ${KX_CABECALHOS})
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
               ${PROJECT_SOURCE_DIR}/${cabecalho})
  file(STRINGS ${cabecalho} linhas REGEX "^#define KX_TABELA |^class KX_API |^  KX_CLASSE_DE_REGISTRO")
  set(anterior "")
  set(da_classe "")
  foreach(linha ${linhas})
    if(linha MATCHES "^#define KX_TABELA \"[^\"]*/([A-Za-z_]+)\\.def\"" AND NOT anterior)
      string(APPEND registros "KX_REGISTRO(${CMAKE_MATCH_1})\n")
    elseif(linha MATCHES "^class KX_API ((CKX|TKX|CIE)[A-Za-z_]*) : public")
      set(anterior ${CMAKE_MATCH_1})
      string(APPEND da_classe "KX_CLASSE_OUTRA(${anterior}, \"${cabecalho}\")\n")
    elseif(linha MATCHES "KX_CLASSE_DE_REGISTRO[A-Z_]*\\(([A-Za-z_]+)")
      string(REPLACE "KX_CLASSE_OUTRA(${CMAKE_MATCH_1}," "KX_CLASSE_COM_REGISTRO(${CMAKE_MATCH_1},"
             da_classe "${da_classe}")
    endif()
  endforeach()
  if(da_classe)
    string(APPEND classes "${da_classe}")
    string(APPEND inclusoes "#include \"${cabecalho}\"\n")
  endif()
endforeach()
file(CONFIGURE OUTPUT gerado/Registros.def CONTENT "${registros}" @ONLY)
file(CONFIGURE OUTPUT gerado/Classes.def CONTENT "${classes}" @ONLY)
file(CONFIGURE OUTPUT gerado/Cabecalhos.inc CONTENT "${inclusoes}" @ONLY)
