// The same purchase order in the formats that programs of this kind use: encoding it from the
// peer's own objects, decoding it into objects that own every field, comparing two of them. The
// counter is the size of what travels. Every format carries the same fields (Gera.cpp), and gives
// back the same order, or the benchmark does not start.
#include <benchmark/benchmark.h>
#include <capnp/serialize.h>
#include <google/protobuf/util/message_differencer.h>

#include <cereal/archives/binary.hpp>
#include <cereal/types/string.hpp>
#include <cereal/types/vector.hpp>
#include <sstream>
#include <string>

#include "Plano.h"
#include "bench/OrdemDeMedida.h"

namespace {

using plano::Ordemps;
using Bytes = std::string;

Ordemps Plana(std::int64_t itens) {
  const Registro registro(Ordem(itens));
  Ordemps ordem;
  DeRegistro(registro.Reg, ordem);
  return ordem;
}

// --- The formats: an object of their own, and how it is encoded and decoded ----------------------

struct Protobuf {
  using Objeto = pb::Ordemps;
  static void Faz(const Ordemps& ordem, Objeto& objeto) { ParaProto(ordem, objeto); }
  static void Desfaz(const Objeto& objeto, Ordemps& ordem) { DeProto(objeto, ordem); }
  static Bytes Codifica(const Objeto& objeto) { return objeto.SerializeAsString(); }
  static bool Decodifica(const Bytes& bytes, Objeto& objeto) {
    return objeto.ParseFromArray(bytes.data(), static_cast<int>(bytes.size()));
  }
  static bool Iguais(const Objeto& a, const Objeto& b) {
    return google::protobuf::util::MessageDifferencer::Equals(a, b);
  }
};

struct Flatbuffers {
  using Objeto = fb::OrdempsT;
  static void Faz(const Ordemps& ordem, Objeto& objeto) { ParaFlat(ordem, objeto); }
  static void Desfaz(const Objeto& objeto, Ordemps& ordem) { DeFlat(objeto, ordem); }
  static Bytes Codifica(const Objeto& objeto) {
    flatbuffers::FlatBufferBuilder construtor;
    construtor.Finish(fb::Ordemps::Pack(construtor, &objeto));
    return {reinterpret_cast<const char*>(construtor.GetBufferPointer()), construtor.GetSize()};
  }
  static bool Verifica(const Bytes& bytes) {
    constexpr flatbuffers::uoffset_t kNiveis = 64;
    constexpr flatbuffers::uoffset_t kTabelas = 1 << 24;
    flatbuffers::Verifier verificador(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                      bytes.size(), kNiveis, kTabelas);
    return fb::VerifyOrdempsBuffer(verificador);
  }
  static bool Decodifica(const Bytes& bytes, Objeto& objeto) {
    if (!Verifica(bytes)) return false;
    fb::GetOrdemps(bytes.data())->UnPackTo(&objeto);
    return true;
  }
  static bool Iguais(const Objeto& a, const Objeto& b) { return a == b; }
};

// Its messages are their own encoding, so it encodes from the plain structs.
struct Capnp {
  using Objeto = Ordemps;
  static void Faz(const Ordemps& ordem, Objeto& objeto) { objeto = ordem; }
  static void Desfaz(const Objeto& objeto, Ordemps& ordem) { ordem = objeto; }
  static Bytes Codifica(const Objeto& objeto) {
    capnp::MallocMessageBuilder construtor;
    ParaCapnp(objeto, construtor.initRoot<capn::Ordemps>());
    const auto palavras = capnp::messageToFlatArray(construtor);
    const auto bytes = palavras.asBytes();
    return {reinterpret_cast<const char*>(bytes.begin()), bytes.size()};
  }
  template <class Usa>
  static bool Abre(const Bytes& bytes, Usa usa) {
    capnp::ReaderOptions opcoes;
    opcoes.traversalLimitInWords = 1ULL << 40;
    capnp::FlatArrayMessageReader leitor(
        {reinterpret_cast<const capnp::word*>(bytes.data()), bytes.size() / sizeof(capnp::word)},
        opcoes);
    usa(leitor.getRoot<capn::Ordemps>());
    return true;
  }
  static bool Decodifica(const Bytes& bytes, Objeto& objeto) {
    return Abre(bytes, [&objeto](capn::Ordemps::Reader raiz) { DeCapnp(raiz, objeto); });
  }
  static bool Iguais(const Objeto& a, const Objeto& b) { return a == b; }
};

struct Cereal {
  using Objeto = Ordemps;
  static void Faz(const Ordemps& ordem, Objeto& objeto) { objeto = ordem; }
  static void Desfaz(const Objeto& objeto, Ordemps& ordem) { ordem = objeto; }
  static Bytes Codifica(const Objeto& objeto) {
    std::ostringstream saida;
    cereal::BinaryOutputArchive arquivo(saida);
    arquivo(objeto);
    return std::move(saida).str();
  }
  static bool Decodifica(const Bytes& bytes, Objeto& objeto) {
    std::istringstream entrada(bytes);
    cereal::BinaryInputArchive arquivo(entrada);
    arquivo(objeto);
    return true;
  }
  static bool Iguais(const Objeto& a, const Objeto& b) { return a == b; }
};

// --- The measurements
// ------------------------------------------------------------------------------

template <class F>
Bytes Codificada(const Ordemps& ordem, typename F::Objeto& objeto) {
  F::Faz(ordem, objeto);
  return F::Codifica(objeto);
}

// False when the format loses something of the order.
template <class F>
bool Devolve(const Ordemps& ordem) {
  typename F::Objeto objeto;
  typename F::Objeto volta;
  Ordemps devolvida;
  const bool leu = F::Decodifica(Codificada<F>(ordem, objeto), volta);
  F::Desfaz(volta, devolvida);
  return leu && F::Iguais(objeto, volta) && devolvida == ordem;
}

template <class F>
void Codifica(benchmark::State& estado) {
  const Ordemps ordem = Plana(estado.range(0));
  if (!Devolve<F>(ordem)) return estado.SkipWithError("the order did not come back the same");
  typename F::Objeto objeto;
  const Bytes bytes = Codificada<F>(ordem, objeto);
  for (auto _ : estado) benchmark::DoNotOptimize(F::Codifica(objeto).data());
  estado.counters["bytes"] = static_cast<double>(bytes.size());
}

template <class F>
void Decodifica(benchmark::State& estado) {
  typename F::Objeto objeto;
  const Bytes bytes = Codificada<F>(Plana(estado.range(0)), objeto);
  for (auto _ : estado) {
    auto lida = std::make_unique<typename F::Objeto>();
    benchmark::DoNotOptimize(F::Decodifica(bytes, *lida));
    benchmark::DoNotOptimize(lida.get());
  }
}

template <class F>
void Igualdade(benchmark::State& estado) {
  const Ordemps ordem = Plana(estado.range(0));
  typename F::Objeto a;
  typename F::Objeto b;
  F::Faz(ordem, a);
  F::Faz(ordem, b);
  for (auto _ : estado) benchmark::DoNotOptimize(F::Iguais(a, b));
}

// One message for all: its memory is used again.
void ProtobufDecodificaReusando(benchmark::State& estado) {
  pb::Ordemps objeto;
  const Bytes bytes = Codificada<Protobuf>(Plana(estado.range(0)), objeto);
  for (auto _ : estado) benchmark::DoNotOptimize(Protobuf::Decodifica(bytes, objeto));
}

// What the formats that are read in place do before the first field can be read.
void FlatbuffersVerifica(benchmark::State& estado) {
  fb::OrdempsT objeto;
  const Bytes bytes = Codificada<Flatbuffers>(Plana(estado.range(0)), objeto);
  for (auto _ : estado) benchmark::DoNotOptimize(Flatbuffers::Verifica(bytes));
}

void CapnpAbre(benchmark::State& estado) {
  Ordemps objeto;
  const Bytes bytes = Codificada<Capnp>(Plana(estado.range(0)), objeto);
  for (auto _ : estado) {
    Capnp::Abre(bytes,
                [](capn::Ordemps::Reader raiz) { benchmark::DoNotOptimize(raiz.totalSize()); });
  }
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
BENCHMARK(FlatbuffersVerifica)->Apply(Tamanhos);
BENCHMARK(CapnpAbre)->Apply(Tamanhos);
