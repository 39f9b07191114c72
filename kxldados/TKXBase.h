// Second root of every data object: what the suite's other base classes share. It gives the object
// a dispatch table of its own.
#pragma once

#include "platform/Exporta.h"

class KX_API TKXBase {
 public:
  TKXBase() noexcept = default;
  TKXBase(const TKXBase&) noexcept = default;
  TKXBase& operator=(const TKXBase&) noexcept = default;
  virtual ~TKXBase() = default;
};
