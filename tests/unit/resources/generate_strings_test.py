#!/usr/bin/env python3
"""Runs the string generator on language files with one fault each, and reads what it makes."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

GENERATOR = sys.argv.pop(1)

GERMAN = '''\
# comment
1  First   "Eins"

2  Second  "%s: \\"%u\\"\\n\u00e4\u20ac\\\\"
10 Third   "100 %% %d"
'''
ENGLISH = '1 First "One"\n2 Second "%s with %u"\n10 Third "100 %% %d"\n'


class GeneratorTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.output = self.folder / "out"

    def run_generator(self, german, english):
        arguments = []
        for code, identifier, text in (("de", "0x0407", german), ("en", "0x0409", english)):
            path = self.folder / f"strings.{code}.txt"
            path.write_bytes(text if isinstance(text, bytes) else text.encode("utf-8"))
            arguments += ["--language", code, identifier, code.upper(), str(path)]
        return subprocess.run(
            [sys.executable, GENERATOR, *arguments, "--output", str(self.output)],
            capture_output=True, encoding="utf-8", check=False)

    def read_output(self, name):
        return (self.output / name).read_text(encoding="ascii")

    def assert_refused(self, german, english, *expected):
        run = self.run_generator(german, english)
        self.assertEqual(run.returncode, 1, run.stderr)
        self.assertNotIn("Traceback", run.stderr)
        for part in expected:
            self.assertIn(part, run.stderr)
        self.assertFalse(self.output.exists(), "a refused run must leave no output")

    def assert_german_refused(self, line, *expected):
        """Refused for one more line behind good ones, which is line 6 of the file."""
        self.assert_refused(GERMAN + line + "\n", ENGLISH, "strings.de.txt:6:", *expected)

    def test_makes_all_outputs(self):
        run = self.run_generator(GERMAN, ENGLISH)
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        header = self.read_output("include/resources/string_ids.h")
        self.assertIn("    Second = 2,\n", header)
        self.assertIn("std::array<StringId, 3>", header)
        self.assertIn('2 L"%s: ""%u""\\n\\x00e4\\x20ac\\\\"\n', self.read_output("de/strings.rc"))
        self.assertIn("LANGUAGE 0x09, 0x01\n", self.read_output("en/strings.rc"))
        self.assertIn('{2, "%s: \\"%u\\"\\n\\344\\200\\\\"},', self.read_output("language_texts.cpp"))

    def test_leaves_equal_outputs_untouched(self):
        self.run_generator(GERMAN, ENGLISH)
        header = self.output / "include/resources/string_ids.h"
        before = header.stat().st_mtime_ns
        run = self.run_generator(GERMAN, ENGLISH.replace("One", "First"))
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(header.stat().st_mtime_ns, before)
        self.assertIn('L"First"', self.read_output("en/strings.rc"))

    def test_malformed_lines(self):
        for line in ('11 Fourth', '11 "text"', 'Fourth "text"', '11 Fourth "text', '11 Fourth text"',
                     '11 Fourth "text" more', '11 Fourth "a"b"', '11 fourth "text"', '-1 Fourth "x"',
                     '11 Fourth "text\\"', '11,Fourth,"text"', '\ufeff11 Fourth "text"'):
            with self.subTest(line):
                self.assert_german_refused(line, "malformed line")

    def test_unknown_escape(self):
        self.assert_german_refused('11 Fourth "a\\tb"', "unknown escape")

    def test_numbers_outside_the_resource_range(self):
        self.assert_german_refused('65536 Fourth "x"', "65536")
        self.assert_refused('0 Zero "x"\n' + GERMAN, ENGLISH, "strings.de.txt:1:", "number 0")

    def test_duplicate_number(self):
        self.assert_german_refused('10 Fourth "x"', "number 10 is there twice")

    def test_unsorted_number(self):
        self.assert_german_refused('9 Fourth "x"', "number 9 stands after 10")

    def test_duplicate_name(self):
        self.assert_german_refused('11 Third "x"', "name Third is there twice")

    def test_empty_text(self):
        self.assert_german_refused('11 Fourth ""', "empty")

    def test_control_character(self):
        self.assert_german_refused('11 Fourth "a\tb"', "control character 0x09")

    def test_text_outside_the_code_page(self):
        self.assert_german_refused('11 Fourth "\u017a"', "text 11", "code page 1252")
        self.assert_german_refused('11 Fourth "a\u0308"', "text 11", "code page 1252")

    def test_text_that_is_not_utf8(self):
        self.assert_refused(GERMAN.encode() + b'11 Fourth "\xfc"\n', ENGLISH,
                            "strings.de.txt:6:", "not UTF-8")

    def test_text_too_long_for_a_resource(self):
        self.assert_german_refused(f'11 Fourth "{"x" * 65536}"', "too long")

    def test_unknown_conversion(self):
        for text in ("%n", "%f", "%*d", "100 %", "%1$s"):
            with self.subTest(text):
                self.assert_german_refused(f'11 Fourth "{text}"', "begins no known conversion")

    def test_number_missing_in_one_language(self):
        self.assert_refused(GERMAN, ENGLISH.replace('10 Third "100 %% %d"\n', ""),
                            "strings.en.txt", "text 10 (Third)", "missing")
        self.assert_refused(GERMAN, ENGLISH + '11 Fourth "x"\n',
                            "strings.en.txt:4:", "number 11 is not in strings.de.txt")

    def test_name_differs(self):
        self.assert_refused(GERMAN, ENGLISH.replace("Second", "Other"),
                            "strings.en.txt:2:", "named Second")

    def test_conversions_differ(self):
        for text in ("%s", "%s %u %u", "%u %s", "%s %d", "%s %lu", "%s %%u", "no conversion"):
            with self.subTest(text):
                self.assert_refused(GERMAN, ENGLISH.replace("%s with %u", text),
                                    "strings.en.txt:2:", "text 2 has the conversions")

    def test_widths_and_flags_may_differ(self):
        run = self.run_generator(GERMAN, ENGLISH.replace("%s with %u", "%-10s %04u"))
        self.assertEqual(run.returncode, 0, run.stderr)

    def test_missing_file(self):
        run = subprocess.run(
            [sys.executable, GENERATOR, "--language", "de", "0x0407", "DE",
             str(self.folder / "none.txt"), "--output", str(self.output)],
            capture_output=True, encoding="utf-8", check=False)
        self.assertEqual(run.returncode, 1)
        self.assertIn("none.txt", run.stderr)
        self.assertNotIn("Traceback", run.stderr)

    def test_no_texts(self):
        self.assert_refused("# nothing\n", ENGLISH, "strings.de.txt", "no texts")


if __name__ == "__main__":
    unittest.main()
