// The task allocator as the tests see it: AlocadoresPosix.cpp and AlocadoresWindows.cpp.
#pragma once

// Whether its blocks can be told from those of array new; on Windows they always can, elsewhere in
// builds with KX_ALOCADORES_DISTINTOS.
bool AlocadoresDistintos();

// Whether the block, which must be one of these two allocators', is of the task allocator.
bool EhDaTarefa(const void* bloco);
