#!/usr/bin/env python3
"""Writes vetores_dinheiro.txt, beside this file: money calculations and their results.

    python3 tests/dados/gera_vetores_dinheiro.py

The results come from Python's decimal module, which shares nothing with the library. With 100
digits every product is exact, and every quotient exact enough: one that is not a tie is away from
the nearest tie by more than 10^-20 of the last decimal, because divisors are below 2^64.

A line is an operation, its two operands and its result, amounts as counts of 1/10,000:
    *  a b   a * b
    /  a b   a / b
    P  v t   percentage of the value v in the total t: v * 100 / t, and 0 when v is 0
    V  p t   value of the percentage p of the total t: p * t / 100, and 0 when p is 0
"""

import decimal
import pathlib
import random
from decimal import Decimal

MAXIMO = 2**63 - 1
MINIMO = -(2**63)
ESCALA = Decimal(10000)
CEM = 1_000_000
EXTREMOS = [MAXIMO, MINIMO, MAXIMO - 1, MINIMO + 1, 1, -1, 0, 9999, 10000, -10000, 10001, CEM]

decimal.getcontext().prec = 100
decimal.getcontext().rounding = decimal.ROUND_HALF_EVEN


def guarda(valor):
    """The amount as stored: rounded to 4 decimals, 0 when it does not fit."""
    contagem = int((valor * ESCALA).to_integral_value())
    return contagem if MINIMO <= contagem <= MAXIMO else 0


def vezes(a, b):
    return guarda(Decimal(a) / ESCALA * (Decimal(b) / ESCALA))


def por(a, b):
    return guarda(Decimal(a) / Decimal(b)) if b else 0


OPERACOES = {
    "*": vezes,
    "/": por,
    "P": lambda valor, total: por(vezes(valor, CEM), total) if valor else 0,
    "V": lambda percentual, total: por(vezes(percentual, total), CEM) if percentual else 0,
}


def sorteia(gerador):
    """Any magnitude, both signs."""
    return gerador.choice((1, -1)) * gerador.getrandbits(gerador.randint(1, 63))


def empates(gerador):
    """Operands whose exact result ends in half a unit of the last decimal."""
    impar = sorteia(gerador) | 1
    quociente = gerador.randrange(1, 10**6) * 2 + 1
    yield "*", impar >> 16 | 1, 5000 * (gerador.randrange(100) * 2 + 1)
    yield "/", quociente * 5, 100000 * gerador.choice((1, -1))
    yield "/", quociente * (divisor := gerador.randrange(1, 10**6)), 20000 * divisor
    yield "P", quociente, 200 * 10000 * gerador.choice((1, -1))
    yield "V", impar >> 24 | 1, 5000
    yield "V", quociente * 50 * gerador.choice((1, -1)), 10000


def limites(gerador):
    """Results at the ends of the range and just beyond."""
    fator = gerador.randrange(10001, 10**9)
    perto = gerador.choice((MAXIMO, MINIMO)) * 10000 // fator + gerador.randint(-1, 1)
    yield "*", perto, fator
    yield "V", perto, fator
    divisor = gerador.randrange(1, 10000)
    yield "/", gerador.choice((MAXIMO, MINIMO)) * divisor // 10000 + gerador.randint(-1, 1), divisor
    cem = gerador.choice((MAXIMO, MINIMO)) // 100 + gerador.randint(-1, 1)
    yield "P", cem, sorteia(gerador)


def contas():
    gerador = random.Random(20260101)
    for operacao in OPERACOES:
        for a in EXTREMOS:
            for b in EXTREMOS:
                yield operacao, a, b
        for _ in range(250):
            yield operacao, sorteia(gerador), sorteia(gerador)
        for _ in range(100):  # what contracts are about: cents, and a larger total
            total = gerador.randrange(1, 10**10) * 100
            parte = gerador.randrange(2 * CEM if operacao == "V" else total)
            yield operacao, parte, total
    for _ in range(60):
        yield from empates(gerador)
        yield from limites(gerador)


def main():
    linhas = dict.fromkeys(contas())
    destino = pathlib.Path(__file__).with_name("vetores_dinheiro.txt")
    destino.write_text("".join(f"{o} {a} {b} {OPERACOES[o](a, b)}\n" for o, a, b in linhas))


if __name__ == "__main__":
    main()
