#!/usr/bin/env python3
"""Input filter of Doxygen: a header as Doxygen reads it best, on the standard output.

The headers' plain comments become documentation: the first one of its file, the others of what
stands below them, and of every declaration down to the next empty line that has none of its own;
one at the end of a line, of that line. Text indented by three blanks is shown as it is. What the
record tables and the macros of class bodies declare is written out, each with its documentation.
"""

import re
import sys
from pathlib import Path

RAIZ = Path(__file__).resolve().parents[2]
MEMBROS = Path(__file__).with_name("membros.txt")

ESPECIAIS = re.compile(r"([\\@<>#%&*])")
DECLARACAO = re.compile(r"\s*(template\s*<.*?>\s*)?(class|struct|union|enum|(inline )?namespace)\b[^(=]*$")
DO_COMPILADOR = re.compile(r"[^{}]*=\s*(default|delete);")
OCULTA = re.compile(r"\s*(template <>|.*void Partes\(|.* MoveDe\(|friend (class|struct) |(virtual )?~)")
# What needs no comment of its own in a header.
USUAIS = [
    (re.compile(r"\s*[A-Z]\w+\(\)( noexcept)?( {|;)"), "An empty object."),
    (re.compile(r"\s*(\w+)\(const \1& \w+\)"), "A copy of the other."),
    (re.compile(r"\s*(\w+)\(\1&& \w+\)"), "Takes over what the other holds."),
    (re.compile(r".*& operator=\( ?\w+&& "), "Takes over what the other holds."),
    (re.compile(r".*& operator=\("), "Makes this object a copy of the other."),
    (re.compile(r".* operator==\("), "True when both are equal."),
    (re.compile(r".* operator!=\("), "The negation of operator==."),
]
ENUMERADOR = re.compile(r"\s*\w+(\s*=\s*[^(){}]*|\s*=\s*static_cast.*)?,\s*$")
MACRO = re.compile(
    r"\s*(KX_(?:CLASSE_\w+|DECLARA_CLASSE|COLECAO|MEMBRO(?:_POR_VALOR)?))\b\s*(\(.*\))?"
)


def escapa(texto):
    return ESPECIAIS.sub(r"\\\1", texto)


def le_modelos():
    """The declarations that each macro stands for: `= MACRO parameters`, then lines of C++, of
    which `+ MACRO` is all those of another."""
    modelos, nome = {}, None
    for linha in MEMBROS.read_text("utf-8").splitlines():
        if linha.startswith("= "):
            nome, *parametros = linha[2:].split()
            modelos[nome] = (parametros, [])
        elif nome:
            modelos[nome][1].extend(modelos[linha[2:]][1] if linha.startswith("+ ") else [linha])
    return modelos


MODELOS = le_modelos()


def expande(nome, argumentos):
    parametros, linhas = MODELOS[nome]
    valores = dict(zip(parametros, argumentos))
    return [re.sub(r"\$(\w+)\$", lambda m: valores[m[1]], linha) for linha in linhas]


# --- Record tables --------------------------------------------------------------------------------

LINHA_DA_TABELA = re.compile(r"(KX_[A-Z]+)\s*\((.*)\)\s*$")


def le_tabela(caminho):
    """The rows of a table: the kind of each and its columns, the meaning without its quotes."""
    for linha in (RAIZ / caminho).read_text("utf-8").splitlines():
        if achado := LINHA_DA_TABELA.match(linha):
            texto = re.search(r',\s*"(.*)"$', achado[2])
            colunas = achado[2][: texto.start()] if texto else achado[2]
            yield achado[1], [c.strip() for c in colunas.split(",")] + ([texto[1]] if texto else [])


def pagina(registro):
    return f"[layout](docs/registros/{registro}.md)"


def registro(tabela):
    """The struct that core/tabela/Registro.h makes of a table."""
    campos = []
    for tipo, c in le_tabela(tabela):
        if tipo == "KX_INICIO":
            yield f"/// {c[2]}; {int(c[1]):,} bytes, {pagina(c[0])}"
            yield f"struct {c[0]} {{"
        elif tipo in ("KX_CAMPO", "KX_INTERNO"):
            campos.append((f"{c[1]} {c[2]}", c))
        elif tipo in ("KX_TEXTO", "KX_HISTORICO"):
            campos.append((f"char {c[2]}[{c[1]}]", c))
        elif tipo == "KX_CONTADO":
            campos.append((f"KXStringPS {c[1]}", c))
        elif tipo in ("KX_CORRIDO", "KX_TERMINADO"):
            campos.append((f"char* Texto{c[1]}", c))
        elif tipo == "KX_LISTA":
            campos.append((f"{c[1]}* Lista{c[2]}", c))
        elif tipo == "KX_TAMANHO":
            campos.append((f"std::uint16_t Tamanho{c[1]}", c + [f"characters of Texto{c[1]}"]))
        elif tipo == "KX_CONTA":
            campos.append((f"std::uint16_t Qtd{c[1]}", c + [f"elements of Lista{c[1]}"]))
        elif tipo in ("KX_RESERVA", "KX_ZERO"):
            como = "spare, zero" if tipo == "KX_ZERO" else "reserved, carried unchanged"
            campos.append((f"std::uint8_t Reserva_{c[0]}[{c[1]}]", c + [como]))
    for declaracao, c in campos:
        yield f"  {declaracao};  ///< {escapa(c[-1])}; offset {c[0]}"
    yield "};"


def acessores(classe, tabela, por_valor):
    """The accessors that core/tabela/Acessores.h makes of a table."""
    modelo = "VALOR" if por_valor else "CAMPO"
    for tipo, c in le_tabela(tabela):
        if tipo == "KX_INICIO":
            yield f"/// @name Fields of {c[0]}"
            yield "/// @{\n"
        elif tipo in ("KX_CAMPO", "KX_PARTE"):
            yield from expande(modelo, [classe, c[1], c[2], escapa(c[-1]), c[0]])
        elif tipo in ("KX_TEXTO", "KX_HISTORICO"):
            maximo = str(int(c[1]) - 1)
            yield from expande("TEXTO", [classe, c[2], escapa(c[-1]), c[0], maximo])
    yield "/// @}"


# --- Comments -------------------------------------------------------------------------------------


def documenta(linhas):
    """A comment's lines, without their slashes, as documentation."""
    saida, bloco = [], []

    def fecha():
        while bloco and not bloco[-1].strip():
            bloco.pop()
        if bloco:
            eh_codigo = any(c.rstrip().endswith((";", "{", "}")) for c in bloco)
            lingua = ".cpp" if eh_codigo else ".unparsed"
            saida.extend([f"/// @code{{{lingua}}}", *(f"/// {codigo}" for codigo in bloco)])
            saida.extend(["/// @endcode", "///"])
            bloco.clear()

    lista = False
    for linha in linhas:
        texto = linha.strip()
        recuo = len(linha) - len(linha.lstrip())
        if texto.startswith("- "):
            lista = True
        elif not texto or recuo < 2:
            lista = False
        if recuo >= 2 and not lista or not texto and bloco:
            bloco.append(linha)
            continue
        fecha()
        partes = re.split(r"(`[^`]*`)", linha)
        escapado = "".join(p if p.startswith("`") else escapa(p) for p in partes)
        saida.append(f"/// {escapado}".rstrip())
    fecha()
    return saida


class Filtro:
    def __init__(self, linhas):
        self.linhas = linhas
        self.i = 0
        self.saida = []
        self.pilha = []  # of open braces: True where declarations stand inside
        self.pendente = ""  # of the declaration that is being read
        self.comentario = []  # right above
        self.herdado = []  # of the declarations above, down to an empty line
        self.defines = {}
        self.do_arquivo = []  # the comment of the file, until its first class has taken it

    def em_declaracoes(self):
        return all(self.pilha)

    def filtra(self):
        self.cabeca()
        while self.i < len(self.linhas):
            self.linha(self.linhas[self.i])
        return "\n".join(self.saida) + "\n"

    def cabeca(self):
        self.do_arquivo = documenta(self.toma_comentario())
        self.saida += ["/// @file", *self.do_arquivo, ""]

    def toma_comentario(self):
        bloco = []
        while self.i < len(self.linhas) and (m := re.match(r"\s*// ?(.*)", self.linhas[self.i])):
            bloco.append(m[1])
            self.i += 1
        return bloco

    def linha(self, linha):
        texto = linha.strip()
        if texto.startswith("//") and self.em_declaracoes() and not self.pendente:
            bloco = self.toma_comentario()
            self.comentario = [] if bloco[0].startswith("---") else documenta(bloco)
            self.herdado = []
            return
        self.i += 1
        if not texto:
            self.comentario = self.herdado = []
        elif texto.startswith("#"):
            self.diretiva(linha)
            return
        elif not self.pendente and MACRO.match(linha) and self.em_declaracoes():
            self.macro(linha)
            return
        elif self.em_declaracoes() and not self.pendente:
            self.comeca(linha)
            return
        self.emite(linha)

    def comeca(self, linha):
        """The first line of a declaration."""
        inteira = linha
        if linha.strip().startswith("template") or linha.endswith("("):
            inteira += " " + self.linhas[self.i].strip()
        if re.match(r"\s*(public|protected|private):|\s*}", linha):
            self.comentario = self.herdado = []
        elif OCULTA.match(inteira):
            self.comentario = []
            self.pula(linha)
            return
        elif DO_COMPILADOR.match(linha) and not self.comentario:
            return
        else:
            self.saida += self.documentacao(inteira)
        self.emite(linha)

    def documentacao(self, declaracao):
        """The comment above a declaration, or what serves for one."""
        if self.comentario:
            self.herdado = self.comentario
            self.comentario = []
            return self.herdado
        for padrao, texto in USUAIS:
            if padrao.match(declaracao):
                return [f"/// {texto}"]
        if self.do_arquivo and re.match(r"\s*(template <.*> )?\s*(class|struct) [^;]*$", declaracao):
            doc, self.do_arquivo = self.do_arquivo, []
            return doc
        return self.herdado

    def pula(self, linha):
        """Leaves a declaration out."""
        profundidade = len(self.pilha)
        self.acompanha(linha)
        while self.pendente or len(self.pilha) > profundidade:
            self.acompanha(self.linhas[self.i])
            self.i += 1

    def emite(self, linha):
        codigo, _, fim = linha.partition("  // ")
        if fim and not codigo.strip().startswith("}") and self.em_declaracoes():
            linha = self.ao_lado(codigo, fim, linha.index("  // ") + 2)
        self.saida.append(linha)
        self.acompanha(codigo)

    def ao_lado(self, codigo, fim, coluna):
        """A comment at the end of a line, and its further lines below."""
        textos = [fim]
        while self.i < len(self.linhas) and self.linhas[self.i].startswith(" " * coluna + "//"):
            textos.append(self.linhas[self.i].strip()[3:])
            self.i += 1
        return f"{codigo}  ///< {escapa(' '.join(textos))}"

    def acompanha(self, linha):
        codigo = re.sub(r'"(\\.|[^"\\])*"|\'(\\.|[^\'\\])\'|//.*', "", linha)
        for c in codigo:
            if c == "{":
                self.pilha.append(bool(DECLARACAO.match(self.pendente)))
                self.pendente = ""
                self.herdado = self.herdado if not self.pilha[-1] else []
            elif c == "}":
                if self.pilha:
                    self.pilha.pop()
                self.pendente = ""
            elif c == ";":
                self.pendente = ""
            else:
                self.pendente += c
        self.pendente = re.sub(r"^\s*((public|protected|private):)?\s*", "", self.pendente)
        if self.pendente:
            self.pendente += " "
        if self.pilha and self.enumera(linha):
            self.pendente = ""

    @staticmethod
    def enumera(linha):
        """An enumerator's line ends at its comma."""
        return ENUMERADOR.match(linha.partition("//")[0]) is not None

    def diretiva(self, linha):
        if m := re.match(r"#define (KX_CLASSE|KX_TABELA|KX_LE_POR_VALOR)\b\s*(.*)", linha):
            self.defines[m[1]] = m[2].strip('"')
        elif linha == '#include "core/tabela/Acessores.h"':
            por_valor = self.defines.pop("KX_LE_POR_VALOR", None) is not None
            self.saida += acessores(self.defines["KX_CLASSE"], self.defines["KX_TABELA"], por_valor)
        elif linha == '#include "core/tabela/Registro.h"':
            self.saida += registro(self.defines["KX_TABELA"])
        else:
            linhas = [linha]
            while linhas[-1].endswith("\\"):
                linhas.append(self.linhas[self.i])
                self.i += 1
            if not linha.startswith("#define"):
                self.saida += linhas
            elif self.comentario:  # a macro without words is none for users
                self.saida += self.comentario + linhas
        self.comentario = self.herdado = []

    def macro(self, linha):
        """A macro of a class body, with the comment above it or beside it."""
        linha, _, fim = linha.partition("  // ")
        while linha.count("(") > linha.count(")"):
            linha += " " + self.linhas[self.i].strip()
            self.i += 1
        m = MACRO.match(linha)
        argumentos = [a.strip() for a in (m[2] or "()")[1:-1].split(",")]
        if m[1] in ("KX_COLECAO", "KX_MEMBRO", "KX_MEMBRO_POR_VALOR"):
            palavras = self.comentario or self.herdado or (documenta([fim]) if fim else [])
            resumo = " ".join(palavra[4:] for palavra in palavras)
            self.herdado = palavras if not fim else self.herdado
            argumentos.append(resumo)
        self.comentario = []
        self.saida += expande(m[1], argumentos)


def main():
    caminho = Path(sys.argv[1])
    sys.stdout.reconfigure(encoding="utf-8")
    print(Filtro(caminho.read_text("utf-8").splitlines()).filtra(), end="")


if __name__ == "__main__":
    main()
