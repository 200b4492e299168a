#!/usr/bin/env python3
"""Makes the identifiers, resource scripts and built-in tables from the language files.

The first language is the reference: its names become the identifiers, and every other language
must have the same numbers, names and conversions. Any fault ends the build with a message of the
form "file:line: what is wrong", before a single output is written.

Outputs below the output folder:
    include/resources/string_ids.h   enum StringId and kAllStringIds
    <language>/strings.rc            string table of a language, to be included by a resource script
    language_texts.cpp               the texts of all languages as bytes in code page 1252
"""

import argparse
import pathlib
import re
import sys
from typing import NamedTuple

LINE_FORM = re.compile(r'(\d+)[ \t]+([A-Z][A-Za-z0-9]*)[ \t]+"((?:[^"\\]|\\.)*)"')
ESCAPES = {"n": "\n", '"': '"', "\\": "\\"}
# The conversions of CheckedFormat, which reads these texts at run time.
CONVERSION_FORM = re.compile(r"%(?:%|[-0+ #]*\d*(?:\.\d*)?(hh|h|ll|l|I32|I64)?([diuxXcs]))")
# A string resource carries its number and its length in 16 bits.
MAXIMUM_NUMBER = 65535
MAXIMUM_LENGTH = 65535


class SourceError(Exception):
    """A fault in a language file, told as "file:line: what is wrong"."""


class Text(NamedTuple):
    line: int
    number: int
    name: str
    text: str

    def conversions(self):
        """Length and letter of each conversion, in order of their arguments."""
        found = CONVERSION_FORM.finditer(self.text)
        return [(match[1] or "") + match[2] for match in found if match[2]]


class Language(NamedTuple):
    code: str
    identifier: int  # LANGID of Windows
    name: str
    path: pathlib.Path
    texts: list

    def error(self, line, message):
        return SourceError(f"{self.path}:{line}: {message}")


def unescape(escaped):
    """The text that a C literal of these characters stands for; None on an unknown escape."""
    pieces = []
    characters = iter(escaped)
    for character in characters:
        if character == "\\":
            character = ESCAPES.get(next(characters))
            if character is None:
                return None
        pieces.append(character)
    return "".join(pieces)


def check_text(language, entry):
    if not entry.text:
        raise language.error(entry.line, f"text {entry.number} is empty, which means missing")
    if len(entry.text) > MAXIMUM_LENGTH:
        raise language.error(entry.line, f"text {entry.number} is too long for a resource")
    for character in entry.text:
        if character != "\n" and not character.isprintable() and character != "\u00a0":
            raise language.error(
                entry.line, f"text {entry.number} holds the control character {ord(character):#04x}")
    try:
        entry.text.encode("cp1252")
    except UnicodeEncodeError as error:
        character = entry.text[error.start]
        raise language.error(
            entry.line, f'"{character}" of text {entry.number} is not in code page 1252') from None
    if "%" in CONVERSION_FORM.sub("", entry.text):
        raise language.error(entry.line, f'a "%" of text {entry.number} begins no known conversion')


def parse_line(language, line, content):
    match = LINE_FORM.fullmatch(content)
    if match is None:
        raise language.error(line, 'malformed line, expected: number Name "text"')
    text = unescape(match[3])
    if text is None:
        raise language.error(line, 'unknown escape, only \\n, \\" and \\\\ are allowed')
    entry = Text(line, int(match[1]), match[2], text)
    if not 1 <= entry.number <= MAXIMUM_NUMBER:
        raise language.error(line, f"number {entry.number} is not within 1 to {MAXIMUM_NUMBER}")
    check_text(language, entry)
    return entry


def read_language(code, identifier, name, path):
    language = Language(code, int(identifier, 0), name, pathlib.Path(path), [])
    try:
        content = language.path.read_text(encoding="utf-8")
    except UnicodeDecodeError as error:
        line = error.object.count(b"\n", 0, error.start) + 1
        raise language.error(line, "not UTF-8") from None
    names = set()
    for line, raw in enumerate(content.split("\n"), 1):
        stripped = raw.strip(" \t\r")
        if not stripped or stripped.startswith("#"):
            continue
        entry = parse_line(language, line, stripped)
        last = language.texts[-1].number if language.texts else 0
        if entry.number == last:
            raise language.error(line, f"number {entry.number} is there twice")
        if entry.number < last:
            raise language.error(line, f"number {entry.number} stands after {last}, not in order")
        if entry.name in names:
            raise language.error(line, f"name {entry.name} is there twice")
        names.add(entry.name)
        language.texts.append(entry)
    if not language.texts:
        raise language.error(1, "no texts")
    return language


def compare(reference, language):
    """Requires the same numbers, names and conversions in both."""
    wanted = {entry.number: entry for entry in reference.texts}
    for entry in language.texts:
        original = wanted.pop(entry.number, None)
        if original is None:
            raise language.error(
                entry.line, f"number {entry.number} is not in {reference.path.name}")
        if entry.name != original.name:
            raise language.error(
                entry.line, f"text {entry.number} is named {original.name} in {reference.path.name}")
        if entry.conversions() != original.conversions():
            raise language.error(
                entry.line,
                f"text {entry.number} has the conversions {entry.conversions()}, "
                f"in {reference.path.name} {original.conversions()}")
    for missing in wanted.values():
        raise language.error(
            language.texts[-1].line,
            f"text {missing.number} ({missing.name}) of {reference.path.name} is missing")


def identifier_header(reference):
    enumerators = "".join(f"    {entry.name} = {entry.number},\n" for entry in reference.texts)
    names = "".join(f"    StringId::{entry.name},\n" for entry in reference.texts)
    return f"""\
// Made by generate_strings.py from {reference.path.name}; changes here are lost.
#pragma once

#include <array>
#include <cstdint>

namespace orvell::resources {{

/// Numbers of the string table. Texts of a block are also reached by counting from its first.
enum class StringId : std::uint32_t {{
{enumerators}}};

/// All numbers that have a text, ascending.
inline constexpr std::array<StringId, {len(reference.texts)}> kAllStringIds{{{{
{names}}}}};

}}  // namespace orvell::resources
"""


def wide_literal(text):
    """A wide string of a resource script. All but plain ASCII is escaped by its UTF-16 unit, so
    that neither the script's code page nor the resource compiler's locale matters."""
    plain = {"\n": "\\n", '"': '""', "\\": "\\\\"}
    return 'L"' + "".join(
        plain.get(character, character) if ord(character) < 0x7F else f"\\x{ord(character):04x}"
        for character in text) + '"'


def resource_script(language):
    strings = "".join(
        f"    {entry.number} {wide_literal(entry.text)}\n" for entry in language.texts)
    return f"""\
// Made by generate_strings.py from {language.path.name}; changes here are lost.
#define ORVELL_LANGUAGE_ID {language.identifier:#06x}
#define ORVELL_LANGUAGE_NAME {wide_literal(language.name)}
// Block name of the version resource: language and code page 1252 in hexadecimal.
#define ORVELL_LANGUAGE_BLOCK "{language.identifier:04X}04E4"

LANGUAGE {language.identifier & 0x3FF:#04x}, {language.identifier >> 10:#04x}

STRINGTABLE
BEGIN
{strings}END
"""


def byte_literal(text):
    """A C literal of the text's bytes in code page 1252, in plain ASCII."""
    pieces = []
    for byte in text.encode("cp1252"):
        character = chr(byte)
        if character == "\n":
            pieces.append("\\n")
        elif character in '"\\':
            pieces.append("\\" + character)
        else:
            pieces.append(character if byte < 0x7F else f"\\{byte:03o}")
    return '"' + "".join(pieces) + '"'


def language_texts(languages):
    tables = ""
    choices = ""
    for language in languages:
        array = f"k{language.code.capitalize()}Texts"
        lines = "".join(
            f"    {{{entry.number}, {byte_literal(entry.text)}}},\n" for entry in language.texts)
        tables += f"constexpr LanguageText {array}[] = {{\n{lines}}};\n\n"
        choices += f'    if (language == "{language.code}") {{\n        return {array};\n    }}\n'
    return f"""\
// Made by generate_strings.py from the language files; changes here are lost.
#include "resources/built_in_strings.h"

namespace orvell::resources {{
namespace {{

{tables}}}  // namespace

std::span<const LanguageText> LanguageTexts(std::string_view language) {{
{choices}    return {{}};
}}

}}  // namespace orvell::resources
"""


def write_changed(path, content):
    """Leaves an equal file untouched, so that a changed text does not rebuild all users of ids."""
    encoded = content.encode("ascii")
    if path.is_file() and path.read_bytes() == encoded:
        return
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(encoded)


def generate(languages, output):
    for language in languages[1:]:
        compare(languages[0], language)
    write_changed(output / "include/resources/string_ids.h", identifier_header(languages[0]))
    write_changed(output / "language_texts.cpp", language_texts(languages))
    for language in languages:
        write_changed(output / language.code / "strings.rc", resource_script(language))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("--language", nargs=4, action="append", required=True,
                        metavar=("CODE", "LANGID", "NAME", "FILE"),
                        help="the first one is the reference")
    parser.add_argument("--output", type=pathlib.Path, required=True)
    arguments = parser.parse_args()
    try:
        languages = [read_language(*language) for language in arguments.language]
        generate(languages, arguments.output)
    except (SourceError, OSError) as error:
        print(f"generate_strings.py: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
