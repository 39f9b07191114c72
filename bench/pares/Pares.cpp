// The same purchase order in the formats that programs of this kind use: encoding it from the
// peer's own objects, decoding it into objects that own every field, comparing two of them. The
// counter is the size of what travels. Every format carries the same fields (Gera.cpp), and gives
// back the same order, or the program ends.
#include <benchmark/benchmark.h>
#include <capnp/serialize.h>
#include <google/protobuf/arena.h>

#include <cereal/archives/binary.hpp>
#include <cereal/types/string.hpp>
#include <cereal/types/vector.hpp>
#include <cstdlib>
#include <iostream>
#include <span>
#include <sstream>
#include <string>
#include <utility>

#include "Plano.h"
#include "bench/Comprime.h"
#include "bench/OrdemDeMedida.h"
#include "bench/pares/Prova.h"

namespace {

using plano::Ordemps;

Ordemps Plana(std::int64_t itens) {
  const Registro registro(Ordem(itens));
  Ordemps ordem;
  DeRegistro(registro.Reg, ordem);
  return ordem;
}

// --- The formats: an object of their own, and how it is encoded and decoded ----------------------

struct Protobuf {
  static constexpr const char* kNome = "Protobuf";
  using Objeto = pb::Ordemps;
  static void Faz(const Ordemps& ordem, Objeto& objeto) { ParaProto(ordem, objeto); }
  static void Desfaz(const Objeto& objeto, Ordemps& ordem) { DeProto(objeto, ordem); }
  static std::string Codifica(const Objeto& objeto) { return objeto.SerializeAsString(); }
  static std::span<const std::byte> Bytes(const std::string& bytes) {
    return std::as_bytes(std::span(bytes));
  }
  static bool Decodifica(const std::string& bytes, Objeto& objeto) {
    return objeto.ParseFromArray(bytes.data(), static_cast<int>(bytes.size()));
  }
  // Without maps and unknown fields, equal messages have equal bytes; MessageDifferencer, which
  // goes by reflection, takes about twenty times as long or more.
  static bool Iguais(const Objeto& a, const Objeto& b) { return Codifica(a) == Codifica(b); }
};

struct Flatbuffers {
  static constexpr const char* kNome = "Flatbuffers";
  using Objeto = fb::OrdempsT;
  using Mensagem = flatbuffers::DetachedBuffer;
  static void Faz(const Ordemps& ordem, Objeto& objeto) { ParaFlat(ordem, objeto); }
  static void Desfaz(const Objeto& objeto, Ordemps& ordem) { DeFlat(objeto, ordem); }
  static Mensagem Codifica(const Objeto& objeto) {
    flatbuffers::FlatBufferBuilder construtor;
    construtor.Finish(fb::Ordemps::Pack(construtor, &objeto));
    return construtor.Release();
  }
  static std::span<const std::byte> Bytes(const Mensagem& mensagem) {
    return std::as_bytes(std::span(mensagem.data(), mensagem.size()));
  }
  static bool Verifica(const Mensagem& mensagem) {
    constexpr flatbuffers::uoffset_t kNiveis = 64;
    constexpr flatbuffers::uoffset_t kTabelas = 1 << 24;
    flatbuffers::Verifier verificador(mensagem.data(), mensagem.size(), kNiveis, kTabelas);
    return fb::VerifyOrdempsBuffer(verificador);
  }
  static bool Decodifica(const Mensagem& mensagem, Objeto& objeto) {
    if (!Verifica(mensagem)) return false;
    fb::GetOrdemps(mensagem.data())->UnPackTo(&objeto);
    return true;
  }
  static bool Iguais(const Objeto& a, const Objeto& b) { return a == b; }
};

// Its messages are their own encoding, so it encodes from the plain structs.
struct Capnp {
  static constexpr const char* kNome = "Capnp";
  using Objeto = Ordemps;
  using Mensagem = kj::Array<capnp::word>;
  static void Faz(const Ordemps& ordem, Objeto& objeto) { objeto = ordem; }
  static void Desfaz(const Objeto& objeto, Ordemps& ordem) { ordem = objeto; }
  static Mensagem Codifica(const Objeto& objeto) {
    capnp::MallocMessageBuilder construtor;
    ParaCapnp(objeto, construtor.initRoot<capn::Ordemps>());
    return capnp::messageToFlatArray(construtor);
  }
  static std::span<const std::byte> Bytes(const Mensagem& mensagem) {
    return std::as_bytes(std::span(mensagem.begin(), mensagem.size()));
  }
  template <class Usa>
  static auto Abre(const Mensagem& mensagem, Usa usa) {
    capnp::ReaderOptions opcoes;
    opcoes.traversalLimitInWords = 1ULL << 40;
    capnp::FlatArrayMessageReader leitor(mensagem, opcoes);
    return usa(leitor.getRoot<capn::Ordemps>());
  }
  static bool Decodifica(const Mensagem& mensagem, Objeto& objeto) {
    Abre(mensagem, [&objeto](capn::Ordemps::Reader raiz) { DeCapnp(raiz, objeto); });
    return true;
  }
  static bool Iguais(const Objeto& a, const Objeto& b) { return a == b; }
};

struct Cereal {
  static constexpr const char* kNome = "Cereal";
  using Objeto = Ordemps;
  static void Faz(const Ordemps& ordem, Objeto& objeto) { objeto = ordem; }
  static void Desfaz(const Objeto& objeto, Ordemps& ordem) { ordem = objeto; }
  static std::string Codifica(const Objeto& objeto) {
    std::ostringstream saida;
    cereal::BinaryOutputArchive arquivo(saida);
    arquivo(objeto);
    return std::move(saida).str();
  }
  static std::span<const std::byte> Bytes(const std::string& bytes) {
    return std::as_bytes(std::span(bytes));
  }
  static bool Decodifica(const std::string& bytes, Objeto& objeto) {
    std::istringstream entrada(bytes);
    cereal::BinaryInputArchive arquivo(entrada);
    arquivo(objeto);
    return true;
  }
  static bool Iguais(const Objeto& a, const Objeto& b) { return a == b; }
};

// --- The measurements ----------------------------------------------------------------------------

// The measured order as the format's object, which has been proved to carry all of it.
template <class F>
typename F::Objeto Objeto(std::int64_t itens) {
  static const bool devolve = prova::Devolve<F>();
  if (!devolve) {
    std::cerr << F::kNome << " does not give back the order that it was given\n";
    std::exit(1);
  }
  typename F::Objeto objeto;
  F::Faz(Plana(itens), objeto);
  return objeto;
}

template <class F>
void Codifica(benchmark::State& estado) {
  const auto objeto = Objeto<F>(estado.range(0));
  for (auto _ : estado) {
    const auto mensagem = F::Codifica(objeto);
    benchmark::DoNotOptimize(&mensagem);
  }
  const auto mensagem = F::Codifica(objeto);
  ContaBytes(estado, F::Bytes(mensagem));
}

template <class F>
void Decodifica(benchmark::State& estado) {
  const auto mensagem = F::Codifica(Objeto<F>(estado.range(0)));
  for (auto _ : estado) {
    auto lida = std::make_unique<typename F::Objeto>();
    benchmark::DoNotOptimize(F::Decodifica(mensagem, *lida));
    benchmark::DoNotOptimize(lida.get());
  }
}

template <class F>
void Igualdade(benchmark::State& estado) {
  const auto a = Objeto<F>(estado.range(0));
  const auto b = Objeto<F>(estado.range(0));
  for (auto _ : estado) benchmark::DoNotOptimize(F::Iguais(a, b));
}

// One message for all: its memory is used again.
void ProtobufDecodificaReusando(benchmark::State& estado) {
  const std::string bytes = Protobuf::Codifica(Objeto<Protobuf>(estado.range(0)));
  pb::Ordemps objeto;
  for (auto _ : estado) benchmark::DoNotOptimize(Protobuf::Decodifica(bytes, objeto));
}

// A new message whose parts come from one arena.
void ProtobufDecodificaArena(benchmark::State& estado) {
  const std::string bytes = Protobuf::Codifica(Objeto<Protobuf>(estado.range(0)));
  for (auto _ : estado) {
    google::protobuf::Arena arena;
    auto* const objeto = google::protobuf::Arena::CreateMessage<pb::Ordemps>(&arena);
    benchmark::DoNotOptimize(Protobuf::Decodifica(bytes, *objeto));
  }
}

// What the formats that are read in place do before the first field can be read: one goes through
// the whole message, the other checks each field as it is read.
void FlatbuffersVerifica(benchmark::State& estado) {
  const auto mensagem = Flatbuffers::Codifica(Objeto<Flatbuffers>(estado.range(0)));
  for (auto _ : estado) benchmark::DoNotOptimize(Flatbuffers::Verifica(mensagem));
}

void CapnpAbre(benchmark::State& estado) {
  const auto mensagem = Capnp::Codifica(Objeto<Capnp>(estado.range(0)));
  const auto itens = [](capn::Ordemps::Reader raiz) { return raiz.getListaitem().size(); };
  for (auto _ : estado) benchmark::DoNotOptimize(Capnp::Abre(mensagem, itens));
}

void Tamanhos(benchmark::internal::Benchmark* medida) {
  medida->RangeMultiplier(10)->Range(1, 1000);
}

}  // namespace

#define KX_PAR(Formato)                                                         \
  BENCHMARK(Codifica<Formato>)->Name(#Formato "Codifica")->Apply(Tamanhos);     \
  BENCHMARK(Decodifica<Formato>)->Name(#Formato "Decodifica")->Apply(Tamanhos); \
  BENCHMARK(Igualdade<Formato>)->Name(#Formato "Igualdade")->Apply(Tamanhos);

KX_PAR(Protobuf)
KX_PAR(Flatbuffers)
KX_PAR(Capnp)
KX_PAR(Cereal)
BENCHMARK(ProtobufDecodificaReusando)->Apply(Tamanhos);
BENCHMARK(ProtobufDecodificaArena)->Apply(Tamanhos);
BENCHMARK(FlatbuffersVerifica)->Apply(Tamanhos);
BENCHMARK(CapnpAbre)->Apply(Tamanhos);
