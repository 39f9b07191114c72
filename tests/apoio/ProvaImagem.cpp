#include "tests/apoio/ProvaImagem.h"

#include <cstddef>
#include <span>
#include <vector>

#include "core/Checksum.h"
#include "core/Imagem.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace apoio {

namespace {

using kx::ChecksumDaImagem;
using Imagem = std::vector<std::byte>;

Imagem Faz(const kx::LeiauteDeImagem& leiaute, const void* registro, ChecksumDaImagem checksum) {
  Imagem imagem(kx::TamanhoDaImagem(leiaute, registro));
  KX_EXIGE(kx::EscreveImagem(leiaute, registro, imagem, checksum) == imagem.size());
  return imagem;
}

void PoeEm(Imagem& imagem, std::size_t onde, auto valor) {
  Poe(reinterpret_cast<unsigned char*>(imagem.data()) + onde, valor);
}

// A byte, a count, a position or the end.
void Muda(Imagem& imagem, Bytes& bytes) {
  const std::size_t onde = bytes.Valor<std::uint32_t>() % imagem.size();
  switch (bytes.Ate(4)) {
    case 0:
      imagem[onde] = std::byte{bytes.Byte()};
      break;
    case 1:
      imagem[onde] ^= std::byte{1} << (bytes.Byte() % 8);
      break;
    case 2:
      if (onde % 8 == 0) PoeEm(imagem, onde, bytes.Valor<std::uint32_t>() % imagem.size() / 8 * 8);
      break;
    case 3:
      if (onde % 8 == 0) PoeEm(imagem, onde, std::uint64_t{bytes.Byte()});
      break;
    default:
      imagem.resize(bytes.Byte() % 2 == 0 ? onde / 8 * 8 : imagem.size() + 8);
      if (imagem.size() >= 24) PoeEm(imagem, 16, std::uint64_t{imagem.size()});
  }
}

void ProvaMudada(const kx::LeiauteDeImagem& leiaute, const Imagem& mudada,
                 ChecksumDaImagem checksum) {
  Imagem aberta = mudada;
  try {
    const void* registro = kx::AbreImagem(leiaute, aberta, checksum);
    KX_EXIGE(Faz(leiaute, registro, checksum) == mudada, leiaute.GetInfo().Nome);
  } catch (const kx::ImagemInvalida& erro) {
    KX_EXIGE(aberta == mudada && erro.GetPosicao() <= mudada.size(), erro.what());
  }
}

}  // namespace

void ProvaImagem(const Classe& classe, Bytes& bytes) {
  const kx::LeiauteDeImagem leiaute(*classe.Info);
  const auto checksum = bytes.Byte() % 2 == 0 ? ChecksumDaImagem::Com : ChecksumDaImagem::Sem;
  Registro esperado(*classe.Info);
  Registro recebido(*classe.Info, bytes, esperado);
  const Objeto objeto(classe, recebido.Bytes());
  Imagem imagem;
  try {
    imagem = Faz(leiaute, recebido.Bytes(), checksum);
  } catch (const kx::RegistroIlegivel&) {
    recebido.EsqueceOsIlegiveis();
    imagem = Faz(leiaute, recebido.Bytes(), checksum);
  }
  Imagem aberta = imagem;
  const void* registro = kx::AbreImagem(leiaute, aberta, checksum);
  KX_EXIGE(Objeto(classe, registro) == objeto, classe.Nome);
  KX_EXIGE(Faz(leiaute, registro, checksum) == imagem, classe.Nome);

  for (unsigned i = bytes.Ate(3); i-- > 0 && !imagem.empty();) Muda(imagem, bytes);
  if (checksum == ChecksumDaImagem::Com && bytes.Byte() % 4 != 0 && imagem.size() >= 16) {
    PoeEm(imagem, 12, kx::CalculaChecksum(imagem.data() + 16, imagem.size() - 16));
  }
  ProvaMudada(leiaute, imagem, checksum);
}

}  // namespace apoio
