#include <dlfcn.h>

#include "tests/mensagens/KXMensFalsa.h"

bool MensagensCarregada() {
  void* const biblioteca = dlopen("libKXMens.so", RTLD_NOW | RTLD_NOLOAD);
  if (biblioteca != nullptr) dlclose(biblioteca);
  return biblioteca != nullptr;
}
