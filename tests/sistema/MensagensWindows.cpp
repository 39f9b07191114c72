#include <windows.h>

#include "tests/mensagens/KXMensFalsa.h"

bool MensagensCarregada() { return GetModuleHandleA("KXMens.dll") != nullptr; }
