#!/usr/bin/env python3
"""The floor check finds what it is there for: each case is a small house with one fault, or none."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECK = pathlib.Path(__file__).resolve().parents[2] / "tools" / "check_floors"
COMPILER = sys.argv.pop(1) if len(sys.argv) > 1 else "c++"


class Floors(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.source = pathlib.Path(self.folder.name)
        self.addCleanup(self.folder.cleanup)

    def write(self, name, text):
        path = self.source / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(text + "\n", encoding="utf-8")
        return path

    def check(self, *libraries):
        run = subprocess.run([sys.executable, CHECK, self.source, *libraries],
                             capture_output=True, text=True, check=False)
        return run.returncode, run.stdout

    def check_object(self, text):
        path = self.write("model/state.cpp", text)
        compiled = path.with_suffix(".o")
        subprocess.run([COMPILER, "-std=c++20", "-O2", "-c", path, "-o", compiled], check=True)
        return self.check(compiled)

    def test_includes_of_the_own_floor_and_below_are_in_order(self):
        self.write("engine/a.cpp", '#include "engine/a.h"\n#include "model/show.h"\n#include <vector>')
        self.write("ui/b.cpp", '#include "engine/a.h"\n#include <QWidget>\n#include "b.moc"')
        self.assertEqual(self.check()[0], 0)

    def test_include_of_a_floor_above_is_found(self):
        for lower, upper in [("model", "engine"), ("drivers", "platform"), ("files", "ui"), ("devices", "engine")]:
            with self.subTest(lower=lower):
                path = self.write(f"{lower}/a.cpp", f'#  include "{upper}/b.h"')
                failed, said = self.check()
                self.assertEqual(failed, 1)
                self.assertIn(f'{lower}/a.cpp:1: {lower} includes "{upper}/b.h", which is above it', said)
                path.unlink()

    def test_include_that_does_not_name_its_floor_is_found(self):
        self.write("model/a.cpp", '#include "show.h"')
        self.assertEqual(self.check()[0], 1)

    def test_qt_below_the_windows_is_found(self):
        for name in ["QString", "QtGlobal", "QtCore/QString"]:
            with self.subTest(name=name):
                self.write("files/a.cpp", f"#include <{name}>")
                failed, said = self.check()
                self.assertEqual(failed, 1)
                self.assertIn("files knows no Qt", said)

    def test_empty_house_is_a_fault(self):
        self.assertEqual(self.check()[0], 1)

    def test_the_three_records_may_last(self):
        failed, said = self.check_object(
            "#include <iostream>\n#include <string>\nnamespace quorvane { struct S { std::string a; int b = 1; };\n"
            "inline S Show; inline S Host; inline S Screen; inline std::string& OsName = Show.a;\n"
            "const int Steps = 254; constexpr const char* Names[] = {\"a\", \"b\"};\n"
            "int Use() { return Show.b + Host.b + Screen.b + Steps + Names[Show.b][0] + int(OsName.size()); } }")
        self.assertEqual(failed, 0, said)

    def test_other_lasting_state_is_found(self):
        for kind, text in {
            "global": "int Counter; int Use() { return ++Counter; }",
            "global with a value": "int Counter = 5; int Use() { return ++Counter; }",
            "file": "static int Counter; int Use() { return ++Counter; }",
            "unnamed namespace": "namespace { int Counter; } int Use() { return ++Counter; }",
            "function": "int Use() { static int Counter; return ++Counter; }",
            "inline": "inline int Counter = 3; int Use() { return ++Counter; }",
            "thread": "thread_local int Counter; int Use() { return ++Counter; }",
            "class": "struct S { static inline int Counter = 4; }; int Use() { return ++S::Counter; }",
            "made at first use": "int Start(); int Use() { static int Counter = Start(); return ++Counter; }",
        }.items():
            with self.subTest(kind=kind):
                failed, said = self.check_object(f"namespace quorvane {{ {text} }}")
                self.assertEqual(failed, 1, said)
                self.assertIn("Counter", said)


unittest.main()
