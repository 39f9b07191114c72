// What must hold of every class with a record, whatever is in the record: the sweep tries it with
// random bytes, the harness with those that a fuzzer looks for.
#pragma once

#include <string>

#include "tests/apoio/Bytes.h"
#include "tests/apoio/Classes.h"

namespace apoio {

// Record tree to object to record: the bytes decide the contents, the counts and the texts, how
// arrays and texts are wrong, and what is changed to see whether equality sees it. What does not
// hold is thrown (KX_EXIGE).
void Prova(const Classe& classe, Bytes& bytes);

// The first three lines of a text, empty ones skipped, character by character.
std::string TresLinhas(const std::string& texto);

}  // namespace apoio
