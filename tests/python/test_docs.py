# SPDX-License-Identifier: MIT
"""The examples in the documents are code that works."""

import array
import contextlib
import ctypes
import io
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

from audioanalyzer import library

ROOT = pathlib.Path(os.environ["AA_SOURCE"])
INCLUDES = [f"-I{ROOT / 'src'}", f"-I{os.environ['AA_GENERATED']}"]


def block(document: str, language: str) -> str:
    """The first block of code of that language."""
    text = (ROOT / document).read_text()
    return re.search(rf"```{language}\n(.*?)```", text, re.S)[1]


def in_main(code: str, first_statement: str, before: str, declarations: str) -> str:
    """A program: what stands before the first statement stays outside of main()."""
    head, body = code.split(first_statement, 1)
    return f"{before}\n{head}\nint main(void)\n{{\n{declarations}\n{first_statement}{body}\nreturn 0;\n}}\n"


class Snippets(unittest.TestCase):
    def check_syntax(self, compiler, suffix, program, options):
        with tempfile.TemporaryDirectory() as folder:
            source = pathlib.Path(folder) / f"snippet{suffix}"
            source.write_text(program)
            run = subprocess.run(
                [compiler, "-fsyntax-only", "-Wall", "-Wextra", "-Werror", *options, *INCLUDES, source],
                capture_output=True, text=True, timeout=120, check=False
            )
        self.assertEqual((run.returncode, run.stderr), (0, ""), program)

    def check_cpp(self, document, declarations, functions):
        qt = ["pkg-config", "--cflags", "Qt5Core", "Qt5Multimedia"]
        flags = subprocess.run(qt, capture_output=True, text=True, check=True).stdout.split()
        code = block(document, "cpp")
        program = in_main(
            code,
            "Configuration configuration;",
            "#include <QAudioFormat>\n#include <QObject>\n" + functions,
            declarations,
        )
        self.check_syntax(os.environ["AA_CXX"], ".cpp", program, ["-std=c++17", "-fPIC", *flags])

    def test_c_of_embedding(self):
        program = in_main(
            block("docs/embedding.md", "c"),
            "AudioAnalysis* pAnalysis",
            "#include <stddef.h>\n#include <stdint.h>\n#include <stdio.h>\n"
            "size_t read_audio(int16_t* pSamples, size_t pFrames);",
            "int16_t samples[2048];\nsize_t frames = 0;",
        )
        options = ["-std=c11", "-Wno-unused-parameter"]
        self.check_syntax(os.environ["AA_CC"], ".c", program, options)

    def test_cpp_of_embedding(self):
        declarations = "float frames[2] = {};\nqint16 samples[1] = {};\nstd::size_t count = 1;"
        self.check_cpp("docs/embedding.md", declarations, "void flash();")

    def test_cpp_of_readme(self):
        declarations = "qint16 samples[1] = {};\nstd::size_t count = 1;"
        self.check_cpp("README.md", declarations, "void flash();\nvoid show(double);")

    def test_python_of_embedding(self):
        # Bursts of 60 Hz, twice a second: 15 s.
        second = array.array("h")
        for i in range(44100):
            level = 20000 if i % 22050 < 8000 and i // 367 % 2 else 0
            second.extend((level, level))
        audio = [second] * 15
        told = io.StringIO()
        with contextlib.redirect_stdout(told):
            code = compile(block("docs/embedding.md", "python"), "embedding.md", "exec")
            exec(code, {"read_audio": lambda count: audio.pop() if audio else None})
        lines = told.getvalue().splitlines()
        self.assertGreater(len(lines), 15)
        for line in lines:
            self.assertRegex(line, r"^\d+\.\d{3} s, \d+\.\d BPM(, bridged)?$")


class Figures(unittest.TestCase):
    def test_embedding_has_the_defaults_of_the_library(self):
        text = (ROOT / "docs/embedding.md").read_text()
        numbers = library.setting_numbers()
        for name, pattern in (
            ("stop-duration", r"until ([\d.]+) seconds of it were heard \(`StopDuration`\)"),
            ("stop-threshold", r"\(`StopThreshold`, (\d+)\)"),
        ):
            default = ctypes.c_double()
            library.library().call("GetLimits", numbers[name], None, None, ctypes.byref(default))
            self.assertEqual(float(re.search(pattern, text)[1]), default.value, name)


if __name__ == "__main__":
    unittest.main()
