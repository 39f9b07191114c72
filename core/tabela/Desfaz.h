// Foot of every record table: takes back the row macros. No include guard on purpose.
#undef KX_INICIO
#undef KX_CAMPO
#undef KX_PARTE
#undef KX_TEXTO
#undef KX_HISTORICO
#undef KX_INTERNO
#undef KX_CONTADO
#undef KX_TAMANHO
#undef KX_CORRIDO
#undef KX_TERMINADO
#undef KX_RESERVA
#undef KX_ZERO
#undef KX_CONTA
#undef KX_LISTA
#undef KX_FIM
