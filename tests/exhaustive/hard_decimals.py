#!/usr/bin/env python3
"""Writes decimal numbers that are hard to read, each with the bits of the double nearest to it, ties
to even. Some are constructed, the others come from the files of known hard cases that are named:
words of a decimal number in any lines but comments. All is computed in integers of any size."""

import argparse
import pathlib
import random
import re
import struct
import sys

FRACTION_BITS = 52
LOWEST_EXPONENT = -1074
INFINITY = 0x7FF << FRACTION_BITS
SIGN = 1 << 63

DECIMAL = re.compile(r"([+-]?)(\d*)\.?(\d*)(?:[eE]([+-]?\d+))?")


def nearest_bits(text):
    """Bits of the double nearest to the decimal number."""
    sign, whole, fraction, exponent = DECIMAL.fullmatch(text).groups()
    digits = int((whole + fraction).lstrip("0") or "0")
    power = int(exponent or "0") - len(fraction)
    bits = SIGN if sign == "-" else 0
    magnitude = len(str(digits)) + power
    if digits == 0 or magnitude < -400:
        return bits
    if magnitude > 400:
        return bits | INFINITY
    return bits | round_ratio(digits * 10 ** max(power, 0), 10 ** max(-power, 0))


def round_ratio(numerator, denominator):
    """Bits of the double nearest to a positive ratio."""
    highest = numerator.bit_length() - denominator.bit_length()
    if numerator << max(-highest, 0) < denominator << max(highest, 0):
        highest -= 1
    last = max(highest - FRACTION_BITS, LOWEST_EXPONENT)
    quotient, rest = divmod(numerator << max(-last, 0), denominator << max(last, 0))
    half = (denominator << max(last, 0)) - 2 * rest
    if half < 0 or (half == 0 and quotient % 2 == 1):
        quotient += 1
    # The hidden bit, and a carry out of the fraction, count up the exponent.
    return min(((last - LOWEST_EXPONENT) << FRACTION_BITS) + quotient, INFINITY)


def scaled_value(bits):
    """The double of these bits as a multiple of 2^-1075: the middle between two is an integer too.
    Infinity counts as the number that would follow the largest double."""
    biased = bits >> FRACTION_BITS
    fraction = bits & ((1 << FRACTION_BITS) - 1)
    return fraction * 2 if biased == 0 else (fraction | 1 << FRACTION_BITS) << biased


def exact_digits(scaled):
    """Digits and power of ten of a multiple of 2^-1075, without zeros at the end."""
    digits = str(scaled * 5 ** 1075)
    stripped = digits.rstrip("0")
    return stripped, len(digits) - len(stripped) - 1075


def spell(digits, power):
    return f"{digits}e{power}"


def around(scaled):
    """Texts of a number, of its closest neighbours that are one digit longer, and of what remains
    when digits are cut off."""
    digits, power = exact_digits(scaled)
    yield spell(digits, power)
    yield spell(digits + "1", power - 1)
    yield spell(str(int(digits + "0") - 1), power - 1)
    yield spell(digits + "0" * 800 + "1", power - 801)
    for count in (15, 16, 17, 18, 19, 20, 21, 25, 40, 100):
        if count < len(digits):
            cut = int(digits[:count])
            yield spell(cut, power + len(digits) - count)
            yield spell(cut + 1, power + len(digits) - count)


def chosen_doubles():
    """Bits of doubles about which neighbouring numbers are read: powers of two with the doubles next
    to them, the ends of the range, and some of all sizes."""
    for biased in range(1, 0x7FF):
        bits = biased << FRACTION_BITS
        yield from (bits - 1, bits, bits + 1)
    for position in range(FRACTION_BITS):
        yield 1 << position
    yield INFINITY - 1
    generator = random.Random(20201224)
    for _ in range(3000):
        yield generator.randrange(1, INFINITY)


def constructed():
    for bits in chosen_doubles():
        yield from around((scaled_value(bits) + scaled_value(bits + 1)) // 2)
        yield spell(*exact_digits(scaled_value(bits)))
    yield from around(1)  # half of the smallest
    for zeros in (1, 10, 22, 23, 100, 308, 309, 400, 1000, 2000):
        for digits in ("1", "9007199254740993", "17976931348623158", "24703282292062328"):
            yield digits + "0" * zeros
            yield "0" * zeros + digits
            yield "0." + "0" * zeros + digits
            yield f"{digits}{'0' * zeros}e-{zeros}"
            yield f"0.{'0' * zeros}{digits}e{zeros}"
            yield f"{digits}.{'0' * zeros}e-300"
            yield f"{digits}.{'0' * zeros}1"
            yield f"0.{'0' * zeros}{digits}e{zeros + 308}"
            yield f"{digits}{'0' * zeros}e-{zeros + 323}"
    for exponent in (308, 309, 310, 400, 4999, 65536, 2 ** 31, 2 ** 32, 2 ** 63, 2 ** 64, 10 ** 30):
        for digits in ("0", "1", "9.999999999999999", "0.0", "123456789012345678901234567890"):
            yield f"{digits}e{exponent}"
            yield f"{digits}e-{exponent}"
            yield f"{digits}E+{exponent}"
    for digits in range(1, 20):
        for power in range(-345, 312):
            yield spell("9" * digits, power)



def known(path):
    """Decimal numbers of a file."""
    for line in pathlib.Path(path).read_text(encoding="utf-8").splitlines():
        for word in re.split(r"\s+|->", line.partition("#")[0]):
            if any(map(str.isdigit, word)) and DECIMAL.fullmatch(word):
                yield word


def known_bits(path):
    """Decimal numbers of a file that tells their doubles as multiples of powers of two."""
    line_form = re.compile(r"float64 %b (\S+) (\d+)p([+-]\d+)")
    for line in pathlib.Path(path).read_text(encoding="utf-8").splitlines():
        match = line_form.fullmatch(line)
        if match and DECIMAL.fullmatch(match[1]):
            numerator = int(match[2]) << max(int(match[3]), 0)
            yield match[1], round_ratio(numerator, 1 << max(-int(match[3]), 0))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("output")
    parser.add_argument("corpus", nargs="*")
    arguments = parser.parse_args()
    corpus = [text for path in arguments.corpus for text in known(path)]
    for path in arguments.corpus:
        for text, bits in known_bits(path):
            if nearest_bits(text) != bits:
                sys.exit(f"hard_decimals: {text} is not what {path} says")
    texts = list(dict.fromkeys([*corpus, *constructed()]))
    with open(arguments.output, "w", encoding="utf-8") as output:
        for text in texts:
            bits = nearest_bits(text)
            # The interpreter's own reader is exact as well.
            if struct.pack("<d", float(text)) != struct.pack("<Q", bits):
                sys.exit(f"hard_decimals: {text} is read in two ways")
            output.write(f"{bits:016X} {text}\n")
    print(f"{len(texts)} decimals, {len(set(corpus))} of them from files")


if __name__ == "__main__":
    main()
