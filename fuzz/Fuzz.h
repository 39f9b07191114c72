// What the harnesses share.
#pragma once

#include "tests/apoio/Bytes.h"

// The entry that libFuzzer calls, and Repassa.cpp in place of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho);

namespace fuzz {

using apoio::Bytes;

}  // namespace fuzz
