#!/usr/bin/env python3
"""Checks the built DLL: exports exactly the names of the boundary, undecorated; imports system DLLs
only; may be moved in memory and keeps its data from being executed."""

import argparse
import re
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


def exports(dump):
    table = dump.split("[Ordinal/Name Pointer] Table", 1)[-1]
    return re.findall(r"^\t\[ *\d+\] (?:\+base\[ *\d+\] +[0-9a-f]+ )?(\S+)$", table, re.MULTILINE)


def imports(dump):
    return [name.lower() for name in re.findall(r"DLL Name: (\S+)", dump)]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--objdump", required=True)
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
    if "Base Relocation Directory [.reloc]" not in dump:
        failures.append("no relocations: the image could not be moved")

    print(f"{options.image}: {len(exports(dump))} exports, imports {imports(dump)}, "
          f"characteristics {characteristics:04x}")
    for failure in failures:
        print("FAILED:", failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
