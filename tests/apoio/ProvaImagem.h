// What must hold of images of every record, whatever is in the record and whatever is done to the
// image: the sweep tries it with random bytes, the harness with those that a fuzzer looks for.
#pragma once

#include "tests/apoio/Bytes.h"
#include "tests/apoio/Classes.h"

namespace apoio {

// A record of a careless sender has an image that reads as it does, or none because of what cannot
// be read. An image that was changed is refused and left alone, or is that of the record which it
// opens to. What does not hold is thrown (KX_EXIGE).
void ProvaImagem(const Classe& classe, Bytes& bytes);

}  // namespace apoio
