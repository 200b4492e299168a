#!/usr/bin/env python3
"""Checks the built DLL: exports exactly the names of the boundary, undecorated; imports system DLLs
only; may be moved in memory, keeps its data from being executed and its code from being written; its
functions guard their stack."""

import argparse
import re
import struct
import subprocess
import sys

EXPECTED_EXPORTS = """
SetZelkorExportFctns GetStdParaFctns GetParaMGMTFunc STDSIL_GetSignalInfo STDSIL_SetBitParaValue
STDSIL_SetWordParaValue STDSIL_SetFloatParaValue STDSIL_SetTextParaValue STDSIL_SetTXParaValue
STDSIL_GetName STDSIL_SetName STDSIL_GetComment STDSIL_SetComment STDSIL_GetValue STDSIL_SetValue
STDSIL_GetBitValue STDSIL_GetWordValue STDSIL_GetWordVector STDSIL_GetFloatValue
STDSIL_GetStringValue STDSIL_SetTextValue STDSIL_GetTXValue STDSIL_SetTXValue
""".split()

SYSTEM_DLLS = {
    "kernel32.dll", "user32.dll", "gdi32.dll", "advapi32.dll", "msvcrt.dll", "ole32.dll",
    "oleaut32.dll", "oleacc.dll", "comctl32.dll", "shell32.dll",
}

# Microsoft's PE format: DllCharacteristics
DYNAMIC_BASE = 0x0040
NX_COMPAT = 0x0100
NO_SEH = 0x0400  # with it the system would not call the module's own handler of exceptions

LEAST_GUARDED_FUNCTIONS = 100
# The end of a process whose stack is overrun: mov ecx, 2; int 0x29
FAIL_FAST = bytes.fromhex("b902000000cd29")


def exports(dump):
    table = dump.split("[Ordinal/Name Pointer] Table", 1)[-1]
    return re.findall(r"^\t\[ *\d+\] (?:\+base\[ *\d+\] +[0-9a-f]+ )?(\S+)$", table, re.MULTILINE)


def imports(dump):
    return [name.lower() for name in re.findall(r"DLL Name: (\S+)", dump)]


def birth_time(image):
    """TimeDateStamp of the image's file header."""
    with open(image, "rb") as file:
        data = file.read(4096)
    header = struct.unpack_from("<I", data, 0x3C)[0]
    return struct.unpack_from("<I", data, header + 8)[0]


def sections(objdump, image):
    """Name to flags and contents of the image's sections that are loaded."""
    dump = subprocess.run([objdump, "-h", "-w", image], check=True, text=True,
                          capture_output=True).stdout
    with open(image, "rb") as file:
        data = file.read()
    result = {}
    for line in dump.splitlines():
        fields = line.split(maxsplit=7)
        if len(fields) == 8 and fields[0].isdigit() and "ALLOC" in fields[7]:
            size, offset = int(fields[2], 16), int(fields[5], 16)
            result[fields[1]] = (fields[7], data[offset:offset + size] if offset else b"")
    return result


def guarded_places(nm, image, code):
    """How often the code refers to the stack's guard; None in an image without symbols."""
    symbols = subprocess.run([nm, image], check=True, text=True, capture_output=True).stdout
    found = re.search(r"^([0-9a-f]+) . ___stack_chk_guard$", symbols, re.MULTILINE)
    return code.count(int(found[1], 16).to_bytes(4, "little")) if found else None


def check_protection(options, failures):
    loaded = sections(options.objdump, options.image)
    for name, (flags, _) in loaded.items():
        if "CODE" in flags and "READONLY" not in flags:
            failures.append(f"section {name} is both written and executed")
    code = loaded[".text"][1]
    if FAIL_FAST not in code:
        failures.append("no function guards its stack")
    places = guarded_places(options.nm, options.image, code)
    # Each guarded function refers to it when it begins and when it ends.
    if places is not None and places < 2 * LEAST_GUARDED_FUNCTIONS:
        failures.append(f"only {places} references to the stack's guard")
    return places


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--objdump", required=True)
    parser.add_argument("--nm", required=True)
    parser.add_argument("--definition", required=True)
    parser.add_argument("image")
    options = parser.parse_args()
    dump = subprocess.run([options.objdump, "-p", options.image], check=True, text=True,
                          capture_output=True).stdout

    failures = []
    if sorted(exports(dump)) != sorted(EXPECTED_EXPORTS):
        failures.append(f"exports differ: {sorted(set(exports(dump)) ^ set(EXPECTED_EXPORTS))}")
    with open(options.definition, encoding="ascii") as file:
        defined = file.read().split("EXPORTS")[1].split()
    if sorted(defined) != sorted(EXPECTED_EXPORTS):
        failures.append("the definition file names other exports")
    foreign = sorted(set(imports(dump)) - SYSTEM_DLLS)
    if foreign or not imports(dump):
        failures.append(f"imports other than system DLLs: {foreign}")
    characteristics = int(re.search(r"^DllCharacteristics\s+([0-9a-f]+)", dump, re.MULTILINE)[1], 16)
    for name, flag in (("dynamic base", DYNAMIC_BASE), ("NX", NX_COMPAT)):
        if not characteristics & flag:
            failures.append(f"{name} is off")
    if characteristics & NO_SEH:
        failures.append("handlers of exceptions are declared not to exist")
    places = check_protection(options, failures)
    if birth_time(options.image):
        failures.append("the image carries its time of birth: two builds of the same would differ")
    if "Base Relocation Directory [.reloc]" not in dump:
        failures.append("no relocations: the image could not be moved")

    print(f"{options.image}: {len(exports(dump))} exports, imports {imports(dump)}, "
          f"characteristics {characteristics:04x}, {places} references to the stack's guard")
    for failure in failures:
        print("FAILED:", failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
