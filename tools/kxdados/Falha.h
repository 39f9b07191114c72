// What the commands throw and tell.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace kxdados {

// What is wrong (what(), in Portuguese, UTF-8) and where, which is empty when it is all of it.
class Falha : public std::runtime_error {
 public:
  Falha(std::string elemento, const std::string& motivo)
      : std::runtime_error(motivo), _elemento(std::move(elemento)) {}
  const std::string& Elemento() const noexcept { return _elemento; }

 private:
  std::string _elemento;
};

}  // namespace kxdados
