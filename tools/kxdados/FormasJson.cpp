#include "FormasJson.h"

#include <cstddef>

#include "core/Registros.h"

namespace kxdados {

namespace {

template <class T>
constexpr KXCampo Membro(const char* nome, std::size_t posicao) {
  return {nome,
          static_cast<std::uint16_t>(posicao),
          sizeof(T),
          kx::kTipoDe<T>,
          KXPapel::Campo,
          true,
          0,
          "",
          nullptr};
}

constexpr KXCampo kPosicao[] = {
    Membro<std::int32_t>("PonteiroProduto", offsetof(_REG_POSICAO_PRODUTOPS, PonteiroProduto)),
    Membro<std::uint16_t>("PonteiroItemGrade1",
                          offsetof(_REG_POSICAO_PRODUTOPS, PonteiroItemGrade1)),
    Membro<std::uint16_t>("PonteiroItemGrade2",
                          offsetof(_REG_POSICAO_PRODUTOPS, PonteiroItemGrade2)),
    Membro<std::uint16_t>("PonteiroItemGrade3",
                          offsetof(_REG_POSICAO_PRODUTOPS, PonteiroItemGrade3)),
};

}  // namespace

std::span<const KXCampo> MembrosDe(KXTipoCampo tipo) {
  if (tipo == KXTipoCampo::ChaveDocumento) return KXMetadados<REG_KXDMC>::kCampos;
  if (tipo == KXTipoCampo::PosicaoProduto) return kPosicao;
  return {};
}

}  // namespace kxdados
