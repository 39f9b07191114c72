#!/usr/bin/env python3
"""Makes one table of what kxbench measured.

    python3 bench/tabela.py FILE.json...                 the table, and what missed its target
    python3 bench/tabela.py --pagina=MODEL FILE.json...  the same within the page that MODEL is

Times are medians, over the repetitions of a run, of the processor's time, or of the clock's where
the benchmark says so. A ratio is ours by the
other's, both from one run, so that less is better: 0.33 is three times as fast. A comparison of
which a side was not measured is left out, and named on the standard error.
"""

import datetime
import json
import pathlib
import re
import string
import subprocess
import sys
from typing import NamedTuple

PACOTES = ["libbenchmark-dev", "zlib1g-dev", "libdeflate-dev", "libzstd-dev", "libprotobuf-dev",
           "libflatbuffers-dev", "libcapnp-dev", "libcereal-dev", "nlohmann-json3-dev",
           "libpugixml-dev", "libsqlite3-0"]
INSTRUCOES = ["pclmulqdq", "avx2", "vpclmulqdq", "avx512f"]
PARES = {"Protobuf": "protobuf", "Flatbuffers": "FlatBuffers", "Capnp": "Cap'n Proto",
         "Cereal": "cereal"}


class Comparacao(NamedTuple):
    """One benchmark of ours against another, for every size that both have."""
    nome: str
    nosso: str
    contra: str
    outro: str
    meta: float | None = None
    desde: int = 0  # sizes below have no target
    grandeza: str = "cpu_time"


def comparacoes():
    for documento, prefixo in (("entry", ""), ("order", "Ordem"), ("contract", "Contrato")):
        for nome, medida in (("from record", "CopiarDe"), ("to record", "CopiarParaELibera")):
            yield Comparacao(f"{documento}, {nome}", prefixo + medida, "floor",
                             f"{prefixo}{medida}Piso", 1.1)
    yield Comparacao("order, constructed from record", "OrdemDeRegistro",
                     "floor that clears nothing", "OrdemDeRegistroPiso", 1.1, 10)
    for documento, prefixo in (("entry", ""), ("order", "Ordem")):
        yield Comparacao(f"{documento}, equality", f"{prefixo}Igualdade", "memcmp",
                         f"{prefixo}IgualdadePiso", 1.0)
    yield from com_pares()
    yield Comparacao("checksum, bytes", "Checksum", "zlib", "ChecksumZlib")
    yield Comparacao("checksum, bytes", "Checksum", "libdeflate", "ChecksumLibdeflate", 1.0, 896)


def com_pares():
    """The order against other formats."""
    for par, contra in PARES.items():
        yield Comparacao("order, encode", "OrdemCopiarParaELibera", contra, f"{par}Codifica")
    for par, contra in PARES.items():
        yield Comparacao("order, decode", "OrdemCopiarDe", contra, f"{par}Decodifica",
                         1 / 3 if par == "Protobuf" else None)
    yield Comparacao("order, decode", "OrdemCopiarDe", "protobuf, in an arena",
                     "ProtobufDecodificaArena")
    yield Comparacao("order, decode, reused", "OrdemCopiarDeReusando", "protobuf",
                     "ProtobufDecodificaReusando")
    yield Comparacao("order, decode", "OrdemCopiarDe", "FlatBuffers, verified only",
                     "FlatbuffersVerifica")
    yield Comparacao("order, decode", "OrdemCopiarDe", "Cap'n Proto, opened only", "CapnpAbre")
    for par, contra in PARES.items():
        yield Comparacao("order, equality", "OrdemIgualdade", contra, f"{par}Igualdade")
    for par, contra in PARES.items():
        yield Comparacao("order, size", "OrdemCopiarParaELibera", contra, f"{par}Codifica",
                         grandeza="bytes")
    yield from de_imagens()
    yield Comparacao("order, written as JSON", "JsonEscreve", "nlohmann-json's dump alone",
                     "JsonEscreveNlohmann", 2.0)
    yield Comparacao("order, read from JSON", "JsonLe", "nlohmann-json's parse alone",
                     "JsonLeNlohmann", 2.0)
    yield Comparacao("invoices, imported into an archive", "AcervoImporta",
                     "pugixml's parse alone", "AcervoImportaPugixml")
    yield Comparacao("invoices, shown from it as JSON", "AcervoMostra",
                     "nlohmann-json's dump alone", "AcervoMostraNlohmann", 2.0)
    yield Comparacao("invoices, booked from JSON", "AcervoGrava", "nlohmann-json's parse alone",
                     "AcervoGravaNlohmann", 2.0)
    yield Comparacao("order, equal in content (Igual)", "OrdemIgualNoConteudo", "operator==",
                     "OrdemIgualdade", 3.0)
    yield Comparacao("order, EstaVazio of an empty one", "OrdemEstaVazia", "memcmp",
                     "OrdemEstaVaziaPiso", 2.0)
    yield Comparacao("order, differences of equal ones", "OrdemDiferencasDeIguais", "operator==",
                     "OrdemIgualdade", 1.1)
    yield Comparacao("order, differences in every item", "OrdemDiferencas", "operator==",
                     "OrdemIgualdade")


def de_imagens():
    """The order as an image, against its record and the formats that are read in place."""
    for nome, medida, metas in (("without checksum", "Sem", (0.35, 0.2)), ("", "", (0.7, 0.5))):
        sufixo = f", {nome}" if nome else ""
        yield Comparacao(f"order, image written{sufixo}", f"ImagemEscreve{medida}",
                         "to record", "OrdemCopiarParaELibera", metas[0])
        yield Comparacao(f"order, image written{sufixo}", f"ImagemEscreve{medida}",
                         "its blocks copied", f"ImagemEscreve{medida}Piso")
        yield Comparacao(f"order, image opened{sufixo}", f"ImagemAbre{medida}",
                         "FlatBuffers, verified only", "FlatbuffersVerifica", metas[1])
    yield Comparacao("order, image opened and read, without checksum", "ImagemAbreECopiarDe",
                     "from record", "OrdemCopiarDe", 1.15)
    yield Comparacao("order, image in new memory, without checksum", "ImagemNova", "to record",
                     "OrdemCopiarParaELibera")
    for par, contra in PARES.items():
        yield Comparacao("order, image written", "ImagemEscreve", contra, f"{par}Codifica")
    for grandeza, nome in (("bytes", "size"), ("zstd", "size through zstd")):
        for par, contra in PARES.items():
            yield Comparacao(f"order, image, {nome}", "ImagemEscreve", contra, f"{par}Codifica",
                             grandeza=grandeza)


def le(arquivos):
    """The medians of all files, by the benchmark's name; those that failed are not among them."""
    medidas = [m for arquivo in arquivos
               for m in json.loads(pathlib.Path(arquivo).read_text())["benchmarks"]]
    falhas = {m["run_name"]: m["error_message"] for m in medidas if m.get("error_occurred")}
    for nome, motivo in falhas.items():
        print(f"failed: {nome}: {motivo}", file=sys.stderr)
    return dict(mediana(m) for m in medidas
                if m.get("aggregate_name") == "median" and m["run_name"] not in falhas)


def mediana(medida):
    """Its name without what the benchmark adds to it, and the time that counts as cpu_time."""
    nome, _, modo = medida["run_name"].partition("/iterations:")
    if modo.endswith("/real_time"):
        medida["cpu_time"] = medida["real_time"]
    return nome, medida


def valor(medida, grandeza):
    """In nanoseconds when it is a time; None when the benchmark does not tell it."""
    escala = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[medida["time_unit"]]
    return medida[grandeza] * escala if grandeza == "cpu_time" else medida.get(grandeza)


def mostra(quanto, grandeza):
    if grandeza in ("bytes", "zstd"):
        return f"{quanto:,.0f} B"
    for unidade, escala in (("ms", 1e6), ("µs", 1e3)):
        if quanto >= escala:
            return f"{quanto / escala:.3g} {unidade}" if quanto < 999.5 * escala else \
                f"{quanto / escala:,.0f} {unidade}"
    return f"{quanto:.3g} ns"


def razao(quanto):
    """Two decimals, or two digits of what is smaller."""
    return f"{quanto:.2f}" if quanto >= 0.095 else f"{quanto:.2g}"


class Linha(NamedTuple):
    nome: str
    tamanho: str
    nosso: float
    contra: str
    outro: float
    meta: float | None
    grandeza: str

    @property
    def razao(self):
        return self.nosso / self.outro

    @property
    def cumprida(self):
        """To the two decimals that are shown; None without a target."""
        return None if self.meta is None else round(self.razao, 2) <= round(self.meta, 2)

    def celulas(self):
        return (self.nome, self.tamanho, mostra(self.nosso, self.grandeza), self.contra,
                mostra(self.outro, self.grandeza), razao(self.razao),
                "" if self.meta is None else f"{self.meta:.2f}",
                {None: "", True: "met", False: "missed"}[self.cumprida])


def linhas_de(comparacao, medidas):
    for nome, nossa in medidas.items():
        if not re.fullmatch(rf"{comparacao.nosso}/\d+", nome):
            continue
        tamanho = int(nome.partition("/")[2])
        outra = medidas.get(f"{comparacao.outro}/{tamanho}")
        if outra is None:
            continue
        nosso, outro = (valor(m, comparacao.grandeza) for m in (nossa, outra))
        if nosso is None or outro is None:
            continue
        meta = comparacao.meta if tamanho >= comparacao.desde else None
        yield tamanho, Linha(comparacao.nome, f"{tamanho:,}", nosso, comparacao.contra, outro,
                             meta, comparacao.grandeza)


def linhas_da_arvore(medidas):
    """The time of one record in a large tree by that in a small one; building has a target."""
    pequena, grande = 1000, 1_000_000
    for nome, medida in sorted(medidas.items()):
        caso, _, tamanho = nome.rpartition("/")
        if "/" not in caso or tamanho != str(grande) or f"{caso}/{pequena}" not in medidas:
            continue
        menor = valor(medidas[f"{caso}/{pequena}"], "cpu_time") / pequena
        maior = valor(medida, "cpu_time") / grande
        yield Linha(f"tree, {caso.replace('/', ' ')}, per record", f"{grande:,}", maior,
                    f"{pequena:,} records", menor, 3.0 if caso.startswith("Monta") else None,
                    "cpu_time")


def linhas_de_ritmo(medidas):
    """What has to be done so many times a second, whatever others need for it."""
    for nome, medida, por_segundo in (("invoices, imported into an archive", "AcervoImporta", 2000),):
        for tamanho in (int(m.partition("/")[2]) for m in medidas if m.startswith(f"{medida}/")):
            yield Linha(nome, f"{tamanho:,}", valor(medidas[f"{medida}/{tamanho}"], "cpu_time"),
                        f"{por_segundo:,} a second", tamanho / por_segundo * 1e9, 1.0, "cpu_time")


def faz_linhas(medidas):
    linhas = []
    for comparacao in comparacoes():
        destas = sorted(linhas_de(comparacao, medidas), key=lambda par: par[0])
        if not destas:
            print(f"not measured: {comparacao.nome}, {comparacao.contra}", file=sys.stderr)
        linhas += [linha for _, linha in destas]
    return linhas + list(linhas_de_ritmo(medidas)) + list(linhas_da_arvore(medidas))


def tabela(linhas):
    """Markdown that reads as well on a terminal."""
    titulos = ("what", "size", "ours", "against", "its", "ratio", "at most", "")
    direita = (False, True, True, False, True, True, True, False)
    celulas = [titulos] + [linha.celulas() for linha in linhas]
    larguras = [max(3, *(len(texto) for texto in coluna)) for coluna in zip(*celulas)]

    def alinha(textos):
        partes = (texto.rjust(n) if d else texto.ljust(n)
                  for texto, n, d in zip(textos, larguras, direita))
        return f"| {' | '.join(partes)} |"

    regua = (("-" * (n - 1) + ":") if d else "-" * n for n, d in zip(larguras, direita))
    return "\n".join([alinha(titulos), alinha(regua), *map(alinha, celulas[1:])])


def resumo(linhas):
    com_meta = [linha for linha in linhas if linha.meta is not None]
    faltam = [linha for linha in com_meta if not linha.cumprida]
    frases = [f"{len(com_meta) - len(faltam)} of {len(com_meta)} targets met."]
    if faltam:
        frases.append("Missed:\n")
        frases += [f"- {linha.nome}, {linha.tamanho}, against {linha.contra}: {linha.razao:.2f}, "
                   f"where {linha.meta:.2f} is asked" for linha in faltam]
    return "\n".join(frases)


def saida(*comando):
    """What a command prints, empty where there is no such command."""
    try:
        return subprocess.run(comando, capture_output=True, text=True, check=False,
                              env={"LC_ALL": "C", "PATH": "/usr/bin:/bin"}).stdout.strip()
    except OSError:
        return ""


def maquina(arquivos):
    campos = dict(linha.split(":", 1) for linha in saida("lscpu").splitlines() if ":" in linha)
    cpu = {nome.strip(): texto.strip() for nome, texto in campos.items()}
    tem = [nome for nome in INSTRUCOES if nome in cpu.get("Flags", "").split()]
    sistema = re.search(r'PRETTY_NAME="(.*)"', pathlib.Path("/etc/os-release").read_text())
    contexto = json.loads(pathlib.Path(arquivos[0]).read_text())["context"]
    carga = contexto.get("load_avg") or ["unknown"]
    virtual = cpu.get("Hypervisor vendor")
    caches = ", ".join(f"{nivel} {cpu[f'{nivel} cache']}" for nivel in ("L1d", "L2", "L3")
                       if f"{nivel} cache" in cpu)
    return "\n".join([
        f"- Processor: {cpu.get('Model name', 'unknown')}, family {cpu.get('CPU family', '?')} "
        f"model {cpu.get('Model', '?')}, {cpu.get('CPU(s)', '?')} processors"
        + (f", virtual ({virtual})" if virtual else ""),
        f"- Caches: {caches}",
        f"- Instructions that matter here: {' '.join(tem) or 'none'}",
        f"- System: {sistema.group(1) if sistema else 'unknown'}, "
        f"Linux {saida('uname', '-r')}",
        f"- Load average when it began: {carga[0]}",
        f"- Compiler: {saida('g++', '--version').partition(chr(10))[0]}, `-O2`",
        f"- Packages: {', '.join(filter(None, map(versao, PACOTES)))}",
    ])


def versao(pacote):
    numero = saida("dpkg-query", "-W", "-f", "${Version}", pacote)
    return f"{pacote} {numero}" if numero else ""


def pagina(modelo, arquivos, linhas):
    texto = string.Template(pathlib.Path(modelo).read_text())
    return texto.substitute(data=datetime.date.today().isoformat(), maquina=maquina(arquivos),
                            resumo=resumo(linhas), tabela=tabela(linhas))


def main(argumentos):
    modelo = None
    if argumentos and argumentos[0].startswith("--pagina="):
        modelo, argumentos = argumentos[0].partition("=")[2], argumentos[1:]
    if not argumentos:
        sys.exit(__doc__)
    linhas = faz_linhas(le(argumentos))
    if modelo:
        print(pagina(modelo, argumentos, linhas), end="")
    else:
        print(tabela(linhas), resumo(linhas), sep="\n\n")


if __name__ == "__main__":
    main(sys.argv[1:])
