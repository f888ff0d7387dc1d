#!/usr/bin/env python3
"""Writes src/base/power_table.cpp, the tables behind Power and FlowPower, to standard output.

Every entry is computed with 100 decimal digits and rounded to nearest, ties to even, so any machine writes the same
file:  scripts/make_power_table.py > src/base/power_table.cpp
"""

from decimal import Decimal, getcontext
from fractions import Fraction

getcontext().prec = 100

FLOW_EXPONENT = Fraction(1.852)  # The double nearest 1.852, exactly.
INTERVALS = 256
LOWEST_FLOW_EXPONENT = -149
HIGHEST_FLOW_EXPONENT = 128
EXP2_STEPS = 128


def round_to_bits(value, bits):
    """The fraction of `bits` significant bits that is nearest to `value`."""
    if value == 0:
        return Fraction(0)
    exponent = 0
    while abs(value) >= Fraction(2) ** (exponent + 1):
        exponent += 1
    while abs(value) < Fraction(2) ** exponent:
        exponent -= 1
    unit = Fraction(2) ** (exponent - bits + 1)
    return round(value / unit) * unit


def pair(value, high_bits):
    """`value` as a high part of `high_bits` bits and the double nearest to the rest."""
    high = round_to_bits(value, high_bits)
    return float(high), float(round_to_bits(value - high, 53))


def decimal(fraction):
    return Decimal(fraction.numerator) / Decimal(fraction.denominator)


def power(base, exponent):
    return Fraction((decimal(exponent) * decimal(base).ln()).exp())


def log2(value):
    return Fraction(decimal(value).ln() / Decimal(2).ln())


def reciprocal(interval):
    """1 / (1 + interval / 256) to a multiple of 2^-13."""
    return Fraction(round(Fraction(INTERVALS, INTERVALS + interval) * 2**13), 2**13)


def binomial(exponent, k):
    result = Fraction(1)
    for i in range(k):
        result = result * (exponent - i) / (i + 1)
    return result


def braces(values):
    return "{" + ", ".join(value.hex() for value in values) + "}"


def write_array(comment, declaration, entries, per_line):
    print("// " + comment)
    print("const " + declaration + " = {")
    for i in range(0, len(entries), per_line):
        print("    " + ", ".join(entries[i : i + per_line]) + ",")
    print("};\n")


def main():
    intervals = range(INTERVALS)
    exponents = range(LOWEST_FLOW_EXPONENT, HIGHEST_FLOW_EXPONENT + 1)
    print("// Written by scripts/make_power_table.py. power_table.h says what the entries are.")
    print('#include "base/power_table.h"\n')
    print("// clang-format off")
    print("namespace torvale {\n")
    write_array(
        "i: r, near 1 / (1 + i/256); r^-1.852 in 26 bits; the rest of r^-1.852",
        "FlowInterval kFlowIntervals[kPowerIntervals]",
        [
            braces((float(reciprocal(i)), *pair(power(reciprocal(i), -FLOW_EXPONENT), 26)))
            for i in intervals
        ],
        1,
    )
    write_array(
        "e + 149: 2^(1.852 e) in 26 bits; the rest",
        "DoublePair kFlowScales[kFlowScaleCount]",
        [braces(pair(power(Fraction(2), FLOW_EXPONENT * e), 26)) for e in exponents],
        2,
    )
    write_array(
        "k: the coefficient of z^k in (1 + z)^1.852; that of z in 25 bits, and the rest of it in the place of k = 0",
        "double kFlowBinomial[kFlowBinomialCount]",
        [
            float(round_to_bits(value, 53)).hex()
            for value in (
                FLOW_EXPONENT - round_to_bits(FLOW_EXPONENT, 25),
                round_to_bits(FLOW_EXPONENT, 25),
                *(binomial(FLOW_EXPONENT, k) for k in range(2, 7)),
            )
        ],
        1,
    )
    write_array(
        "i: -log2 of the reciprocal of interval i in 53 bits; the rest",
        "DoublePair kLog2Intervals[kPowerIntervals]",
        [braces(pair(-log2(reciprocal(i)), 53)) for i in intervals],
        2,
    )
    write_array(
        "j: 2^(j/128) in 53 bits; the rest",
        "DoublePair kExp2Steps[kExp2StepCount]",
        [braces(pair(power(Fraction(2), Fraction(j, EXP2_STEPS)), 53)) for j in range(EXP2_STEPS)],
        2,
    )
    ln2 = Fraction(Decimal(2).ln())
    write_array(
        "k - 1: the coefficient of z^k in log2(1 + z), (-1)^(k + 1) / (k ln 2), in 53 bits; the rest",
        "DoublePair kLog2Series[kLog2SeriesCount]",
        [braces(pair((-1) ** (k + 1) / (k * ln2), 53)) for k in range(1, 10)],
        2,
    )
    factorial = Fraction(1)
    exp2_series = []
    for k in range(1, 8):
        factorial *= k
        exp2_series.append(braces(pair(ln2**k / factorial, 53)))
    write_array(
        "k - 1: the coefficient of f^k in 2^f, (ln 2)^k / k!, in 53 bits; the rest",
        "DoublePair kExp2Series[kExp2SeriesCount]",
        exp2_series,
        2,
    )
    print("}  // namespace torvale")


if __name__ == "__main__":
    main()
