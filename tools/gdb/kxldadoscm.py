"""GDB shows the library's values as people read them: money, dates, texts, collections, records.

Installed where GDB loads it by itself together with the shared library; from the build tree, or
with a static library:

    (gdb) source tools/gdb/kxldadoscm.py

Printers are chosen by the types' own shape, so new documents need nothing here. Compilers describe
a class with virtual functions only where its functions are compiled, which is in the library: for
objects, either the library has debugging information too, or the program is compiled with
-femit-class-debug-always (GCC) or -fstandalone-debug (Clang).

Values that make no sense (uninitialised, corrupt, already released) are shown as "(ilegivel)" or
as GDB shows them; what is printed by this file itself is ASCII, because it must print under any
locale.
"""

import re

import gdb
import gdb.printing
import gdb.types

CODIFICACAO = 'ISO-8859-1'
ILEGIVEL = '(ilegivel)'
VAZIA = '(vazia)'

PAGINA = 4096
MAIOR_TEXTO = 1 << 20  # enough for any text that is worth reading here


# --- Memory ---------------------------------------------------------------------------------------

def le(endereco, quantos):
    """Bytes of the program; raises gdb.MemoryError."""
    return gdb.selected_inferior().read_memory(endereco, quantos).tobytes()


def legivel(ponteiro, quantos):
    """Whether the first and last of so many elements can be read."""
    if quantos <= 0:
        return quantos == 0
    tamanho = ponteiro.type.target().sizeof
    try:
        le(int(ponteiro), 1)
        le(int(ponteiro) + quantos * tamanho - 1, 1)
    except (gdb.error, OverflowError):
        return False
    return True


def zerado(valor):
    """Whether every byte of a value is zero."""
    tipo = valor.type.strip_typedefs()
    if tipo.code == gdb.TYPE_CODE_ARRAY:
        return all(zerado(valor[i]) for i in range(tipo.range()[1] + 1))
    if tipo.code == gdb.TYPE_CODE_STRUCT:
        return all(zerado(valor[campo]) for campo in tipo.fields())
    return int(valor) == 0


def tamanho_do_texto(endereco, limite):
    """Characters before the terminator, at most `limite`; never touches a page beyond it."""
    feitos = 0
    while feitos < limite:
        quantos = min(limite - feitos, PAGINA - (endereco + feitos) % PAGINA)
        fim = le(endereco + feitos, quantos).find(b'\0')
        if fim >= 0:
            return feitos + fim
        feitos += quantos
    return limite


def texto_em(ponteiro, limite):
    """The text up to its terminator, read as Latin-1 and quoted by GDB itself."""
    try:
        tamanho = tamanho_do_texto(int(ponteiro), min(limite, MAIOR_TEXTO))
    except (gdb.error, OverflowError):
        return ILEGIVEL
    return ponteiro.lazy_string(CODIFICACAO, length=tamanho)


def texto_fixo(array):
    """The text of a fixed-width field."""
    largura = array.type.strip_typedefs().sizeof
    if array.address is not None:
        return texto_em(array.address.cast(array[0].type.pointer()), largura)
    # A value that GDB holds by itself, such as the result of a call, has no address.
    caracteres = bytes(int(array[i]) & 0xFF for i in range(largura))
    texto = caracteres.split(b'\0')[0].decode(CODIFICACAO)
    return '"' + texto.encode('ascii', 'backslashreplace').decode() + '"'


def elementos(ponteiro, quantos):
    """The elements that a pointer gives, as one array."""
    tipo = ponteiro.type.strip_typedefs().target()
    return ponteiro.cast(tipo.array(quantos - 1).pointer()).dereference()


# --- Values ---------------------------------------------------------------------------------------

class Impressora:
    """Shows a value as one text; whatever cannot be read is told in its place."""

    def __init__(self, valor):
        self.valor = valor

    def to_string(self):
        try:
            return self.texto()
        except gdb.error:
            return ILEGIVEL

    def texto(self):
        raise NotImplementedError


class Dinheiro(Impressora):
    """An amount, in 1/10,000: at least two decimals, as the library writes it."""

    def texto(self):
        valor = self.valor
        while valor.type.strip_typedefs().code == gdb.TYPE_CODE_STRUCT:
            valor = valor[campos_proprios(valor.type)[0]]
        inteiros, decimos = divmod(abs(int(valor)), 10_000)
        decimais = f'{decimos:04}'
        decimais = decimais[:2] + decimais[2:].rstrip('0')
        sinal = '-' if int(valor) < 0 else ''
        return sinal + f'{inteiros:,}'.replace(',', '.') + ',' + decimais


def texto_de_data(data):
    return f"{int(data['Dia']):02}/{int(data['Mes']):02}/{int(data['Ano']):04}"


def texto_de_hora(hora):
    return ':'.join(f'{int(hora[parte]):02}' for parte in ('Hora', 'Minuto', 'Segundo'))


class Data(Impressora):
    def texto(self):
        return VAZIA if zerado(self.valor) else texto_de_data(self.valor)


class Hora(Impressora):
    def texto(self):
        return texto_de_hora(self.valor)


class DataHora(Impressora):
    def texto(self):
        if zerado(self.valor):
            return VAZIA
        return texto_de_data(self.valor['Data']) + ' ' + texto_de_hora(self.valor['Hora']) + ' UTC'


class ChaveDocumento(Impressora):
    def texto(self):
        if zerado(self.valor):
            return VAZIA
        return texto_de_data(self.valor['Data']) + f" n. {int(self.valor['Contador'])}"


def em_base_36(numero, algarismos):
    texto = ''
    for _ in range(algarismos):
        numero, resto = divmod(numero, 36)
        texto = '0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ'[resto] + texto
    return texto


def digito_da_chave(corpo):
    pesos = [2 + i % 8 for i in range(len(corpo))]
    resto = sum((ord(c) - 48) * peso for c, peso in zip(reversed(corpo), pesos)) % 11
    return '0' if resto < 2 else str(11 - resto)


class ChaveNFe(Impressora):
    """The 44 characters; kxldados/ChaveNFe.h describes the packing."""

    def texto(self):
        partes = [int(self.valor['Partes'][i]) for i in range(3)]
        if not any(partes):
            return VAZIA
        cnpj = partes[0] - (1 << 63)  # the bit that every key has
        digitos = f'{partes[1]:013}'
        chave = digitos[:6] + em_base_36(cnpj, 12) + digitos[6:] + f'{partes[2]:019}'
        cabe = 0 <= cnpj < 36 ** 12 and len(chave) == 44
        if cabe and chave[-1] == digito_da_chave(chave[:-1]):
            return chave
        return '(invalida: ' + ', '.join(f'{parte:#x}' for parte in partes) + ')'


class Texto(Impressora):
    """CString: its characters are those of a standard string."""

    def texto(self):
        interno = self.valor['_texto']
        tamanho = int(interno['_M_string_length'])
        inicio = interno['_M_dataplus']['_M_p']
        if tamanho >= 1 << 31 or not legivel(inicio, tamanho + 1):
            return ILEGIVEL
        return inicio.lazy_string(CODIFICACAO, length=tamanho)


class TextoContado(Impressora):
    """KXStringPS: up to its size or its terminator, whichever comes first."""

    def texto(self):
        tamanho = int(self.valor['Tamanho'])
        if int(self.valor['Texto']) == 0:
            return '""' if tamanho == 0 else ILEGIVEL
        return texto_em(self.valor['Texto'], tamanho)


# --- Collections ----------------------------------------------------------------------------------

class Colecao(Impressora):
    """Shows the number of elements, and each as a child."""

    def texto(self):
        quantos = self.quantos()
        return ILEGIVEL if quantos is None else f'{self.nome} de {quantos}'

    def children(self):
        try:
            for indice, elemento in enumerate(self.filhos(self.quantos() or 0)):
                yield f'[{indice}]', elemento
        except gdb.error:
            return

    def display_hint(self):
        return 'array'


class ColecaoContigua(Colecao):
    """CKXVector and CArray: both keep a standard vector."""

    def __init__(self, valor):
        super().__init__(valor)
        self.nome = valor.type.strip_typedefs().name.split('<')[0]

    def limites(self):
        interno = self.valor['_elementos']['_M_impl']
        return interno['_M_start'], interno['_M_finish'], interno['_M_end_of_storage']

    def quantos(self):
        inicio, fim, reserva = (int(limite) for limite in self.limites())
        primeiro = self.limites()[0]
        tamanho = primeiro.type.strip_typedefs().target().sizeof
        # A type that no part of the program describes has no size.
        if tamanho == 0 or not inicio <= fim <= reserva or (fim - inicio) % tamanho != 0:
            return None
        quantos = (fim - inicio) // tamanho
        return quantos if legivel(primeiro, quantos) else None

    def filhos(self, quantos):
        primeiro = self.limites()[0]
        return (primeiro[i] for i in range(quantos))


class Lista(Colecao):
    """CList: walked along its nodes, for as long as they can be read."""

    nome = 'CList'

    def quantos(self):
        quantos = int(self.valor['_quantidade'])
        primeiro = self.valor['_primeiro']
        if quantos < 0 or (quantos == 0) != (int(primeiro) == 0):
            return None
        return quantos if quantos == 0 or legivel(primeiro, 1) else None

    def filhos(self, quantos):
        elemento = self.valor.type.strip_typedefs().template_argument(0)
        posicao = self.valor['_primeiro']
        # The element follows the two links of its node, where its alignment lets it.
        alinhamento = elemento.strip_typedefs().alignof
        inicio = -(-posicao.type.strip_typedefs().target().sizeof // alinhamento) * alinhamento
        for _ in range(quantos):
            valor = gdb.Value(int(posicao) + inicio).cast(elemento.pointer())
            if not legivel(valor, 1):
                return
            yield valor.dereference()
            posicao = posicao['Proximo']


# --- Records and objects --------------------------------------------------------------------------

def campos_proprios(tipo):
    """The fields of a struct without its bases, statics and tables of virtual functions."""
    return [campo for campo in tipo.strip_typedefs().fields()
            if hasattr(campo, 'bitpos') and not campo.is_base_class and not campo.artificial
            and not campo.name.startswith('_vptr')]


class Vazios(gdb.Parameter):
    """Whether records are shown with the fields whose every byte is zero.

They are hundreds in most records. Spare bytes, and arrays and texts that are not there, are left
out in either case.
"""

    set_doc = 'Set whether records are shown with their empty fields.'
    show_doc = 'Show whether records are shown with their empty fields.'

    def __init__(self):
        super().__init__('print vazios', gdb.COMMAND_DATA, gdb.PARAM_BOOLEAN)
        self.value = False

    def get_set_string(self):
        return ''

    def get_show_string(self, valor):
        return f'Printing of the empty fields of records is {valor}.'


class Registro:
    """A record: its fields by name, those that hold something (set print vazios on: all)."""

    # What counts the elements or characters of a pointer, by the prefix of its name.
    CONTAS = {'Lista': 'Qtd', 'Texto': 'Tamanho'}

    def __init__(self, valor):
        self.valor = valor
        self.campos = {campo.name: campo for campo in campos_proprios(valor.type)}
        self.pares = {}  # of a pointer its count, of a count its pointer
        for nome in self.campos:
            for prefixo, conta in self.CONTAS.items():
                par = conta + nome[len(prefixo):]
                if nome.startswith(prefixo) and par in self.campos:
                    self.pares[nome] = par
                    self.pares[par] = nome

    def to_string(self):
        try:
            algum = any(self.aparece(nome, campo) for nome, campo in self.campos.items())
            return None if algum else VAZIA
        except gdb.error:
            return ILEGIVEL

    def children(self):
        try:
            for nome, campo in self.campos.items():
                if self.aparece(nome, campo):
                    yield nome, self.mostra(nome, self.valor[campo])
        except gdb.error:
            return

    def aparece(self, nome, campo):
        # A count and its pointer go together: one without the other is worth seeing.
        par = self.pares.get(nome)
        if not zerado(self.valor[campo]) or (par and not zerado(self.valor[par])):
            return True
        tipo = campo.type.strip_typedefs()
        ausente = (nome.startswith('Reserva') or par or tipo.code == gdb.TYPE_CODE_PTR
                   or tipo.name == 'KXStringPS')
        return VAZIOS.value and not ausente

    def mostra(self, nome, valor):
        tipo = valor.type.strip_typedefs()
        if tipo.code == gdb.TYPE_CODE_PTR:
            return self.mostra_ponteiro(nome, valor)
        if tipo.code == gdb.TYPE_CODE_ARRAY and eh_char(tipo.target()):
            return texto_fixo(valor)
        # A byte is a number in a record, and no character.
        if tipo.code == gdb.TYPE_CODE_ARRAY and tipo.target().sizeof == 1:
            return ' '.join(f'{int(valor[i]):02x}' for i in range(tipo.sizeof))
        if tipo.code == gdb.TYPE_CODE_INT and tipo.sizeof == 1 and not eh_char(tipo):
            return int(valor)
        return valor

    def mostra_ponteiro(self, nome, valor):
        conta = self.pares.get(nome)
        quantos = MAIOR_TEXTO if conta is None else int(self.valor[conta])
        if eh_char(valor.type.strip_typedefs().target()):
            return texto_em(valor, quantos)
        if conta is None or quantos == 0 or not legivel(valor, quantos):
            return valor
        return elementos(valor, quantos)


def eh_char(tipo):
    return tipo.strip_typedefs().unqualified().name == 'char'


class Objeto:
    """A data object: its record, collections and members, those of its bases first."""

    def __init__(self, valor):
        self.valor = valor

    def children(self):
        try:
            yield from self.membros(self.valor)
        except gdb.error:
            return

    def membros(self, valor):
        for campo in valor.type.strip_typedefs().fields():
            if campo.is_base_class:
                yield from self.membros(valor[campo])
        for campo in campos_proprios(valor.type):
            yield campo.name, valor[campo]


def deriva_de_cobject(tipo):
    if tipo.name == 'CObject':
        return True
    return any(campo.is_base_class and deriva_de_cobject(campo.type.strip_typedefs())
               for campo in tipo.fields())


# --- Choice ---------------------------------------------------------------------------------------

POR_NOME = {
    'tagCY': Dinheiro,
    'CKXCurrencyEx': Dinheiro,
    'REG_KXDMA': Data,
    'REG_KXHMS': Hora,
    'REG_KXDMAHMSUTC': DataHora,
    'REG_KXDMC': ChaveDocumento,
    'KXDataHora32': Registro,
    '_KX_NFE_ps': ChaveNFe,
    'CString': Texto,
    'KXStringPS': TextoContado,
    'CKXVector': ColecaoContigua,
    'CArray': ColecaoContigua,
    'CList': Lista,
}
REGISTRO = re.compile('_?(tag)?REG_')


class Impressoras(gdb.printing.PrettyPrinter):
    """Chooses by name for the plain types, by shape for records and objects."""

    def __init__(self):
        super().__init__('kxldadoscm')

    def __call__(self, valor):
        # A second time, because it also finds what is declared here and described elsewhere.
        tipo = gdb.types.get_basic_type(valor.type).strip_typedefs()
        if tipo.code != gdb.TYPE_CODE_STRUCT or tipo.name is None or not tipo.fields():
            return None
        impressora = self.impressora(tipo)
        if impressora is None or valor.is_optimized_out:
            return None
        # No cast: GDB 13 frees values still in use when a value is cast to the type that it has.
        referencia = valor.type.strip_typedefs().code == gdb.TYPE_CODE_REF
        return impressora(valor.referenced_value() if referencia else valor)

    def impressora(self, tipo):
        por_nome = POR_NOME.get(tipo.name.split('<')[0])
        if por_nome is not None:
            return por_nome
        if REGISTRO.match(tipo.name):
            return Registro
        return Objeto if deriva_de_cobject(tipo) else None


VAZIOS = Vazios()
gdb.printing.register_pretty_printer(gdb.current_objfile(), Impressoras(), replace=True)
