#!/usr/bin/env python3
"""Prints the 273 Wichmann-Hill sets: four moduli and four multipliers a line.

    tools/qor/wh_sets.py > src/qor/brng/wh_params.inc

The moduli are distinct primes just below 2^24, four to a set; the halves (m - 1)/2 of a set are pairwise coprime, so that
its period is their product (MacLaren 1989). A multiplier is a primitive root of its modulus below 128, none twice in a
set. Four sets are given; the others take, from the highest prime down, the next primes that fit, and for each modulus the
highest multiplier that is left. Takes a few seconds.
"""
from math import gcd, isqrt

LOWEST, HIGHEST, SETS = 16718909, 16776971, 273
GIVEN = {
    0: ((16770647, 16770643, 16770623, 16770617), (125, 117, 127, 126)),
    1: ((16770311, 16770283, 16770263, 16770209), (127, 126, 125, 123)),
    2: ((16769807, 16769771, 16769749, 16769663), (125, 119, 123, 126)),
    272: ((16766363, 16766359, 16766327, 16766231), (126, 127, 125, 124)),
}
SMALL = [p for p in range(2, isqrt(HIGHEST) + 1) if all(p % q for q in range(2, isqrt(p) + 1))]


def factors(n):
    found = set()
    for p in SMALL:
        if p * p > n:
            break
        while n % p == 0:
            found.add(p)
            n //= p
    return found | ({n} if n > 1 else set())


def is_primitive_root(a, m, orders):
    return all(pow(a, (m - 1) // p, m) != 1 for p in orders)


def multipliers(moduli):
    """The highest primitive roots below 128, none twice; None where a modulus has none left."""
    chosen = []
    for m in moduli:
        orders = factors(m - 1)
        chosen.append(next((a for a in range(127, 1, -1) if a not in chosen and is_primitive_root(a, m, orders)), None))
    return None if None in chosen else tuple(chosen)


def main():
    taken = {m for moduli, _ in GIVEN.values() for m in moduli}
    primes = [n for n in range(HIGHEST, LOWEST - 1, -1) if n not in taken and all(n % p for p in SMALL)]
    rows = dict(GIVEN)
    for row in range(SETS):
        if row in rows:
            continue
        moduli = []
        for m in primes:
            if all(gcd((m - 1) // 2, (k - 1) // 2) == 1 for k in moduli):
                moduli.append(m)
                if len(moduli) == 4:
                    break
        rows[row] = tuple(moduli), multipliers(moduli)
        primes = [m for m in primes if m not in moduli]
    print("// Moduli and multipliers of each member. Written by tools/qor/wh_sets.py.")
    for row in range(SETS):
        print("{{%d, %d, %d, %d}, {%d, %d, %d, %d}}," % (*rows[row][0], *rows[row][1]))


main()
