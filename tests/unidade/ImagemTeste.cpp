// Records as one run of bytes.
#include <gtest/gtest.h>

#include <string>

#include "core/Checksum.h"
#include "core/Imagem.h"
#include "oc/DadosOC.h"
#include "tests/apoio/Paginas.h"
#include "tests/apoio/PorClasse.h"
#include "tests/apoio/ProvaImagem.h"

namespace {

using kx::ChecksumDaImagem;
using kx::ErroImagem;
using Bytes = std::vector<std::byte>;

KX_POR_CLASSE(ImagemDeTodas, apoio::ClassesDeRegistro());

TEST_P(ImagemDeTodas, VoltaIgualEMudadaERecusada) {
  for (unsigned semente = 0; semente < 60; ++semente) {
    apoio::Bytes bytes(semente);
    ASSERT_NO_THROW(apoio::ProvaImagem(Atual(), bytes)) << semente;
  }
}

TEST_P(ImagemDeTodas, NenhumByteSePerde) {
  const kx::LeiauteDeImagem leiaute(Info());
  const apoio::Registro registro(Info(), 5, true);
  Bytes imagem(kx::TamanhoDaImagem(leiaute, registro.Bytes()));
  EXPECT_THROW(
      kx::EscreveImagem(leiaute, registro.Bytes(), std::span(imagem).first(imagem.size() - 1)),
      std::length_error);
  kx::EscreveImagem(leiaute, registro.Bytes(), imagem);
  for (std::size_t i = 0; i < imagem.size(); i += 1 + i / 64) {
    imagem[i] ^= std::byte{0x10};
    EXPECT_THROW(kx::VerificaImagem(leiaute, imagem), kx::ImagemInvalida) << i;
    imagem[i] ^= std::byte{0x10};
  }
  const void* aberto = kx::AbreImagem(leiaute, imagem);
  EXPECT_EQ(apoio::Diferenca(Info(), registro.Bytes(), aberto), "");
}

// What other programs have written must stay readable: every byte of the smallest image.
TEST(Imagem, Forma) {
  const REG_KXDMC chave{{23, 11, 2026}, 417};
  const Bytes imagem = kx::Imagem(chave);
  std::string esperada("KXIMAGEM\1\0\1\0\xA2\x1B\x3E\x5E\x58\0\0\0\0\0\0\0", 24);
  esperada += std::string("\x69\x86\xC9\xB6\xBF\x7F\xD6\x24", 8) + "REG_KXDMC";
  esperada.resize(kx::kCabecalhoDaImagem);
  esperada += std::string("\x17\x0B\xEA\x07\xA1\x01\0\0", 8);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(imagem.data()), imagem.size()), esperada);

  const kx::ImagemInfo info = kx::LeCabecalho(std::span(imagem).first(kx::kCabecalhoDaImagem));
  EXPECT_EQ(info.Registro, "REG_KXDMC");
  EXPECT_EQ(info.Leiaute, kx::LeiauteDe<REG_KXDMC>().GetImpressao());
  EXPECT_EQ(info.Tamanho, imagem.size());
  EXPECT_TRUE(info.ComChecksum);
}

CKXDadosCM_OrdemCompra Ordem() {
  CKXDadosCM_OrdemCompra ordem;
  ordem.AdicionaItem(CKXDadosCM_ItemOrdemCompra()).SetCodigo("2026/0417");
  return ordem;
}

ErroImagem Erro(std::span<std::byte> bytes, ChecksumDaImagem checksum = ChecksumDaImagem::Com) {
  try {
    kx::AbreImagem<tagREG_ORDEMPS>(bytes, checksum);
  } catch (const kx::ImagemInvalida& erro) {
    const std::string byte = "byte " + std::to_string(erro.GetPosicao()) + ": ";
    EXPECT_NE(std::string(erro.what()).find(byte), std::string::npos) << erro.what();
    return erro.GetErro();
  }
  ADD_FAILURE() << "foi aberta";
  return {};
}

TEST(Imagem, CadaErroTemNome) {
  const Bytes boa = kx::Imagem(Ordem());
  const auto mudada = [&](std::size_t onde, ChecksumDaImagem checksum = ChecksumDaImagem::Com) {
    Bytes bytes = boa;
    bytes[onde] ^= std::byte{4};
    return Erro(bytes, checksum);
  };
  const auto sem = ChecksumDaImagem::Sem;
  EXPECT_EQ(mudada(3), ErroImagem::Marca);
  EXPECT_EQ(mudada(8), ErroImagem::Formato);
  EXPECT_EQ(mudada(10), ErroImagem::Formato);
  EXPECT_EQ(mudada(12), ErroImagem::Checksum);
  EXPECT_EQ(mudada(17), ErroImagem::Cortada);
  EXPECT_EQ(mudada(24), ErroImagem::Leiaute);
  EXPECT_EQ(mudada(32), ErroImagem::Registro);
  EXPECT_EQ(mudada(79), ErroImagem::Enchimento);
  EXPECT_EQ(mudada(boa.size() - 1), ErroImagem::Checksum);
  const std::size_t item = kx::kCabecalhoDaImagem + offsetof(tagREG_ORDEMPS, ListaItem);
  EXPECT_EQ(mudada(item, sem), ErroImagem::Bloco);

  Bytes bytes = boa;
  EXPECT_EQ(Erro({}), ErroImagem::Cortada);
  EXPECT_EQ(Erro(std::span(bytes).first(boa.size() - 8)), ErroImagem::Cortada);
  bytes.resize(boa.size() + 8);
  EXPECT_EQ(Erro(bytes), ErroImagem::Tamanho);
  EXPECT_EQ(Erro(std::span(bytes).subspan(1)), ErroImagem::Alinhamento);
  bytes = kx::Imagem(Ordem(), sem);
  EXPECT_EQ(Erro(bytes), ErroImagem::Checksum);
  kx::AbreImagem<tagREG_ORDEMPS>(bytes, sem);
  EXPECT_EQ(Erro(bytes, sem), ErroImagem::Aberta);
}

TEST(Imagem, DeObjetoEDeVolta) {
  const CKXDadosCM_OrdemCompra ordem = Ordem();
  Bytes imagem = kx::Imagem(ordem);
  CKXDadosCM_OrdemCompra outra;
  outra.CopiarDe(kx::AbreImagem<tagREG_ORDEMPS>(imagem));
  EXPECT_EQ(outra, ordem);
}

TEST(Imagem, DoQueNaoSeLeNaoHaImagem) {
  const apoio::Paginas paginas;
  tagREG_ORDEMPS registro{};
  registro.QtdItem = 2;
  registro.ListaItem = reinterpret_cast<tagREG_ITENS_ORDEMPS*>(paginas.Proibida());
  try {
    kx::Imagem(registro);
    FAIL();
  } catch (const kx::RegistroIlegivel& erro) {
    EXPECT_NE(std::string(erro.what()).find(" ListaItem "), std::string::npos) << erro.what();
  }
  EXPECT_THROW(kx::TamanhoDaImagem(kx::LeiauteDe<tagREG_ORDEMPS>(), nullptr), kx::RegistroIlegivel);
}

}  // namespace
